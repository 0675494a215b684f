#include "resources/LanguageFallback.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<uint16_t> Walk(uint16_t id) {
    std::vector<uint16_t> chain{id};
    while (LanguageFallback(id)) {
        chain.push_back(id);
        if (chain.size() > 10) {
            break;
        }
    }
    return chain;
}

} // namespace

TEST(LanguageFallback, EveryChainEndsAtTheNeutralLanguage) {
    struct SCase {
        uint16_t start;
        std::vector<uint16_t> chain;
    };
    const std::vector<SCase> cases = {
        {1036, {1036, 12, 9, 0}},     // French of France
        {1033, {1033, 9, 0}},         // English of the USA
        {9, {9, 0}},                  //
        {0, {0}},                     // nothing behind neutral
        {1054, {1054, 30, 9, 0}},     // Thai
        {3076, {3076, 1028, 4, 0}},   // Chinese of Hong Kong
        {5124, {5124, 1028, 4, 0}},   // Chinese of Macao
        {2052, {2052, 4, 0}},         // Simplified Chinese
        {1028, {1028, 4, 0}},         // Traditional Chinese
        {4100, {4100, 2052, 4, 0}},   // Chinese of Singapore
        {31748, {31748, 2052, 4, 0}}, // any other Chinese
        {2070, {2070, 22, 9, 0}},     // Portuguese of Portugal
        {9242, {9242, 26, 9, 0}},     // Serbian, a sublanguage above 8
        {1023, {1023, 9, 0}},         // the largest primary id
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(Walk(c.start), c.chain) << "from " << c.start;
    }
}
