#include "sim/SimEdid.h"

#include <gtest/gtest.h>

#include <numeric>
#include <set>
#include <string>

namespace {

// The text of a descriptor with the given tag, as a monitor list would read it: up to the line
// feed that ends a short text.
std::string DescriptorText(const std::vector<uint8_t>& edid_I, uint8_t tag_I) {
    for (size_t at = 54; at + 18 <= 126; at += 18) {
        if (edid_I[at] == 0 && edid_I[at + 1] == 0 && edid_I[at + 3] == tag_I) {
            std::string text(edid_I.begin() + at + 5, edid_I.begin() + at + 18);
            return text.substr(0, text.find('\n'));
        }
    }
    return "<none>";
}

} // namespace

TEST(SimEdid, EveryModelAndProductionRunHasAValidBlockWithItsIdentity) {
    std::set<uint16_t> productCodes;
    for (const SSimModel& model : SimModels()) {
        for (const uint16_t edidNumber : model.edidNumbers) {
            if (edidNumber == 0) {
                continue;
            }
            const std::vector<uint8_t> edid = BuildSimEdid(model, edidNumber, "AB12CD34EF567");
            ASSERT_EQ(edid.size(), 128u) << model.name;
            EXPECT_EQ(std::vector<uint8_t>(edid.begin(), edid.begin() + 8),
                      (std::vector<uint8_t>{0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0}));
            EXPECT_EQ(std::accumulate(edid.begin(), edid.end(), 0u) % 256, 0u) << model.name;
            const unsigned maker = edid[8] << 8 | edid[9];
            const std::string letters = {char('@' + (maker >> 10 & 31)),
                                         char('@' + (maker >> 5 & 31)), char('@' + (maker & 31))};
            EXPECT_EQ(letters, "VRX");
            EXPECT_EQ(edid[10] | edid[11] << 8, edidNumber);
            EXPECT_EQ(edid[126], 0) << "no extension block";
            EXPECT_EQ(DescriptorText(edid, 0xFC), model.displayName);
            EXPECT_LE(model.displayName.size(), 13u);
            EXPECT_EQ(DescriptorText(edid, 0xFF), "AB12CD34EF567");
            EXPECT_TRUE(productCodes.insert(edidNumber).second) << "EDID numbers are unique";
        }
    }
    EXPECT_EQ(productCodes.size(), 24u);
    EXPECT_EQ(SimModels().size(), 21u);
}
