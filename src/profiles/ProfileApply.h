#pragma once
// Capturing a display's settings as a profile and applying one, through the display delegate
// so that each model's codes stay right. Applying leaves the display as if the user had made
// the changes by hand: changed but not saved, unless a save is asked for.

#include "profiles/CProfileStore.h"
#include "profiles/SProfile.h"

#include <string>
#include <vector>

class UiDisplayDelegate;

// The settings the display offers now, read from it.
SProfile CaptureProfile(UiDisplayDelegate& display_I, const std::string& name_I,
                        const SProfileOwner& owner_I);

// Empty when the profile fits the display; otherwise why not, in words for the user. A profile
// of another model is refused: its values mean other things there. One of another display of
// the same model fits.
std::string ProfileMismatch(const SProfile& profile_I, const SProfileOwner& display_I);

// The names of the profiles in store_I that fit the display, sorted.
std::vector<std::string> FittingProfiles(const CProfileStore& store_I,
                                         const SProfileOwner& display_I);

struct SProfileSkip {
    std::string key;
    std::string reason;
};

// "key (reason), key (reason)": how a list of skipped settings reads to the user.
std::string SkipsText(const std::vector<SProfileSkip>& skips_I);

struct SProfileApplied {
    std::vector<std::string> changed;
    std::vector<std::string> unchanged;
    std::vector<SProfileSkip> skipped; // not offered now, locked, or unknown to this program
    std::vector<SProfileSkip> failed;  // the display did not answer
    bool saved = false;

    bool Ok() const { return failed.empty(); }
};

// Writes each setting of the profile that differs from the display's present value, in the
// table's order; with save_I, and no failure, stores the settings in the display afterwards.
SProfileApplied ApplyProfile(UiDisplayDelegate& display_I, const SProfile& profile_I, bool save_I);
