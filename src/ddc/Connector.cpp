#include "ddc/Connector.h"

#include "ddc/EdidDescriptor.h"
#include "ddc/ReadBounds.h"
#include "ddc/ReplyFrames.h"
#include "foundation/HexDump.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <algorithm>
#include <array>

namespace {

// Wire timing and sizes of the exchanges this class makes itself.
constexpr double kCapabilitiesDelayS = 0.05;
constexpr unsigned kCapabilitiesExpectedSize = 37;
constexpr size_t kCapabilitiesReserve = 1024;
constexpr size_t kShortestFragment = 6;
// A real capability string is a few hundred bytes in fragments of 32: these bounds only end a
// scaler that repeats a short reply or a fragment that adds nothing, or never stops sending.
constexpr SReadBounds kCapabilitiesBounds = {8, 4096, 32 * 1024};

constexpr double kSaveDelayS = 0.22;
constexpr double kResetDelayS = 0.07;
constexpr unsigned kExchangeExpectedSize = 38;
constexpr size_t kShortestSaveReply = 3;
constexpr size_t kShortestResetReply = 4;
// Time the scaler takes to commit its settings after acknowledging the save.
constexpr uint32_t kSaveSettleMs = 200;

// EDID descriptor headers without their first byte: display name and serial number.
constexpr uint8_t kNameTag = 0xFC;
constexpr uint8_t kSerialTag = 0xFF;

bool IsNullMessageByte(uint8_t byte_I) {
    return byte_I == 0x6E || byte_I == 0x80 || byte_I == 0xBE;
}

// Takes the reply's check byte off and traces a mismatch; a bad check never refuses the data.
void DropCheckByte(ByteVector& reply_I, const char* traceFormat_I) {
    const uint8_t received = reply_I.back();
    reply_I.pop_back();
    const uint8_t computed = Checksum(reply_I, kReplySeed);
    if (received != computed) {
        Trace(traceFormat_I, received, computed);
    }
}

} // namespace

Connector::~Connector() = default;

bool Connector::Close() {
    mEDID.clear();
    mCachedVersion = FileVersion();
    return true;
}

std::string Connector::MonitorName() {
    return ReadEDIDText(kNoTabletId, kNameTag, true, "Monitor Name %s\n");
}

std::string Connector::SerialNumber(uint32_t sid_I) {
    return ReadEDIDText(sid_I, kSerialTag, false, "Serial Number %s\n");
}

std::string Connector::ReadEDIDText(uint32_t sid_I, uint8_t tag_I, bool toFirstZero_I,
                                    const char* traceFormat_I) {
    if (mEDID.empty()) {
        mEDID = ReadEDID(sid_I);
    }
    if (mEDID.empty()) {
        return {};
    }
    // The descriptor's last two leading zeros, its type and the zero behind it.
    const std::array<uint8_t, 4> header = {0x00, 0x00, tag_I, 0x00};
    const std::optional<std::string> text = FindEdidText(
        mEDID, header, toFirstZero_I ? EEdidTextEnd::eZero : EEdidTextEnd::eUnprintable);
    if (!text) {
        if (gTraceEnabled) {
            DumpBuffer(mEDID, "EDID result");
        }
        return {};
    }
    Trace(traceFormat_I, text->c_str());
    return *text;
}

std::string Connector::ExtractCapabilitiesString(const ByteVector& capsStr_I) {
    if (!capsStr_I.empty()) {
        VRX_ASSERT(capsStr_I[0] == '(');
    }
    const bool tracing = gTraceEnabled;
    if (tracing) {
        Trace("caps: ");
    }
    std::string capabilitiesStr;
    int depth = 0;
    for (uint8_t byte : capsStr_I) {
        if (byte == '(') {
            ++depth;
        } else if (byte == ')') {
            --depth;
        }
        capabilitiesStr.push_back(static_cast<char>(byte));
        if (tracing) {
            Trace("%c", byte);
        }
        if (depth == 0) {
            break;
        }
    }
    if (tracing) {
        Trace("\n");
    }
    VRX_ASSERT(!capabilitiesStr.empty());
    return capabilitiesStr;
}

std::string Connector::ReadCapabilitiesStandard(int retries) {
    return ReadCapabilities(false, retries);
}

std::string Connector::ReadCapabilitiesPrivate(int retries) {
    return ReadCapabilities(true, retries);
}

std::string Connector::ReadCapabilities(bool private_I, int retries) {
    const bool tracing = gTraceEnabled;
    ByteVector data;
    data.reserve(kCapabilitiesReserve);
    uint16_t offset = 0;
    CReadGuard guard(kCapabilitiesBounds);
    for (;;) {
        const ByteVector request =
            private_I ? BuildPrivateCapabilitiesRequest(offset) : BuildCapabilitiesRequest(offset);
        if (tracing) {
            DumpBuffer(request, "GetCapabilities request");
        }
        ByteVector reply;
        // A short fragment is asked again with the same frame, for as long as the guard allows.
        for (;;) {
            reply = SendRequest(request, kCapabilitiesDelayS, kCapabilitiesExpectedSize, retries);
            if (reply.empty() && !private_I) {
                reply =
                    SendRequest(request, kCapabilitiesDelayS, kCapabilitiesExpectedSize, retries);
            }
            if (reply.empty()) {
                return {};
            }
            if (reply.size() == 3 && StartsWith(reply, {0x6E, 0x80})) {
                return {};
            }
            if (reply.size() >= kShortestFragment) {
                break;
            }
            VRX_ASSERT_NOT_REACHED("break");
            if (!guard.Continue(data.size())) {
                return {};
            }
        }
        if (tracing) {
            const std::string asText(reply.begin(), reply.end());
            Trace("Data read from Scalar in string form \n\t\"%s\"\n", asText.c_str());
            DumpBuffer(reply, "Data read from Scalar");
        }
        if (ParseFragment(reply)->EndsAt(offset)) {
            return ExtractCapabilitiesString(data);
        }
        // A fragment for another offset (one cut short, or the one before again) is no answer:
        // the same offset is asked again.
        if (ParseFragment(reply)->offset != offset) {
            if (!guard.Continue(data.size(), false)) {
                return {};
            }
            continue;
        }
        if (Checksum(reply, kReplySeed) != 0) {
            VRX_ASSERT_NOT_REACHED("CapabilitiesString read checksum mismatch");
            Trace("CapabilitiesString:Read checksum failed\n");
        }
        reply.pop_back();
        data.insert(data.end(), reply.begin() + kFragmentHeader, reply.end());
        offset = static_cast<uint16_t>(data.size() & 0xFFFF);
        if (!guard.Continue(data.size())) {
            return {};
        }
    }
}

bool Connector::SaveSettingsToScalar() {
    const bool tracing = gTraceEnabled;
    const ByteVector request = BuildSaveCurrentSettings();
    if (tracing) {
        DumpBuffer(request, "Save w");
    }
    ByteVector reply = SendRequest(request, kSaveDelayS, kExchangeExpectedSize, 0);
    if (tracing) {
        DumpBuffer(reply, "Save r");
    }
    if (reply.size() < kShortestSaveReply) {
        Trace("Send request failed\n");
        return false;
    }
    DropCheckByte(reply, "SaveSettingsToScalar:Read checksum failed %i %i\n");
    // Loose on purpose: the null message's bytes are accepted in any position.
    if (IsNullMessageByte(reply[0]) && IsNullMessageByte(reply[1])) {
        SleepMs(kSaveSettleMs);
        return true;
    }
    Trace("response was one we don't recognize\n");
    return false;
}

bool Connector::ScalarReset() {
    const bool tracing = gTraceEnabled;
    const ByteVector request = BuildScalarReset();
    if (tracing) {
        DumpBuffer(request, "Reset w");
    }
    ByteVector reply = SendRequest(request, kResetDelayS, kExchangeExpectedSize, 0);
    if (reply.size() < kShortestResetReply) {
        Trace("Send request failed\n");
        return false;
    }
    if (tracing) {
        DumpBuffer(reply, "Reset r");
    }
    DropCheckByte(reply, "ScalarReset:Read checksum failed %i %i\n");
    if (StartsWith(reply, {0x6E, 0x88, 0x02}) || StartsWith(reply, {0x80, 0xBE, 0x6E}) ||
        StartsWith(reply, {0xBE, 0x6E, 0x80})) {
        return true;
    }
    Trace("response was one we don't recognize\n");
    return false;
}
