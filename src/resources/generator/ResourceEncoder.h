#pragma once
// Turns the rows of the data files into the binary forms the program searches: coded strings,
// string blocks of 16 and groups.

#include "resources/generator/ResourceDataFile.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// U+0298 followed by the padded base64 form of the UTF-8 text.
std::u16string EncodeCodedString(std::string_view utf8_I);

// Block id (string id / 16 + 1) to its 16 entries: each a length that counts the terminating
// zero, the coded string and the zero; a string the rows lack has length 0.
std::map<uint16_t, std::vector<uint16_t>> BuildStringBlocks(const std::vector<SDataRow>& rows_I);

// The rows in file order, each a 16-bit little-endian key and the coded string in UTF-16LE
// with its zero, closed by the key 0xFFFF.
std::vector<uint8_t> BuildGroup(const std::vector<SDataRow>& rows_I);
