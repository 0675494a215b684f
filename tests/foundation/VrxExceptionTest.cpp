#include "foundation/VrxException.h"
#include "foundation/StatusCodes.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(VrxException, TextNamesFileLineAndStatusOnlyWhenGiven) {
    struct SCase {
        const char* file;
        int32_t line;
        uint16_t status;
        std::string text;
    };
    const SCase cases[] = {
        {nullptr, 0, VRXSTATUS_FAILURE, "Status: ffff,  \"bad char\""},
        {nullptr, 12, 0, " \"bad char\""},
        {"b64.cpp", 42, 0, "File: b64.cpp, Line: 42,  \"bad char\""},
        {"b64.cpp", -3, VRXSTATUS_PREFS_MISSING,
         "File: b64.cpp, Line: -3, Status: 31b,  \"bad char\""},
    };
    for (const SCase& c : cases) {
        const CVrxException error(c.file, c.line, "bad char", c.status);
        EXPECT_EQ(std::string(error.what()), c.text);
        EXPECT_EQ(error.Status(), c.status);
    }
    try {
        throw CVrxException(nullptr, 0, "SetEntriesInAcl failed", VRXSTATUS_FAILURE);
    } catch (const std::exception& caught) {
        EXPECT_STREQ(caught.what(), "Status: ffff,  \"SetEntriesInAcl failed\"");
    }
}

TEST(StatusCodes, TableHoldsEveryNameOnceAndIsReleasedOnRequest) {
    const auto* names = StatusCodeNames();
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(names->size(), 133u);
    std::set<std::string> distinct;
    for (const auto& [value, name] : *names) {
        EXPECT_EQ(name.rfind("VRXSTATUS_", 0), 0u) << name;
        distinct.insert(name);
    }
    EXPECT_EQ(distinct.size(), 133u);

    struct SCase {
        uint16_t value;
        std::string name;
    };
    const SCase cases[] = {
        {0x0000, "VRXSTATUS_SUCCESS"},
        {0xFFFF, "VRXSTATUS_FAILURE"},
        {0x031B, "VRXSTATUS_PREFS_MISSING"},
        {0x0300, ""},
        {0x1110, "VRXSTATUS_XSETTINGS_EXPORT_ERR"},
        {0x101B, "VRXSTATUS_TBLT_MIXED_OBS_UNSUPP"},
        {0x1011, ""},
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(StatusCodeName(c.value), c.name);
    }

    EXPECT_EQ(StatusCodeNames(true), nullptr);
    const auto* rebuilt = StatusCodeNames();
    ASSERT_NE(rebuilt, nullptr);
    EXPECT_EQ(rebuilt->size(), 133u);
}
