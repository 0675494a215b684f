#pragma once
// The three notations of one custom colour as the colour dialog shows them: red, green and
// blue in the display's scale, cyan, magenta, yellow and black in thousandths, and six
// hexadecimal digits. Plain functions over SCustomColor, so they can be checked without a window.

#include "model/SCustomColor.h"

#include <cstdint>
#include <optional>
#include <string>

enum EColorSlider : int32_t {
    eColorSlider_Red = 0,
    eColorSlider_Green,
    eColorSlider_Blue,
    eColorSlider_Cyan,
    eColorSlider_Magenta,
    eColorSlider_Yellow,
    eColorSlider_Black,
    eColorSlider_Count,
};

// The slider range of the four CMYK sliders.
constexpr int32_t kCmykSliderMaximum = 1000;

bool IsRgbSlider(EColorSlider slider_I);

// The colour with one component changed: red, green and blue in the display's scale, the
// others in thousandths. An unknown slider leaves the colour as it is.
SCustomColor ApplyComponent(const SCustomColor& color_I, EColorSlider slider_I, int32_t value_I);

// The slider position that stands for the colour's component.
int32_t ComponentValue(const SCustomColor& color_I, EColorSlider slider_I);

// "%f" of thousandths as a share, cut to five characters: 600 gives "0.600".
std::wstring CmykEditText(int32_t thousandths_I);

// Two uppercase digits per component, each already in the user's 0 to 255.
std::wstring HexText(int32_t red_I, int32_t green_I, int32_t blue_I);

// What a rejected hex entry is rewritten with: the display's components unscaled, and only
// red padded to two digits, so green and blue below 16 lose their leading 0.
std::wstring HexSnapBackText(const SCustomColor& color_I);

struct SHexColor {
    int32_t red;
    int32_t green;
    int32_t blue;
};

// Six characters read as three pairs by the lenient standard conversion (a leading blank,
// sign or trailing junk in a pair pass as the standard routine takes them); nothing when the
// length is wrong or a pair gives no component from 0 to 255.
std::optional<SHexColor> ParseHexColor(const std::wstring& text_I);

// An edit's text read as the C runtime's integer and real conversions read it: leading blanks
// and digits count, the rest is ignored; text with no number gives the fallback.
int32_t ReadEditInteger(const std::wstring& text_I, int32_t fallback_I);
double ReadEditReal(const std::wstring& text_I, double fallback_I);
