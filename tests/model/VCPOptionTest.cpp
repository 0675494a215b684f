#include "model/VCPCodeInfoTable.h"
#include "model/VCPOptionCodeWithEnumerationT.h"
#include "model/VCPOptionSingleCode.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using A = SVCPCodeInfo::EAccess;

SVCPCodeInfo ReadWriteChoice() {
    return SVCPCodeInfo::NonContinuous(A::eReadWrite);
}
SVCPCodeInfo ReadWriteLevel() {
    return SVCPCodeInfo::Continuous(A::eReadWrite);
}

// An enumerated option whose stored value is raw_I, as a reply would leave it.
std::unique_ptr<VCPOptionCodeWithEnumerationT<int>> ChoiceHolding(int32_t raw_I) {
    auto option = std::make_unique<VCPOptionCodeWithEnumerationT<int>>(vcpC_InputSource,
                                                                       ReadWriteChoice(), "");
    option->SetOriginal(raw_I);
    option->Revert();
    return option;
}

} // namespace

TEST(SVCPCodeInfo, EachWayOfMakingNormalisesTheSizesByAccess) {
    struct SCase {
        SVCPCodeInfo info;
        SVCPCodeInfo::EKind kind;
        uint32_t readSize;
        uint32_t writeSize;
    };
    const SCase cases[] = {
        {SVCPCodeInfo::Continuous(A::eReadWrite), SVCPCodeInfo::eContinuous, 4, 2},
        {SVCPCodeInfo::Continuous(A::eReadOnly), SVCPCodeInfo::eContinuous, 4, 0},
        {SVCPCodeInfo::NonContinuous(A::eWriteOnly), SVCPCodeInfo::eNonContinuous, 0, 2},
        {SVCPCodeInfo::NonContinuous(A::ePlaceholder), SVCPCodeInfo::eNonContinuous, 0, 0},
        {SVCPCodeInfo::Table(A::eReadWrite, 9, 9), SVCPCodeInfo::eTable, 9, 9},
        {SVCPCodeInfo::Table(A::eReadOnly, 70, 5), SVCPCodeInfo::eTable, 70, 0},
        {SVCPCodeInfo::Table(A::eWriteOnly, 5, 325), SVCPCodeInfo::eTable, 0, 325},
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(c.info.kind, c.kind);
        EXPECT_EQ(c.info.readSize, c.readSize);
        EXPECT_EQ(c.info.writeSize, c.writeSize);
    }
    EXPECT_TRUE(SVCPCodeInfo::Continuous(A::eReadOnly).Readable());
    EXPECT_FALSE(SVCPCodeInfo::NonContinuous(A::eWriteOnly).Readable());
    EXPECT_FALSE(SVCPCodeInfo::NonContinuous(A::ePlaceholder).Readable());
}

TEST(VCPCodeInfoTable, HoldsEveryKnownCodeWithItsKindAndSizes) {
    const VCPCodeInfoMap table = BuildVCPCodeInfoTable(false);
    EXPECT_EQ(table.size(), 160u);
    struct SRow {
        int code;
        A access;
        SVCPCodeInfo::EKind kind;
        uint32_t readSize;
        uint32_t writeSize;
    };
    const SRow rows[] = {
        {0x10, A::eReadWrite, SVCPCodeInfo::eContinuous, 4, 2},
        {0x6B, A::eReadWrite, SVCPCodeInfo::eContinuous, 4, 2},
        {0xE6, A::eReadWrite, SVCPCodeInfo::eContinuous, 4, 2},
        {0x02, A::eReadWrite, SVCPCodeInfo::eNonContinuous, 4, 2},
        {0xF4, A::eReadWrite, SVCPCodeInfo::eNonContinuous, 4, 2},
        {0xDF, A::eReadOnly, SVCPCodeInfo::eNonContinuous, 4, 0},
        {0x04, A::eWriteOnly, SVCPCodeInfo::eNonContinuous, 0, 2},
        {0xEA, A::eWriteOnly, SVCPCodeInfo::eNonContinuous, 0, 2},
        {0xC2, A::eReadOnly, SVCPCodeInfo::eContinuous, 4, 0},
        {0x73, A::eReadOnly, SVCPCodeInfo::eTable, 9, 0},
        {0x76, A::eWriteOnly, SVCPCodeInfo::eTable, 0, 19},
        {0xC3, A::eReadWrite, SVCPCodeInfo::eTable, 256, 256},
        {0xCF, A::eWriteOnly, SVCPCodeInfo::eTable, 0, 325},
        {0xF2, A::eReadOnly, SVCPCodeInfo::eTable, 70, 0},
        {0x72, A::eReadWrite, SVCPCodeInfo::eNonContinuous, 4, 2},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.code);
        const SVCPCodeInfo& info = table.at(static_cast<vcpCode>(row.code));
        EXPECT_EQ(info.access, row.access);
        EXPECT_EQ(info.kind, row.kind);
        EXPECT_EQ(info.readSize, row.readSize);
        EXPECT_EQ(info.writeSize, row.writeSize);
    }
    for (const int absent : {0x00, 0x07, 0xC0, 0xF1, 0xF5}) {
        EXPECT_EQ(table.count(static_cast<vcpCode>(absent)), 0u) << absent;
    }
    EXPECT_TRUE(BuildVCPCodeInfoTable(true).at(vcpC_Gamma).Continuous());
}

TEST(VCPOptionCodeWithEnumeration, SetValueChecksTheListAndRefusesThePresentValue) {
    VCPOptionCodeWithEnumerationT<int> option(vcpC_InputSource, ReadWriteChoice(), "04 05 08");
    ASSERT_EQ(option.Values(), (std::vector<int32_t>{4, 5, 8}));
    ASSERT_TRUE(option.SetOriginal(5));
    option.Revert();
    option.SetError("vcp code error");

    EXPECT_FALSE(option.SetValue(5));
    EXPECT_EQ(option.GetError(), "vcp code error");
    EXPECT_FALSE(option.SetValue(6));
    EXPECT_EQ(option.GetValue(), 5);
    EXPECT_TRUE(option.SetValue(8));
    EXPECT_FALSE(option.HasError());
    EXPECT_TRUE(option.IsModified());
    // The list test looks at the low half only.
    EXPECT_TRUE(option.SetValue(0x00010005));
    EXPECT_EQ(option.GetValue(), 0x00010005);

    EXPECT_FALSE(option.SetOriginal(6));
    EXPECT_EQ(option.GetOriginal(), 5);
    EXPECT_EQ(option.GetRange(), SVCPRange{});
}

TEST(VCPOptionCodeWithEnumeration, AnEmptyListAllowsEveryValue) {
    VCPOptionCodeWithEnumerationT<int> option(vcpC_InputSource, ReadWriteChoice(), "");
    EXPECT_TRUE(option.Values().empty());
    EXPECT_TRUE(option.SetOriginal(77));
    EXPECT_TRUE(option.SetValue(-3));
    EXPECT_TRUE(option.SetValue(0x1234));
}

TEST(VCPOptionCodeWithEnumeration, ReadsTheListUpToTheFirstBadToken) {
    struct SCase {
        const char* text;
        std::vector<int32_t> values;
    };
    const SCase cases[] = {
        {"04 05 08 0B", {4, 5, 8, 11}},
        {"14 zz 16", {0x14}},
        {"05  08", {5, 8}},
        {" 0a 1G 3", {0x0A, 1}},
        {"", {}},
    };
    for (const SCase& c : cases) {
        VCPOptionCodeWithEnumerationT<int> option(vcpC_InputSource, ReadWriteChoice(), c.text);
        EXPECT_EQ(option.Values(), c.values) << c.text;
    }
}

TEST(VCPOptionCodeWithEnumeration, SeesThroughAnAllOnesHighHalfOnly) {
    struct SCase {
        uint32_t stored;
        int32_t value;
        int32_t askFor;
        bool isCurrent;
    };
    const SCase cases[] = {
        {0xFFFF0005u, 5, 5, true},
        {0xFFFF0005u, 5, 0x00070005, true},
        {0x00010005u, 0x00010005, 5, false},
        {0xFFFFFFFFu, -1, -1, true},
        {0xFFFFFFFFu, -1, 0xFFFF, true},
        {0xFFFE0005u, static_cast<int32_t>(0xFFFE0005u), 5, false},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.stored);
        const auto option = ChoiceHolding(static_cast<int32_t>(c.stored));
        EXPECT_EQ(option->GetValue(), c.value);
        EXPECT_EQ(option->GetOriginal(), c.value);
        EXPECT_EQ(option->IsCurrentValue(c.askFor), c.isCurrent);
        EXPECT_FALSE(option->IsModified());
    }
}

TEST(VCPOptionCodeWithEnumeration, OnlyTheHighHalfOfTheValueDecidesIsModified) {
    // Value with an all-ones high half: the low halves are compared.
    auto seenThrough = ChoiceHolding(0x00AA0005);
    ASSERT_TRUE(seenThrough->SetValue(static_cast<int32_t>(0xFFFF0005u)));
    EXPECT_FALSE(seenThrough->IsModified());
    ASSERT_TRUE(seenThrough->SetValue(static_cast<int32_t>(0xFFFF0006u)));
    EXPECT_TRUE(seenThrough->IsModified());

    // Plain value against an original with an all-ones high half: compared whole.
    auto whole = ChoiceHolding(5);
    ASSERT_TRUE(whole->SetOriginal(static_cast<int32_t>(0xFFFF0005u)));
    EXPECT_TRUE(whole->IsModified());
    EXPECT_EQ(whole->GetOriginal(), 5);
}

TEST(VCPOptionSingleCode, SetValueHoldsToTheRangeAndRefusesThePresentValue) {
    VCPOptionSingleCode option(vcpC_Luminance, ReadWriteLevel());
    EXPECT_FALSE(option.SetValue(0)) << "0 is the present value before the first read";
    EXPECT_FALSE(option.SetValue(1)) << "the range is 0 to 0 before the first read";

    option.SetMaximum(100);
    EXPECT_EQ(option.GetRange(), (SVCPRange{0, 100}));
    EXPECT_FALSE(option.SetValue(101));
    EXPECT_FALSE(option.SetValue(-1));
    EXPECT_FALSE(option.SetOriginal(101));
    EXPECT_FALSE(option.IsOriginalSet());
    EXPECT_TRUE(option.SetValue(100));
    EXPECT_TRUE(option.SetOriginal(100));
    EXPECT_TRUE(option.IsOriginalSet());
    EXPECT_FALSE(option.IsModified());
}

TEST(VCPOptionSingleCode, ARangeWithTheMinimumAboveTheMaximumWraps) {
    // A display never reports such a range; the rule still has to hold for the maximum -1.
    VCPOptionSingleCode option(vcpC_Luminance, ReadWriteLevel());
    option.SetMaximum(-1);
    EXPECT_TRUE(option.SetValue(-5));
    EXPECT_TRUE(option.SetValue(7));
}

TEST(VCPOption, TheTwoSettersSkipTheirTestsForDifferentAccesses) {
    const SVCPCodeInfo writeOnly = SVCPCodeInfo::NonContinuous(A::eWriteOnly);
    VCPOptionCodeWithEnumerationT<int> trigger(vcpC_RestoreFactoryDefaults, writeOnly, "01");
    EXPECT_TRUE(trigger.IsOriginalSet()) << "a write-only code counts as known";
    EXPECT_TRUE(trigger.SetValue(9));
    EXPECT_TRUE(trigger.SetValue(9));
    EXPECT_TRUE(trigger.SetOriginal(9));

    const SVCPCodeInfo placeholder = SVCPCodeInfo::NonContinuous(A::ePlaceholder);
    VCPOptionCodeWithEnumerationT<int> held(vcpC_InputSource, placeholder, "01");
    EXPECT_FALSE(held.IsOriginalSet());
    EXPECT_TRUE(held.SetOriginal(9)) << "SetOriginal skips the list for a placeholder";
    EXPECT_FALSE(held.SetValue(2)) << "SetValue checks it";
    EXPECT_TRUE(held.SetValue(1));
}

TEST(VCPOption, DumpShowsNameValuesAccessAndTheChildsLines) {
    VCPOptionSingleCode luminance(vcpC_Luminance, ReadWriteLevel());
    luminance.SetMaximum(100);
    luminance.SetOriginal(50);
    luminance.Revert();
    EXPECT_EQ(luminance.Dump(), " Name = Luminance (10)\n"
                                " Value = 32 (32)\n"
                                " Readable/Writable, Continuous, Size: read 4, write 2\n"
                                " Max = 100\n");

    VCPOptionCodeWithEnumerationT<colorPresetCode> preset(vcpC_SelectColorPreset, ReadWriteChoice(),
                                                          "05 0B");
    preset.SetOriginal(11);
    preset.Revert();
    preset.SetError("vcp code error");
    EXPECT_EQ(preset.Dump(), " Name = Select Color Preset (14)\n"
                             " Value = b (b)\n"
                             " Readable/Writable, Non-Continuous, Size: read 4, write 2\n"
                             " Error \"vcp code error\"\n"
                             " Enum Code = 6500k (5)\n"
                             " **Selected Enum Code = 5700k (b)\n");

    VCPOptionCodeWithEnumerationT<int> open(vcpC_RestoreFactoryDefaults,
                                            SVCPCodeInfo::NonContinuous(A::eWriteOnly), "");
    EXPECT_EQ(open.Dump(), " Name = Restore Factory Defaults (4)\n"
                           " Value = 0 (0)\n"
                           " Write Only, Non-Continuous, Size: read 0, write 2\n"
                           " No defined value list\n");
}
