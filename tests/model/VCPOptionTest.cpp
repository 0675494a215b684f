#include "model/VCPOptionCodeWithEnumerationT.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using A = SVCPCodeInfo::EAccess;
using Choice = VCPOptionCodeWithEnumerationT<int>;

// An option whose stored value and original are raw_I, as a first read leaves them.
std::unique_ptr<Choice> ChoiceHolding(int32_t raw_I, const char* set_I = "",
                                      A access_I = A::eReadWrite) {
    auto option =
        std::make_unique<Choice>(vcpC_InputSource, SVCPCodeInfo::NonContinuous(access_I), set_I);
    option->SetOriginal(raw_I);
    option->Revert();
    return option;
}

} // namespace

TEST(VCPOptionCodeWithEnumeration, ReadsTheListUpToTheFirstBadToken) {
    const struct {
        const char* text;
        std::vector<int32_t> values;
    } cases[] = {
        {"04 05 08 0B", {4, 5, 8, 11}}, {"14 zz 16", {0x14}}, {"05  08", {5, 8}},
        {" 0a 1G 3", {0x0A, 1}},        {"FFFFFFFFF 1", {}},  {"", {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(
            Choice(vcpC_InputSource, SVCPCodeInfo::NonContinuous(A::eReadWrite), c.text).Values(),
            c.values)
            << c.text;
    }
}

TEST(VCPOptionCodeWithEnumeration, SeesThroughAnAllOnesHighHalfOnly) {
    const struct {
        uint32_t stored;
        int32_t value, askFor;
        bool isCurrent;
    } cases[] = {
        {0xFFFF0005u, 5, 5, true},
        {0x00010005u, 0x00010005, 5, false},
        {0xFFFFFFFFu, -1, 0xFFFF, true},
        {0xFFFE0005u, static_cast<int32_t>(0xFFFE0005u), 5, false},
    };
    for (const auto& c : cases) {
        const auto option = ChoiceHolding(static_cast<int32_t>(c.stored));
        EXPECT_EQ(option->GetValue(), c.value) << c.stored;
        EXPECT_EQ(option->GetOriginal(), c.value) << c.stored;
        EXPECT_EQ(option->IsCurrentValue(c.askFor), c.isCurrent) << c.stored;
    }
    // IsModified: the value's high half decides whether only the low halves are compared.
    auto seen = ChoiceHolding(0x00AA0005);
    ASSERT_TRUE(seen->SetValue(static_cast<int32_t>(0xFFFF0005u)));
    EXPECT_FALSE(seen->IsModified());
    auto whole = ChoiceHolding(5);
    ASSERT_TRUE(whole->SetOriginal(static_cast<int32_t>(0xFFFF0005u)));
    EXPECT_TRUE(whole->IsModified());
}
