#include "ddc/VcpCodes.h"

#include <gtest/gtest.h>

#include <string>

// One named value and the unnamed ones beside it in each set, and the hex text of a plain int.
TEST(VcpCodes, TextsOfEverySetAndTheirFallbacks) {
    const std::string unsupported = "Unsupported VPC Code";
    const std::pair<std::string, std::string> rows[] = {
        {VCPCodeToString(vcpC_Undefined), "Undefined"},
        {VCPCodeToString(vcpC_BatteryMode), "Battery Mode"},
        {VCPCodeToString(vcpC_BacklightLevelWhite), unsupported},
        {VCPCodeToString(vcpCode(0xF5)), unsupported},
        {VCPCodeToString(vcpCode(300)), unsupported},
        {VCPCodeToString(ddcCommandCodes(0)), "Code not found"},
        {VCPCodeToString(ddcCC_CapabilitiesRequest), "ddcCC_CapabilitiesRequest"},
        {VCPCodeToString(colorPreset_5700K), "5700k"},
        {VCPCodeToString(colorPresetCode(10)), unsupported},
        {VCPCodeToString(colorPreset_Preset12), unsupported},
        {VCPCodeToString(colorSpace_XRite2), "Xrite2"},
        {VCPCodeToString(displayPreset_XRite2Kt), "XRite2_kt"},
        {VCPCodeToString(displayPresetCode(13)), unsupported},
        {VCPCodeToString(displayScalingCode(11)), unsupported},
        {VCPCodeToString(gamma_ColorSpace_or_2_4), "Follow Color Space/2.4"},
        {VCPCodeToString(gammaCode(4)), unsupported},
        {VCPCodeToString(ledBrightnessCode(4)), unsupported},
        {VCPCodeToString(uniformityCompCode(-1)), unsupported},
        {VCPCodeToString(-1), "FFFFFFFF"},
        {VCPCodeToString(0xABCDEF), "00ABCDEF"},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(text, expected);
    }
}
