#pragma once
// The answer of a read by code. When valid is false every other field is 0.

#include <cstdint>

struct SVCPResult {
    bool valid = false;
    int32_t value = 0;
    int32_t minimum = 0;
    int32_t maximum = 0;

    bool operator==(const SVCPResult&) const = default;
};
