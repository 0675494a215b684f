#include "foundation/Trace.h"
#include "foundation/TraceSink.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string gSunk;
void Sink(const char* text, size_t length) {
    gSunk.append(text, length);
}

} // namespace

TEST(Trace, ReturnsTheCountFormatsWideStringsAndGoesToASinkWhileOneIsSet) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(Trace("%s", ""), 0);
    EXPECT_EQ(Trace("%S=%i\n", L"wide", 42), 8);
    EXPECT_EQ(SetDebugOutputSink(&Sink), nullptr);
    Trace("quiet %d\n", 1);
    EXPECT_EQ(SetDebugOutputSink(nullptr), &Sink);
    Trace("loud %d\n", 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "wide=42\nloud 2\n");
    EXPECT_EQ(gSunk, "quiet 1\n");
}

TEST(Trace, AssertionPrintsOnlyWhenEnabledAndNeverStops) {
    int evaluated = 0;
    auto failing = [&] {
        ++evaluated;
        return false;
    };
    testing::internal::CaptureStderr();
    VRX_ASSERT(failing());
    EXPECT_EQ(evaluated, 0);
    gAssertsEnabled = true;
    VRX_ASSERT(failing());
    gAssertsEnabled = false;
    EXPECT_EQ(evaluated, 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("Assert:(failing()) in "), 0u);
}
