#include "channels/CUSBConnector.h"

#include "ddc/ReadBounds.h"
#include "ddc/ReplyFrames.h"
#include "foundation/HexDump.h"
#include "foundation/ScopeTimer.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <algorithm>

namespace {

constexpr SSerialSettings kLineSettings = {9600, 8, 0, 0};
// A read returns at once with what has come, or after 10 ms when nothing has.
constexpr SSerialTimeouts kLineTimeouts = {0xFFFFFFFF, 0xFFFFFFFF, 10, 0xFFFFFFFF, 2000};

constexpr size_t kReadChunk = 256;

constexpr double kCapabilitiesDelayS = 0.2;
constexpr unsigned kCapabilitiesExpectedSize = 38;
constexpr size_t kCapabilitiesReserve = 1024;
constexpr size_t kShortestFragment = 5;
constexpr size_t kHeaderSize = 5;
constexpr size_t kFragmentText = 32;
constexpr uint32_t kCapabilitiesSettleMs = 100;
// A real capability string is a few hundred bytes: these bounds only end a scaler that repeats a
// fragment or sends text without end.
constexpr SReadBounds kCapabilitiesBounds = {4, 1024, 32 * 1024};
// The longest reply is the 256 EDID bytes: a line that has sent far more streams without end.
constexpr size_t kLongestReply = 4096;

// The channel's private EDID command: no address, no check byte.
const ByteVector kEdidRequest = {0xA0, 0x00};
constexpr double kEdidDelayS = 0.7;
constexpr unsigned kEdidExpectedSize = 256;
constexpr size_t kShortestEdidReply = 6;

// Takes off the check byte this class appended and traces when it differs from the one the
// rest gives; with the appended byte they always agree. Whether they differed.
bool DropCheckByte(ByteVector& reply_I, const char* traceFormat_I) {
    const uint8_t received = reply_I.back();
    reply_I.pop_back();
    const uint8_t computed = Checksum(reply_I, kReplySeed);
    if (received == computed) {
        return false;
    }
    Trace(traceFormat_I, received, computed);
    return true;
}

} // namespace

CUSBConnector::CUSBConnector(std::unique_ptr<ISerialPort> port_I) : mPort(std::move(port_I)) {}

CUSBConnector::~CUSBConnector() {
    ClosePort();
}

bool CUSBConnector::Open(const std::string& port_I) {
    if (gTraceEnabled) {
        Trace("%s Serial port = %s\n", "CUSBConnector::Open", port_I.c_str());
    }
    ClosePort();
    mSettings = kLineSettings;
    mTimeouts = kLineTimeouts;
    if (!mPort->Open(port_I, mSettings, mTimeouts)) {
        return false;
    }
    mPortOpen = true;
    mPort->Purge(ISerialPort::kPurgeAll);
    return true;
}

bool CUSBConnector::Open(long /*device_I*/) {
    VRX_ASSERT_NOT_REACHED("This is not used by serial connections");
    return false;
}

bool CUSBConnector::Close() {
    ClosePort();
    return true;
}

void CUSBConnector::ClosePort() {
    if (mPortOpen) {
        mPort->Close();
        mPortOpen = false;
    }
}

ByteVector CUSBConnector::SendRequest(const ByteVector& toSend_I, double delay,
                                      unsigned expectedSize_I, int /*retries*/) {
    CScopeTimer timer("CWinUSBConnector::SendRequest Full SendRequest");
    if (!mPortOpen) {
        return {};
    }
    mPort->ClearErrors();
    mPort->Purge(ISerialPort::kPurgeAll);
    size_t written = 0;
    if (!mPort->Write(toSend_I.data(), toSend_I.size(), written)) {
        const uint32_t error = mPort->LastError();
        Trace("WriteFile failed (%d)\n", static_cast<int>(error));
        if (error == ISerialPort::kErrorDeviceGone) {
            ClosePort();
        }
        return {};
    }
    if (written < toSend_I.size()) {
        Trace("Failed to write the data to the display\n");
        return {};
    }
    mPort->ClearErrors();
    SleepMs(static_cast<uint32_t>(delay * 1000.0));

    ByteVector reply;
    reply.reserve(expectedSize_I);
    // The reply ends when a read finds the line quiet, or when it is far too long to be one.
    while (reply.size() < kLongestReply) {
        uint8_t chunk[kReadChunk];
        size_t read = 0;
        if (!mPort->Read(chunk, sizeof chunk, read)) {
            Trace("ReadFile failed (%d)\n", static_cast<int>(mPort->LastError()));
            break;
        }
        if (read == 0) {
            if (reply.empty()) {
                Trace("ReadFile empty (%d)\n", static_cast<int>(mPort->LastError()));
            }
            break;
        }
        reply.insert(reply.end(), chunk, chunk + std::min(read, sizeof chunk));
    }
    // The wire carries no check byte: the reply gets one, so that it reads as any other.
    reply.push_back(Checksum(reply, kReplySeed));
    return reply;
}

std::string CUSBConnector::CapabilitiesString() {
    CScopeTimer timer("CWinUSBConnector::CapabilitiesString Send Capability string request");
    const bool tracing = gTraceEnabled;
    ByteVector data;
    data.reserve(kCapabilitiesReserve);
    std::string capabilitiesStr;
    int depth = 0;
    uint16_t offset = 0;
    CReadGuard guard(kCapabilitiesBounds);
    int lastEchoed = -1;
    for (bool complete = false; !complete;) {
        const ByteVector request = BuildCapabilitiesRequest(offset);
        if (tracing) {
            DumpBuffer(request, "CapabilitiesString request");
        }
        ByteVector inBuffer =
            SendRequest(request, kCapabilitiesDelayS, kCapabilitiesExpectedSize, 0);
        if (inBuffer.size() < kShortestFragment) {
            return {};
        }
        if (tracing) {
            DumpBuffer(inBuffer, "Data read from Scalar");
        }
        if (StartsWith(inBuffer, {kDisplayAddress, kLengthFlag, 0xBE})) {
            return {};
        }
        if (DropCheckByte(inBuffer, "CapabilitiesString:Read checksum failed %i %i\n")) {
            VRX_ASSERT_NOT_REACHED("CapabilitiesString read checksum mismatch");
        }
        if (inBuffer.size() > kHeaderSize) {
            data.insert(data.end(), inBuffer.begin() + kHeaderSize, inBuffer.end());
        }
        offset = static_cast<uint16_t>(data.size() & 0xFFFF);
        if (depth == 0) {
            VRX_ASSERT(!data.empty() && data[0] == '(');
            VRX_ASSERT(inBuffer.size() > kHeaderSize && inBuffer[kHeaderSize] == '(');
        }
        // A fragment holds 32 text bytes behind its header, whatever its length byte says. A
        // shorter one is the scaler's last: the text ends with what has come.
        const size_t end = std::min(inBuffer.size(), kHeaderSize + kFragmentText);
        for (size_t i = kHeaderSize; i < end && !complete; ++i) {
            const char c = static_cast<char>(inBuffer[i]);
            if (c == '(') {
                ++depth;
            } else if (c == ')') {
                --depth;
            }
            capabilitiesStr.push_back(c);
            complete = depth == 0;
        }
        if (inBuffer.size() < kHeaderSize + kFragmentText) {
            break;
        }
        // A fragment that names the offset of the one before adds nothing new.
        const int echoed = inBuffer[3] << 8 | inBuffer[4];
        const bool repeated = echoed == lastEchoed;
        lastEchoed = echoed;
        if (!complete && !guard.Continue(data.size(), !repeated)) {
            return {};
        }
    }
    VRX_ASSERT(!capabilitiesStr.empty());
    SleepMs(kCapabilitiesSettleMs);
    return capabilitiesStr;
}

ByteVector CUSBConnector::ReadEDID(uint32_t /*sid_I*/) {
    CScopeTimer timer("CWinUSBConnector::ReadEDID Send EDID request");
    ByteVector inBuffer = SendRequest(kEdidRequest, kEdidDelayS, kEdidExpectedSize, 0);
    if (inBuffer.size() < kShortestEdidReply) {
        return {};
    }
    if (gTraceEnabled) {
        const std::string asText(inBuffer.begin(), inBuffer.end());
        Trace("Data read from Scalar in string form \n\"%s\"\n", asText.c_str());
        DumpBuffer(inBuffer, "Data read from Scalar");
    }
    if (DropCheckByte(inBuffer, "ReadEDID:Read checksum failed %i %i\n")) {
        VRX_ASSERT_NOT_REACHED("ReadEDID read checksum mismatch");
    }
    return inBuffer;
}
