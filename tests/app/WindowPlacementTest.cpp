#include "app/WindowPlacement.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct SPlacementCase {
    const char* name;
    QRect client;
    QPoint expected;
};

// Two screens side by side, the left one with a panel of 40 at its bottom; frames of 1 and a
// title bar of 20.
TEST(WindowPlacementTest, KeepsTheFramedWindowOnTheScreenItOverlapsMost) {
    const std::vector<QRect> areas{QRect(0, 0, 1920, 1040), QRect(1920, 0, 1280, 1024)};
    const QMargins frame(1, 20, 1, 1);
    const SPlacementCase cases[] = {
        {"fully inside stays", QRect(100, 200, 400, 500), QPoint(100, 200)},
        {"title bar above the top comes down", QRect(0, 0, 400, 500), QPoint(1, 20)},
        {"below the panel comes up", QRect(100, 900, 400, 500), QPoint(100, 1040 - 1 - 500)},
        {"mostly on the right screen goes there", QRect(1800, 100, 400, 300), QPoint(1921, 100)},
        {"past every screen goes to the nearest edge of the first", QRect(5000, 100, 400, 300),
         QPoint(1920 - 1 - 400, 100)},
        {"taller than the area keeps its title bar", QRect(50, 300, 400, 2000), QPoint(50, 20)},
    };
    for (const SPlacementCase& c : cases) {
        EXPECT_EQ(KeptOnScreen(c.client, frame, areas), c.expected) << c.name;
    }
    EXPECT_EQ(KeptOnScreen(QRect(-7, 3, 10, 10), frame, {}), QPoint(-7, 3));
    EXPECT_EQ(DefaultPosition(QRect(0, 24, 1920, 1016), frame), QPoint(1, 44));
}

} // namespace
