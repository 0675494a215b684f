#pragma once
// Byte buffers in hexadecimal, the form in which every frame on the wire reaches the trace.

#include <cstdint>
#include <string>
#include <vector>

// Traces the bytes under a column header, 16 to a row, in one debug line (shown only while
// gTraceEnabled). An empty title leaves
// out the "Dumping: " line. Row labels keep width 2 only up to 0xF0 and grow after that.
void DumpBuffer(const std::vector<uint8_t>& bytes, const std::string& title);

// The text DumpBuffer traces.
std::string FormatHexDump(const std::vector<uint8_t>& bytes, const std::string& title);
