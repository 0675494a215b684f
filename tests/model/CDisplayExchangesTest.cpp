// Reads and writes of one VCP feature: what is cached, what a bad reply leaves, how long the
// display may settle and when a write is tried again.

#include "DisplayTestSupport.h"

#include <gtest/gtest.h>

TEST(CDisplayRead, ReadsTheValueAsTheOptionsKindSays) {
    struct SCase {
        vcpCode code;
        ByteVector reply;
        SVCPResult result;
    };
    const SCase cases[] = {
        // Info alone decides how the bytes are read, whatever type the display claims.
        {vcpC_Luminance, FeatureReply(0x10, 1, 100, 40), {true, 40, 0, 100}},
        {vcpC_SelectColorPreset, FeatureReply(0x14, 0, 0xFFFF, 5), {true, 5, 0, 0}},
        {vcpC_InputSource, FeatureReply(0x60, 0, 0x0000, 0x0211), {true, 0x11, 0, 0}},
        // A value outside the list is refused; the option keeps the default it started with.
        {vcpC_SelectColorPreset, FeatureReply(0x14, 0, 0x0000, 6), {true, 0, 0, 0}},
        {vcpC_InputSource, FeatureReply(0x60, 0, 0x0000, 0x0113), {true, 0, 0, 0}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(&c - cases);
        CDisplaySession session;
        session.mFake->QueueReply(c.reply);
        EXPECT_EQ(session.mDisplay.GetVCPValue(c.code, false), c.result);
    }
}

TEST(CDisplayWrite, WritesOnlyWhatChangesAndReadsWhatTheDisplayMadeOfIt) {
    CDisplaySession session;
    session.mFake->SetVcp(0x10, 50, 100);
    session.mFake->SetVcp(0x14, 5, 0);
    ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_Luminance, false).valid);
    ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_SelectColorPreset, false).valid);
    session.mFake->ClearSent();
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 50)) << "present value";
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 101)) << "out of range";
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_SelectColorPreset, 6)) << "not in the list";
    EXPECT_FALSE(session.mDisplay.SetVCPValue(vcpC_Hue, 1)) << "not offered";
    EXPECT_TRUE(session.mFake->Sent().empty());
    EXPECT_FALSE(session.mDisplay.IsAnyOptionModified());

    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 30));
    EXPECT_EQ(session.mFake->Sent().at(1).frame, BuildGetVCPFeature(0x10));
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, false).value, 30);
    EXPECT_TRUE(session.mDisplay.IsAnyOptionModified());
    // Only the low 16 bits of a value go out.
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_RestoreFactoryDefaults, 0x12345));
    EXPECT_EQ(session.mFake->Sent().at(2).frame, BuildSetVCPFeature(0x04, 0x2345));
}

TEST(CDisplayWrite, RetriesAFailedWriteOnceAfterAPause) {
    struct SCase {
        std::vector<ByteVector> replies;
        bool result;
        size_t writes;
        std::vector<uint32_t> sleeps;
    };
    const ByteVector null = BuildNullMessage();
    const ByteVector readBack = FeatureReply(0x12, 0, 100, 40);
    const SCase cases[] = {
        {{null, readBack}, true, 1, {50}},
        {{{}, null, readBack}, true, 2, {50, 60, 50}},
        {{{0x6E}, {0x6E, 0x80}}, false, 2, {50, 60, 50}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(&c - cases);
        CDisplaySession session;
        session.mFake->SetVcp(0x12, 50, 100);
        ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_Contrast, false).valid);
        session.mFake->ClearSent();
        session.mFake->QueueReplies(c.replies);

        EXPECT_EQ(session.mDisplay.SetVCPValue(vcpC_Contrast, 40), c.result);
        EXPECT_EQ(session.mClock->Sleeps(), c.sleeps);
        // Each write that worked is followed by one read.
        EXPECT_EQ(session.mFake->Sent().size(), c.result ? c.writes + 1 : c.writes);
        // A write of unknown outcome leaves the value last known, with its cause.
        EXPECT_EQ(session.mDisplay.GetOptions().at(vcpC_Contrast)->GetValue(), c.result ? 40 : 50);
        EXPECT_EQ(session.mDisplay.GetLastFailure().why.empty(), c.result);
        // The same value asked again goes to the wire only when the first did not arrive.
        session.mFake->ClearSent();
        EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Contrast, 40));
        EXPECT_EQ(session.mFake->Sent().empty(), c.result);
    }
}

TEST(CDisplayWrite, LetsTheDisplaySettleAsLongAsTheFeatureNeeds) {
    const struct {
        vcpCode code;
        int32_t to;
        bool open;
        double delay;
        bool result;
        std::vector<uint32_t> sleeps;
    } cases[] = {
        {vcpC_Contrast, 2, true, 0.07, true, {50}},
        {vcpC_Luminance, 2, true, 0.13, true, {50}},
        {vcpC_DisplayScaling, 2, true, 0.25, true, {50}},
        {vcpC_DisplayPresets, 2, true, 0.07, true, {50, 700, 1300}},
        {vcpC_UniformityCompensation, 0, true, 0.07, true, {50, 1000}},
        {vcpC_RestoreFactoryDefaults, 2, true, 0.07, true, {50, 5000}},
        // A dead channel: the settle time is kept, and a failed scaling write counts as done.
        {vcpC_DisplayScaling, 2, false, 0.25, true, {50}},
        {vcpC_RestoreFactoryDefaults, 2, false, 0.07, false, {50, 5000, 60, 50, 5000}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.code << (c.open ? " open" : " closed"));
        CDisplaySession session;
        session.mFake->SetVcp(static_cast<uint8_t>(c.code), 1, 100);
        ASSERT_TRUE(session.mDisplay.GetVCPValue(c.code, false).valid);
        session.mFake->ClearSent();
        session.mFake->SetOpen(c.open);
        EXPECT_EQ(session.mDisplay.SetVCPValue(c.code, c.to), c.result);
        ASSERT_FALSE(session.mFake->Sent().empty());
        EXPECT_DOUBLE_EQ(session.mFake->Sent()[0].delay, c.delay);
        EXPECT_EQ(session.mClock->Sleeps(), c.sleeps);
    }
}
