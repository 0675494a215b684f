#pragma once
// Hexadecimal numbers as the capability string writes them: blank-separated, no prefix. The
// readers stop at the first text that is no number, as a stream in hexadecimal mode would.

#include <cstdint>
#include <string_view>
#include <vector>

// Reads one number from the start of text, after any white space; a leading "0x" is allowed.
// Returns false when no digit stands there or the number does not fit in 64 bits. On success
// consumed_O (when given) tells how many characters were used.
bool ReadHexNumber(std::string_view text_I, int64_t& value_O, size_t* consumed_O = nullptr);

// Reads numbers one after the other until one cannot be read or does not fit in 32 bits.
std::vector<int32_t> ReadHexList(std::string_view text_I);
