#include "DisplayTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

// Reads every code given so that the options are known, then forgets the traffic.
void ReadAll(CDisplaySession& session_I, std::initializer_list<vcpCode> codes_I) {
    for (const vcpCode code : codes_I) {
        ASSERT_TRUE(session_I.mDisplay.GetVCPValue(code, false).valid) << code;
    }
    session_I.mFake->ClearSent();
}

} // namespace

TEST(CDisplaySession, RevertVCPValueRetriesTheReadLongerOnCedar) {
    struct SCase {
        uint16_t edid;
        std::vector<ByteVector> replies;
        bool result;
        std::vector<uint32_t> sleeps;
    };
    const ByteVector null = BuildNullMessage();
    const ByteVector good = FeatureReply(0x10, 0, 100, 50);
    const SCase cases[] = {
        {Edid::Birch, {null, good}, true, {50}},
        {Edid::CedarSmall, {null, {}, good}, true, {50, 1000}},
        {Edid::CedarSmall, {null, {}, {}}, false, {50, 1000}},
        // A lost write counts only when the read finds the value back.
        {Edid::Birch, {{}, {}, good}, true, {50, 60, 50}},
        {Edid::Birch, {{}, {}, FeatureReply(0x10, 0, 100, 30)}, false, {50, 60, 50}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(&c - cases);
        CDisplaySession session(c.edid);
        session.mFake->SetVcp(0x10, 50, 100);
        ReadAll(session, {vcpC_Luminance});
        ASSERT_TRUE(session.mDisplay.SetVCPValue(vcpC_Luminance, 30));
        session.mFake->ClearSent();
        session.mClock->ClearSleeps();
        session.mFake->QueueReplies(c.replies);

        EXPECT_EQ(session.mDisplay.RevertVCPValue(vcpC_Luminance), c.result);
        EXPECT_EQ(session.mClock->Sleeps(), c.sleeps);
        EXPECT_EQ(session.mFake->Sent().at(0).frame, BuildSetVCPFeature(0x10, 50));
        EXPECT_EQ(session.mFake->PendingReplies(), 0u);
    }
}

TEST(CDisplaySession, ResetOptionsForgetsValuesButKeepsPresetsUnlessAsked) {
    CDisplaySession session;
    session.mFake->SetVcp(0x10, 50, 100);
    session.mFake->SetVcp(0xF0, 1, 0);
    ReadAll(session, {vcpC_Luminance, vcpC_DisplayPresets});
    const auto& luminance = *session.mDisplay.GetOptions().at(vcpC_Luminance);
    const auto& presets = *session.mDisplay.GetOptions().at(vcpC_DisplayPresets);
    session.mDisplay.ResetOptions(false);
    EXPECT_FALSE(luminance.IsOriginalSet());
    EXPECT_TRUE(presets.IsOriginalSet());
    EXPECT_TRUE(session.mDisplay.GetOptions().at(vcpC_RestoreFactoryDefaults)->IsOriginalSet())
        << "write-only codes stay known";
    session.mDisplay.ResetOptions(true);
    EXPECT_FALSE(presets.IsOriginalSet());
}

TEST(CDisplayModels, EachPredicateNamesItsModels) {
    using D = CDisplay;
    const struct {
        bool (D::*predicate)() const;
        std::vector<uint16_t> edids;
    } predicates[] = {
        {&D::IsCedarGenOne, {0x1052, 0x1053}},
        {&D::IsCedarGenTwo, {0x1066, 0x1067}},
        {&D::IsCedarFamily, {0x1052, 0x1053, 0x1066, 0x1067}},
        {&D::IsElmLargeFamily, {0x1056, 0x1060, 0x1063}},
        {&D::IsElmHuge, {0x1057}},
        {&D::IsElmFamily, {0x1054, 0x1055, 0x1056, 0x1057, 0x1060, 0x1063}},
        {&D::IsBirchFamily, {0x1043, 0x1044, 0x1048, 0x1049}},
        {&D::IsAlderFamily, {0x1040, 0x1046}},
        {&D::IsFirFamily, {0x1064, 0x1065, 0x1068}},
        {&D::IsFirTwoFamily, {0x1071, 0x1072}},
        {&D::IsHazelOrFirTwo, {0x1070, 0x1071, 0x1072}},
    };
    for (uint16_t edid = 0x103F; edid <= 0x1073; ++edid) {
        const CDisplay display(nullptr, edid);
        for (const auto& p : predicates) {
            const bool expected = std::find(p.edids.begin(), p.edids.end(), edid) != p.edids.end();
            EXPECT_EQ((display.*p.predicate)(), expected)
                << std::hex << edid << " predicate " << &p - predicates;
        }
    }
}
