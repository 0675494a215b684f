#include "channels/CI2CConnectorTI.h"

#include "channels/ChannelFrames.h"
#include "foundation/HexDump.h"
#include "foundation/ScopeTimer.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <algorithm>

namespace {

constexpr uint8_t kAddress7 = kDisplayAddress >> 1;
constexpr uint8_t kPrivateCommand = 0xC0;
constexpr uint8_t kCapabilityChunk = 0x6F;
constexpr uint8_t kFirmwareCommand = 0xEF;

constexpr double kBridgeDelayS = 0.0001;
constexpr unsigned kBridgeExpectedSize = 64;
constexpr int kCapabilityChunks = 7;
constexpr size_t kCapabilityReserve = 1024;
constexpr size_t kChunkKept = 32;
constexpr size_t kChunkHeader = 2;
constexpr size_t kFirmwareReplySize = 8;

ByteVector ChunkRequest(uint8_t index_I) {
    return BuildRequestFrame({kPrivateCommand, kCapabilityChunk, index_I});
}

} // namespace

CI2CConnectorTI::CI2CConnectorTI(std::shared_ptr<ITIBridgeApi> api_I) : mApi(std::move(api_I)) {}

CI2CConnectorTI::~CI2CConnectorTI() {
    CloseTIHandle();
}

int CI2CConnectorTI::NumberOfDevices(ITIBridgeApi& api_I) {
    return std::max(api_I.AvailableDevices(), 0);
}

bool CI2CConnectorTI::Open(const std::string& /*port_I*/) {
    VRX_ASSERT_NOT_REACHED("This is only used by serial connections");
    return false;
}

bool CI2CConnectorTI::Open(long device_I) {
    if (device_I < 0 || device_I >= NumberOfDevices(*mApi)) {
        Trace("CI2CConnectorTI::OpenTIHandle trying to access a device index great than the number "
              "of devices\n");
        return false;
    }
    mTIDevice = mApi->OpenDevice(static_cast<int>(device_I));
    if (mTIDevice == 0) {
        Trace("CI2CConnectorTI::OpenTIHandle can not open it.\n");
        return false;
    }
    return true;
}

bool CI2CConnectorTI::Close() {
    CloseTIHandle();
    return true;
}

void CI2CConnectorTI::CloseTIHandle() {
    if (mTIDevice == 0) {
        return;
    }
    if (mApi->CloseDevice() == 0) {
        Trace("CI2CConnectorTI::CloseTIHandle can not close it.\n");
    }
    mTIDevice = 0;
}

ByteVector CI2CConnectorTI::SendRequest(const ByteVector& toSend_I, double delay,
                                        unsigned expectedSize_I, int /*retries*/) {
    VRX_ASSERT(expectedSize_I >= 3);
    VRX_ASSERT(!toSend_I.empty());
    VRX_ASSERT(!toSend_I.empty() && toSend_I[0] == 0x6E);
    if (toSend_I.empty()) {
        return {};
    }
    // The address goes apart from the data: the frame's 0x6E is the address byte.
    if (mApi->WriteI2C(kAddress7, toSend_I.data() + 1,
                       static_cast<uint16_t>(toSend_I.size() - 1)) != 1) {
        return {};
    }
    SleepMs(static_cast<uint32_t>(delay * 1000.0));
    ByteVector buffer(expectedSize_I, 0x00);
    if (mApi->ReadI2C(kAddress7, buffer.data(), static_cast<uint16_t>(expectedSize_I)) != 1) {
        return {};
    }
    // A frame tells its own size: address, length, payload and check byte.
    if (buffer.size() >= 2 && buffer[0] == kDisplayAddress) {
        buffer.resize((buffer[1] & 0x7F) + 3u, 0x00);
    }
    return buffer;
}

ByteVector CI2CConnectorTI::ReadEDID(uint32_t /*sid_I*/) {
    return ReadFactoryModeEDID(*this, "CI2CConnectorTI::ReadEDID");
}

FileVersion CI2CConnectorTI::FWVersion() {
    const std::optional<ByteVector> reply =
        SendFirmwareRequest(*this, BuildRequestFrame({kPrivateCommand, kFirmwareCommand}),
                            kBridgeDelayS, kBridgeExpectedSize);
    if (!reply) {
        return {};
    }
    const ByteVector& inBuffer = *reply;
    VRX_ASSERT(inBuffer.size() == 8);
    VRX_ASSERT(inBuffer[0] == 0x6E);
    VRX_ASSERT(inBuffer.size() > 1 && inBuffer[1] == 0x86);
    // Six digit characters, last first; a shorter reply has no version to give.
    if (inBuffer.size() < kFirmwareReplySize) {
        return {};
    }
    const std::string text = {static_cast<char>(inBuffer[7]), static_cast<char>(inBuffer[6]), '.',
                              static_cast<char>(inBuffer[5]), static_cast<char>(inBuffer[4]), '.',
                              static_cast<char>(inBuffer[3]), static_cast<char>(inBuffer[2])};
    return FileVersion(text);
}

std::string CI2CConnectorTI::CapabilitiesString() {
    const bool tracing = gTraceEnabled;
    const ByteVector sizeRequest = ChunkRequest(0);
    if (tracing) {
        DumpBuffer(sizeRequest, "Capability String Size");
    }
    // The size the scaler announces is not used: the number of chunks is fixed.
    const ByteVector sizeReply = SendRequest(sizeRequest, kBridgeDelayS, kBridgeExpectedSize, 0);
    VRX_ASSERT(!sizeReply.empty());
    if (tracing) {
        DumpBuffer(sizeReply, "Result");
    }
    VRX_ASSERT(sizeReply.size() == 6);
    VRX_ASSERT(!sizeReply.empty() && sizeReply[0] == 0x6E);
    VRX_ASSERT(sizeReply.size() > 1 && sizeReply[1] == 0x83);
    VRX_ASSERT(Checksum(sizeReply, 0x50) == 0);

    ByteVector data;
    data.reserve(kCapabilityReserve);
    {
        CScopeTimer timer("CI2CConnectorTI::CapabilitiesString Send Capability string request");
        for (int index = 1; index <= kCapabilityChunks; ++index) {
            const ByteVector request = ChunkRequest(static_cast<uint8_t>(index));
            if (tracing) {
                Trace("GetCapability request %i\n", index);
                DumpBuffer(request, "");
            }
            ByteVector inBuffer = SendRequest(request, kBridgeDelayS, kBridgeExpectedSize, 0);
            VRX_ASSERT(!inBuffer.empty());
            if (tracing) {
                DumpBuffer(inBuffer, "Data read from Scalar");
            }
            if (inBuffer.empty()) {
                continue;
            }
            if (Checksum(inBuffer, kReplySeed) != 0) {
                VRX_ASSERT_NOT_REACHED("GetCapability read checksum mismatch");
                Trace("GetCapability:Read checksum failed\n");
            }
            inBuffer.pop_back();
            VRX_ASSERT(inBuffer.size() == 32);
            VRX_ASSERT(!inBuffer.empty() && inBuffer[0] == 0x6E);
            VRX_ASSERT(inBuffer.size() > 1 && inBuffer[1] == 0x9E);
            inBuffer.resize(std::min(inBuffer.size(), kChunkKept));
            if (inBuffer.size() > kChunkHeader) {
                data.insert(data.end(), inBuffer.begin() + kChunkHeader, inBuffer.end());
            }
        }
    }
    return ExtractCapabilitiesString(data);
}
