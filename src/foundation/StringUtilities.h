#pragma once
// Small text helpers. Narrow strings inside the logic are UTF-8; wide strings stand at the
// platform's boundary and in resource text.

#include <cstdint>
#include <string>

// Reads the text as a base-16 integer the way the standard conversion does (leading blanks,
// sign and "0x" allowed, reading stops at the first other character). No digit, or a value
// outside 64 bits, traces the failure and gives defaultValue.
int64_t HexStringToInteger(const std::string& text, int64_t defaultValue = 0);
int64_t HexStringToInteger(const std::wstring& text, int64_t defaultValue = 0);

// Exact comparison first, then on lowered copies.
bool EqualIgnoreCase(const std::string& a, const std::string& b);
bool EqualIgnoreCase(const std::wstring& a, const std::wstring& b);

// Position of part in text, exact first and then ignoring case; -1 when absent.
int FindIgnoreCase(const std::string& text, const std::string& part);
int FindIgnoreCase(const std::wstring& text, const std::wstring& part);

// Per-character case mapping of the C runtime: plain ASCII unless a locale was set.
std::string ToLower(const std::string& text);
std::wstring ToLower(const std::wstring& text);
std::string ToUpper(const std::string& text);
std::wstring ToUpper(const std::wstring& text);

// UTF-8 conversions. Empty gives empty; a byte sequence or code point that is not valid turns
// into U+FFFD and never fails the conversion.
std::wstring ToWide(const std::string& text);
std::string ToNarrow(const std::wstring& text);

// A copy of a C string; null gives an empty string.
std::string FromCString(const char* text);
