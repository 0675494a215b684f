#include "channels/CI2CConnectorDP.h"

#include "channels/ChannelFrames.h"
#include "foundation/Trace.h"

namespace {

constexpr int kCapabilitiesRetries = 0;
constexpr double kFirmwareDelayS = 0.0001;
constexpr unsigned kFirmwareExpectedSize = 10;

} // namespace

bool CI2CConnectorDP::Open(const std::string& /*port_I*/) {
    VRX_ASSERT_NOT_REACHED("This is only used by serial connections");
    return false;
}

bool CI2CConnectorDP::Open(long /*device_I*/) {
    VRX_ASSERT_NOT_REACHED("This is not used by display port connections");
    return false;
}

bool CI2CConnectorDP::Close() {
    return Connector::Close();
}

std::string CI2CConnectorDP::CapabilitiesString() {
    std::string caps = ReadCapabilitiesPrivate(kCapabilitiesRetries);
    if (caps.empty()) {
        caps = ReadCapabilitiesStandard(kCapabilitiesRetries);
    }
    return caps;
}

void CI2CConnectorDP::SetFactoryMode(bool on_I) {
    ::SetFactoryMode(*this, on_I);
}

ByteVector CI2CConnectorDP::ReadEDID(uint32_t /*sid_I*/) {
    return ReadFactoryModeEDID(*this, "CI2CConnectorDP::ReadEDID");
}

FileVersion CI2CConnectorDP::FWVersion() {
    const std::optional<ByteVector> reply =
        SendFirmwareRequest(*this, BuildFirmwareRequest(), kFirmwareDelayS, kFirmwareExpectedSize);
    return reply ? FirmwareFromFeatureReply(*reply) : FileVersion();
}
