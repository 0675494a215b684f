#pragma once
// Look-ups of localised text by string id and by group name and key. A miss is an empty string
// and a trace line, never an error for the user.

#include "resources/CResourceModule.h"

#include <cstdint>
#include <optional>
#include <string>

// The string with this id in the language, or in the languages that stand in for it when
// fallback holds; empty when none has it.
std::wstring GetTableString(uint32_t id_I, uint16_t languageId_I, bool fallback_I,
                            const CResourceModule& module_I);

// The text of the first entry with this key in the group; the fallback applies to finding the
// group, and a group that lacks the key is a miss without a second language.
std::wstring GetGroupString(const std::string& groupName_I, uint16_t key_I, uint16_t languageId_I,
                            bool fallback_I, const CResourceModule& module_I);

// The raw value (normally a coded string) of the first entry with this key, or nothing.
std::optional<std::u16string> FindGroupEntry(const CResourceModule& module_I,
                                             const std::string& name_I, uint16_t languageId_I,
                                             bool fallback_I, uint16_t key_I);
