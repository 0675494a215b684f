#pragma once
// The user-level settings of paneltunectl as one table of data: each row says which status
// operation, getter and setter of the display delegate serve it, and how its values are
// spelled. Like the dialogs, a caller asks the status and the getter before the setter: the
// session writes only a value it has read.

#include "model/SControlState.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class UiDisplayDelegate;

enum class ESettingKind {
    eLevel,  // a number within the range the display reports
    eChoice, // one of the row's names, or its number
    eSwitch, // off or on
    eGamma,  // a gamma name; a number of tenths on the models that keep gamma so
    eColor,  // red, green and blue of a colour slot, 0 to 255 each
};

struct SValueName {
    int32_t value;
    const char* name;
};

struct SSettingValue {
    bool valid = false;
    int32_t value = 0;
    // The range of a level.
    int32_t minimum = 0;
    int32_t maximum = 0;
    // A colour in the user's scale of 0 to 255.
    std::array<int32_t, 3> rgb{};
};

struct SSettingRow {
    const char* name;
    const char* summary;
    ESettingKind kind;
    std::span<const SValueName> names;
    SControlState (*status)(UiDisplayDelegate&);
    SSettingValue (*get)(UiDisplayDelegate&);
    bool (*set)(UiDisplayDelegate&, const SSettingValue&);
    // Shown only in one colour setting, so hidden need not mean missing.
    bool followsColorSetting = false;
};

std::span<const SSettingRow> SettingsTable();
const SSettingRow* FindSetting(std::string_view name_I);

enum class ESettingParse {
    eValue,
    eNotAValue,  // the text is no value of the row at all
    eOutOfRange, // a value, but outside the range the display reports
};

// The value of text_I for the row, spelt as FormatSettingValue prints it: a name, a number
// within current_I's range, or for a level a change of it ("+10", "-5", kept within the range).
// With any other outcome error_O holds the reason, with the accepted values or the range.
ESettingParse ParseSettingValue(const SSettingRow& row_I, bool gammaInTenths_I,
                                std::string_view text_I, const SSettingValue& current_I,
                                SSettingValue& value_O, std::string& error_O);
// The text of a value: its name where the row has one, else the number.
std::string FormatSettingValue(const SSettingRow& row_I, bool gammaInTenths_I,
                               const SSettingValue& value_I);
// The names a row accepts, for help and messages ("off, on").
std::string SettingValueNames(const SSettingRow& row_I, bool gammaInTenths_I);
// Every setting with its values, for the help of get and set.
std::string SettingsHelpText();
