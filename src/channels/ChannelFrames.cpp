#include "channels/ChannelFrames.h"

#include "ddc/ReplyFrames.h"
#include "ddc/VcpCodes.h"
#include "foundation/HexDump.h"
#include "foundation/ScopeTimer.h"
#include "foundation/Trace.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

constexpr uint8_t kPrivateCommand = 0xC0;
constexpr uint8_t kFactoryModeCommand = 0xE1;
constexpr uint8_t kEdidChunkCommand = 0x66;

constexpr double kFactoryModeDelayS = 0.0001;
constexpr unsigned kFactoryModeExpectedSize = 3;
constexpr double kEdidChunkDelayS = 0.05;
constexpr unsigned kEdidChunkExpectedSize = 32;
constexpr int kEdidChunks = 16;
constexpr size_t kEdidReserve = 1024;
// A chunk reply is 6E 92, 16 EDID bytes and two bytes of the EEPROM's page, then its check.
constexpr size_t kChunkReplyKept = 18;
constexpr size_t kChunkHeader = 2;

} // namespace

void SetFactoryMode(Connector& connector_I, bool on_I) {
    const ByteVector request = BuildRequestFrame(
        {kPrivateCommand, kFactoryModeCommand, 0x00, on_I ? uint8_t{1} : uint8_t{0}});
    Trace("Set Factory Mode %s\n", on_I ? "on" : "off");
    const bool tracing = gTraceEnabled;
    if (tracing) {
        DumpBuffer(request, "");
    }
    const ByteVector inBuffer =
        connector_I.SendRequest(request, kFactoryModeDelayS, kFactoryModeExpectedSize, 0);
    if (tracing) {
        DumpBuffer(inBuffer, "Result");
    }
    VRX_ASSERT(inBuffer.size() == 3);
    VRX_ASSERT(!inBuffer.empty() && inBuffer[0] == 0x6E);
    VRX_ASSERT(inBuffer.size() > 1 && inBuffer[1] == 0x80);
    VRX_ASSERT(Checksum(inBuffer, 0x50) == 0);
}

ByteVector ReadFactoryModeEDID(Connector& connector_I, const std::string& owner_I) {
    const bool tracing = gTraceEnabled;
    SetFactoryMode(connector_I, true);
    ByteVector edid;
    edid.reserve(kEdidReserve);
    {
        CScopeTimer timer(owner_I + " Send EDID request");
        for (int index = 0; index < kEdidChunks; ++index) {
            const ByteVector request = BuildRequestFrame(
                {kPrivateCommand, kEdidChunkCommand, static_cast<uint8_t>(index)});
            if (tracing) {
                Trace("ReadEDID request %i\n", index);
                DumpBuffer(request, "");
            }
            ByteVector inBuffer =
                connector_I.SendRequest(request, kEdidChunkDelayS, kEdidChunkExpectedSize, 0);
            VRX_ASSERT(!inBuffer.empty());
            if (tracing) {
                DumpBuffer(inBuffer, "Data read from Scalar");
            }
            if (inBuffer.empty()) {
                continue;
            }
            // A reply too short to hold even its header has no place to take EDID bytes from:
            // the read ends with the chunks that have come.
            if (inBuffer.size() <= kChunkHeader) {
                break;
            }
            if (Checksum(inBuffer, kReplySeed) != 0) {
                VRX_ASSERT_NOT_REACHED("ReadEDID read checksum mismatch");
                Trace("ReadEDID:Read checksum failed\n");
            }
            inBuffer.pop_back();
            VRX_ASSERT(inBuffer.size() == 20);
            VRX_ASSERT(inBuffer[0] == 0x6E);
            VRX_ASSERT(inBuffer[1] == 0x92);
            inBuffer.resize(std::min(inBuffer.size(), kChunkReplyKept));
            edid.insert(edid.end(), inBuffer.begin() + kChunkHeader, inBuffer.end());
        }
    }
    SetFactoryMode(connector_I, false);
    return edid;
}

FileVersion FirmwareFromFeatureReply(const ByteVector& reply_I) {
    const char* fault = nullptr;
    const std::optional<SFeatureReply> reply =
        ParseFeatureReply(reply_I, vcpC_DisplayFirmwareLevel, fault);
    if (!reply) {
        Trace("%s", fault);
        return {};
    }
    if (gTraceEnabled) {
        DumpBuffer(reply_I, "inBuffer return data:");
    }
    return FileVersion(reply->Combined(), 2);
}

ByteVector BuildFirmwareRequest() {
    return BuildGetVCPFeature(vcpC_DisplayFirmwareLevel);
}

void DropFirmwareCheckByte(ByteVector& reply_I) {
    if (Checksum(reply_I, kReplySeed) != 0) {
        VRX_ASSERT_NOT_REACHED("FWVersion read checksum mismatch");
        Trace("FWVersion:Read checksum failed\n");
    }
    reply_I.pop_back();
}

std::optional<ByteVector> SendFirmwareRequest(Connector& connector_I, const ByteVector& request_I,
                                              double delayS_I, unsigned expectedSize_I) {
    const bool tracing = gTraceEnabled;
    if (tracing) {
        DumpBuffer(request_I, "Read FW ver name");
    }
    ByteVector inBuffer = connector_I.SendRequest(request_I, delayS_I, expectedSize_I, 0);
    VRX_ASSERT(!inBuffer.empty());
    if (tracing) {
        DumpBuffer(inBuffer, "Result");
    }
    if (inBuffer.empty()) {
        return std::nullopt;
    }
    DropFirmwareCheckByte(inBuffer);
    return inBuffer;
}
