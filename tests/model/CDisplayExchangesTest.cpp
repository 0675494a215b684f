#include "DisplayTestSupport.h"
#include "foundation/Trace.h"

#include <gtest/gtest.h>

TEST(CDisplayRead, AFirstReadSendsGetVCPFeatureAndFillsTheOption) {
    CDisplaySession session;
    session.mFake->SetVcp(0x10, 50, 100);

    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, false), (SVCPResult{true, 50, 0, 100}));
    ASSERT_EQ(session.mFake->Sent().size(), 1u);
    const SSentRequest& sent = session.mFake->Sent()[0];
    EXPECT_EQ(sent.frame, ByteVector({0x6E, 0x51, 0x82, 0x01, 0x10, 0xAC}));
    EXPECT_DOUBLE_EQ(sent.delay, 0.07);
    EXPECT_EQ(sent.expectedSize, 38u);
    EXPECT_EQ(sent.retries, 0);
    const auto& option = *session.mDisplay.GetOptions().at(vcpC_Luminance);
    EXPECT_TRUE(option.IsOriginalSet());
    EXPECT_EQ(option.GetOriginal(), 50);

    // From memory until a refresh is asked for.
    session.mFake->SetVcp(0x10, 60, 100);
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, false).value, 50);
    EXPECT_EQ(session.mFake->Sent().size(), 1u);
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, true).value, 60);
    EXPECT_EQ(session.mFake->Sent().size(), 2u);
    EXPECT_EQ(option.GetOriginal(), 50) << "only the first read sets the original";
    EXPECT_TRUE(session.mClock->Sleeps().empty());

    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Undefined, true), SVCPResult{});
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Hue, true), SVCPResult{});
    EXPECT_EQ(session.mFake->Sent().size(), 2u);
}

TEST(CDisplayRead, ABadReplyLeavesTheOptionAsItWasWithItsReason) {
    struct SCase {
        ByteVector reply;
        const char* reason;
    };
    ByteVector wrongAddress = FeatureReply(0x10, 0, 100, 70);
    wrongAddress[0] = 0x6F;
    ByteVector wrongLength = FeatureReply(0x10, 0, 100, 70);
    wrongLength[1] = 0x89;
    ByteVector wrongReplyCode = FeatureReply(0x10, 0, 100, 70);
    wrongReplyCode[2] = 0x03;
    const SCase cases[] = {
        {{}, "Send request failed"},
        {{0x6E}, "Send request failed"},
        {{0x6E, 0x80, 0xBE}, "Send request no data"},
        {{0x80, 0xBE, 0x6E}, "Send request unknown response"},
        {{0x6E, 0x88, 0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 0x46},
         "Send request unknown response"},
        {wrongAddress, "address is incorrect"},
        {wrongLength, "length is incorrect"},
        {wrongReplyCode, "reply code is incorrect"},
        {FeatureReply(0x10, 0, 100, 70, 1), "vcp code error"},
        {FeatureReply(0x12, 0, 100, 70), "it is NOT a response to our query"},
        {FeatureReply(0x10, 2, 100, 70), "Bad code type"},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.reason);
        CDisplaySession session;
        session.mFake->SetVcp(0x10, 50, 100);
        ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_Luminance, false).valid);
        session.mFake->QueueReply(c.reply);

        CTraceCapture capture;
        EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, true), SVCPResult{});
        EXPECT_NE(capture.Take().find(std::string("ReadVCPValue Luminance failed ") + c.reason),
                  std::string::npos);
        const auto& option = *session.mDisplay.GetOptions().at(vcpC_Luminance);
        EXPECT_FALSE(option.HasError());
        EXPECT_EQ(option.GetValue(), 50);
        EXPECT_EQ(option.GetRange(), (SVCPRange{0, 100}));
        // The next call without a refresh answers from memory.
        EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, false),
                  (SVCPResult{true, 50, 0, 100}));
    }
}

TEST(CDisplayRead, ReadsTheValueAsTheOptionsKindSays) {
    ByteVector wrongCheck = FeatureReply(0x10, 0, 100, 40);
    wrongCheck.back() ^= 0xFF;
    struct SCase {
        vcpCode code;
        ByteVector reply;
        SVCPResult result;
    };
    const SCase cases[] = {
        {vcpC_Luminance, wrongCheck, {true, 40, 0, 100}},
        // Info alone decides how the bytes are read, whatever type the display claims.
        {vcpC_Luminance, FeatureReply(0x10, 1, 100, 40), {true, 40, 0, 100}},
        {vcpC_SelectColorPreset, FeatureReply(0x14, 0, 0xFFFF, 5), {true, 5, 0, 0}},
        {vcpC_SelectColorPreset, FeatureReply(0x14, 0, 0x0000, 8), {true, 8, 0, 0}},
        {vcpC_InputSource, FeatureReply(0x60, 0, 0x0000, 0x0211), {true, 0x11, 0, 0}},
        {vcpC_InputSource, FeatureReply(0x60, 0, 0x0000, 0x0112), {true, 0x12, 0, 0}},
        // A value outside the list is refused; the option keeps the default it started with.
        {vcpC_SelectColorPreset, FeatureReply(0x14, 0, 0x0000, 6), {true, 0, 0, 0}},
        {vcpC_InputSource, FeatureReply(0x60, 0, 0x0000, 0x0113), {true, 0, 0, 0}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.code);
        CDisplaySession session;
        session.mFake->QueueReply(c.reply);
        EXPECT_EQ(session.mDisplay.GetVCPValue(c.code, false), c.result);
    }
}

TEST(CDisplayRead, ALaterReplyOutsideTheRangeKeepsTheOldValue) {
    CDisplaySession session;
    session.mFake->QueueReplies({FeatureReply(0x10, 0, 100, 50), FeatureReply(0x10, 0, 100, 101),
                                 FeatureReply(0x10, 0, 100, 99)});
    CTraceCapture capture;
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, false).value, 50);
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, true), (SVCPResult{true, 50, 0, 100}));
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, true).value, 99);
    EXPECT_NE(capture.Take().find("WARNING - Continuous SetValue failed\n"), std::string::npos);
    EXPECT_TRUE(session.mDisplay.IsAnyOptionModified());
}

TEST(CDisplayRead, TableCodesAreANoOpToReadAndAFailureToWrite) {
    CDisplaySession session;
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_RemoteProcedureCall, true),
              (SVCPResult{true, 0, 0, 0}));
    CTraceCapture capture;
    EXPECT_FALSE(session.mDisplay.SetVCPValue(vcpC_RemoteProcedureCall, 1));
    EXPECT_NE(capture.Take().find("WriteVCPValue Remote Procedure Call failed Table codes not "
                                  "supported"),
              std::string::npos);
    EXPECT_TRUE(session.mFake->Sent().empty());
    EXPECT_EQ(session.mClock->Sleeps(), (std::vector<uint32_t>{60}));
}

TEST(CDisplayWrite, SendsSetVCPFeatureThenReadsWhatTheDisplayMadeOfIt) {
    CDisplaySession session;
    session.mFake->SetVcp(0x10, 50, 100);
    ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_Luminance, false).valid);
    session.mFake->ClearSent();

    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 30));
    ASSERT_EQ(session.mFake->Sent().size(), 2u);
    EXPECT_EQ(session.mFake->Sent()[0].frame,
              ByteVector({0x6E, 0x51, 0x84, 0x03, 0x10, 0x00, 0x1E, 0xB6}));
    EXPECT_DOUBLE_EQ(session.mFake->Sent()[0].delay, 0.13);
    EXPECT_EQ(session.mFake->Sent()[0].expectedSize, 38u);
    EXPECT_EQ(session.mFake->Sent()[1].frame, ByteVector({0x6E, 0x51, 0x82, 0x01, 0x10, 0xAC}));
    EXPECT_EQ(session.mClock->Sleeps(), (std::vector<uint32_t>{50}));
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_Luminance, false), (SVCPResult{true, 30, 0, 100}));
    EXPECT_TRUE(session.mDisplay.IsAnyOptionModified());

    // Only the low 16 bits of a value go out.
    session.mFake->ClearSent();
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_RestoreFactoryDefaults, 0x12345));
    EXPECT_EQ(session.mFake->Sent().at(0).frame,
              ByteVector({0x6E, 0x51, 0x84, 0x03, 0x04, 0x23, 0x45, 0xDA}));
}

TEST(CDisplayWrite, LeavesTheWireAloneWhenThereIsNothingToWrite) {
    CDisplaySession session;
    session.mFake->SetVcp(0x10, 50, 100);
    session.mFake->SetVcp(0x14, 5, 0);
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 30)) << "never read";
    EXPECT_FALSE(session.mDisplay.GetOptions().at(vcpC_Luminance)->IsOriginalSet());
    ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_Luminance, false).valid);
    ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_SelectColorPreset, false).valid);
    session.mFake->ClearSent();

    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 50)) << "present value";
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 101)) << "out of range";
    EXPECT_TRUE(session.mDisplay.SetVCPValue(vcpC_SelectColorPreset, 6)) << "not in the list";
    EXPECT_FALSE(session.mDisplay.SetVCPValue(vcpC_Hue, 1)) << "not offered";
    EXPECT_TRUE(session.mFake->Sent().empty());
    EXPECT_EQ(session.mDisplay.GetVCPValue(vcpC_SelectColorPreset, false).value, 5);
    EXPECT_FALSE(session.mDisplay.IsAnyOptionModified());
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
        {{{0x6E}, {0x6E, 0x80, 0x00}, readBack}, true, 2, {50, 60, 50}},
        {{{0x6E}, {0x6E, 0x80}}, false, 2, {50, 60, 50}},
        {{{}, {}}, false, 2, {50, 60, 50}},
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
        EXPECT_EQ(session.mFake->Sent().back().frame.at(3), c.result ? 0x01 : 0x03);
        EXPECT_FALSE(session.mDisplay.GetOptions().at(vcpC_Contrast)->HasError());
        // A write of unknown outcome leaves the value last known, with its cause.
        EXPECT_EQ(session.mDisplay.GetOptions().at(vcpC_Contrast)->GetValue(), c.result ? 40 : 50);
        EXPECT_EQ(session.mDisplay.GetLastFailure().Text(),
                  c.result ? ": " : "writing VCP code 0x12: the display did not answer");

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
        {vcpC_RestoreFactoryColorDefaults, 2, true, 0.07, true, {50, 5000}},
        // A dead channel: the settle time is kept, and a failed scaling write counts as done.
        {vcpC_DisplayScaling, 2, false, 0.25, true, {50}},
        {vcpC_RestoreFactoryDefaults, 2, false, 0.07, false, {50, 5000, 60, 50, 5000}},
        {vcpC_Contrast, 2, false, 0.07, false, {50, 60, 50}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.code << (c.open ? " open" : " closed"));
        CDisplaySession session;
        session.mFake->SetVcp(static_cast<uint8_t>(c.code), 1, 100);
        ASSERT_TRUE(session.mDisplay.GetVCPValue(c.code, false).valid);
        session.mFake->ClearSent();
        session.mFake->SetOpen(c.open);
        CTraceCapture capture;
        EXPECT_EQ(session.mDisplay.SetVCPValue(c.code, c.to), c.result);
        ASSERT_FALSE(session.mFake->Sent().empty());
        EXPECT_DOUBLE_EQ(session.mFake->Sent()[0].delay, c.delay);
        EXPECT_EQ(session.mClock->Sleeps(), c.sleeps);
        EXPECT_EQ(capture.Take().find("SetVCPValue write failed Device not open") !=
                      std::string::npos,
                  !c.result);
    }
}

TEST(CDisplayWrite, VerifyWritesUntilTheDisplayShowsTheValue) {
    CDisplaySession session;
    session.mFake->SetVcp(0x12, 50, 100);
    ASSERT_TRUE(session.mDisplay.GetVCPValue(vcpC_Contrast, false).valid);
    session.mFake->ClearSent();
    EXPECT_TRUE(session.mDisplay.SetVCPValueVerify(vcpC_Contrast, 40, 0));
    EXPECT_EQ(session.mFake->Sent().size(), 2u);
    // A display that keeps its own value: every attempt writes, none verifies.
    session.mFake->ClearSent();
    session.mFake->QueueReplies({BuildNullMessage(), FeatureReply(0x12, 0, 100, 40),
                                 BuildNullMessage(), FeatureReply(0x12, 0, 100, 40)});
    EXPECT_FALSE(session.mDisplay.SetVCPValueVerify(vcpC_Contrast, 30, 1));
    EXPECT_EQ(session.mFake->Sent().size(), 4u);
}
