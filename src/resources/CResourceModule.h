#pragma once
// The store of string blocks and named groups that the look-ups search, each resource filed
// under its language. The program's own module is compiled in; tests build small ones.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class CResourceModule {
public:
    // A string block holds the 16 strings from (blockId - 1) * 16 on: for each a 16-bit length
    // that counts the terminating zero, then that many units. Length 0 is a missing string.
    // Returns false, keeping the first, when the block is already there.
    bool AddStringBlock(uint16_t blockId, uint16_t languageId, std::vector<uint16_t> words);
    // A group is a run of entries: 16-bit little-endian key, UTF-16LE text with its zero; the
    // key 0xFFFF ends it. Returns false, keeping the first, when the group is already there.
    bool AddGroup(const std::string& name, uint16_t languageId, std::vector<uint8_t> bytes);

    // Exact matches only: falling back to other languages is the caller's business.
    const std::vector<uint16_t>* FindStringBlock(uint16_t blockId, uint16_t languageId) const;
    const std::vector<uint8_t>* FindGroup(std::string_view name, uint16_t languageId) const;

    // Every language that holds at least one resource, ascending.
    std::vector<uint16_t> Languages() const;
    // The block ids of one language, ascending.
    std::vector<uint16_t> StringBlockIds(uint16_t languageId) const;

private:
    std::map<std::pair<uint16_t, uint16_t>, std::vector<uint16_t>> mStringBlocks;
    std::map<std::pair<std::string, uint16_t>, std::vector<uint8_t>> mGroups;
};

// The module compiled into the program, built once on first use. The English resources also
// serve the neutral language 0, as resources without a language would.
const CResourceModule& ProgramResources();
