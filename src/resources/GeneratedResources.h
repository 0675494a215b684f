#pragma once
// The coded resources that the build generates from the data files under data/.

#include <cstddef>
#include <cstdint>
#include <span>

struct SGeneratedStringBlock {
    uint16_t languageId;
    uint16_t blockId;
    const uint16_t* words;
    size_t count;
};

struct SGeneratedGroup {
    const char* name;
    uint16_t languageId;
    const uint8_t* bytes;
    size_t count;
};

std::span<const SGeneratedStringBlock> GeneratedStringBlocks();
std::span<const SGeneratedGroup> GeneratedGroups();
