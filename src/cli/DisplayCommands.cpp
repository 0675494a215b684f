#include "cli/DisplayCommands.h"

#include "cli/CJsonWriter.h"
#include "cli/CapabilitiesReport.h"
#include "cli/SettingsTable.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "model/UiDisplayDelegate.h"
#include "model/VCPOptionCodeWithEnumerationT.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <map>
#include <ostream>
#include <sstream>

namespace {

constexpr const char* kChannelNames[] = {"serial", "ftdi", "ti", "video", "hid"};

std::string ChannelName(int connectorType_I) {
    return connectorType_I >= 0 && connectorType_I < static_cast<int>(std::size(kChannelNames))
               ? kChannelNames[connectorType_I]
               : "unknown";
}

std::string Hex2(int32_t value_I) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%02X", static_cast<unsigned>(value_I));
    return text;
}

std::string Pad(std::string text_I, size_t width_I) {
    text_I.resize(std::max(width_I, text_I.size() + 1), ' ');
    return text_I;
}

// Errors from earlier exchanges are dropped first, so that what is left afterwards belongs to
// the operation in between.
void ClearOptionErrors(UiDisplayDelegate& display_I) {
    for (const auto& entry : display_I.GetOptions()) {
        entry.second->ClearError();
    }
}

// The first error an exchange left in an option; empty when the display answered everything.
std::string OptionError(const UiDisplayDelegate& display_I) {
    for (const auto& entry : display_I.GetOptions()) {
        if (entry.second->HasError()) {
            return Hex2(entry.first) + ": " + entry.second->GetError();
        }
    }
    return {};
}

// The present value of every option. A write that fails leaves the option at the value it
// tried while the session drops the error text, so a changed value after a failed setter
// tells a lost exchange from a value the model refused without traffic.
std::map<vcpCode, int32_t> OptionValues(const UiDisplayDelegate& display_I) {
    std::map<vcpCode, int32_t> values;
    for (const auto& [code, option] : display_I.GetOptions()) {
        values[code] = option->GetValue();
    }
    return values;
}

bool ParseCode(std::string_view text_I, int32_t& code_O) {
    if (text_I.starts_with("0x") || text_I.starts_with("0X")) {
        text_I.remove_prefix(2);
    }
    const char* end = text_I.data() + text_I.size();
    const auto result = std::from_chars(text_I.data(), end, code_O, 16);
    return !text_I.empty() && result.ec == std::errc() && result.ptr == end && code_O >= 0 &&
           code_O <= 0xFF;
}

bool ParseVcpValue(std::string_view text_I, int32_t& value_O) {
    int base = 10;
    if (text_I.starts_with("0x") || text_I.starts_with("0X")) {
        text_I.remove_prefix(2);
        base = 16;
    }
    const char* end = text_I.data() + text_I.size();
    const auto result = std::from_chars(text_I.data(), end, value_O, base);
    return !text_I.empty() && result.ec == std::errc() && result.ptr == end && value_O >= 0 &&
           value_O <= 0xFFFF;
}

class CDisplayCommands {
public:
    CDisplayCommands(const SCliContext& context_I, std::shared_ptr<IDisplayPlatform> platform_I,
                     std::shared_ptr<IDisplayFactsStore> factsStore_I)
        : mContext(context_I), mOptions(context_I.options),
          mConfig(ConfigOptions(context_I.options, std::move(factsStore_I)),
                  std::move(platform_I)) {}

    int Run() {
        if (mOptions.command == ECliCommand::eList) {
            return List();
        }
        const int selected = Select();
        if (selected != eCliExit_Done) {
            return selected;
        }
        switch (mOptions.command) {
        case ECliCommand::eGet:
            return Get();
        case ECliCommand::eSet:
            return Set();
        case ECliCommand::eSave:
            return Save();
        case ECliCommand::eFactoryReset:
            return FactoryReset();
        case ECliCommand::eResetColor:
            return ResetColor();
        case ECliCommand::eConditionLcd:
            return ConditionLcd();
        case ECliCommand::eGetVcp:
            return GetVcp();
        case ECliCommand::eSetVcp:
            return SetVcp();
        case ECliCommand::eCapabilities:
            return Capabilities();
        default:
            return mContext.Fail(eCliExit_Usage, "not a display command");
        }
    }

private:
    static SDisplayConfigOptions ConfigOptions(const SCliOptions& options_I,
                                               std::shared_ptr<IDisplayFactsStore> factsStore_I) {
        SDisplayConfigOptions config = MakeDisplayConfigOptions(options_I);
        config.factsStore = std::move(factsStore_I);
        return config;
    }

    int NoDisplay() const {
        return mContext.Fail(eCliExit_NotOffered, mConfig.LastError().empty()
                                                      ? "no display found"
                                                      : "no display found: " + mConfig.LastError());
    }

    int List() {
        const auto& infos = mConfig.DisplayInfos();
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("displays").BeginArray();
            for (size_t index = 0; index < infos.size(); ++index) {
                const SDisplayInfo& info = infos[index];
                json.BeginObject().Key("index").Number(static_cast<int64_t>(index));
                json.Key("name").String(ToNarrow(info.monitorName));
                json.Key("model").String(ToNarrow(info.modelNumber));
                json.Key("serial").String(ToNarrow(info.serialNumber));
                json.Key("channel").String(Channel(info)).Key("firmware").String(Firmware(info));
                json.Key("edidNumber").Number(info.edidNumber).EndObject();
            }
            json.EndArray().EndObject();
            mContext.out << json.Text();
        } else if (!infos.empty()) {
            std::ostringstream out;
            out << Pad("#", 3) << Pad("NAME", 22) << Pad("MODEL", 14) << Pad("SERIAL", 15)
                << Pad("CHANNEL", 8) << "FIRMWARE\n";
            for (size_t index = 0; index < infos.size(); ++index) {
                const SDisplayInfo& info = infos[index];
                out << Pad(std::to_string(index), 3) << Pad(ToNarrow(info.monitorName), 22)
                    << Pad(ToNarrow(info.modelNumber), 14) << Pad(ToNarrow(info.serialNumber), 15)
                    << Pad(Channel(info), 8) << Firmware(info) << "\n";
            }
            mContext.out << out.str();
        }
        return infos.empty() ? NoDisplay() : eCliExit_Done;
    }

    static std::string Channel(const SDisplayInfo& info_I) {
        return info_I.display && info_I.display->GetConnector()
                   ? ChannelName(info_I.display->GetConnector()->ConnectorType())
                   : "none";
    }

    static std::string Firmware(const SDisplayInfo& info_I) {
        return info_I.display && info_I.display->FirmwareVersionStatus().visible
                   ? info_I.display->GetFWVersion().AsString(2)
                   : "";
    }

    int Select() {
        const size_t count = mConfig.DisplayInfos().size();
        if (count == 0) {
            return NoDisplay();
        }
        mConfig.SetCurrentDisplay(mOptions.display);
        mDisplay = mConfig.CurrentDisplay();
        if (!mDisplay) {
            return mContext.Fail(eCliExit_NotOffered, "no display " +
                                                          std::to_string(mOptions.display) +
                                                          " (found " + std::to_string(count) + ")");
        }
        return eCliExit_Done;
    }

    bool GammaInTenths() const { return mDisplay->IsElmFamily(); }

    struct SReading {
        const SSettingRow* row = nullptr;
        SControlState state;
        SSettingValue value;
        std::string error; // a communication failure while reading
    };

    // valueFirst_I reads the value before the status, which then finds it in memory: one read
    // fewer for the levels that the getter reads afresh. It costs a read only for a row that
    // turns out hidden, so it suits one named setting, not all of them.
    SReading Read(const SSettingRow& row_I, bool valueFirst_I) {
        SReading reading{&row_I, {}, {}, {}};
        ClearOptionErrors(*mDisplay);
        if (valueFirst_I) {
            reading.value = row_I.get(*mDisplay);
            reading.error = reading.value.valid ? std::string() : OptionError(*mDisplay);
            reading.state = row_I.status(*mDisplay);
        } else {
            reading.state = row_I.status(*mDisplay);
            if (reading.state.visible) {
                ClearOptionErrors(*mDisplay);
                reading.value = row_I.get(*mDisplay);
                reading.error = reading.value.valid ? std::string() : OptionError(*mDisplay);
            }
        }
        if (!reading.state.visible) {
            return {&row_I, {}, {}, {}};
        }
        // A colour slot whose codes the display lacks reads as not valid with no error.
        if (row_I.kind == ESettingKind::eColor && !reading.value.valid && reading.error.empty()) {
            reading.state = {};
        }
        return reading;
    }

    void WriteReading(CJsonWriter& json_I, const SReading& reading_I) const {
        json_I.BeginObject().Key("name").String(reading_I.row->name);
        json_I.Key("offered").Bool(reading_I.state.visible);
        json_I.Key("enabled").Bool(reading_I.state.visible && reading_I.state.enabled);
        if (reading_I.state.visible) {
            json_I.Key("valid").Bool(reading_I.value.valid);
            json_I.Key("text").String(
                FormatSettingValue(*reading_I.row, GammaInTenths(), reading_I.value));
            if (reading_I.row->kind == ESettingKind::eColor) {
                json_I.Key("value").BeginArray();
                for (const int32_t component : reading_I.value.rgb) {
                    json_I.Number(component);
                }
                json_I.EndArray();
            } else {
                json_I.Key("value").Number(reading_I.value.value);
            }
            if (reading_I.row->kind == ESettingKind::eLevel) {
                json_I.Key("minimum").Number(reading_I.value.minimum);
                json_I.Key("maximum").Number(reading_I.value.maximum);
            }
        }
        json_I.EndObject();
    }

    std::string ReadingText(const SReading& reading_I) const {
        if (!reading_I.state.visible) {
            return "not offered";
        }
        std::string text = FormatSettingValue(*reading_I.row, GammaInTenths(), reading_I.value);
        if (!reading_I.value.valid) {
            text = "unknown";
        } else if (reading_I.row->kind == ESettingKind::eLevel &&
                   reading_I.value.maximum > reading_I.value.minimum) {
            text += " (" + std::to_string(reading_I.value.minimum) + " to " +
                    std::to_string(reading_I.value.maximum) + ")";
        }
        if (!reading_I.state.enabled) {
            text += ", locked";
        }
        return text;
    }

    int NotOffered(const SSettingRow& row_I) {
        std::string text = std::string(row_I.name) + " is not offered by this display";
        const SSettingRow& colorSetting = *FindSetting("color-setting");
        if (row_I.followsColorSetting && colorSetting.status(*mDisplay).visible) {
            const SSettingValue present = colorSetting.get(*mDisplay);
            text += " while color-setting is " + FormatSettingValue(colorSetting, false, present);
        }
        return mContext.Fail(eCliExit_NotOffered, text);
    }

    int Get() {
        // The display may have changed its colour setting from its own menu.
        mDisplay->GetColorSetting();
        const std::string& name = mOptions.operands[0];
        std::vector<SReading> readings;
        if (ToLower(name) == "all") {
            for (const SSettingRow& row : SettingsTable()) {
                readings.push_back(Read(row, false));
            }
        } else {
            const SSettingRow* row = FindSetting(name);
            if (!row) {
                return mContext.Fail(eCliExit_Usage, "unknown setting '" + name + "'");
            }
            readings.push_back(Read(*row, true));
            if (!readings[0].state.visible) {
                return NotOffered(*row);
            }
        }
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("display").Number(mOptions.display);
            json.Key("settings").BeginArray();
            for (const SReading& reading : readings) {
                WriteReading(json, reading);
            }
            json.EndArray().EndObject();
            mContext.out << json.Text();
        } else {
            std::ostringstream out;
            for (const SReading& reading : readings) {
                out << Pad(reading.row->name, 18) << ReadingText(reading) << "\n";
            }
            mContext.out << out.str();
        }
        for (const SReading& reading : readings) {
            if (!reading.error.empty()) {
                return mContext.Fail(eCliExit_Communication, std::string("reading ") +
                                                                 reading.row->name +
                                                                 " failed: " + reading.error);
            }
        }
        return eCliExit_Done;
    }

    int Set() {
        mDisplay->GetColorSetting();
        const SSettingRow* row = FindSetting(mOptions.operands[0]);
        if (!row) {
            return mContext.Fail(eCliExit_Usage, "unknown setting '" + mOptions.operands[0] + "'");
        }
        const SReading reading = Read(*row, true);
        if (!reading.state.visible) {
            return NotOffered(*row);
        }
        if (!reading.error.empty()) {
            return mContext.Fail(eCliExit_Communication,
                                 std::string("reading ") + row->name + " failed: " + reading.error);
        }
        if (!reading.state.enabled) {
            return mContext.Fail(
                eCliExit_NotOffered,
                std::string(row->name) +
                    " cannot be changed while the display's present mode locks it");
        }
        SSettingValue wanted;
        std::string error;
        if (!ParseSettingValue(*row, GammaInTenths(), mOptions.operands[1], reading.value, wanted,
                               error)) {
            return mContext.Fail(eCliExit_Usage, error);
        }
        ClearOptionErrors(*mDisplay);
        const std::map<vcpCode, int32_t> before = OptionValues(*mDisplay);
        if (!row->set(*mDisplay, wanted)) {
            std::string failure = OptionError(*mDisplay);
            if (failure.empty() && OptionValues(*mDisplay) != before) {
                failure = "the display did not answer";
            }
            if (!failure.empty()) {
                return mContext.Fail(eCliExit_Communication,
                                     std::string("setting ") + row->name + " failed: " + failure);
            }
            return mContext.Fail(eCliExit_NotOffered, "this display does not offer " +
                                                          std::string(row->name) + " " +
                                                          mOptions.operands[1]);
        }
        const int saved = SaveIfAsked();
        if (saved != eCliExit_Done) {
            return saved;
        }
        const std::string text = FormatSettingValue(*row, GammaInTenths(), wanted);
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("display").Number(mOptions.display);
            json.Key("setting").String(row->name).Key("text").String(text);
            json.Key("saved").Bool(mOptions.save).EndObject();
            mContext.out << json.Text();
        } else {
            mContext.out << row->name << " = " << text << (mOptions.save ? ", saved" : "") << "\n";
        }
        return eCliExit_Done;
    }

    int SaveIfAsked() {
        if (!mOptions.save) {
            return eCliExit_Done;
        }
        ClearOptionErrors(*mDisplay);
        if (!mDisplay->SaveSettings()) {
            return mContext.Fail(eCliExit_Communication, "saving the settings failed");
        }
        return eCliExit_Done;
    }

    int Done(const std::string& what_I) {
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("display").Number(mOptions.display);
            json.Key("done").String(what_I).EndObject();
            mContext.out << json.Text();
        } else {
            mContext.out << what_I << "\n";
        }
        return eCliExit_Done;
    }

    std::string DisplayName() const {
        return "display " + std::to_string(mOptions.display) + " (" +
               ToNarrow(mConfig.CurrentDisplayInfo().monitorName) + ")";
    }

    int Save() {
        if (!mDisplay->SaveSettings()) {
            return mContext.Fail(eCliExit_Communication, "saving the settings failed");
        }
        return Done("settings saved");
    }

    int FactoryReset() {
        if (!mOptions.yes &&
            !mContext.Confirm("Restore the factory settings of " + DisplayName() + "?")) {
            return mContext.Fail(eCliExit_Usage, "factory reset not confirmed");
        }
        if (!mDisplay->FactoryReset()) {
            return mContext.Fail(eCliExit_Communication, "the factory reset failed");
        }
        return Done("factory settings restored");
    }

    int ResetColor() {
        if (!mDisplay->ResetColorStatus().visible) {
            return mContext.Fail(eCliExit_NotOffered, "this display offers no colour reset");
        }
        if (!mDisplay->SetResetColor()) {
            return mContext.Fail(eCliExit_Communication, "the colour reset failed");
        }
        return Done("factory colours restored");
    }

    int ConditionLcd() {
        const SControlState state = mDisplay->ConditioningStatus();
        if (!state.visible) {
            return mContext.Fail(eCliExit_NotOffered, "this display offers no LCD conditioning");
        }
        if (!state.enabled) {
            return mContext.Fail(eCliExit_NotOffered,
                                 "LCD conditioning cannot start in the display's present mode");
        }
        if (!mOptions.yes && !mContext.Confirm("Start LCD conditioning on " + DisplayName() +
                                               "? The screen is unusable until the cycle ends.")) {
            return mContext.Fail(eCliExit_Usage, "LCD conditioning not confirmed");
        }
        if (!mDisplay->StartConditioning()) {
            return mContext.Fail(eCliExit_Communication, "LCD conditioning did not start");
        }
        return Done("LCD conditioning started");
    }

    int OfferedCode(int32_t& code_O) {
        if (!ParseCode(mOptions.operands[0], code_O)) {
            return mContext.Fail(eCliExit_Usage,
                                 "'" + mOptions.operands[0] + "' is no VCP code (hex, 00 to FF)");
        }
        if (!mDisplay->GetOptions().count(static_cast<vcpCode>(code_O))) {
            return mContext.Fail(eCliExit_NotOffered,
                                 "VCP code " + Hex2(code_O) + " is not offered by this display");
        }
        return eCliExit_Done;
    }

    void PrintVcp(int32_t code_I, const SVCPResult& result_I) {
        const std::string name = VCPCodeToString(static_cast<vcpCode>(code_I));
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("code").Number(code_I).Key("name").String(name);
            json.Key("value").Number(result_I.value).Key("maximum").Number(result_I.maximum);
            json.EndObject();
            mContext.out << json.Text();
        } else {
            mContext.out << Hex2(code_I) << " " << name << ": " << result_I.value << " (maximum "
                         << result_I.maximum << ")\n";
        }
    }

    int GetVcp() {
        int32_t code = 0;
        if (const int offered = OfferedCode(code); offered != eCliExit_Done) {
            return offered;
        }
        if (mDisplay->GetOptions().at(static_cast<vcpCode>(code))->Info().access ==
            SVCPCodeInfo::eWriteOnly) {
            return mContext.Fail(eCliExit_NotOffered,
                                 "VCP code " + Hex2(code) + " can only be written");
        }
        ClearOptionErrors(*mDisplay);
        const SVCPResult result = mDisplay->GetVCPValue(static_cast<vcpCode>(code), true);
        if (!result.valid) {
            return mContext.Fail(eCliExit_Communication,
                                 "reading " + Hex2(code) + " failed: " + OptionError(*mDisplay));
        }
        PrintVcp(code, result);
        return eCliExit_Done;
    }

    int SetVcp() {
        int32_t code = 0;
        if (const int offered = OfferedCode(code); offered != eCliExit_Done) {
            return offered;
        }
        int32_t value = 0;
        if (!ParseVcpValue(mOptions.operands[1], value)) {
            return mContext.Fail(eCliExit_Usage, "'" + mOptions.operands[1] +
                                                     "' is no VCP value (0 to 65535, or 0x...)");
        }
        const auto vcp = static_cast<vcpCode>(code);
        const std::shared_ptr<VCPOptionBase> option = mDisplay->GetOptions().at(vcp);
        ClearOptionErrors(*mDisplay);
        // The session writes only a value it has read; a write-only code has nothing to read.
        if (option->Info().access != SVCPCodeInfo::eWriteOnly) {
            const SVCPResult before = mDisplay->GetVCPValue(vcp, false);
            if (!before.valid) {
                return mContext.Fail(eCliExit_Communication, "reading " + Hex2(code) + " failed: " +
                                                                 OptionError(*mDisplay));
            }
            const auto* enumeration = dynamic_cast<const VCPOptionEnumerationBase*>(option.get());
            const bool listed =
                !enumeration || enumeration->Values().empty() ||
                std::count(enumeration->Values().begin(), enumeration->Values().end(), value);
            if (!listed || (option->Info().Continuous() && value > before.maximum)) {
                return mContext.Fail(eCliExit_NotOffered, "this display does not offer " +
                                                              std::to_string(value) + " for " +
                                                              Hex2(code));
            }
        }
        if (!mDisplay->SetVCPValue(vcp, value)) {
            return mContext.Fail(eCliExit_Communication,
                                 "writing " + Hex2(code) + " failed: the display did not answer");
        }
        if (const int saved = SaveIfAsked(); saved != eCliExit_Done) {
            return saved;
        }
        PrintVcp(code, mDisplay->GetVCPValue(vcp, false));
        return eCliExit_Done;
    }

    int Capabilities() {
        SCapabilitiesReport report;
        report.raw = mDisplay->GetCapabilitiesString();
        report.keys = mDisplay->GetCapabilitiesMap();
        report.options = mDisplay->GetOptions();
        report.commands = mDisplay->GetCommands();
        mContext.out << (mOptions.json ? FormatCapabilitiesJson(report)
                                       : FormatCapabilitiesText(report));
        return eCliExit_Done;
    }

    const SCliContext& mContext;
    const SCliOptions& mOptions;
    CDisplayConfigInterface mConfig;
    std::shared_ptr<UiDisplayDelegate> mDisplay;
};

} // namespace

int RunDisplayCommand(const SCliContext& context_I, std::shared_ptr<IDisplayPlatform> platform_I,
                      std::shared_ptr<IDisplayFactsStore> factsStore_I) {
    return CDisplayCommands(context_I, std::move(platform_I), std::move(factsStore_I)).Run();
}
