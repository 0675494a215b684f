#include "model/VCPOptionSingleCode.h"

#include "foundation/Trace.h"

#include <string>

VCPOptionSingleCode::VCPOptionSingleCode(vcpCode code_I, const SVCPCodeInfo& info_I)
    : VCPOptionBase(code_I, info_I) {
    VRX_ASSERT(Info().Continuous());
}

std::string VCPOptionSingleCode::Dump() const {
    return VCPOptionBase::Dump() + " Max = " + std::to_string(mRange.maximum) + "\n";
}

bool VCPOptionSingleCode::InRange(int32_t value_I) const {
    if (mRange.minimum <= mRange.maximum) {
        return value_I >= mRange.minimum && value_I <= mRange.maximum;
    }
    // A minimum above the maximum describes a range that wraps.
    return value_I >= mRange.minimum || value_I <= mRange.maximum;
}

bool VCPOptionSingleCode::SetValue(int32_t value_I) {
    if (!Info().WriteOnly()) {
        if (!InRange(value_I) || GetValue() == value_I) {
            return false;
        }
    }
    return VCPOptionBase::SetValue(value_I);
}

bool VCPOptionSingleCode::SetOriginal(int32_t value_I) {
    if (Info().Readable() && !InRange(value_I)) {
        return false;
    }
    return VCPOptionBase::SetOriginal(value_I);
}

void VCPOptionSingleCode::SetMaximum(int32_t maximum_I) {
    VRX_ASSERT(Info().Continuous());
    mRange.minimum = 0;
    mRange.maximum = maximum_I;
}
