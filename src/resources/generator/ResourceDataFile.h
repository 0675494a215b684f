#pragma once
// The data files that the resources are built from: one line per entry, "<key><TAB><text>",
// UTF-8. Strings are keyed by a decimal id, groups by a hexadecimal key "0xNNNN". In the text,
// "\n" is a line break, "\t" a tab and "\\" a backslash. Lines that start with "#" and blank
// lines are skipped.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum class EDataFileKind { Strings, Group };

struct SDataRow {
    uint32_t key;
    std::string text; // UTF-8, escapes resolved
    int line;
};

struct SDataFile {
    std::vector<SDataRow> rows; // in file order
    std::string error;          // "line N: ..." for the first bad line; empty when all is well
};

SDataFile ParseDataFile(std::string_view content_I, EDataFileKind kind_I);

// True when the bytes are well-formed UTF-8.
bool IsValidUtf8(std::string_view text_I);
