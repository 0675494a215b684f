#include "resources/LanguageFallback.h"

#include <gtest/gtest.h>

TEST(LanguageFallback, EveryChainEndsAtTheNeutralLanguage) {
    const std::vector<std::vector<uint16_t>> chains = {
        {1036, 12, 9, 0}, {1033, 9, 0},       {0},
        {1054, 30, 9, 0}, {3076, 1028, 4, 0}, {5124, 1028, 4, 0},
        {2052, 4, 0},     {4100, 2052, 4, 0}, {31748, 2052, 4, 0},
        {2070, 22, 9, 0}, {9242, 26, 9, 0},
    };
    for (const std::vector<uint16_t>& chain : chains) {
        uint16_t id = chain.front();
        std::vector<uint16_t> walked{id};
        while (LanguageFallback(id) && walked.size() < 10) {
            walked.push_back(id);
        }
        EXPECT_EQ(walked, chain);
    }
}
