#pragma once
// The numbers of the wire: VCP codes, DDC/CI command bytes and the enumerated value sets of the
// family's scalers, with their texts for traces and dumps. No text here reaches the screen.

#include <string>

// Switch of the traces for values that have no text; nothing sets it.
extern bool gCodeTraceEnabled;

// One VCP feature, as stored in options and sent in byte 4 of a request. Codes below 0xE0
// follow the standard; from 0xE0 up they are the maker's own.
enum vcpCode : int {
    vcpC_Undefined = 0x00,
    vcpC_Degauss = 0x01,
    vcpC_NewControlValue = 0x02,
    vcpC_SoftControls = 0x03,
    vcpC_RestoreFactoryDefaults = 0x04,
    vcpC_RestoreFactoryLuminanceAndContrastDefaults = 0x05,
    vcpC_RestoreFactoryGeometryDefaults = 0x06,
    vcpC_RestoreFactoryColorDefaults = 0x08,
    vcpC_RestoreFactoryTVDefaults = 0x0A,
    vcpC_ColorTemperatureIncrement = 0x0B,
    vcpC_ColorTemperatureRequest = 0x0C,
    vcpC_Clock = 0x0E,
    vcpC_Luminance = 0x10,
    vcpC_FleshToneEnhancement = 0x11,
    vcpC_Contrast = 0x12,
    vcpC_BacklightControl = 0x13,
    vcpC_SelectColorPreset = 0x14,
    vcpC_VideoGainRed = 0x16,
    vcpC_UserColorVisionCompensation = 0x17,
    vcpC_VideoGainGreen = 0x18,
    vcpC_VideoGainBlue = 0x1A,
    vcpC_Focus = 0x1C,
    vcpC_AdjustSetup = 0x1E,
    vcpC_AdjustColorSetup = 0x1F,
    vcpC_HorizontalPosition = 0x20,
    vcpC_HorizontalSize = 0x22,
    vcpC_HorizontalPincushion = 0x24,
    vcpC_HorizontalPincushionBalance = 0x26,
    vcpC_HorizontalConvergenceRB = 0x28,
    vcpC_HorizontalConvergenceMG = 0x29,
    vcpC_HorizontalLinearity = 0x2A,
    vcpC_HorizontalLinearityBalance = 0x2C,
    vcpC_GrayScaleExpansion = 0x2E,
    vcpC_VerticalPosition = 0x30,
    vcpC_VerticalSize = 0x32,
    vcpC_VerticalPincushion = 0x34,
    vcpC_VerticalPincushionBalance = 0x36,
    vcpC_VerticalConvergenceRB = 0x38,
    vcpC_VerticalConvergenceMG = 0x39,
    vcpC_VerticalLinearity = 0x3A,
    vcpC_VerticalLinearityBalance = 0x3C,
    vcpC_ClockPhase = 0x3E,
    vcpC_HorizontalParallelogram = 0x40,
    vcpC_VerticalParallelogram = 0x41,
    vcpC_HorizontalKeystone = 0x42,
    vcpC_VerticalKeystone = 0x43,
    vcpC_Rotation = 0x44,
    vcpC_TopCornerFlare = 0x46,
    vcpC_TopCornerHook = 0x48,
    vcpC_BottomCornerFlare = 0x4A,
    vcpC_BottomCornerHook = 0x4C,
    vcpC_ActiveControl = 0x52,
    vcpC_PerformancePreservation = 0x54,
    vcpC_HorizontalMoire = 0x56,
    vcpC_VerticalMoire = 0x58,
    vcpC_SixAxisSaturationRed = 0x59,
    vcpC_SixAxisSaturationYellow = 0x5A,
    vcpC_SixAxisSaturationGreen = 0x5B,
    vcpC_SixAxisSaturationCyan = 0x5C,
    vcpC_SixAxisSaturationBlue = 0x5D,
    vcpC_SixAxisSaturationMagenta = 0x5E,
    vcpC_InputSource = 0x60,
    vcpC_AudioSpeakerVolume = 0x62,
    vcpC_AudioSpeakerSelect = 0x63,
    vcpC_AudioMicrophoneVolume = 0x64,
    vcpC_AmbientLightSensor = 0x66,
    // 0x6B, 0x6D, 0x6F and 0x71 have no text; 0x6B is the brightness control of some models.
    vcpC_BacklightLevelWhite = 0x6B,
    vcpC_VideoBlackLevelRed = 0x6C,
    vcpC_BacklightLevelRed = 0x6D,
    vcpC_VideoBlackLevelGreen = 0x6E,
    vcpC_BacklightLevelGreen = 0x6F,
    vcpC_VideoBlackLevelBlue = 0x70,
    vcpC_BacklightLevelBlue = 0x71,
    vcpC_Gamma = 0x72,
    vcpC_LUTSize = 0x73,
    vcpC_SinglePointLUTOperation = 0x74,
    vcpC_BlockLUTOperation = 0x75,
    vcpC_RemoteProcedureCall = 0x76,
    vcpC_EDIDOperation = 0x78,
    vcpC_AdjustZoom = 0x7C,
    vcpC_HorizontalMirror = 0x82,
    vcpC_VerticalMirror = 0x84,
    vcpC_DisplayScaling = 0x86,
    vcpC_Sharpness = 0x87,
    vcpC_VelocityScanModulation = 0x88,
    vcpC_ColorSaturation = 0x8A,
    vcpC_TVChannelUpDown = 0x8B,
    vcpC_TVSharpness = 0x8C,
    vcpC_AudioMute = 0x8D,
    vcpC_TVContrast = 0x8E,
    vcpC_AudioTreble = 0x8F,
    vcpC_Hue = 0x90,
    vcpC_AudioBass = 0x91,
    vcpC_TVBlackLevelLuminance = 0x92,
    vcpC_AudioBalance = 0x93,
    vcpC_AudioProcessorMode = 0x94,
    vcpC_WindowPositionTLX = 0x95,
    vcpC_WindowPositionTLY = 0x96,
    vcpC_WindowPositionBRX = 0x97,
    vcpC_WindowPositionBRY = 0x98,
    vcpC_WindowBackground = 0x9A,
    vcpC_SixAxisHueRed = 0x9B,
    vcpC_SixAxisHueYellow = 0x9C,
    vcpC_SixAxisHueGreen = 0x9D,
    vcpC_SixAxisHueCyan = 0x9E,
    vcpC_SixAxisHueBlue = 0x9F,
    vcpC_SixAxisHueMagenta = 0xA0,
    vcpC_AutoSetupToggle = 0xA2,
    vcpC_WindowControlToggle = 0xA4,
    vcpC_WindowSelect = 0xA5,
    // 0xA6 and 0xA7 are known to the option model and have no text.
    vcpC_WindowSize = 0xA6,
    vcpC_WindowTransparency = 0xA7,
    vcpC_ScreenOrientation = 0xAA,
    vcpC_HorizontalFrequency = 0xAC,
    vcpC_VerticalFrequency = 0xAE,
    vcpC_Settings = 0xB0,
    vcpC_FlatPanelSubPixelLayout = 0xB2,
    vcpC_SourceTimingMode = 0xB4,
    vcpC_SourceColorEditing = 0xB5,
    vcpC_DisplayTechnologyType = 0xB6,
    vcpC_DisplayUsageTime = 0xC0,
    vcpC_DisplayDescriptorLength = 0xC2,
    vcpC_TransmitDisplayDescriptor = 0xC3,
    vcpC_EnableDisplayOfDisplayDescriptor = 0xC4,
    vcpC_ApplicationEnableKey = 0xC6,
    vcpC_DisplayControllerType = 0xC8,
    vcpC_DisplayFirmwareLevel = 0xC9,
    vcpC_OSD = 0xCA,
    vcpC_OSDLanguage = 0xCC,
    vcpC_StatusIndicators = 0xCD,
    vcpC_AuxiliaryDisplaySize = 0xCE,
    vcpC_AuxiliaryDisplayData = 0xCF,
    vcpC_OutputSelect = 0xD0,
    vcpC_AssetTag = 0xD2,
    vcpC_StereoVideoMode = 0xD4,
    vcpC_PowerMode = 0xD6,
    vcpC_AuxiliaryPowerOutput = 0xD7,
    vcpC_ScanMode = 0xDA,
    vcpC_ImageMode = 0xDB,
    vcpC_DisplayApplication = 0xDC,
    vcpC_ScratchPad = 0xDE,
    vcpC_VCPVersion = 0xDF,
    vcpC_UniformityCompensation = 0xE0,
    vcpC_BurnInMode = 0xE1,
    vcpC_AspectRatio = 0xE2,
    vcpC_ColorSpace = 0xE3,
    vcpC_ColorOffsetRed = 0xE4,
    vcpC_ColorOffsetGreen = 0xE5,
    vcpC_ColorOffsetBlue = 0xE6,
    vcpC_BacklightSensorControl = 0xE7,
    vcpC_DynamicContrast = 0xE8,
    vcpC_EnergySmart = 0xE9,
    vcpC_LCDConditioning = 0xEA,
    vcpC_FanControl = 0xEB,
    vcpC_ModelID = 0xEC,
    vcpC_FanControlScenario = 0xED,
    vcpC_AutoPowerDown = 0xEE,
    vcpC_LedBrightness = 0xEF,
    vcpC_DisplayPresets = 0xF0,
    vcpC_DisplayInfo = 0xF2,
    vcpC_FanSpeed = 0xF3,
    vcpC_BatteryMode = 0xF4,
};

// The first payload byte of a frame.
enum ddcCommandCodes : int {
    ddcCC_GetVCPFeatureRequest = 0x01,
    ddcCC_VCPReplyCode = 0x02,
    ddcCC_SetVCPFeatureRequest = 0x03,
    ddcCC_GetTimingReportResponse = 0x06,
    ddcCC_GetTimingReportRequest = 0x07,
    ddcCC_VCPResetReplyCode = 0x09,
    ddcCC_SaveCurrentSettingsRequest = 0x0C,
    ddcCC_DiagnosticsReplyCode = 0xA1,
    ddcCC_DiagnosticsRequest = 0xB1,
    ddcCC_IdentificationReplyCode = 0xE1,
    ddcCC_TableReadRequest = 0xE2,
    ddcCC_CapabilitiesReplyCode = 0xE3,
    ddcCC_TableReadReplyCode = 0xE4,
    ddcCC_EnableApplicationReportRequest = 0xE5,
    ddcCC_TableWriteRequest = 0xE7,
    ddcCC_IdentificationRequest = 0xF1,
    ddcCC_CapabilitiesRequest = 0xF3,
};

// Values of 0x14 Select Color Preset. 12 is written on some models and has no text.
enum colorPresetCode : int {
    colorPreset_Reserved = 0,
    colorPreset_sRGB = 1,
    colorPreset_DisplayNative = 2,
    colorPreset_5000K = 4,
    colorPreset_6500K = 5,
    colorPreset_7500K = 6,
    colorPreset_9300K = 8,
    colorPreset_10000K = 9,
    colorPreset_5700K = 11,
    colorPreset_Preset12 = 12,
};

// Values of 0x86 Display Scaling and 0xE2 Aspect Ratio.
enum displayScalingCode : int {
    displayScaling_Reserved = 0,
    displayScaling_NoScaling = 1,
    displayScaling_MaxImage = 2,
    displayScaling_MaxVerticalNoAR = 3,
    displayScaling_MaxHorizontalNoAR = 4,
    displayScaling_MaxVerticalWithAR = 5,
    displayScaling_MaxHorizontalWithAR = 6,
    displayScaling_FullMode = 7,
    displayScaling_ZoomMode = 8,
    displayScaling_SqueezeMode = 9,
    displayScaling_Variable = 10,
};

// Values of 0xEF Led Brightness.
enum ledBrightnessCode : int {
    ledBrightness_Off = 0,
    ledBrightness_Low = 1,
    ledBrightness_Medium = 2,
    ledBrightness_High = 3,
};

// Values of 0xF0 Display Presets; some models give these numbers other meanings.
enum displayPresetCode : int {
    displayPreset_Native = 0,
    displayPreset_Standard = 1,
    displayPreset_Multimedia = 2,
    displayPreset_Movie = 3,
    displayPreset_Game = 4,
    displayPreset_XRitePreset1 = 5,
    displayPreset_XRitePreset2 = 6,
    displayPreset_ColorTemp = 7,
    displayPreset_ColorSpace = 8,
    displayPreset_CustomColor = 9,
    displayPreset_XRite1Kt = 11,
    displayPreset_XRite2Kt = 12,
};

// Values of 0xE3 Color Space.
enum colorSpaceCode : int {
    colorSpace_sRGB = 0,
    colorSpace_AdobeRGB = 1,
    colorSpace_sRGBRec709 = 2,
    colorSpace_Rec709 = 3,
    colorSpace_DCI = 4,
    colorSpace_Native = 7,
    colorSpace_XRite1 = 8,
    colorSpace_XRite2 = 9,
};

// Values of 0x72 Gamma where it is not continuous; a number means one gamma on one model
// group and another on the other.
enum gammaCode : int {
    gamma_1_9 = 0,
    gamma_2_2_or_1_9 = 1,
    gamma_2_4_or_2_2 = 2,
    gamma_ColorSpace_or_2_4 = 3,
};

// Values of 0xE0 Uniformity Compensation.
enum uniformityCompCode : int {
    uniformityComp_None = 0,
    uniformityComp_Table1 = 1,
    uniformityComp_Table2 = 2,
    uniformityComp_Table3 = 3,
};

// Texts for traces and dumps; a value with no text gives "Unsupported VPC Code" (for
// ddcCommandCodes "Code not found"). The int form is eight upper-case hex digits.
std::string VCPCodeToString(vcpCode code_I);
std::string VCPCodeToString(ddcCommandCodes code_I);
std::string VCPCodeToString(colorPresetCode code_I);
std::string VCPCodeToString(displayScalingCode code_I);
std::string VCPCodeToString(ledBrightnessCode code_I);
std::string VCPCodeToString(displayPresetCode code_I);
std::string VCPCodeToString(colorSpaceCode code_I);
std::string VCPCodeToString(gammaCode code_I);
std::string VCPCodeToString(uniformityCompCode code_I);
std::string VCPCodeToString(int code_I);
