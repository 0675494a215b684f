#include "foundation/HexDump.h"
#include "TraceCapture.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string kHeader = "    0  1  2  3  4  5  6  7  8  9  A  B  C  D  E  F\n";

std::vector<uint8_t> Counting(size_t count, uint8_t first) {
    std::vector<uint8_t> bytes(count);
    for (size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<uint8_t>(first + i);
    }
    return bytes;
}

} // namespace

TEST(HexDump, SixteenBytesARowUnderTheHeader) {
    const CDebugLinesOn debug;
    testing::internal::CaptureStderr();
    DumpBuffer(Counting(17, 0xA0), "two rows");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Dumping: two rows\n" + kHeader +
                  "00: a0 a1 a2 a3 a4 a5 a6 a7 a8 a9 aa ab ac ad ae af \n10: b0 \n");
    EXPECT_EQ(FormatHexDump({}, ""), kHeader);
}

TEST(HexDump, LabelsGrowPastRowF0) {
    const std::string text = FormatHexDump(Counting(300, 0), "");
    EXPECT_NE(text.find("\nf0: f0 f1 f2 f3 f4 f5 f6 f7 f8 f9 fa fb fc fd fe ff \n"
                        "100: 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f \n"),
              std::string::npos);
    EXPECT_EQ(text.substr(text.rfind("\n120:")), "\n120: 20 21 22 23 24 25 26 27 28 29 2a 2b \n");
    // A dump is a debug line: without /debug it stays off standard error.
    testing::internal::CaptureStderr();
    DumpBuffer(Counting(1, 0xA0), "quiet");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
