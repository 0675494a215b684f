#include "foundation/Trace.h"
#include "foundation/TraceSink.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct AssertSwitch {
    explicit AssertSwitch(bool on) { gAssertsEnabled = on; }
    ~AssertSwitch() { gAssertsEnabled = false; }
};

} // namespace

TEST(Trace, ReturnsTheCountAndFormatsWideStrings) {
    testing::internal::CaptureStderr();
    const int empty = Trace("%s", "");
    const int count = Trace("%S=%i\n", L"wide", 42);
    const std::string written = testing::internal::GetCapturedStderr();

    EXPECT_EQ(empty, 0);
    EXPECT_EQ(count, 8);
    EXPECT_EQ(written, "wide=42\n");
}

TEST(Trace, AssertionPrintsOnlyWhenEnabledAndNeverStops) {
    int evaluated = 0;
    auto failing = [&] {
        ++evaluated;
        return false;
    };

    testing::internal::CaptureStderr();
    VRX_ASSERT(failing());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(evaluated, 0);

    AssertSwitch on(true);
    testing::internal::CaptureStderr();
    VRX_ASSERT(failing());
    EXPECT_EQ(evaluated, 1);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Assert:(failing()) in "),
              std::string::npos);
}

namespace {
std::string gSunk;
void Sink(const char* text, size_t length) {
    gSunk.append(text, length);
}
} // namespace

TEST(Trace, ASinkTakesThePlaceOfStandardErrorUntilRemoved) {
    gSunk.clear();
    testing::internal::CaptureStderr();
    EXPECT_EQ(SetDebugOutputSink(&Sink), nullptr);
    Trace("quiet %d\n", 1);
    EXPECT_EQ(SetDebugOutputSink(nullptr), &Sink);
    Trace("loud %d\n", 2);
    const std::string written = testing::internal::GetCapturedStderr();

    EXPECT_EQ(gSunk, "quiet 1\n");
    EXPECT_EQ(written, "loud 2\n");
}
