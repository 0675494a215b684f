#include "model/VCPOptionBase.h"

#include <sstream>

namespace {

const char* AccessText(SVCPCodeInfo::EAccess access_I) {
    switch (access_I) {
    case SVCPCodeInfo::eReadOnly:
        return " Read Only,";
    case SVCPCodeInfo::eWriteOnly:
        return " Write Only,";
    case SVCPCodeInfo::eReadWrite:
        return " Readable/Writable,";
    case SVCPCodeInfo::ePlaceholder:
        return " Placeholder,";
    }
    return " Placeholder,";
}

const char* KindText(SVCPCodeInfo::EKind kind_I) {
    switch (kind_I) {
    case SVCPCodeInfo::eContinuous:
        return " Continuous,";
    case SVCPCodeInfo::eNonContinuous:
        return " Non-Continuous,";
    case SVCPCodeInfo::eTable:
        return " Table,";
    }
    return " Table,";
}

} // namespace

VCPOptionBase::VCPOptionBase(vcpCode code_I, const SVCPCodeInfo& info_I)
    : mCode(code_I), mInfo(info_I), mOriginalSet(info_I.WriteOnly()) {}

std::string VCPOptionBase::Dump() const {
    std::ostringstream out;
    out << " Name = " << VCPCodeToString(mCode) << std::hex << " (" << static_cast<int>(mCode)
        << ")\n";
    out << " Value = " << mValue << " (" << mOriginal << ")\n";
    out << AccessText(mInfo.access) << KindText(mInfo.kind) << " Size: read " << mInfo.readSize
        << ", write " << mInfo.writeSize << "\n";
    if (!mError.empty()) {
        out << " Error \"" << mError << "\"\n";
    }
    return out.str();
}

bool VCPOptionBase::IsCurrentValue(int32_t value_I) const {
    return mValue == value_I;
}

int32_t VCPOptionBase::GetValue() const {
    return mValue;
}

int32_t VCPOptionBase::GetOriginal() const {
    return mOriginal;
}

bool VCPOptionBase::SetValue(int32_t value_I) {
    mValue = value_I;
    mError.clear();
    return true;
}

bool VCPOptionBase::SetOriginal(int32_t value_I) {
    mOriginal = value_I;
    mOriginalSet = true;
    mError.clear();
    return true;
}

bool VCPOptionBase::IsModified() const {
    return mValue != mOriginal;
}

void VCPOptionBase::ClearError() {
    mError.clear();
}

void VCPOptionBase::SetError(const std::string& text_I) {
    mError = text_I;
}

void VCPOptionBase::Revert() {
    mValue = mOriginal;
    mError.clear();
}

void VCPOptionBase::Commit() {
    mOriginal = mValue;
    mError.clear();
}

void VCPOptionBase::Forget() {
    mError.clear();
    mOriginalSet = mInfo.WriteOnly();
    mValue = mOriginal;
}
