#include "model/VCPOptionCodeWithEnumerationT.h"

#include "foundation/Trace.h"
#include "model/HexList.h"

#include <algorithm>
#include <sstream>

namespace {

bool HighHalfIsAllOnes(int32_t value_I) {
    return (static_cast<uint32_t>(value_I) >> 16) == 0xFFFFu;
}

int32_t LowHalfSigned(int32_t value_I) {
    return static_cast<int16_t>(static_cast<uint32_t>(value_I) & 0xFFFFu);
}

uint32_t LowHalf(int32_t value_I) {
    return static_cast<uint32_t>(value_I) & 0xFFFFu;
}

int32_t SeeThrough(int32_t value_I) {
    return HighHalfIsAllOnes(value_I) ? LowHalfSigned(value_I) : value_I;
}

} // namespace

VCPOptionEnumerationBase::VCPOptionEnumerationBase(vcpCode code_I, const SVCPCodeInfo& info_I,
                                                   const std::string& optionSet_I)
    : VCPOptionBase(code_I, info_I), mValues(ReadHexList(optionSet_I)) {
    VRX_ASSERT(!Info().Continuous() && !Info().Table());
}

bool VCPOptionEnumerationBase::IsCurrentValue(int32_t value_I) const {
    if (HighHalfIsAllOnes(StoredValue())) {
        return LowHalf(StoredValue()) == LowHalf(value_I);
    }
    return StoredValue() == value_I;
}

int32_t VCPOptionEnumerationBase::GetValue() const {
    return SeeThrough(StoredValue());
}

int32_t VCPOptionEnumerationBase::GetOriginal() const {
    return SeeThrough(StoredOriginal());
}

bool VCPOptionEnumerationBase::IsModified() const {
    if (HighHalfIsAllOnes(StoredValue())) {
        return LowHalf(StoredValue()) != LowHalf(StoredOriginal());
    }
    return StoredValue() != StoredOriginal();
}

bool VCPOptionEnumerationBase::Allowed(int32_t value_I) const {
    return mValues.empty() ||
           std::find(mValues.begin(), mValues.end(), LowHalfSigned(value_I)) != mValues.end();
}

bool VCPOptionEnumerationBase::SetValue(int32_t value_I) {
    if (!Info().WriteOnly()) {
        if (!Allowed(value_I) || GetValue() == value_I) {
            return false;
        }
    }
    return VCPOptionBase::SetValue(value_I);
}

bool VCPOptionEnumerationBase::SetOriginal(int32_t value_I) {
    if (Info().Readable() && !Allowed(value_I)) {
        return false;
    }
    return VCPOptionBase::SetOriginal(value_I);
}

void VCPOptionEnumerationBase::SetMaximum(int32_t) {
    VRX_ASSERT_NOT_REACHED("Should not be called on a Non-Continuous value");
}

std::string VCPOptionEnumerationBase::DumpValues(std::string (*valueText_I)(int32_t)) const {
    if (mValues.empty()) {
        return " No defined value list\n";
    }
    std::ostringstream out;
    out << std::hex;
    for (const int32_t value : mValues) {
        if (GetValue() == value) {
            out << " **Selected";
        }
        out << " Enum Code = " << valueText_I(value) << " (" << value << ")\n";
    }
    return out.str();
}
