#include "foundation/HexDump.h"
#include "TraceCapture.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

const std::string kHeader = "    0  1  2  3  4  5  6  7  8  9  A  B  C  D  E  F";

std::vector<uint8_t> Counting(size_t count, uint8_t first) {
    std::vector<uint8_t> bytes(count);
    for (size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<uint8_t>(first + i);
    }
    return bytes;
}

std::string Lines(const std::string& text, size_t from, size_t count) {
    std::istringstream in(text);
    std::string line, out;
    for (size_t i = 0; std::getline(in, line); ++i) {
        if (i >= from && i < from + count) {
            out += line + "|";
        }
    }
    return out;
}

} // namespace

TEST(HexDump, LayoutOfShortBuffers) {
    struct SCase {
        size_t count;
        std::string title;
        std::string expected;
    };
    const SCase cases[] = {
        {0, "", kHeader + "\n"},
        {0, "empty", "Dumping: empty\n" + kHeader + "\n"},
        {1, "one", "Dumping: one\n" + kHeader + "\n00: a0 \n"},
        {16, "", kHeader + "\n00: a0 a1 a2 a3 a4 a5 a6 a7 a8 a9 aa ab ac ad ae af \n"},
        {17, "", kHeader + "\n00: a0 a1 a2 a3 a4 a5 a6 a7 a8 a9 aa ab ac ad ae af \n10: b0 \n"},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.count);
        const CDebugLinesOn debug;
        testing::internal::CaptureStderr();
        DumpBuffer(Counting(c.count, 0xA0), c.title);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.expected);
    }
    // A dump is a debug line: without /debug it stays off standard error.
    testing::internal::CaptureStderr();
    DumpBuffer(Counting(1, 0xA0), "quiet");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(HexDump, LabelsGrowPastRowF0) {
    const std::string text = FormatHexDump(Counting(300, 0), "");
    // Header plus 19 rows (18 full and one of 12 bytes).
    EXPECT_EQ(Lines(text, 19, 1), "120: 20 21 22 23 24 25 26 27 28 29 2a 2b |");
    EXPECT_EQ(Lines(text, 16, 2), "f0: f0 f1 f2 f3 f4 f5 f6 f7 f8 f9 fa fb fc fd fe ff |"
                                  "100: 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f |");
    EXPECT_EQ(Lines(text, 20, 5), "");
    EXPECT_EQ(text.back(), '\n');
}
