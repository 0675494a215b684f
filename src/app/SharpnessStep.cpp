#include "app/SharpnessStep.h"

#include <algorithm>

namespace {

constexpr int32_t kLineStep = 1;
constexpr int32_t kPageStep = 10;

} // namespace

std::optional<int32_t> StepSharpness(ESharpnessKey key_I, int32_t position_I, int32_t minimum_I,
                                     int32_t maximum_I) {
    int32_t step = 0;
    switch (key_I) {
    case eSharpnessKey_Up:
        step = kLineStep;
        break;
    case eSharpnessKey_Down:
        step = -kLineStep;
        break;
    case eSharpnessKey_PageUp:
        step = kPageStep;
        break;
    case eSharpnessKey_PageDown:
        step = -kPageStep;
        break;
    case eSharpnessKey_End:
        step = maximum_I;
        break;
    case eSharpnessKey_Home:
        step = -maximum_I;
        break;
    }
    if (step == 0) {
        return std::nullopt;
    }
    const int64_t moved = static_cast<int64_t>(position_I) + step;
    return static_cast<int32_t>(
        std::clamp<int64_t>(moved, minimum_I, std::max(minimum_I, maximum_I)));
}
