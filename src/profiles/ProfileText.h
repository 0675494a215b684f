#pragma once
// A profile as a small text file a person can read and edit:
//
//   # PanelTune display profile
//   model = PDX-2700E
//   serial = VRX1060000001
//   brightness = 20
//   rgb-gain = 255, 240, 230
//
// One "key = value" a line; blank lines and lines starting with "#" are ignored. Values are the
// display delegate's numbers for the model. The name is the file's, not part of the text.

#include "profiles/SProfile.h"

#include <string>
#include <string_view>

// The largest profile text that is read.
constexpr size_t kMaxProfileTextSize = 64 * 1024;

std::string FormatProfile(const SProfile& profile_I);
// false, with the line and what is wrong in error_O, for a text that is not a whole profile.
// Keys this program does not know are kept, so that applying can report them.
bool ParseProfile(std::string_view text_I, SProfile& profile_O, std::string& error_O);

// A name that can be a file's: 1 to 64 letters, digits, blanks, '.', '_' or '-', neither
// starting with '.' or a blank nor ending with a blank.
bool IsValidProfileName(std::string_view name_I);
