#include "resources/ResourceLookup.h"

#include "foundation/Trace.h"
#include "resources/CodedString.h"
#include "resources/LanguageFallback.h"

namespace {

constexpr uint32_t kStringsPerBlock = 16;
constexpr uint16_t kGroupEnd = 0xFFFF;

template <typename TResource, typename TFind>
const TResource* FindWithFallback(uint16_t languageId, bool fallback, TFind find) {
    const TResource* resource = find(languageId);
    while (resource == nullptr && fallback && LanguageFallback(languageId)) {
        resource = find(languageId);
    }
    return resource;
}

void TraceTableMiss(uint32_t id, uint16_t languageId, const CResourceModule& module) {
    Trace("Couldn't get table string %d (lang %04x, mod %p)\n", static_cast<int>(id), languageId,
          static_cast<const void*>(&module));
}

uint16_t ReadLittleEndian16(const std::vector<uint8_t>& bytes, size_t offset) {
    return static_cast<uint16_t>(bytes[offset] | (bytes[offset + 1] << 8));
}

} // namespace

std::wstring GetTableString(uint32_t id_I, uint16_t languageId_I, bool fallback_I,
                            const CResourceModule& module_I) {
    const uint32_t blockId = id_I / kStringsPerBlock + 1;
    const std::vector<uint16_t>* block = nullptr;
    if (blockId <= 0xFFFF) {
        block = FindWithFallback<std::vector<uint16_t>>(
            languageId_I, fallback_I, [&](uint16_t language) {
                return module_I.FindStringBlock(static_cast<uint16_t>(blockId), language);
            });
    }
    if (block == nullptr) {
        TraceTableMiss(id_I, languageId_I, module_I);
        return {};
    }
    size_t position = 0;
    for (uint32_t i = 0; i < id_I % kStringsPerBlock && position < block->size(); ++i) {
        position += 1 + (*block)[position];
    }
    if (position >= block->size() || (*block)[position] == 0 ||
        position + (*block)[position] >= block->size()) {
        TraceTableMiss(id_I, languageId_I, module_I);
        return {};
    }
    // The stored length counts the terminating zero, which the text must end at.
    const size_t size = (*block)[position] - 1U;
    const auto first = block->begin() + static_cast<std::ptrdiff_t>(position + 1);
    const std::u16string stored(first, first + static_cast<std::ptrdiff_t>(size + 1));
    const char16_t* pwsz = stored.c_str();
    VRX_ASSERT(std::char_traits<char16_t>::length(pwsz) == size);
    const std::u16string text = stored.substr(0, size);
    return DecodeCodedString(Utf16ToWide(text));
}

std::optional<std::u16string> FindGroupEntry(const CResourceModule& module_I,
                                             const std::string& name_I, uint16_t languageId_I,
                                             bool fallback_I, uint16_t key_I) {
    const std::vector<uint8_t>* group =
        FindWithFallback<std::vector<uint8_t>>(languageId_I, fallback_I, [&](uint16_t language) {
            return module_I.FindGroup(name_I, language);
        });
    if (group == nullptr) {
        return std::nullopt;
    }
    size_t position = 0;
    while (position + 2 <= group->size()) {
        const uint16_t key = ReadLittleEndian16(*group, position);
        position += 2;
        if (key == kGroupEnd) {
            return std::nullopt;
        }
        std::u16string value;
        bool terminated = false;
        for (; position + 2 <= group->size(); position += 2) {
            const char16_t unit = ReadLittleEndian16(*group, position);
            if (unit == 0) {
                terminated = true;
                position += 2;
                break;
            }
            value.push_back(unit);
        }
        if (!terminated) {
            return std::nullopt;
        }
        if (key == key_I) {
            return value;
        }
    }
    return std::nullopt;
}

std::wstring GetGroupString(const std::string& groupName_I, uint16_t key_I, uint16_t languageId_I,
                            bool fallback_I, const CResourceModule& module_I) {
    const std::optional<std::u16string> entry =
        FindGroupEntry(module_I, groupName_I, languageId_I, fallback_I, key_I);
    if (!entry) {
        Trace("Couldn't get group string '%s' / %d (lang %04x, mod %p)\n", groupName_I.c_str(),
              static_cast<int>(key_I), languageId_I, static_cast<const void*>(&module_I));
        return {};
    }
    return DecodeCodedString(Utf16ToWide(*entry));
}
