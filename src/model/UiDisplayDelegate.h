#pragma once
// The display as the dialogs see it. Every operation takes or returns a user-level value
// (colour temperature 6500K, aspect ratio 1:1) and spells it in the VCP codes and values of the
// display's model family. It holds all model knowledge above the session, and works only
// through the session's reads and writes by code, so it runs against any connector.

#include "model/CDisplay.h"
#include "model/EColorMod.h"
#include "model/SControlState.h"
#include "model/SCustomColor.h"
#include "model/UserSettings.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

enum EModelGroup : uint32_t;

// The largest component on displays whose colour controls work in percent.
constexpr int32_t MAX_COLOR_RGB_PERCENT = 100;

class UiDisplayDelegate : public CDisplay {
public:
    UiDisplayDelegate(uint16_t edidNumber_I, std::shared_ptr<Connector> connector_I,
                      bool builtIn_I);

    // The colour setting is the program's own state beside the options, so it is committed,
    // reverted and forgotten with them.
    bool SaveSettings() override;
    bool RevertSettings() override;
    void ResetOptions(bool includePresets_I) override;

    SVCPResult GetBrightness();
    bool SetBrightness(int32_t value_I);
    SVCPResult GetContrast();
    bool SetContrast(int32_t value_I);
    SVCPResult GetSharpness();
    bool SetSharpness(int32_t value_I);
    SUserValue<bool> GetUniformity();
    bool SetUniformity(bool on_I);
    SUserValue<bool> GetEnergySmart();
    bool SetEnergySmart(bool on_I);
    SUserValue<bool> GetDynamicContrast();
    bool SetDynamicContrast(bool on_I);
    SUserValue<bool> GetAutoPowerDown();
    bool SetAutoPowerDown(bool on_I);
    SUserValue<EFanSpeed> GetFanSpeed();
    bool SetFanSpeed(EFanSpeed fanSpeed_I);
    SUserValue<ledBrightnessCode> GetPowerLedBrightness();
    bool SetPowerLedBrightness(ledBrightnessCode value_I);
    SVCPResult GetOSDLanguage();
    bool SetOSDLanguage(int32_t value_I);
    bool StartConditioning();
    // Conditioning is a trigger: forgetting it lets a second start be written and keeps it
    // from counting as a change to save.
    void ForgetConditioning();
    // A display that reports a value outside 2 and 3 is set to Mobile on the spot.
    SUserValue<EBatteryMode> GetBatteryMode();
    bool SetBatteryMode(EBatteryMode mode_I);

    // Both take seconds on the display; they belong on a background task.
    bool FactoryReset();
    bool SetResetColor();

    // Cancel of the advanced dialog: back to the value last saved (fromStored_I false) or to
    // the value a status operation stored (true).
    bool RestoreAspectRatio(bool fromStored_I);
    bool RestoreBatteryMode(bool fromStored_I);
    bool RestoreSharpness(bool fromStored_I);
    bool RestoreUniformity(bool fromStored_I);
    bool RestoreDynamicContrast(bool fromStored_I);
    bool RestoreEnergySmart(bool fromStored_I);
    bool RestorePowerLedBrightness(bool fromStored_I);

    // Selects a 0x14 colour preset the way the model wants it, with the refreshes that the
    // Cedar family's scaler needs afterwards.
    bool ApplyDefaultPreset(int32_t preset_I);
    // A calibrator preset runs; it locks most controls.
    bool IsColorManaged();

    SUserValue<EColorTemperature> GetColorTemperature();
    bool SetColorTemperature(EColorTemperature temperature_I);
    SUserValue<EColorSpace> GetColorSpace();
    bool SetColorSpace(EColorSpace space_I);
    // Reading corrects the program's colour setting from the display, which its own menu may
    // have changed, and on some models writes to put the display back in a known state.
    SUserValue<EColorSetting> GetColorSetting();
    bool SetColorSetting(EColorSetting setting_I);
    // An EGamma value, except on the Elm family: ten times the gamma.
    SUserValue<int32_t> GetGamma();
    bool SetGamma(int32_t gamma_I);
    SUserValue<EAspectRatio> GetAspectRatio();
    bool SetAspectRatio(EAspectRatio ratio_I);

    SCustomColor GetCustomRGBColorMod(EColorMod slot_I, bool refresh_I);
    bool SetCustomRGBColorMod(EColorMod slot_I, const SCustomColor& color_I);
    // Reads the selected slot and makes the result its working colour.
    SCustomColor GetCustomRGBColorMod(bool refresh_I);
    // Reads a slot into its original, applied and working colours.
    void LoadColorMods(EColorMod slot_I);
    void SelectColorMod(EColorMod slot_I);
    EColorMod GetSelectedColorMod() const { return mColorMod; }
    // Colours of the selected slot; a default record when the slot was never loaded.
    SCustomColor GetWorkingColor() const;
    SCustomColor GetAppliedColor() const;
    void StoreWorkingColor(const SCustomColor& color_I);
    bool ApplyWorkingColor();
    bool RevertToApplied();
    bool RestoreOriginal(EColorMod slot_I);

    // 255, or 100 on displays and slots whose components are percent; sets the scale flag.
    int32_t ColorMaximum();
    // Between the user's 0 to 255 and the display's scale, truncated.
    int32_t ScaleToDisplay(int32_t value_I) const;
    int32_t ScaleToUser(int32_t value_I) const;
    // An edit's number in the user's scale; 1.0 and below stand as they are.
    std::wstring FormatForUser(const std::wstring& text_I) const;
    // " r, g, b" of the working colour in the user's scale.
    std::wstring GetRGBText() const;

    // Whether a brightness and contrast pair risks a screen too dark to read.
    bool IsTooDark(int32_t brightness_I, int32_t contrast_I);
    // percent_I: the Aspen and Alder rule of all components below 20; other_I: the gain rule
    // of black at 0.6 or more.
    static bool IsColorTooDark(const SCustomColor& color_I, bool percent_I, bool other_I);

    SControlState BrightnessStatus();
    SControlState ContrastStatus();
    SControlState ColorSettingStatus();
    SControlState ColorTemperatureStatus();
    SControlState ColorSpaceStatus();
    SControlState CustomColorStatus();
    SControlState ResetColorStatus();
    SControlState GammaStatus();
    SControlState SaveStatus();
    SControlState RevertStatus();
    // With store_I the value is kept for the restore operation of the same name.
    SControlState AspectRatioStatus(bool store_I);
    SControlState SharpnessStatus(bool store_I);
    SControlState UniformityStatus(bool store_I);
    SControlState EnergySmartStatus(bool store_I);
    SControlState DynamicContrastStatus(bool store_I);
    SControlState PowerLedStatus(bool store_I);
    SControlState FanSpeedStatus();
    SControlState AutoPowerDownStatus();
    SControlState BatteryModeStatus(bool store_I);
    SControlState ConditioningStatus();
    SControlState CustomAttributeStatus();
    // One slot's custom colour: hue and saturation also need the attribute choice; gain is the
    // colour dialog's default slot.
    SControlState CustomColorSlotStatus(EColorMod slot_I);
    SControlState CmykHexStatus();
    SControlState FirmwareVersionStatus();

    bool BuiltIn() const { return mBuiltIn; }
    EColorSetting ColorSetting() const { return mColorSetting; }
    EColorSetting SavedColorSetting() const { return mSavedColorSetting; }
    bool RawColorScale() const { return mRawColorScale; }

private:
    using ColorTable = std::map<EColorMod, SCustomColor>;

    bool IsAspen() const;
    bool IsAspenTwo() const;
    bool IsHazel() const;
    // The one group of the delegate's tables this display belongs to.
    EModelGroup ModelGroup() const;
    // The colour controls of these models work in percent.
    bool HasPercentColorScale() const;
    bool IsOffered(vcpCode code_I) const;

    // A read whose value is cut to the low 16 bits, as this class uses them.
    SUserValue<int32_t> Read(vcpCode code_I, bool refresh_I = false);
    bool Reads(vcpCode code_I, int32_t value_I);
    // A valid read that is not 0.
    bool IsOn(vcpCode code_I);
    SUserValue<bool> ReadOnOff(vcpCode code_I);
    vcpCode BrightnessCode() const;
    bool RefreshesLevels() const;
    vcpCode RestoreAspectRatioCode() const;
    bool Restore(vcpCode code_I, bool fromStored_I, int32_t stored_I);
    // Writes a slot's colour from one of the colour tables; a slot never loaded has nothing
    // to write.
    bool WriteFromTable(const ColorTable& table_I, EColorMod slot_I);
    bool SetCedarCustomColor();
    bool SetElmColorSetting(EColorSetting setting_I);
    bool SetCedarColorSetting(EColorSetting setting_I);
    SUserValue<EColorSetting> GetCedarColorSetting();
    SUserValue<EColorSetting> GetElmColorSetting();
    SUserValue<EColorSetting> GetBirchColorSetting();
    bool SetBirchColorSpace(EColorSpace space_I);
    bool SetElmColorSpace(EColorSpace space_I);
    bool SetCedarColorSpace(EColorSpace space_I);

    bool mBuiltIn;
    ColorTable mOriginalColors;
    ColorTable mAppliedColors;
    ColorTable mWorkingColors;
    EColorMod mColorMod = eColorMod_Gain;
    bool mRawColorScale = true;
    EColorSetting mSavedColorSetting = eColorSetting_Space;
    EColorSetting mColorSetting = eColorSetting_Space;
    int32_t mRestoreAspectRatio = 0;
    int32_t mRestoreBatteryMode = 0;
    int32_t mRestoreSharpness = 0;
    int32_t mRestoreUniformity = 0;
    int32_t mRestoreDynamicContrast = 0;
    int32_t mRestoreEnergySmart = 0;
    int32_t mRestoreLedBrightness = 0;
};
