#include "profiles/ProfileText.h"
#include "profiles/CProfileStore.h"

#include <gtest/gtest.h>

TEST(ProfileText, WhatIsWrittenReadsBackAndDamageIsNamedByLine) {
    const SProfile profile{"print",
                           {"PDX-2700E", "VRX1060000001"},
                           {{"brightness", {20}}, {"rgb-gain", {255, 0, 65535}}, {"later", {7}}}};
    SProfile read{"print", {}, {}};
    std::string error;
    ASSERT_TRUE(ParseProfile(FormatProfile(profile), read, error)) << error;
    EXPECT_EQ(read, profile);

    struct SRow {
        const char* text;
        const char* error; // null for a text that is a profile
    };
    const SRow rows[] = {
        {"model=A\r\nserial=B\r\n\n  # note\nbrightness=1\n", nullptr},
        {"serial = B\n", "the model is missing"},
        {"model = A\n", "the serial number is missing"},
        {"model = A\nmodel = B\nserial = C\n", "line 2: model is given twice"},
        {"model =\nserial = C\n", "line 1: model is empty"},
        {"model = A\nserial = B\nbrightness\n", "line 3: not a 'key = value' line"},
        {"model = A\nserial = B\nBright = 1\n", "line 3: not a 'key = value' line"},
        {"model = A\nserial = B\nbrightness = -1\n", "line 3: '-1' is not a value"},
        {"model = A\nserial = B\nbrightness = 65536\n", "line 3: '65536' is not a value"},
        {"model = A\nserial = B\nbrightness = 1, 2\n", "line 3: '1, 2' is not a value"},
        {"model = A\nserial = B\nrgb-gain = 1, 2\n", "line 3: '1, 2' is not a value"},
        {"model = A\nserial = B\nlater = 1,2,3,4\n", "line 3: '1,2,3,4' is not a value"},
        {"model = A\nserial = B\ncontrast = 5x\n", "line 3: '5x' is not a value"},
        {"model = A\nserial = B\ncontrast = 5\ncontrast = 6\n", "line 4: contrast is given twice"},
    };
    for (const SRow& row : rows) {
        SProfile parsed;
        error.clear();
        EXPECT_EQ(ParseProfile(row.text, parsed, error), row.error == nullptr) << row.text;
        EXPECT_EQ(error.find(row.error ? row.error : ""), 0u) << error;
    }
    EXPECT_FALSE(ParseProfile(std::string(kMaxProfileTextSize + 1, '#'), read, error));
}

TEST(ProfileText, NamesAreThoseAFileCanHave) {
    for (const char* name : {"night", "Print proofing 5000K", "a.b_c-d", "x"}) {
        EXPECT_TRUE(IsValidProfileName(name)) << name;
    }
    for (const char* name : {"", ".hidden", " lead", "trail ", "a/b", "..", "tab\t", "é",
                             "12345678901234567890123456789012345678901234567890123456789012345"}) {
        EXPECT_FALSE(IsValidProfileName(name)) << name;
    }
}

TEST(ProfileStore, TheFolderFollowsTheXdgRules) {
    EXPECT_EQ(CProfileStore::Directory("/x/cfg", "/home/u"), "/x/cfg/paneltune/profiles");
    EXPECT_EQ(CProfileStore::Directory("relative", "/home/u"),
              "/home/u/.config/paneltune/profiles");
    EXPECT_EQ(CProfileStore::Directory(nullptr, "/home/u"), "/home/u/.config/paneltune/profiles");
    EXPECT_EQ(CProfileStore::Directory(nullptr, nullptr), "");
}
