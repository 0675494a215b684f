#include "resources/CResourceModule.h"

#include <set>

bool CResourceModule::AddStringBlock(uint16_t blockId, uint16_t languageId,
                                     std::vector<uint16_t> words) {
    return mStringBlocks.try_emplace({blockId, languageId}, std::move(words)).second;
}

bool CResourceModule::AddGroup(const std::string& name, uint16_t languageId,
                               std::vector<uint8_t> bytes) {
    return mGroups.try_emplace({name, languageId}, std::move(bytes)).second;
}

const std::vector<uint16_t>* CResourceModule::FindStringBlock(uint16_t blockId,
                                                              uint16_t languageId) const {
    const auto found = mStringBlocks.find({blockId, languageId});
    return found == mStringBlocks.end() ? nullptr : &found->second;
}

const std::vector<uint8_t>* CResourceModule::FindGroup(std::string_view name,
                                                       uint16_t languageId) const {
    const auto found = mGroups.find(std::make_pair(std::string(name), languageId));
    return found == mGroups.end() ? nullptr : &found->second;
}

std::vector<uint16_t> CResourceModule::Languages() const {
    std::set<uint16_t> languages;
    for (const auto& [key, words] : mStringBlocks) {
        languages.insert(key.second);
    }
    for (const auto& [key, bytes] : mGroups) {
        languages.insert(key.second);
    }
    return {languages.begin(), languages.end()};
}

std::vector<uint16_t> CResourceModule::StringBlockIds(uint16_t languageId) const {
    std::vector<uint16_t> ids;
    for (const auto& [key, words] : mStringBlocks) {
        if (key.second == languageId) {
            ids.push_back(key.first);
        }
    }
    return ids;
}
