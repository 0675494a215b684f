#include "channels/CI2CConnectorFTDI.h"

#include "channels/ChannelFrames.h"
#include "ddc/ReadBounds.h"
#include "ddc/ReplyFrames.h"
#include "ddc/VcpCodes.h"
#include "foundation/HexDump.h"
#include "foundation/StringUtilities.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "model/ModelTable.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr uint8_t kReadAddress = 0x6F;
constexpr uint8_t kIdleBus = 0xFF;
constexpr uint8_t kNotReady = 0x00;

constexpr int kCapabilitiesRetries = 1;
constexpr int kRetries = 1;
constexpr double kFirmwareDelayS = 0.07;
constexpr unsigned kFirmwareExpectedSize = 38;
constexpr uint32_t kFirmwareRetryMs = 50;

constexpr double kInformationDelayS = 0.01;
constexpr unsigned kInformationExpectedSize = 64;
constexpr uint32_t kInformationRetryMs = 1000;

constexpr double kEdidDelayS = 0.05;
constexpr unsigned kEdidExpectedSize = 37;
constexpr size_t kEdidReserve = 1024;
constexpr uint8_t kEdidTable = 0xC3;
constexpr size_t kShortestFragment = 6;
// An EDID is 128 bytes a block, a few blocks at most: these bounds only end a scaler that
// repeats a fragment, or a filler reply, without end.
constexpr SReadBounds kEdidBounds = {4, 512, 4096};
// A short DisplayInformation reply is asked again, a few times; a real scaler answers in one.
constexpr SReadBounds kInformationBounds = {4, 4, 4096};
// Filler bytes in front of a reply frame: far more than a scaler ever sends, well short of a
// bus that streams without end.
constexpr int kHuntLimit = 256;
constexpr int kKestrelChunks = 16;
constexpr size_t kKestrelReplySize = 19;
constexpr size_t kKestrelHeader = 2;

bool IsNullMessage(const ByteVector& reply_I) {
    return reply_I.size() == 3 && StartsWith(reply_I, {0x6E, 0x80});
}

ByteVector FrameFor(std::initializer_list<uint8_t> payload_I) {
    return BuildRequestFrame(ByteVector(payload_I));
}

} // namespace

CI2CConnectorFTDI::CI2CConnectorFTDI(std::shared_ptr<IFtdiApi> api_I) : mApi(std::move(api_I)) {}

CI2CConnectorFTDI::~CI2CConnectorFTDI() {
    CloseHandle();
}

bool CI2CConnectorFTDI::Open(const std::string& /*port_I*/) {
    VRX_ASSERT_NOT_REACHED("This is only used by serial connections");
    return false;
}

bool CI2CConnectorFTDI::Open(long device_I) {
    if (gTraceEnabled) {
        Trace("%s ID = %li\n", "CI2CConnectorFTDI::Open", device_I);
    }
    const FtStatus status = OpenFTDIHandle(device_I);
    if (status == Ft::kDeviceNotOpened) {
        mCachedVersion.mBuild = 1;
    }
    return status == Ft::kOk;
}

bool CI2CConnectorFTDI::Close() {
    Connector::Close();
    CloseHandle();
    mRawDisplayInformation.clear();
    return true;
}

ByteVector CI2CConnectorFTDI::SendRequest(const ByteVector& toSend_I, double delay,
                                          unsigned expectedSize_I, int retries) {
    VRX_ASSERT(!toSend_I.empty());
    if (gTraceEnabled) {
        DumpBuffer(toSend_I, "CI2CConnectorFTDI::SendRequest: data");
    }
    if (toSend_I.empty()) {
        return {};
    }
    if (SendBadCommand(false) != Ft::kOk) {
        CloseHandle();
        return {};
    }
    I2CReadAll();
    I2CStart();
    for (const uint8_t byte : toSend_I) {
        if (I2CSendByte(byte, true) != Ft::kOk) {
            I2CStop();
            if (retries < 0) {
                return {};
            }
            return SendRequest(toSend_I, delay, expectedSize_I, retries - 1);
        }
    }
    if (I2CStop() != Ft::kOk) {
        return {};
    }
    SleepMs(static_cast<uint32_t>(delay * 1000.0));

    ByteVector inBuffer;
    inBuffer.reserve(expectedSize_I);
    I2CStart();
    if (I2CSendByte(kReadAddress, true) != Ft::kOk) {
        I2CStop();
        return {};
    }
    // Hunt for the frame's first byte; the scaler may send filler in front of it.
    for (int hunted = 0;; ++hunted) {
        if (hunted == kHuntLimit) {
            Trace("CI2CConnectorFTDI::SendRequest: no frame after %i bytes\n", hunted);
            I2CStop();
            return {};
        }
        uint8_t byte = 0;
        if (I2CReadByte(true, byte) != Ft::kOk) {
            I2CStop();
            return {};
        }
        if (byte == toSend_I[0]) {
            inBuffer.push_back(byte);
            if (I2CReadByte(true, byte) != Ft::kOk) {
                I2CStop();
                return {};
            }
            inBuffer.push_back(byte);
            break;
        }
        if (byte == kIdleBus) {
            I2CStop();
            return {};
        }
        if (byte == kNotReady) {
            I2CStop();
            // Three zeros in front of the null message, exactly so.
            return {0x00, 0x00, 0x00, 0x6E, 0x80, 0xBE};
        }
    }
    VRX_ASSERT(inBuffer.size() == 2);
    VRX_ASSERT((inBuffer[1] & 0x80) != 0x00);
    const int bytesToRead = (inBuffer[1] & 0x7F) + 1;
    for (int i = 0; i < bytesToRead; ++i) {
        uint8_t byte = 0;
        if (I2CReadByte(true, byte) != Ft::kOk) {
            I2CStop();
            return {};
        }
        inBuffer.push_back(byte);
    }
    if (I2CStop() != Ft::kOk) {
        return {};
    }
    VRX_ASSERT((size_t)(bytesToRead + 2) == inBuffer.size());
    return inBuffer;
}

std::string CI2CConnectorFTDI::CapabilitiesString() {
    std::string caps;
    if (mRawDisplayInformation.empty()) {
        caps = ReadCapabilitiesPrivate(kCapabilitiesRetries);
    }
    if (caps.empty()) {
        caps = ReadCapabilitiesStandard(kCapabilitiesRetries);
    }
    return caps;
}

FileVersion CI2CConnectorFTDI::FWVersion() {
    const ByteVector request = BuildFirmwareRequest();
    ByteVector inBuffer = SendRequest(request, kFirmwareDelayS, kFirmwareExpectedSize, kRetries);
    if (inBuffer.empty()) {
        SleepMs(kFirmwareRetryMs);
        inBuffer = SendRequest(request, kFirmwareDelayS, kFirmwareExpectedSize, kRetries);
    }
    if (!inBuffer.empty()) {
        DropFirmwareCheckByte(inBuffer);
    }
    if (inBuffer.size() < kFeatureReplySize) {
        Trace("%s", ShortReplyFault(inBuffer));
        return {};
    }
    return FirmwareFromFeatureReply(inBuffer);
}

ByteVector CI2CConnectorFTDI::ReadDisplayInformation() {
    const bool tracing = gTraceEnabled;
    const ByteVector request = BuildGetVCPFeature(vcpC_DisplayInfo);
    if (tracing) {
        DumpBuffer(request, "DisplayInformation request");
    }
    ByteVector inBuffer;
    // A short reply is asked again, for as long as the guard allows.
    CReadGuard guard(kInformationBounds);
    for (;;) {
        inBuffer = SendRequest(request, kInformationDelayS, kInformationExpectedSize, kRetries);
        if (inBuffer.empty()) {
            return {};
        }
        // The scaler refuses the code: it has no record.
        if (inBuffer.size() == 11 && StartsWith(inBuffer, {0x6E, 0x88, 0x02, 0x01, 0xF2}) &&
            inBuffer[5] == 0) {
            return {};
        }
        if (IsNullMessage(inBuffer)) {
            return {};
        }
        if (inBuffer.size() >= kShortestFragment) {
            break;
        }
        VRX_ASSERT_NOT_REACHED("break");
        if (!guard.Continue(0)) {
            return {};
        }
    }
    if (tracing) {
        DumpBuffer(inBuffer, "Data read from Scalar");
    }
    if (Checksum(inBuffer, kReplySeed) != 0) {
        VRX_ASSERT_NOT_REACHED("ReadDisplayInformation read checksum mismatch");
        Trace("ReadDisplayInformation:Read checksum failed\n");
    }
    inBuffer.pop_back();
    if (inBuffer.size() != kDisplayInformationFrameSize) {
        return {};
    }
    return inBuffer;
}

bool CI2CConnectorFTDI::FillDisplayInformation() {
    if (mRawDisplayInformation.empty()) {
        mRawDisplayInformation = ReadDisplayInformation();
    }
    return !mRawDisplayInformation.empty();
}

std::string CI2CConnectorFTDI::MonitorName() {
    std::string name = Connector::MonitorName();
    if (name.empty() && FillDisplayInformation()) {
        VRX_ASSERT(mRawDisplayInformation.size() == kDisplayInformationFrameSize);
        name = InformationText(mRawDisplayInformation, EInformationText::eName).value_or("");
    }
    return name;
}

std::string CI2CConnectorFTDI::SerialNumber(uint32_t sid_I) {
    std::string text = Connector::SerialNumber(sid_I);
    if (text.empty()) {
        if (!FillDisplayInformation()) {
            Trace("CI2CConnectorFTDI::SerialNumber - ReadDisplayInformation() failed on first "
                  "attempt; trying again...\n");
            SleepMs(kInformationRetryMs);
            FillDisplayInformation();
        }
        if (!mRawDisplayInformation.empty()) {
            VRX_ASSERT(mRawDisplayInformation.size() == kDisplayInformationFrameSize);
            text = InformationText(mRawDisplayInformation, EInformationText::eSerial).value_or("");
        } else {
            VRX_ASSERT_NOT_REACHED("!!!!! ReadDisplayInformation FAILED 2 attempts");
        }
    }
    Trace("CI2CConnectorFTDI::SerialNumber: %s\n",
          text.empty() ? "WARNING: NO SERIAL NUMBER FOUND" : text.c_str());
    return ToUpper(text);
}

ByteVector CI2CConnectorFTDI::ReadEDID(uint32_t sid_I) {
    const EFtdiEdid method = FtdiEdidOfTablet(sid_I);
    if (method == EFtdiEdid::eNone) {
        Trace("CI2CConnectorFTDI::ReadEDID - skipping for sid_I 0x%X\n", sid_I);
        return {};
    }
    if (method == EFtdiEdid::eIndexed || method == EFtdiEdid::eIndexedWarnsEmpty) {
        ByteVector edid = ReadEDIDKestrel24();
        if (!edid.empty()) {
            return edid;
        }
    }
    return ReadEDIDFragments(sid_I);
}

ByteVector CI2CConnectorFTDI::ReadEDIDFragments(uint32_t sid_I) {
    const bool tracing = gTraceEnabled;
    ByteVector edid;
    edid.reserve(kEdidReserve);
    uint16_t offset = 0;
    CReadGuard guard(kEdidBounds);
    int lastEchoed = -1;
    for (;;) {
        const ByteVector request =
            FrameFor({ddcCC_TableReadRequest, kEdidTable, static_cast<uint8_t>(offset >> 8),
                      static_cast<uint8_t>(offset & 0xFF)});
        if (tracing) {
            DumpBuffer(request, "ReadEDID: request");
        }
        ByteVector inBuffer = SendRequest(request, kEdidDelayS, kEdidExpectedSize, kRetries);
        bool ended = false;
        if (inBuffer.empty()) {
            ended = true;
            if (FtdiEdidOfTablet(sid_I) == EFtdiEdid::eIndexedWarnsEmpty) {
                VRX_ASSERT_NOT_REACHED("WARNING - unexpected EDID response");
                Trace("CI2CConnectorFTDI::ReadEDID: WARNING - unexpected EDID response for sid: "
                      "0x%X\n",
                      sid_I);
            }
        } else if (IsNullMessage(inBuffer)) {
            ended = true;
        } else if (inBuffer.size() < kShortestFragment) {
            ended = true;
            VRX_ASSERT_NOT_REACHED("WARNING - unexpected EDID response");
        }
        if (tracing) {
            DumpBuffer(inBuffer, "ReadEDID: read from Scalar");
        }
        if (ended) {
            Trace("ReadEDID: no data found!\n");
            return edid;
        }
        if (ParseFragment(inBuffer)->EndsAt(offset)) {
            return edid;
        }
        if (Checksum(inBuffer, kReplySeed) != 0) {
            VRX_ASSERT_NOT_REACHED("ReadEDID: read checksum mismatch");
            Trace("ReadEDID:Read checksum failed\n");
        }
        inBuffer.pop_back();
        edid.insert(edid.end(), inBuffer.begin() + kFragmentHeader, inBuffer.end());
        offset = static_cast<uint16_t>(edid.size() & 0xFFFF);
        // A fragment that names the offset of the one before adds nothing new.
        const int echoed = inBuffer[3] << 8 | inBuffer[4];
        const bool repeated = echoed == lastEchoed;
        lastEchoed = echoed;
        if (!guard.Continue(edid.size(), !repeated)) {
            return {};
        }
    }
}

ByteVector CI2CConnectorFTDI::ReadEDIDKestrel24() {
    const bool tracing = gTraceEnabled;
    ByteVector edid;
    edid.reserve(kEdidReserve);
    for (int index = 0; index < kKestrelChunks; ++index) {
        const ByteVector request = FrameFor(
            {ddcCC_GetVCPFeatureRequest, vcpC_DisplayInfo, 0x00, static_cast<uint8_t>(index)});
        if (tracing) {
            DumpBuffer(request, "ReadEDIDKestrel24 request");
        }
        ByteVector inBuffer = SendRequest(request, kEdidDelayS, kEdidExpectedSize, kRetries);
        if (inBuffer.empty()) {
            VRX_ASSERT_NOT_REACHED("WARNING - empty response!");
        }
        if (tracing) {
            DumpBuffer(inBuffer, "ReadEDIDKestrel24: Data read from Scalar");
        }
        if (inBuffer.size() != kKestrelReplySize) {
            break;
        }
        if (Checksum(inBuffer, kReplySeed) != 0) {
            VRX_ASSERT_NOT_REACHED("ReadEDID read checksum mismatch");
            Trace("ReadEDID:Read checksum failed\n");
        }
        inBuffer.pop_back();
        edid.insert(edid.end(), inBuffer.begin() + kKestrelHeader, inBuffer.end());
    }
    if (tracing) {
        std::string text = "Kestrel24 EDID as read through FTDI:\n";
        for (size_t i = 0; i < edid.size(); ++i) {
            char hex[4];
            std::snprintf(hex, sizeof hex, "%2.2X ", edid[i]);
            text += hex;
            if (i % 16 == 15) {
                text += '\n';
            }
        }
        Trace("%s", text.c_str());
    }
    return edid;
}
