#include "resources/CResourceModule.h"
#include "resources/GeneratedResources.h"

namespace {

constexpr uint16_t kEnglish = 9;
constexpr uint16_t kNeutral = 0;

CResourceModule BuildProgramResources() {
    CResourceModule module;
    for (const SGeneratedStringBlock& block : GeneratedStringBlocks()) {
        std::vector<uint16_t> words(block.words, block.words + block.count);
        if (block.languageId == kEnglish) {
            module.AddStringBlock(block.blockId, kNeutral, words);
        }
        module.AddStringBlock(block.blockId, block.languageId, std::move(words));
    }
    for (const SGeneratedGroup& group : GeneratedGroups()) {
        std::vector<uint8_t> bytes(group.bytes, group.bytes + group.count);
        if (group.languageId == kEnglish) {
            module.AddGroup(group.name, kNeutral, bytes);
        }
        module.AddGroup(group.name, group.languageId, std::move(bytes));
    }
    return module;
}

} // namespace

const CResourceModule& ProgramResources() {
    static const CResourceModule module = BuildProgramResources();
    return module;
}
