#pragma once
// The slots of custom colour a display may offer, each spelled as a triple of VCP codes for
// red, green and blue.

#include "ddc/VcpCodes.h"

#include <cstdint>

enum EColorMod : int32_t {
    eColorMod_Hue = 0,
    eColorMod_Saturation = 1,
    eColorMod_Gain = 2,
    eColorMod_Offset = 3,
};

struct SColorModCodes {
    EColorMod slot;
    vcpCode red;
    vcpCode green;
    vcpCode blue;
    const char* text;
};

// The slot's row, or nullptr for a number that is no slot.
const SColorModCodes* FindColorModCodes(EColorMod slot_I);
// "Hue", "Saturation", "Gain", "Offset"; "Unknown" for a number that is no slot.
const char* ColorModText(EColorMod slot_I);
