#pragma once
// Coded strings: U+0298 followed by the base64 form of the text's UTF-8 bytes. The decoder is
// lenient on purpose: plain text passes through, missing padding is supplied, and characters
// outside the alphabet are masked rather than rejected.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

constexpr wchar_t kCodedStringMarker = 0x0298;

// 256 entries: the 6-bit value of each base64 character, 64 for "=", 128 for anything else.
// Built on first use and read-only afterwards.
const std::array<uint8_t, 256>& valueTable();

// One entry of valueTable; a code beyond the table counts as a character without value.
uint8_t DecodeValue(uint32_t coded_I);

// Decodes whole blocks of four characters; a trailing partial block is ignored.
std::vector<uint8_t> DecodeBase64Block(const std::vector<uint8_t>& codedbuffer_I);

// The text behind a coded string, or the input itself when it carries no marker.
std::wstring DecodeCodedString(const std::wstring& codedString_I);

// UTF-16 code units as wide text; a lone surrogate becomes U+FFFD.
std::wstring Utf16ToWide(const std::u16string& utf16_I);
