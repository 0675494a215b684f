#include "discovery/CMonitorConnectorDP.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"

CMonitorConnectorDP::CMonitorConnectorDP(MonitorBusOpener openBus_I)
    : mOpenBus(std::move(openBus_I)) {}

bool CMonitorConnectorDP::OpenDisplayInfo(const SDisplayInfo& info_I) {
    if (!info_I.IsComplete()) {
        VRX_ASSERT_NOT_REACHED("Oops - displayInfo couldn't be initialized!");
        return false;
    }
    mDisplayInfo = info_I;
    // The display object will own this connector; a reference back would keep both alive.
    mDisplayInfo.display.reset();
    std::unique_ptr<II2CBus> bus = mOpenBus ? mOpenBus(mDisplayInfo) : nullptr;
    if (bus == nullptr) {
        VRX_ASSERT_NOT_REACHED("Oops - no physical handles found!");
        Close();
        return false;
    }
    return OpenBus(std::move(bus));
}

bool CMonitorConnectorDP::Close() {
    ByteVector edid = std::move(mDisplayInfo.edid);
    mDisplayInfo = SDisplayInfo{};
    mDisplayInfo.edid = std::move(edid);
    return CI2CBusConnectorDP::Close();
}

bool CMonitorConnectorDP::IsOpen() {
    return mDisplayInfo.IsComplete() && CI2CBusConnectorDP::IsOpen();
}

std::string CMonitorConnectorDP::CapabilitiesString() {
    if (!IsOpen()) {
        return {};
    }
    std::string capabilities = CI2CBusConnectorDP::CapabilitiesString();
    if (capabilities.empty()) {
        mLastCapsError = "CapabilitiesRequest: no capability string from the display on " +
                         mDisplayInfo.monitorHandle;
        Trace("ERROR: CWinI2CConnectorDP::CapabilitiesString - %s\n", mLastCapsError.c_str());
    }
    return capabilities;
}

std::string CMonitorConnectorDP::MonitorName() {
    return IsOpen() ? ToNarrow(mDisplayInfo.monitorName) : std::string();
}

std::string CMonitorConnectorDP::SerialNumber(uint32_t /*sid_I*/) {
    return IsOpen() ? ToNarrow(mDisplayInfo.serialNumber) : std::string();
}

ByteVector CMonitorConnectorDP::ReadEDID(uint32_t /*sid_I*/) {
    return IsOpen() ? mDisplayInfo.edid : ByteVector();
}
