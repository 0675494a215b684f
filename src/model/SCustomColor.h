#pragma once
// One custom colour as the colour dialog edits it: the three components in the display's scale
// and the same colour in CMYK, which the dialog shows beside them.

#include <cstdint>

struct SCustomColor {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    // Each 0.0 to 1.0; a record that holds no colour is all black.
    double cyan = 0.0;
    double magenta = 0.0;
    double yellow = 0.0;
    double black = 1.0;
    bool valid = false;

    // CMYK follows from the largest component, so scaled-down greys keep cyan, magenta and
    // yellow at 0 and only black grows.
    static SCustomColor FromRGB(uint8_t red_I, uint8_t green_I, uint8_t blue_I);
    // Components are rounded to the nearest step; inputs outside 0.0 to 1.0 are held to the
    // nearest end so that a user's entry can never give a component outside 0 to 255.
    static SCustomColor FromCMYK(double cyan_I, double magenta_I, double yellow_I, double black_I);

    int32_t Red() const { return red; }
    int32_t Green() const { return green; }
    int32_t Blue() const { return blue; }

    bool operator==(const SCustomColor&) const = default;
};
