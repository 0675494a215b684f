#include "channels/CVcpHIDConnector.h"

#include "ddc/ReadBounds.h"
#include "ddc/ReplyFrames.h"
#include "ddc/VcpCodes.h"
#include "foundation/HexDump.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr uint8_t kReportId = 0xE5;
constexpr uint8_t kSubId = 0x04;
constexpr int kKindStatus = 0x00;
constexpr int kKindWrite = 0x02;
constexpr int kKindRead = 0x03;

// Status byte values that say the firmware is not done yet.
constexpr uint8_t kStatusBusy = 0x01;
constexpr uint8_t kStatusPending = 0x05;
constexpr int kPollLimit = 5;
constexpr uint32_t kPollIntervalMs = 100;

// A real capability string is a few hundred bytes: these bounds only end a scaler that repeats a
// fragment or sends text without end.
constexpr SReadBounds kCapabilitiesBounds = {4, 1024, 32 * 1024};
// A capability reply frame: 6E (80|n) E3 offset-high offset-low text...; n counts the opcode,
// the offset and the text.
constexpr size_t kCapabilityTextAt = 5;
// Where a reply frame keeps its reply code, result and VCP code.
constexpr size_t kFrameReplyCodeAt = 2;
constexpr size_t kFrameResultAt = 3;
constexpr size_t kFrameVcpAt = 4;

// The reply frame of a status report that holds a finished reply: one of the firmware's other
// states carries no data to take.
std::optional<std::span<const uint8_t>> FinishedFrame(const ByteVector& report_I) {
    const SHidStatus parsed = ParseHidStatus(report_I);
    if (parsed.status != uint8_t{0x00} || parsed.frame.size() < kFeatureReplySize ||
        parsed.frame[0] != kDisplayAddress) {
        return std::nullopt;
    }
    return parsed.frame;
}

// The values of a status report that carries the Get VCP Feature reply for this code.
std::optional<SFeatureReply> FeatureAnswer(const ByteVector& report_I, uint8_t code_I) {
    const std::optional<std::span<const uint8_t>> frame = FinishedFrame(report_I);
    if (!frame || (*frame)[kFrameReplyCodeAt] != ddcCC_VCPReplyCode ||
        (*frame)[kFrameResultAt] != 0x00 || (*frame)[kFrameVcpAt] != code_I) {
        return std::nullopt;
    }
    return ParseHidStatus(report_I).FeatureValues();
}

// Whether the firmware is still at work on the request.
bool StillBusy(std::optional<uint8_t> status_I) {
    return status_I == kStatusBusy || status_I == kStatusPending;
}

} // namespace

bool CVcpHIDConnector::Open(const std::string& port_I) {
    return OpenHIDDevice(port_I);
}

bool CVcpHIDConnector::Open(long /*device_I*/) {
    VRX_ASSERT_NOT_REACHED("Not supported by this connector.");
    return false;
}

bool CVcpHIDConnector::Close() {
    mCapabilities.clear();
    mMonitorName.clear();
    mSerialNumber.clear();
    mFirmwareVersion = FileVersion();
    return Connector::Close();
}

bool CVcpHIDConnector::IsOpen() {
    VRX_ASSERT_NOT_REACHED("must be implemented in subclasses");
    return false;
}

bool CVcpHIDConnector::OpenHIDDevice(const std::string& /*path_I*/) {
    VRX_ASSERT_NOT_REACHED("must be implemented in subclasses");
    return false;
}

bool CVcpHIDConnector::CloseHIDDevice() {
    VRX_ASSERT_NOT_REACHED("must be implemented in subclasses");
    return false;
}

bool CVcpHIDConnector::SetFeature(ByteVector& /*buffer_IO*/) {
    VRX_ASSERT_NOT_REACHED("must be implemented in subclasses");
    return false;
}

bool CVcpHIDConnector::GetFeature(ByteVector& /*buffer_IO*/) {
    VRX_ASSERT_NOT_REACHED("must be implemented in subclasses");
    return false;
}

ByteVector CVcpHIDConnector::ReadEDID(uint32_t /*sid_I*/) {
    VRX_ASSERT_NOT_REACHED("Not supported by this connector.");
    return {};
}

ByteVector CVcpHIDConnector::BuildCommand(int kind_I, uint8_t a_I, uint8_t b_I, uint8_t c_I) {
    switch (kind_I) {
    case ddcCC_GetVCPFeatureRequest:
        return BuildRequestFrame({ddcCC_GetVCPFeatureRequest, a_I});
    case ddcCC_SetVCPFeatureRequest:
        return BuildRequestFrame({ddcCC_SetVCPFeatureRequest, a_I, b_I, c_I});
    case ddcCC_CapabilitiesRequest:
        return BuildRequestFrame({ddcCC_CapabilitiesRequest, b_I, c_I});
    default:
        Trace("BuildCommand - error - command not supported: %i", kind_I);
        return {};
    }
}

ByteVector CVcpHIDConnector::GetStatus() {
    ByteVector buffer = {kReportId, kSubId, kKindStatus};
    if (!SetFeature(buffer)) {
        Trace("GetStatus: fail SetFeature\n");
        return {};
    }
    if (!GetFeature(buffer)) {
        Trace("GetStatus: GetStatus: GetFeature failed\n");
        return {};
    }
    if (gTraceEnabled) {
        std::string text = "status bytes returned:\n";
        for (size_t i = 0; i < buffer.size(); ++i) {
            char hex[8];
            std::snprintf(hex, sizeof hex, "%s %2.2X", i > 0 && i % 16 == 0 ? "\n" : "", buffer[i]);
            text += hex;
        }
        Trace("%s\n", text.c_str());
    }
    return buffer;
}

ByteVector CVcpHIDConnector::SubmitRequest(const ByteVector& cmdbuf_I, int kind_I) {
    if (cmdbuf_I.empty()) {
        VRX_ASSERT_NOT_REACHED("Empty cmdbuf!");
        return {};
    }
    if (kind_I != kKindWrite && kind_I != kKindRead) {
        VRX_ASSERT_NOT_REACHED("Oops - unsupported request");
        return {};
    }
    ByteVector request = {kReportId, kSubId, static_cast<uint8_t>(kind_I), 0x00, 0x00};
    request.insert(request.end(), cmdbuf_I.begin(), cmdbuf_I.end());
    if (!SetFeature(request)) {
        Trace("CVcpHIDConnector::SubmitRequest - SetFeature failed");
        return {};
    }
    // At most four polls, each not-ready one followed by a pause; the last report is given on
    // ready or not.
    ByteVector result;
    for (int counter = 1;;) {
        result = GetStatus();
        VRX_ASSERT(result.size() >= 4);
        // A failed poll ends the exchange at once: the device is gone, not busy.
        const std::optional<uint8_t> status = ParseHidStatus(result).status;
        if (!StillBusy(status)) {
            break;
        }
        SleepMs(kPollIntervalMs);
        if (++counter == kPollLimit) {
            break;
        }
    }
    if (gTraceEnabled) {
        DumpBuffer(result, "SubmitRequest result");
    }
    return result;
}

ByteVector CVcpHIDConnector::SendRequest(const ByteVector& toSend_I, double /*delay*/,
                                         unsigned /*expectedSize_I*/, int /*retries*/) {
    if (!IsOpen()) {
        return {};
    }
    if (toSend_I.size() < 4 || toSend_I[0] != kDisplayAddress || toSend_I[1] != kHostAddress) {
        VRX_ASSERT_NOT_REACHED("Zero-length request vector");
        VRX_ASSERT_NOT_REACHED("Oops - unknown or unsupported VCP op");
        return {};
    }
    const int operation = toSend_I[3];
    const uint8_t code = toSend_I.size() > 4 ? toSend_I[4] : 0;
    switch (operation) {
    case ddcCC_GetVCPFeatureRequest: {
        const ByteVector report = SubmitRequest(toSend_I, kKindRead);
        // Only the low bytes of the present value and the maximum are passed on.
        const std::optional<SFeatureReply> values = FeatureAnswer(report, code);
        if (!values) {
            Trace("CVcpHIDConnector::SendRequest - GetRequest failed\n");
            return {};
        }
        return BuildSimulatedResponse(operation, code, values->present & 0xFF,
                                      values->maximum & 0xFF);
    }
    case ddcCC_SetVCPFeatureRequest:
    case ddcCC_SaveCurrentSettingsRequest: {
        // A report that came back at all is done, unless the firmware is still at work.
        const ByteVector report = SubmitRequest(toSend_I, kKindWrite);
        if (const std::optional<uint8_t> status = ParseHidStatus(report).status;
            !status || StillBusy(status)) {
            Trace("CVcpHIDConnector::SendRequest - SetRequest failed\n");
            return {};
        }
        return BuildSimulatedResponse(operation, code, 0, 0);
    }
    default:
        VRX_ASSERT_NOT_REACHED("Oops - unsupported vcpCode");
        VRX_ASSERT_NOT_REACHED("Oops - unknown or unsupported VCP op");
        return {};
    }
}

std::string CVcpHIDConnector::CapabilitiesString() {
    if (!mCapabilities.empty()) {
        return mCapabilities;
    }
    std::string text;
    uint16_t offset = 0;
    CReadGuard guard(kCapabilitiesBounds);
    for (;;) {
        const ByteVector frame =
            BuildCommand(ddcCC_CapabilitiesRequest, 0, static_cast<uint8_t>(offset >> 8),
                         static_cast<uint8_t>(offset & 0xFF));
        const ByteVector report = SubmitRequest(frame, kKindRead);
        // A lost or unfinished reply leaves the text unknown, not shorter.
        const std::optional<std::span<const uint8_t>> finished = FinishedFrame(report);
        if (!finished) {
            return {};
        }
        const std::span<const uint8_t> reply = *finished;
        // A length byte of 0 has no fragment: the text ends with what has come.
        if ((reply[1] & 0x7F) == 0) {
            break;
        }
        const size_t n = (reply[1] & 0x7F) - 1u;
        // Two bytes of offset echo and no text: the scaler has sent all.
        if (n <= 2) {
            break;
        }
        const auto end = reply.begin() + static_cast<long>(std::min(reply.size(), 3 + n));
        const auto fragment = reply.begin() + kCapabilityTextAt;
        if (fragment >= end) {
            break;
        }
        // A fragment must answer the offset asked; another one adds nothing new.
        const bool answers = (reply[3] << 8 | reply[4]) == offset;
        if (answers) {
            text.append(fragment, std::find(fragment, end, 0));
            offset = static_cast<uint16_t>(offset + n - 2);
        }
        if (!guard.Continue(text.size(), answers)) {
            return {};
        }
    }
    mCapabilities = text;
    return mCapabilities;
}

FileVersion CVcpHIDConnector::FWVersion() {
    if (mFirmwareVersion.IsValid()) {
        return mFirmwareVersion;
    }
    const ByteVector frame =
        BuildCommand(ddcCC_GetVCPFeatureRequest, vcpC_DisplayFirmwareLevel, 0, 0);
    const ByteVector report = SubmitRequest(frame, kKindRead);
    VRX_ASSERT(report.size() >= 15);
    const std::optional<SFeatureReply> values = ParseHidStatus(report).FeatureValues();
    if (!values || report[0] == 0) {
        Trace("FWVersion - failed\n");
        return {};
    }
    // Major, minor and build stand in the low byte of the maximum and the present value.
    mFirmwareVersion = FileVersion(values->maximum & 0xFF, values->present >> 8,
                                   values->present & 0xFF, FileVersion::EFinalVersion, 0);
    return mFirmwareVersion;
}

std::string CVcpHIDConnector::ReadInformationText(EInformationText text_I, const char* failure_I) {
    const ByteVector request = BuildCommand(ddcCC_GetVCPFeatureRequest, vcpC_DisplayInfo, 0, 0);
    const ByteVector report = SubmitRequest(request, kKindRead);
    // A null message in place of the record leaves the text unknown, not blank.
    const std::optional<std::span<const uint8_t>> reply = FinishedFrame(report);
    if (!reply || (*reply)[kFrameReplyCodeAt] != ddcCC_VCPReplyCode) {
        Trace("%s", failure_I);
        return {};
    }
    const std::optional<std::string> text = InformationText(*reply, text_I);
    VRX_ASSERT(text.has_value());
    // A record cut short reads as zeros there: no text, rather than thirteen NULs.
    if (!text || text->front() == '\0') {
        return {};
    }
    return *text;
}

std::string CVcpHIDConnector::MonitorName() {
    if (mMonitorName.empty()) {
        mMonitorName = ReadInformationText(EInformationText::eName, "MonitorName - failed\n");
    }
    Trace("CVcpHIDConnector::MonitorName: %s\n", mMonitorName.c_str());
    return mMonitorName;
}

std::string CVcpHIDConnector::SerialNumber(uint32_t /*sid_I*/) {
    if (mSerialNumber.empty()) {
        mSerialNumber = ReadInformationText(EInformationText::eSerial, "SerialNumber - failed\n");
    }
    Trace("CVcpHIDConnector::SerialNumber: %s\n", mSerialNumber.c_str());
    return mSerialNumber;
}
