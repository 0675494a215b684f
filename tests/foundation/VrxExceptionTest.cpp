#include "foundation/VrxException.h"
#include "foundation/StatusCodes.h"

#include <gtest/gtest.h>

#include <string>

TEST(VrxException, TextNamesFileLineAndStatusOnlyWhenGiven) {
    const struct {
        const char* file;
        int32_t line;
        uint16_t status;
        std::string text;
    } cases[] = {
        {nullptr, 0, VRXSTATUS_FAILURE, "Status: ffff,  \"bad char\""},
        {nullptr, 12, 0, " \"bad char\""},
        {"b64.cpp", 42, 0, "File: b64.cpp, Line: 42,  \"bad char\""},
        {"b64.cpp", -3, VRXSTATUS_PREFS_MISSING,
         "File: b64.cpp, Line: -3, Status: 31b,  \"bad char\""},
    };
    for (const auto& c : cases) {
        const CVrxException error(c.file, c.line, "bad char", c.status);
        EXPECT_EQ(std::string(error.what()), c.text);
        EXPECT_EQ(error.Status(), c.status);
    }
}

TEST(StatusCodes, NamesComeFromTheTable) {
    const struct {
        uint16_t value;
        std::string name;
    } cases[] = {
        {0x0000, "VRXSTATUS_SUCCESS"},
        {0xFFFF, "VRXSTATUS_FAILURE"},
        {0x031B, "VRXSTATUS_PREFS_MISSING"},
        {0x0300, ""},
        {0x101B, "VRXSTATUS_TBLT_MIXED_OBS_UNSUPP"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(StatusCodeName(c.value), c.name);
    }
}
