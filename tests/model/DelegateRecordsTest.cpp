#include "model/EColorMod.h"
#include "model/SCustomColor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

// Both ways between RGB and CMYK; black comes from the largest component.
TEST(SCustomColorTest, RGBAndCMYKConvertBothWays) {
    struct SCase {
        int r, g, b;
        double c, m, y, k;
    };
    const SCase cases[] = {
        {0, 0, 0, 0.0, 0.0, 0.0, 1.0},
        {255, 0, 0, 0.0, 1.0, 1.0, 0.0},
        {102, 51, 0, 0.0, 0.5, 1.0, 0.6},
        {51, 102, 204, 0.75, 0.5, 0.0, 0.2},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.r << "," << c.g << "," << c.b);
        const SCustomColor rgb = SCustomColor::FromRGB(c.r, c.g, c.b);
        EXPECT_NEAR(rgb.cyan, c.c, 1e-9);
        EXPECT_NEAR(rgb.magenta, c.m, 1e-9);
        EXPECT_NEAR(rgb.yellow, c.y, 1e-9);
        EXPECT_NEAR(rgb.black, c.k, 1e-9);
        const SCustomColor cmyk = SCustomColor::FromCMYK(c.c, c.m, c.y, c.k);
        EXPECT_EQ((std::vector<int>{cmyk.Red(), cmyk.Green(), cmyk.Blue()}),
                  (std::vector<int>{c.r, c.g, c.b}));
    }
    // 0.5 x 255 = 127.5 rounds up, and an entry outside 0 to 1 must not wrap a component.
    const SCustomColor rounded = SCustomColor::FromCMYK(0.5, 2.0, std::nan(""), -0.5);
    EXPECT_EQ((std::vector<int>{rounded.Red(), rounded.Green(), rounded.Blue()}),
              (std::vector<int>{128, 0, 255}));
}

} // namespace
