#include "model/EColorMod.h"
#include "model/SCustomColor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

TEST(SCustomColorTest, FromRGBDerivesCMYKFromTheLargestComponent) {
    struct SCase {
        uint8_t r, g, b;
        double c, m, y, k;
    };
    const SCase cases[] = {
        {0, 0, 0, 0.0, 0.0, 0.0, 1.0},
        {255, 0, 0, 0.0, 1.0, 1.0, 0.0},
        {100, 50, 25, 0.0, 0.5, 0.75, 1.0 - 100.0 / 255.0},
        {10, 20, 40, 0.75, 0.5, 0.0, 1.0 - 40.0 / 255.0},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.r) + "," + std::to_string(c.g) + "," + std::to_string(c.b));
        const SCustomColor color = SCustomColor::FromRGB(c.r, c.g, c.b);
        EXPECT_DOUBLE_EQ(color.cyan, c.c);
        EXPECT_DOUBLE_EQ(color.magenta, c.m);
        EXPECT_DOUBLE_EQ(color.yellow, c.y);
        EXPECT_DOUBLE_EQ(color.black, c.k);
    }
}

TEST(SCustomColorTest, FromCMYKRoundsAndKeepsComponentsInRange) {
    struct SCase {
        double c, m, y, k;
        int r, g, b;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const SCase cases[] = {
        {0.0, 0.0, 0.0, 1.0, 0, 0, 0},
        // 0.5 x 255 = 127.5 rounds up; 0.25 of 127.5 = 31.875 rounds to 32.
        {0.5, 0.0, 0.75, 0.5, 64, 128, 32},
        {0.0, 0.5, 1.0, 0.0, 255, 128, 0},
        // A user's entry outside 0 to 1 must not wrap a component.
        {-1.0, 2.0, nan, -0.5, 255, 0, 255},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.c) + "," + std::to_string(c.m) + "," + std::to_string(c.y) +
                     "," + std::to_string(c.k));
        const SCustomColor color = SCustomColor::FromCMYK(c.c, c.m, c.y, c.k);
        EXPECT_TRUE(color.valid);
        EXPECT_EQ(color.Red(), c.r);
        EXPECT_EQ(color.Green(), c.g);
        EXPECT_EQ(color.Blue(), c.b);
    }
}

} // namespace
