#include "profiles/ProfileApply.h"

#include "model/UiDisplayDelegate.h"
#include "profiles/ProfileSettings.h"

#include <algorithm>

namespace {

std::vector<int32_t> ValuesOf(const SProfileSettingRow& row_I, const ProfileValues& values_I) {
    return {values_I.begin(), values_I.begin() + static_cast<std::ptrdiff_t>(row_I.components)};
}

const std::vector<int32_t>& ValueOf(const SProfile& profile_I, const std::string& key_I) {
    return std::find_if(profile_I.settings.begin(), profile_I.settings.end(),
                        [&](const SProfileSetting& s) { return s.key == key_I; })
        ->values;
}

} // namespace

SProfile CaptureProfile(UiDisplayDelegate& display_I, const std::string& name_I,
                        const SProfileOwner& owner_I) {
    SProfile profile{name_I, owner_I, {}};
    // The colour setting decides which colour controls show; the display's menu may have
    // changed it.
    display_I.GetColorSetting();
    for (const SProfileSettingRow& row : ProfileSettingsTable()) {
        ProfileValues values{};
        if (row.status(display_I).visible && row.get(display_I, values)) {
            profile.settings.push_back({row.key, ValuesOf(row, values)});
        }
    }
    return profile;
}

std::string ProfileMismatch(const SProfile& profile_I, const SProfileOwner& display_I) {
    if (profile_I.owner.model == display_I.model) {
        return {};
    }
    return "profile '" + profile_I.name + "' belongs to a " + profile_I.owner.model + " (serial " +
           profile_I.owner.serial + "), not to this " + display_I.model;
}

SProfileApplied ApplyProfile(UiDisplayDelegate& display_I, const SProfile& profile_I, bool save_I) {
    SProfileApplied applied;
    display_I.GetColorSetting();
    for (const SProfileSetting& setting : profile_I.settings) {
        if (!FindProfileSetting(setting.key)) {
            applied.skipped.push_back({setting.key, "not known to this program"});
        }
    }
    for (const SProfileSettingRow& row : ProfileSettingsTable()) {
        const auto setting =
            std::find_if(profile_I.settings.begin(), profile_I.settings.end(),
                         [&](const SProfileSetting& s) { return s.key == row.key; });
        if (setting == profile_I.settings.end()) {
            continue;
        }
        const SControlState state = row.status(display_I);
        if (!state.visible || !state.enabled) {
            applied.skipped.push_back(
                {row.key, state.visible ? "locked by the display's present mode" : "not offered"});
            continue;
        }
        ProfileValues present{};
        if (!row.get(display_I, present)) {
            applied.failed.push_back({row.key, "the display did not answer"});
            continue;
        }
        if (ValuesOf(row, present) == setting->values) {
            applied.unchanged.push_back(row.key);
            continue;
        }
        ProfileValues wanted{};
        std::copy(setting->values.begin(), setting->values.end(), wanted.begin());
        if (row.set(display_I, wanted)) {
            applied.changed.push_back(row.key);
        } else {
            applied.failed.push_back({row.key, "the display did not take the value"});
        }
    }
    // Some setters write nothing when the code behind already holds the value, and the colour
    // setting is read from the codes the later rows write; so the display is asked at the end.
    std::erase_if(applied.changed, [&](const std::string& key_I) {
        const SProfileSettingRow& row = *FindProfileSetting(key_I);
        ProfileValues now{};
        const bool kept = row.status(display_I).visible && row.get(display_I, now) &&
                          ValuesOf(row, now) == ValueOf(profile_I, key_I);
        if (!kept) {
            applied.failed.push_back({key_I, "the display kept another value"});
        }
        return !kept;
    });
    if (save_I && applied.Ok()) {
        applied.saved = display_I.SaveSettings();
        if (!applied.saved) {
            applied.failed.push_back({"save", "the display did not store its settings"});
        }
    }
    return applied;
}

std::vector<std::string> FittingProfiles(const CProfileStore& store_I,
                                         const SProfileOwner& display_I) {
    std::vector<std::string> names;
    for (const std::string& name : store_I.Names()) {
        SProfile profile;
        std::string error;
        if (store_I.Load(name, profile, error) && ProfileMismatch(profile, display_I).empty()) {
            names.push_back(name);
        }
    }
    return names;
}

std::string SkipsText(const std::vector<SProfileSkip>& skips_I) {
    std::string text;
    for (const SProfileSkip& skip : skips_I) {
        text += (text.empty() ? "" : ", ") + skip.key + " (" + skip.reason + ")";
    }
    return text;
}
