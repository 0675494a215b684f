// The colour records of the colour dialog: what each slot held when loaded, what was last
// written and what the dialog shows, and the scale its components are counted in.

#include "foundation/Trace.h"
#include "model/UiDisplayDelegate.h"

#include <algorithm>
#include <cwchar>
#include <limits>

namespace {

constexpr double kUserScale = 255.0;
constexpr int32_t kRawMaximum = 255;

int32_t Rescale(int32_t value_I, double from_I, double to_I) {
    const double scaled = static_cast<double>(value_I) * to_I / from_I;
    return static_cast<int32_t>(
        std::clamp(scaled, static_cast<double>(std::numeric_limits<int32_t>::min()),
                   static_cast<double>(std::numeric_limits<int32_t>::max())));
}

} // namespace

SCustomColor UiDisplayDelegate::GetCustomRGBColorMod(EColorMod slot_I, bool refresh_I) {
    const SColorModCodes* codes = FindColorModCodes(slot_I);
    if (codes == nullptr) {
        Trace("CDisplay::GetCustomRGBColorMod(%s) error, problem with type of color mod\n",
              ColorModText(slot_I));
        return {};
    }
    const SVCPResult red = GetVCPValue(codes->red, refresh_I);
    const SVCPResult green = GetVCPValue(codes->green, refresh_I);
    const SVCPResult blue = GetVCPValue(codes->blue, refresh_I);
    if (!red.valid || !green.valid || !blue.valid) {
        if (gTraceEnabled) {
            Trace("CDisplay::GetCustomRGBColorMod(%s) error, option not supported\n", codes->text);
        }
        return {};
    }
    return SCustomColor::FromRGB(static_cast<uint8_t>(red.value & 0xFF),
                                 static_cast<uint8_t>(green.value & 0xFF),
                                 static_cast<uint8_t>(blue.value & 0xFF));
}

bool UiDisplayDelegate::SetCustomRGBColorMod(EColorMod slot_I, const SCustomColor& color_I) {
    const SColorModCodes* codes = FindColorModCodes(slot_I);
    if (codes == nullptr) {
        Trace("CDisplay::SetCustomRGBColorMod(%s) error, problem with type of color mod\n",
              ColorModText(slot_I));
        return false;
    }
    if (!mRawColorScale) {
        VRX_ASSERT(color_I.Red() >= 0 && color_I.Red() <= MAX_COLOR_RGB_PERCENT);
        VRX_ASSERT(color_I.Green() >= 0 && color_I.Green() <= MAX_COLOR_RGB_PERCENT);
        VRX_ASSERT(color_I.Blue() >= 0 && color_I.Blue() <= MAX_COLOR_RGB_PERCENT);
    }
    if (!SetVCPValue(codes->red, color_I.Red())) {
        if (gTraceEnabled) {
            Trace("CDisplay::SetCustomRGBColorMod(%s) RED error\n", codes->text);
        }
        return false;
    }
    if (!SetVCPValue(codes->green, color_I.Green())) {
        if (gTraceEnabled) {
            Trace("CDisplay::SetCustomRGBColorMod(%s) GREEN error\n", codes->text);
        }
        return false;
    }
    if (!SetVCPValue(codes->blue, color_I.Blue())) {
        if (gTraceEnabled) {
            Trace("CDisplay::SetCustomRGBColorMod(%s) BLUE error\n", codes->text);
        }
        return false;
    }
    return true;
}

SCustomColor UiDisplayDelegate::GetCustomRGBColorMod(bool refresh_I) {
    const SCustomColor color = GetCustomRGBColorMod(mColorMod, refresh_I);
    mWorkingColors[mColorMod] = color;
    return color;
}

void UiDisplayDelegate::LoadColorMods(EColorMod slot_I) {
    const SCustomColor color = GetCustomRGBColorMod(slot_I, false);
    mOriginalColors[slot_I] = color;
    mAppliedColors[slot_I] = color;
    mWorkingColors[slot_I] = color;
}

void UiDisplayDelegate::SelectColorMod(EColorMod slot_I) {
    mColorMod = slot_I;
}

SCustomColor UiDisplayDelegate::GetWorkingColor() const {
    const auto found = mWorkingColors.find(mColorMod);
    return found != mWorkingColors.end() ? found->second : SCustomColor{};
}

SCustomColor UiDisplayDelegate::GetAppliedColor() const {
    const auto found = mAppliedColors.find(mColorMod);
    return found != mAppliedColors.end() ? found->second : SCustomColor{};
}

void UiDisplayDelegate::StoreWorkingColor(const SCustomColor& color_I) {
    mWorkingColors[mColorMod] = color_I;
}

bool UiDisplayDelegate::WriteFromTable(const ColorTable& table_I, EColorMod slot_I) {
    const auto found = table_I.find(slot_I);
    if (found == table_I.end()) {
        return false;
    }
    mWorkingColors[slot_I] = found->second;
    return SetCustomRGBColorMod(slot_I, found->second);
}

bool UiDisplayDelegate::ApplyWorkingColor() {
    const auto found = mWorkingColors.find(mColorMod);
    if (found == mWorkingColors.end()) {
        return false;
    }
    mAppliedColors[mColorMod] = found->second;
    return SetCustomRGBColorMod(mColorMod, found->second);
}

bool UiDisplayDelegate::RevertToApplied() {
    return WriteFromTable(mAppliedColors, mColorMod);
}

bool UiDisplayDelegate::RestoreOriginal(EColorMod slot_I) {
    return WriteFromTable(mOriginalColors, slot_I);
}

int32_t UiDisplayDelegate::ColorMaximum() {
    const bool percentSlot =
        IsElmFamily() && (mColorMod == eColorMod_Hue || mColorMod == eColorMod_Saturation);
    mRawColorScale = !(percentSlot || HasPercentColorScale());
    return mRawColorScale ? kRawMaximum : MAX_COLOR_RGB_PERCENT;
}

int32_t UiDisplayDelegate::ScaleToDisplay(int32_t value_I) const {
    return mRawColorScale ? value_I : Rescale(value_I, kUserScale, MAX_COLOR_RGB_PERCENT);
}

int32_t UiDisplayDelegate::ScaleToUser(int32_t value_I) const {
    return mRawColorScale ? value_I : Rescale(value_I, MAX_COLOR_RGB_PERCENT, kUserScale);
}

std::wstring UiDisplayDelegate::FormatForUser(const std::wstring& text_I) const {
    const double value = std::wcstod(text_I.c_str(), nullptr);
    // Fractions (and text that is no number) are CMYK shares or nothing to scale.
    if (!(value > 1.0)) {
        return text_I;
    }
    const double whole = std::min(value, static_cast<double>(std::numeric_limits<int32_t>::max()));
    return std::to_wstring(ScaleToUser(static_cast<int32_t>(whole)));
}

std::wstring UiDisplayDelegate::GetRGBText() const {
    const SCustomColor color = GetWorkingColor();
    return L" " + std::to_wstring(ScaleToUser(color.Red())) + L", " +
           std::to_wstring(ScaleToUser(color.Green())) + L", " +
           std::to_wstring(ScaleToUser(color.Blue()));
}
