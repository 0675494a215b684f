#include "model/SVCPCodeInfo.h"

#include "foundation/Trace.h"

SVCPCodeInfo::SVCPCodeInfo(EAccess access_I, EKind kind_I, uint32_t readSize_I,
                           uint32_t writeSize_I)
    : access(access_I), kind(kind_I), readSize(readSize_I), writeSize(writeSize_I) {
    // Sizes follow the access, so a Dump never shows a transfer that cannot happen.
    if (access == eReadOnly || access == ePlaceholder) {
        writeSize = 0;
    }
    if (access == eWriteOnly || access == ePlaceholder) {
        readSize = 0;
    }
    if (kind == eContinuous) {
        VRX_ASSERT(Readable());
    }
}

SVCPCodeInfo SVCPCodeInfo::Continuous(EAccess access_I) {
    return SVCPCodeInfo(access_I, eContinuous, 4, 2);
}

SVCPCodeInfo SVCPCodeInfo::NonContinuous(EAccess access_I) {
    return SVCPCodeInfo(access_I, eNonContinuous, 4, 2);
}

SVCPCodeInfo SVCPCodeInfo::Table(EAccess access_I, uint32_t readSize_I, uint32_t writeSize_I) {
    return SVCPCodeInfo(access_I, eTable, readSize_I, writeSize_I);
}
