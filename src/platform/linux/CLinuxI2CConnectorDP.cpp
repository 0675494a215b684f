#include "platform/linux/CLinuxI2CConnectorDP.h"

#include "foundation/Trace.h"
#include "platform/linux/CLinuxI2CBus.h"

CLinuxI2CConnectorDP::CLinuxI2CConnectorDP()
    : CMonitorConnectorDP([this](const SDisplayInfo& info_I) { return OpenNode(info_I); }) {}

bool CLinuxI2CConnectorDP::OpenDisplayInfo(const SDisplayInfo& info_I) {
    mOpenError.clear();
    const bool opened = CMonitorConnectorDP::OpenDisplayInfo(info_I);
    if (!opened && !mOpenError.empty()) {
        mLastCapsError = mOpenError;
    }
    return opened;
}

std::unique_ptr<II2CBus> CLinuxI2CConnectorDP::OpenNode(const SDisplayInfo& info_I) {
    auto bus = std::make_unique<CLinuxI2CBus>(info_I.monitorHandle);
    if (!bus->Open()) {
        mOpenError = CLinuxI2CBus::DescribeOpenFailure(info_I.monitorHandle, bus->LastErrno());
        Trace("ERROR: CLinuxI2CConnectorDP - %s\n", mOpenError.c_str());
        return nullptr;
    }
    return bus;
}
