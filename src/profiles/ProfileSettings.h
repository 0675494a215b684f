#pragma once
// The settings a profile keeps, as one table: each row names the delegate's status operation,
// getter and setter of one user-level setting. The rows are in the order a profile is applied:
// the colour setting before the controls that only show in one colour setting.

#include "model/SControlState.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

class UiDisplayDelegate;

using ProfileValues = std::array<int32_t, 3>;

struct SProfileSettingRow {
    const char* key;
    size_t components; // 1, or 3 for the red, green and blue of a colour slot
    SControlState (*status)(UiDisplayDelegate&);
    // false when the display did not answer.
    bool (*get)(UiDisplayDelegate&, ProfileValues&);
    bool (*set)(UiDisplayDelegate&, const ProfileValues&);
};

std::span<const SProfileSettingRow> ProfileSettingsTable();
const SProfileSettingRow* FindProfileSetting(std::string_view key_I);
