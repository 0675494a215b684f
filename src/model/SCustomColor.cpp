#include "model/SCustomColor.h"

#include <algorithm>

namespace {

constexpr double kFullScale = 255.0;

// NaN fails both comparisons and lands on 0.
double Unit(double value_I) {
    if (!(value_I > 0.0)) {
        return 0.0;
    }
    return std::min(value_I, 1.0);
}

uint8_t Component(double share_I, double scale_I) {
    const double level = (1.0 - share_I) * scale_I + 0.5;
    return static_cast<uint8_t>(std::clamp(level, 0.0, kFullScale));
}

} // namespace

SCustomColor SCustomColor::FromRGB(uint8_t red_I, uint8_t green_I, uint8_t blue_I) {
    SCustomColor color;
    color.red = red_I;
    color.green = green_I;
    color.blue = blue_I;
    const uint8_t largest = std::max({red_I, green_I, blue_I});
    if (largest == 0) {
        color.cyan = 0.0;
        color.magenta = 0.0;
        color.yellow = 0.0;
        color.black = 1.0;
    } else {
        const double m = largest;
        color.cyan = (m - red_I) / m;
        color.magenta = (m - green_I) / m;
        color.yellow = (m - blue_I) / m;
        color.black = 1.0 - m / kFullScale;
    }
    color.valid = true;
    return color;
}

SCustomColor SCustomColor::FromCMYK(double cyan_I, double magenta_I, double yellow_I,
                                    double black_I) {
    SCustomColor color;
    color.cyan = cyan_I;
    color.magenta = magenta_I;
    color.yellow = yellow_I;
    color.black = black_I;
    const double scale = (1.0 - Unit(black_I)) * kFullScale;
    color.red = Component(Unit(cyan_I), scale);
    color.green = Component(Unit(magenta_I), scale);
    color.blue = Component(Unit(yellow_I), scale);
    color.valid = true;
    return color;
}
