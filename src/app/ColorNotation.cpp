#include "app/ColorNotation.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <limits>

namespace {

constexpr size_t kCmykTextLength = 5;
constexpr size_t kHexTextLength = 6;

uint8_t ToComponent(int32_t value_I) {
    return static_cast<uint8_t>(std::clamp<int32_t>(value_I, 0, 255));
}

double Share(int32_t thousandths_I) {
    return static_cast<double>(thousandths_I) / kCmykSliderMaximum;
}

} // namespace

bool IsRgbSlider(EColorSlider slider_I) {
    return slider_I == eColorSlider_Red || slider_I == eColorSlider_Green ||
           slider_I == eColorSlider_Blue;
}

SCustomColor ApplyComponent(const SCustomColor& color_I, EColorSlider slider_I, int32_t value_I) {
    const SCustomColor& c = color_I;
    switch (slider_I) {
    case eColorSlider_Red:
        return SCustomColor::FromRGB(ToComponent(value_I), c.green, c.blue);
    case eColorSlider_Green:
        return SCustomColor::FromRGB(c.red, ToComponent(value_I), c.blue);
    case eColorSlider_Blue:
        return SCustomColor::FromRGB(c.red, c.green, ToComponent(value_I));
    case eColorSlider_Cyan:
        return SCustomColor::FromCMYK(Share(value_I), c.magenta, c.yellow, c.black);
    case eColorSlider_Magenta:
        return SCustomColor::FromCMYK(c.cyan, Share(value_I), c.yellow, c.black);
    case eColorSlider_Yellow:
        return SCustomColor::FromCMYK(c.cyan, c.magenta, Share(value_I), c.black);
    case eColorSlider_Black:
        return SCustomColor::FromCMYK(c.cyan, c.magenta, c.yellow, Share(value_I));
    case eColorSlider_Count:
        break;
    }
    VRX_ASSERT_NOT_REACHED("Unknown slider");
    return color_I;
}

int32_t ComponentValue(const SCustomColor& color_I, EColorSlider slider_I) {
    // Shares are rounded, so that 1 - 102 / 255 shows as 600 and not 599.
    const auto thousandths = [](double share_I) {
        return static_cast<int32_t>(std::lround(share_I * kCmykSliderMaximum));
    };
    switch (slider_I) {
    case eColorSlider_Red:
        return color_I.red;
    case eColorSlider_Green:
        return color_I.green;
    case eColorSlider_Blue:
        return color_I.blue;
    case eColorSlider_Cyan:
        return thousandths(color_I.cyan);
    case eColorSlider_Magenta:
        return thousandths(color_I.magenta);
    case eColorSlider_Yellow:
        return thousandths(color_I.yellow);
    case eColorSlider_Black:
        return thousandths(color_I.black);
    case eColorSlider_Count:
        break;
    }
    VRX_ASSERT_NOT_REACHED("Unknown slider");
    return 0;
}

std::wstring CmykEditText(int32_t thousandths_I) {
    wchar_t buffer[64];
    std::swprintf(buffer, std::size(buffer), L"%f", Share(thousandths_I));
    return std::wstring(buffer).substr(0, kCmykTextLength);
}

std::wstring HexText(int32_t red_I, int32_t green_I, int32_t blue_I) {
    wchar_t buffer[32];
    std::swprintf(buffer, std::size(buffer), L"%02X%02X%02X", static_cast<unsigned>(red_I),
                  static_cast<unsigned>(green_I), static_cast<unsigned>(blue_I));
    return buffer;
}

std::wstring HexSnapBackText(const SCustomColor& color_I) {
    wchar_t buffer[32];
    std::swprintf(buffer, std::size(buffer), L"%02X%X%X", static_cast<unsigned>(color_I.red),
                  static_cast<unsigned>(color_I.green), static_cast<unsigned>(color_I.blue));
    return buffer;
}

std::optional<SHexColor> ParseHexColor(const std::wstring& text_I) {
    if (text_I.size() != kHexTextLength) {
        return std::nullopt;
    }
    int32_t parts[3] = {};
    for (size_t i = 0; i < 3; ++i) {
        // A failed conversion gives the default, which no pair of two digits can give.
        const int64_t value = HexStringToInteger(text_I.substr(i * 2, 2), -1);
        if (value < 0 || value > 255) {
            return std::nullopt;
        }
        parts[i] = static_cast<int32_t>(value);
    }
    return SHexColor{parts[0], parts[1], parts[2]};
}

int32_t ReadEditInteger(const std::wstring& text_I, int32_t fallback_I) {
    wchar_t* end = nullptr;
    const long long value = std::wcstoll(text_I.c_str(), &end, 10);
    if (end == text_I.c_str()) {
        return fallback_I;
    }
    return static_cast<int32_t>(std::clamp<long long>(value, std::numeric_limits<int32_t>::min(),
                                                      std::numeric_limits<int32_t>::max()));
}

double ReadEditReal(const std::wstring& text_I, double fallback_I) {
    wchar_t* end = nullptr;
    const double value = std::wcstod(text_I.c_str(), &end);
    if (end == text_I.c_str() || !std::isfinite(value)) {
        return fallback_I;
    }
    return value;
}
