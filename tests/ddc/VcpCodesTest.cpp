#include "ddc/VcpCodes.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

struct STextCase {
    std::string name;
    std::function<std::string()> text;
    std::string expected;
};

struct SCodeTraceSwitch {
    SCodeTraceSwitch() { gCodeTraceEnabled = true; }
    ~SCodeTraceSwitch() { gCodeTraceEnabled = false; }
};

} // namespace

TEST(VcpCodes, TextsOfEverySetAndTheirFallbacks) {
    const std::string unsupported = "Unsupported VPC Code";
    const STextCase cases[] = {
        {"vcp 0", [] { return VCPCodeToString(vcpC_Undefined); }, "Undefined"},
        {"vcp 0x0A", [] { return VCPCodeToString(vcpC_RestoreFactoryTVDefaults); },
         "Resetore Factory TV Defaults"},
        {"vcp 0x74", [] { return VCPCodeToString(vcpCode(0x74)); }, "Single Point LUT OPeration"},
        {"vcp 0xAC", [] { return VCPCodeToString(vcpCode(0xAC)); }, "HorizontalFrequency"},
        {"vcp 0xB0", [] { return VCPCodeToString(vcpCode(0xB0)); }, "6 Settings"},
        {"vcp 0xC0", [] { return VCPCodeToString(vcpC_DisplayUsageTime); }, "Display Usage Time"},
        {"vcp 0xCA", [] { return VCPCodeToString(vcpC_OSD); }, "OSD"},
        {"vcp 0xE1", [] { return VCPCodeToString(vcpC_BurnInMode); }, "Burn in Mode"},
        {"vcp 0xF4", [] { return VCPCodeToString(vcpC_BatteryMode); }, "Battery Mode"},
        {"vcp 0x6B", [] { return VCPCodeToString(vcpC_BacklightLevelWhite); }, unsupported},
        {"vcp 0xA6", [] { return VCPCodeToString(vcpC_WindowSize); }, unsupported},
        {"vcp 0xF1", [] { return VCPCodeToString(vcpCode(0xF1)); }, unsupported},
        {"vcp 0xF5", [] { return VCPCodeToString(vcpCode(0xF5)); }, unsupported},
        {"vcp 300", [] { return VCPCodeToString(vcpCode(300)); }, unsupported},
        {"command 0", [] { return VCPCodeToString(ddcCommandCodes(0)); }, "Code not found"},
        {"command 0xF3", [] { return VCPCodeToString(ddcCC_CapabilitiesRequest); },
         "ddcCC_CapabilitiesRequest"},
        {"command 0x0C", [] { return VCPCodeToString(ddcCC_SaveCurrentSettingsRequest); },
         "ddcCC_SaveCurrentSettingsRequest"},
        {"preset 11", [] { return VCPCodeToString(colorPreset_5700K); }, "5700k"},
        {"preset 3", [] { return VCPCodeToString(colorPresetCode(3)); }, unsupported},
        {"preset 7", [] { return VCPCodeToString(colorPresetCode(7)); }, unsupported},
        {"preset 10", [] { return VCPCodeToString(colorPresetCode(10)); }, unsupported},
        {"preset 12", [] { return VCPCodeToString(colorPreset_Preset12); }, unsupported},
        {"space 8", [] { return VCPCodeToString(colorSpace_XRite1); }, "XRite1"},
        {"space 9", [] { return VCPCodeToString(colorSpace_XRite2); }, "Xrite2"},
        {"space 5", [] { return VCPCodeToString(colorSpaceCode(5)); }, unsupported},
        {"display preset 12", [] { return VCPCodeToString(displayPreset_XRite2Kt); }, "XRite2_kt"},
        {"display preset 10", [] { return VCPCodeToString(displayPresetCode(10)); }, unsupported},
        {"display preset 13", [] { return VCPCodeToString(displayPresetCode(13)); }, unsupported},
        {"scaling 3", [] { return VCPCodeToString(displayScaling_MaxVerticalNoAR); },
         "Max Vertical Image No AR/Aspect Mode"},
        {"scaling 11", [] { return VCPCodeToString(displayScalingCode(11)); }, unsupported},
        {"gamma 3", [] { return VCPCodeToString(gamma_ColorSpace_or_2_4); },
         "Follow Color Space/2.4"},
        {"gamma 4", [] { return VCPCodeToString(gammaCode(4)); }, unsupported},
        {"led 0", [] { return VCPCodeToString(ledBrightness_Off); }, "LED Brightness off"},
        {"led 4", [] { return VCPCodeToString(ledBrightnessCode(4)); }, unsupported},
        {"uniformity 3", [] { return VCPCodeToString(uniformityComp_Table3); },
         "Uniformity Table 3"},
        {"uniformity -1", [] { return VCPCodeToString(uniformityCompCode(-1)); }, unsupported},
        {"int 5", [] { return VCPCodeToString(5); }, "00000005"},
        {"int -1", [] { return VCPCodeToString(-1); }, "FFFFFFFF"},
        {"int 0xABCDEF", [] { return VCPCodeToString(0xABCDEF); }, "00ABCDEF"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.text(), c.expected) << c.name;
    }
}

TEST(VcpCodes, UnknownValuesAreTracedOnlyBehindTheirOwnSwitch) {
    testing::internal::CaptureStderr();
    VCPCodeToString(vcpCode(0xF5));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    SCodeTraceSwitch on;
    testing::internal::CaptureStderr();
    VCPCodeToString(vcpCode(0xF5));
    VCPCodeToString(ddcCommandCodes(0));
    VCPCodeToString(gammaCode(9));
    VCPCodeToString(vcpC_Luminance);
    VCPCodeToString(-1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "VCPCodeToString vcpCode(0xF5)\n"
                                                      "VCPCodeToString ddcCommandCodes(0x0)\n"
                                                      "VCPCodeToString gammaCode(0x9)\n");
}
