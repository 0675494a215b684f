#include "foundation/FileVersion.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

auto Fields(const FileVersion& v) {
    return std::make_tuple(int{v.mMajor}, int{v.mMinor}, int{v.mVariation}, int{v.mRelease},
                           int{v.mBuild});
}

} // namespace

TEST(FileVersion, ParsesText) {
    struct SCase {
        std::string text;
        bool web;
        std::tuple<int, int, int, int, int> fields;
    };
    const SCase cases[] = {
        {"1.23", false, {1, 2, 3, 0, 0}},
        {"2.1", false, {2, 0, 1, 0, 0}},
        {"2.3.4", false, {2, 3, 4, 5, 0}},
        {"2.3.4b5", false, {2, 3, 4, 2, 5}},
        {"2.3.4A5", false, {2, 3, 4, 1, 5}},
        {"2.3.4w7", false, {2, 3, 4, 3, 7}},
        {"2.3.4D9", false, {2, 3, 4, 4, 9}},
        {"2.3.4f1", false, {2, 3, 4, 5, 1}},
        {"2.3.4-6", false, {2, 3, 4, 5, 6}},
        {"2.3.4.8", false, {2, 3, 4, 5, 8}},
        {"2.3.4?8", false, {2, 3, 4, 0, 8}},
        {"2.3.4", true, {2, 3, 4, 3, 0}},
        {"54.32.10", false, {54, 32, 10, 5, 0}},
        {"1.300", false, {1, 30, 0, 0, 0}},
        {"1.2.", false, {1, 2, 0, 5, 0}},
        {"300.1.1", false, {44, 1, 1, 5, 0}},
        {".", false, {0, 0, 0, 0, 0}},
        {"noversion", false, {0, 0, 0, 0, 0}},
        {"", false, {0, 0, 0, 0, 0}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(Fields(FileVersion(c.text, c.web)), c.fields);
    }
}

TEST(FileVersion, TextStyles) {
    struct SCase {
        FileVersion version;
        int style;
        std::string text;
    };
    const SCase cases[] = {
        {FileVersion(2, 3, 4, 2, 5), 0, "2.3.4b5"}, {FileVersion(2, 3, 4, 5, 0), 0, "2.3.4-0"},
        {FileVersion(2, 3, 4, 0, 1), 0, "2.3.4?1"}, {FileVersion(2, 3, 4, 9, 1), 0, "2.3.4?1"},
        {FileVersion(2, 3, 4, 5, 6), 1, "2.3.4.6"}, {FileVersion(2, 3, 4, 5, 0), 2, "2.3.4"},
        {FileVersion(1, 2, 3, 0, 0), 3, "1.23"},    {FileVersion(1, 2, 3, 0, 0), 5, "1.23"},
        {FileVersion(1, 5, 0, 0, 0), 4, "1.05"},    {FileVersion(1, 12, 0, 0, 0), 4, "1.12"},
        {FileVersion(1, 2, 3, 0, 0), 6, ""},        {FileVersion(1, 2, 3, 0, 0), -1, ""},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(c.version.AsString(c.style), c.text);
    }
}

TEST(FileVersion, NumberStylesRoundTrip) {
    struct SCase {
        uint32_t number;
        int style;
        std::tuple<int, int, int, int, int> fields;
    };
    const SCase cases[] = {
        {0x010203, 2, {1, 2, 3, 5, 0}},
        {0x01000B, 3, {1, 1, 1, 0, 0}},
        {0x0105, 4, {1, 5, 0, 0, 0}},
        {0x0A0B0C, 5, {10, 11, 12, 0, 0}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.style);
        const FileVersion version(c.number, c.style);
        EXPECT_EQ(Fields(version), c.fields);
        EXPECT_EQ(version.AsNumber(c.style), c.number);
    }
    EXPECT_EQ(FileVersion(0x010203, 2).AsString(2), "1.2.3");
}

// Styles a version cannot take give zero or drop the fields the style has no room for.
TEST(FileVersion, UnsupportedStylesAndBrokenInvariants) {
    EXPECT_EQ(Fields(FileVersion(0x010203, 1)), std::make_tuple(0, 0, 0, 0, 0));
    EXPECT_EQ(FileVersion(1, 2, 3, 0, 0).AsNumber(0), 0u);
    EXPECT_EQ(FileVersion(1, 2, 3, 0, 0).AsNumber(2), 0x010203u);
    EXPECT_EQ(FileVersion(1, 30, 12, 5, 0).AsNumber(3), 0x010000u + 312);
    EXPECT_EQ(FileVersion(1, 2, 3, 5, 0).AsNumber(5), 0x010203u);
    EXPECT_EQ(FileVersion(1, 2, 3, 0, 4).AsString(2), "1.2.3");
    EXPECT_EQ(FileVersion(1, 2, 3, 5, 4).AsString(4), "1.02");
    EXPECT_EQ(FileVersion("1.23", true).mRelease, 0);
}

TEST(FileVersion, NormalizeAndValidity) {
    struct SCase {
        FileVersion before;
        std::tuple<int, int, int, int, int> after;
    };
    const SCase cases[] = {
        {FileVersion("2.1"), {2, 1, 0, 0, 0}},
        {FileVersion(0, 0, 0, 0, 0), {0, 0, 0, 0, 0}},
        {FileVersion(2, 0, 1, 5, 0), {2, 0, 1, 5, 0}},
        {FileVersion(2, 0, 1, 0, 3), {2, 0, 1, 0, 3}},
        {FileVersion(2, 0, 12, 0, 0), {2, 0, 12, 0, 0}},
        {FileVersion(2, 30, 1, 0, 0), {2, 45, 0, 0, 0}},
    };
    for (const SCase& c : cases) {
        FileVersion v = c.before;
        v.Normalize();
        EXPECT_EQ(Fields(v), c.after);
    }
    EXPECT_FALSE(FileVersion().IsValid());
    EXPECT_FALSE(FileVersion(0, 0, 0, 5, 0).IsValid());
    EXPECT_FALSE(FileVersion("noversion").IsValid());
    EXPECT_TRUE(FileVersion(0, 0, 0, 0, 1).IsValid());
    EXPECT_TRUE(FileVersion(0, 0, 1, 0, 0).IsValid());
    EXPECT_LT(FileVersion("1.2.3"), FileVersion("1.10.0"));
}
