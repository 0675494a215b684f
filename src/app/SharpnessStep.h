#pragma once
// The keys that step the advanced dialog's sharpness slider, and where each takes it.

#include <cstdint>
#include <optional>

enum ESharpnessKey : int32_t {
    eSharpnessKey_Up,
    eSharpnessKey_Down,
    eSharpnessKey_PageUp,
    eSharpnessKey_PageDown,
    eSharpnessKey_Home,
    eSharpnessKey_End,
};

// The new position, clamped to minimum and maximum. Home and End step by the whole maximum;
// with a maximum of 0 they step nowhere, and nothing is returned.
std::optional<int32_t> StepSharpness(ESharpnessKey key_I, int32_t position_I, int32_t minimum_I,
                                     int32_t maximum_I);
