#include "foundation/HexDump.h"

#include "foundation/Trace.h"

#include <iomanip>
#include <sstream>

namespace {
constexpr size_t kBytesPerRow = 16;
}

std::string FormatHexDump(const std::vector<uint8_t>& bytes, const std::string& title) {
    std::ostringstream text;
    if (!title.empty()) {
        text << "Dumping: " << title << "\n";
    }
    text << "    0  1  2  3  4  5  6  7  8  9  A  B  C  D  E  F";
    text << std::hex << std::setfill('0');
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (i % kBytesPerRow == 0) {
            text << "\n" << std::setw(2) << i << ": ";
        }
        text << std::setw(2) << static_cast<unsigned>(bytes[i]) << " ";
    }
    text << std::endl;
    return text.str();
}

void DumpBuffer(const std::vector<uint8_t>& bytes, const std::string& title) {
    if (gTraceEnabled) {
        TraceDebug("%s", FormatHexDump(bytes, title).c_str());
    }
}
