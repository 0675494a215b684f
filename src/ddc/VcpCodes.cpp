#include "ddc/VcpCodes.h"

#include "foundation/Trace.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

bool gCodeTraceEnabled = false;

namespace {

struct SCodeText {
    int code;
    const char* text;
};

constexpr const char* kUnsupported = "Unsupported VPC Code";
constexpr const char* kNotFound = "Code not found";

// Ascending by code, as the lookup needs.
constexpr SCodeText kVcpCodeTexts[] = {
    {0x00, "Undefined"},
    {0x01, "Degauss"},
    {0x02, "New Control Value"},
    {0x03, "Soft Controls"},
    {0x04, "Restore Factory Defaults"},
    {0x05, "Restore Factory Luminance And Contrast Defaults"},
    {0x06, "Restore Factory Geometry Defaults"},
    {0x08, "Restore Factory Color Defaults"},
    {0x0A, "Resetore Factory TV Defaults"},
    {0x0B, "Color Temperature Increment"},
    {0x0C, "Color Temperature Request"},
    {0x0E, "Clock"},
    {0x10, "Luminance"},
    {0x11, "Flesh Tone Enhancement"},
    {0x12, "Contrast"},
    {0x13, "Backlight Control"},
    {0x14, "Select Color Preset"},
    {0x16, "Video Gain Red"},
    {0x17, "User Color Vision Compensation"},
    {0x18, "Video Gain Green"},
    {0x1A, "Video Gain Blue"},
    {0x1C, "Focus"},
    {0x1E, "Adjust Setup"},
    {0x1F, "Adjust Color Setup"},
    {0x20, "Horizontal Position (Phase)"},
    {0x22, "Horizontal Size"},
    {0x24, "Horizontal Pincushion"},
    {0x26, "Horizontal Pincushion Balance"},
    {0x28, "Horizontal Convergence R/B"},
    {0x29, "Horizontal Convergence M/G"},
    {0x2A, "Horizontal Linearity"},
    {0x2C, "Horizontal Linearity Balance"},
    {0x2E, "Gray Scale Expansion"},
    {0x30, "Vertical Position (Phase)"},
    {0x32, "Vertical Size"},
    {0x34, "Vertical Pincushion"},
    {0x36, "Vertical Pincushion Balance"},
    {0x38, "Vertical Convergence R/B"},
    {0x39, "Vertical Convergence M/G"},
    {0x3A, "Vertical Linearity"},
    {0x3C, "Vertical Linearity Balance"},
    {0x3E, "ClockPhase"},
    {0x40, "Horizontal Parallelogram"},
    {0x41, "Vertical Parallelogram"},
    {0x42, "Horizontal Keystone"},
    {0x43, "Vertical Keystone"},
    {0x44, "Rotation"},
    {0x46, "Top Corner Flare"},
    {0x48, "Top Corner Hook"},
    {0x4A, "Bottom Corner Flare"},
    {0x4C, "Bottom Corner Hook"},
    {0x52, "Active Control"},
    {0x54, "Performance Preservation"},
    {0x56, "Horizontal Moire"},
    {0x58, "Vertical Moire"},
    {0x59, "6 Axis Saturation Control Red"},
    {0x5A, "6 Axis Saturation Control Yellow"},
    {0x5B, "6 Axis Saturation Control Green"},
    {0x5C, "6 Axis Saturation Control Cyan"},
    {0x5D, "6 Axis Saturation Control Blue"},
    {0x5E, "6 Axis Saturation Control Magenta"},
    {0x60, "Input Source"},
    {0x62, "Audio Speaker Volume"},
    {0x63, "Audio Speaker Select"},
    {0x64, "Audio Microphone Volume"},
    {0x66, "Ambient Light Sensor"},
    {0x6C, "Video Black Level Red"},
    {0x6E, "Video Black Level Green"},
    {0x70, "Video Black Level Blue"},
    {0x72, "Gamma"},
    {0x73, "LUT Size"},
    {0x74, "Single Point LUT OPeration"},
    {0x75, "Block LUT Operation"},
    {0x76, "Remote Procedure Call"},
    {0x78, "EDID Operation"},
    {0x7C, "Adjust Zoom"},
    {0x82, "Horizontal Mirror (Flip)"},
    {0x84, "Vertical Mirror (Flip)"},
    {0x86, "Display Scaling"},
    {0x87, "Sharpness"},
    {0x88, "Velocity Scan Modulation"},
    {0x8A, "Color Saturation"},
    {0x8B, "TV-Channel Up/Down"},
    {0x8C, "TV Sharpness"},
    {0x8D, "Audio Mute"},
    {0x8E, "TV Contrast"},
    {0x8F, "Audio Treble"},
    {0x90, "Hue"},
    {0x91, "Audio Bass"},
    {0x92, "TV Black Level Luminance"},
    {0x93, "Audio Balance"},
    {0x94, "Audio Processor Mode"},
    {0x95, "Window Position (TL_X)"},
    {0x96, "Window Position (TL_Y)"},
    {0x97, "Window Position (BR_X)"},
    {0x98, "Window Position (BR_Y)"},
    {0x9A, "Window Background"},
    {0x9B, "6 Axis Hue Control Red"},
    {0x9C, "6 Axis Hue Control Yellow"},
    {0x9D, "6 Axis Hue Control Green"},
    {0x9E, "6 Axis Hue Control Cyan"},
    {0x9F, "6 Axis Hue Control Blue"},
    {0xA0, "6 Axis Hue Control Magenta"},
    {0xA2, "Auto-setup Toggle"},
    {0xA4, "Window Control Toggle"},
    {0xA5, "Window Select"},
    {0xAA, "Screen Orientation"},
    {0xAC, "HorizontalFrequency"},
    {0xAE, "Vertical Frequency"},
    {0xB0, "6 Settings"},
    {0xB2, "Flat Panel Sub-Pixel Layout"},
    {0xB4, "Source Timing Mode"},
    {0xB5, "Source Color Editing"},
    {0xB6, "Display Technology Type"},
    {0xC0, "Display Usage Time"},
    {0xC2, "Display Descriptor Length"},
    {0xC3, "Transmit Display Descriptor"},
    {0xC4, "Enable Display of Display Descriptor"},
    {0xC6, "Application Enable Key"},
    {0xC8, "Display Controller Type"},
    {0xC9, "Display Firmware Level"},
    {0xCA, "OSD"},
    {0xCC, "OSD Language"},
    {0xCD, "Status Indicators"},
    {0xCE, "Auxiliary Display Size"},
    {0xCF, "Auxiliary Display Data"},
    {0xD0, "Output Select"},
    {0xD2, "Asset Tag"},
    {0xD4, "Stereo Video Mode"},
    {0xD6, "Power Mode"},
    {0xD7, "Auxiliary Power Output"},
    {0xDA, "Scan Mode"},
    {0xDB, "Image Mode"},
    {0xDC, "Display Application"},
    {0xDE, "Scratch Pad"},
    {0xDF, "VCP Version"},
    {0xE0, "Uniformity Compensation"},
    {0xE1, "Burn in Mode"},
    {0xE2, "Aspect Ratio"},
    {0xE3, "Color Space"},
    {0xE4, "Color Offset Red"},
    {0xE5, "Color Offset Green"},
    {0xE6, "Color Offset Blue"},
    {0xE7, "Backlight Sensor Control"},
    {0xE8, "Dynamic Contrast"},
    {0xE9, "Energy Smart"},
    {0xEA, "LCD Conditioning"},
    {0xEB, "Fan Control"},
    {0xEC, "Model ID"},
    {0xED, "Fan Control Scenario"},
    {0xEE, "Auto Power Down"},
    {0xEF, "Led Brightness"},
    {0xF0, "Display Presets"},
    {0xF2, "Display Info"},
    {0xF3, "Fan Speed"},
    {0xF4, "Battery Mode"},
};

constexpr SCodeText kCommandTexts[] = {
    {ddcCC_GetVCPFeatureRequest, "ddcCC_GetVCPFeatureRequest"},
    {ddcCC_VCPReplyCode, "ddcCC_VCPReplyCode"},
    {ddcCC_SetVCPFeatureRequest, "ddcCC_SetVCPFeatureRequest"},
    {ddcCC_GetTimingReportResponse, "ddcCC_GetTimingReportResponse"},
    {ddcCC_GetTimingReportRequest, "ddcCC_GetTimingReportRequest"},
    {ddcCC_VCPResetReplyCode, "ddcCC_VCPResetReplyCode"},
    {ddcCC_SaveCurrentSettingsRequest, "ddcCC_SaveCurrentSettingsRequest"},
    {ddcCC_DiagnosticsReplyCode, "ddcCC_DiagnosticsReplyCode"},
    {ddcCC_DiagnosticsRequest, "ddcCC_DiagnosticsRequest"},
    {ddcCC_IdentificationReplyCode, "ddcCC_IdentificationReplyCode"},
    {ddcCC_TableReadRequest, "ddcCC_TableReadRequest"},
    {ddcCC_CapabilitiesReplyCode, "ddcCC_CapabilitiesReplyCode"},
    {ddcCC_TableReadReplyCode, "ddcCC_TableReadReplyCode"},
    {ddcCC_EnableApplicationReportRequest, "ddcCC_EnableApplicationReportRequest"},
    {ddcCC_TableWriteRequest, "ddcCC_TableWriteRequest"},
    {ddcCC_IdentificationRequest, "ddcCC_IdentificationRequest"},
    {ddcCC_CapabilitiesRequest, "ddcCC_CapabilitiesRequest"},
};

constexpr SCodeText kColorPresetTexts[] = {
    {0, "Reserved"}, {1, "sRGB"},  {2, "Display Native"}, {4, "5000k"},  {5, "6500k"},
    {6, "7500k"},    {8, "9300k"}, {9, "10000k"},         {11, "5700k"},
};

constexpr SCodeText kColorSpaceTexts[] = {
    {0, "sRGB"}, {1, "AdobeRGB"}, {2, "sRGB/Rec 709"}, {3, "Rec 709"},
    {4, "DCI"},  {7, "Native"},   {8, "XRite1"},       {9, "Xrite2"},
};

constexpr SCodeText kDisplayPresetTexts[] = {
    {0, "Native"},      {1, "Standard"},       {2, "Multimedia"},     {3, "Movie"},
    {4, "Game"},        {5, "XRite Preset 1"}, {6, "XRite Preset 2"}, {7, "Color Temp"},
    {8, "Color Space"}, {9, "Custom Color"},   {11, "XRite1_kt"},     {12, "XRite2_kt"},
};

constexpr SCodeText kDisplayScalingTexts[] = {
    {0, "Reserved"},
    {1, "No Scaling/Full Image/1 to 1"},
    {2, "Max Image/1 to 1"},
    {3, "Max Vertical Image No AR/Aspect Mode"},
    {4, "Max Horizontal Image No AR"},
    {5, "Max Vertical Image with AR"},
    {6, "Max Horizontal Image with AR"},
    {7, "Full Mode"},
    {8, "Zoom Mode"},
    {9, "Squeeze Mode"},
    {10, "Variable"},
};

constexpr SCodeText kGammaTexts[] = {
    {0, "1.9"},
    {1, "2.2/1.9"},
    {2, "2.4/2.2"},
    {3, "Follow Color Space/2.4"},
};

constexpr SCodeText kLedBrightnessTexts[] = {
    {0, "LED Brightness off"},
    {1, "LED Brightness low"},
    {2, "LED Brightness medium"},
    {3, "LED Brightness high"},
};

constexpr SCodeText kUniformityCompTexts[] = {
    {0, "None"},
    {1, "Uniformity Table 1"},
    {2, "Uniformity Table 2"},
    {3, "Uniformity Table 3"},
};

template <size_t N>
constexpr bool IsAscending(const SCodeText (&table)[N]) {
    for (size_t i = 1; i < N; ++i) {
        if (table[i - 1].code >= table[i].code) {
            return false;
        }
    }
    return true;
}

static_assert(IsAscending(kVcpCodeTexts));
static_assert(IsAscending(kCommandTexts));
static_assert(IsAscending(kColorPresetTexts));
static_assert(IsAscending(kColorSpaceTexts));
static_assert(IsAscending(kDisplayPresetTexts));
static_assert(IsAscending(kDisplayScalingTexts));
static_assert(IsAscending(kGammaTexts));
static_assert(IsAscending(kLedBrightnessTexts));
static_assert(IsAscending(kUniformityCompTexts));

// The text of code_I in table_I, or the fallback with an optional trace naming the set.
template <size_t N>
std::string LookUp(const SCodeText (&table_I)[N], int code_I, const char* fallback_I,
                   const char* setName_I) {
    const auto found =
        std::lower_bound(std::begin(table_I), std::end(table_I), code_I,
                         [](const SCodeText& entry, int code) { return entry.code < code; });
    if (found != std::end(table_I) && found->code == code_I) {
        return found->text;
    }
    if (gCodeTraceEnabled) {
        Trace("%s %s(0x%X)\n", "VCPCodeToString", setName_I, static_cast<unsigned>(code_I));
    }
    return fallback_I;
}

} // namespace

std::string VCPCodeToString(vcpCode code_I) {
    return LookUp(kVcpCodeTexts, code_I, kUnsupported, "vcpCode");
}

std::string VCPCodeToString(ddcCommandCodes code_I) {
    return LookUp(kCommandTexts, code_I, kNotFound, "ddcCommandCodes");
}

std::string VCPCodeToString(colorPresetCode code_I) {
    return LookUp(kColorPresetTexts, code_I, kUnsupported, "colorPresetCode");
}

std::string VCPCodeToString(displayScalingCode code_I) {
    return LookUp(kDisplayScalingTexts, code_I, kUnsupported, "displayScalingCode");
}

std::string VCPCodeToString(ledBrightnessCode code_I) {
    return LookUp(kLedBrightnessTexts, code_I, kUnsupported, "ledBrightnessCode");
}

std::string VCPCodeToString(displayPresetCode code_I) {
    return LookUp(kDisplayPresetTexts, code_I, kUnsupported, "displayPresetCode");
}

std::string VCPCodeToString(colorSpaceCode code_I) {
    return LookUp(kColorSpaceTexts, code_I, kUnsupported, "colorSpaceCode");
}

std::string VCPCodeToString(gammaCode code_I) {
    return LookUp(kGammaTexts, code_I, kUnsupported, "gammaCode");
}

std::string VCPCodeToString(uniformityCompCode code_I) {
    return LookUp(kUniformityCompTexts, code_I, kUnsupported, "uniformityCompCode");
}

std::string VCPCodeToString(int code_I) {
    char text[16];
    std::snprintf(text, sizeof(text), "%08X", static_cast<unsigned>(code_I));
    return text;
}
