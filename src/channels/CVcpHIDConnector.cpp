#include "channels/CVcpHIDConnector.h"

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

// A capability reply frame: 6E (80|n) E3 offset-high offset-low text...; n counts the opcode,
// the offset and the text.
constexpr size_t kShortestCapabilityFrame = 3;
constexpr size_t kCapabilityTextAt = 5;

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
        return buffer;
    }
    if (!GetFeature(buffer)) {
        Trace("GetStatus: GetStatus: GetFeature failed\n");
        return buffer;
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
        const std::optional<uint8_t> status = ParseHidStatus(result).status;
        if (status && *status != kStatusBusy && *status != kStatusPending) {
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
        const std::optional<SFeatureReply> values = ParseHidStatus(report).FeatureValues();
        if (!values) {
            Trace("CVcpHIDConnector::SendRequest - GetRequest failed\n");
            return {};
        }
        return BuildSimulatedResponse(operation, code, values->present & 0xFF,
                                      values->maximum & 0xFF);
    }
    case ddcCC_SetVCPFeatureRequest:
    case ddcCC_SaveCurrentSettingsRequest:
        // The status is not consulted: a report that came back at all is done.
        if (SubmitRequest(toSend_I, kKindWrite).empty()) {
            Trace("CVcpHIDConnector::SendRequest - SetRequest failed\n");
            return {};
        }
        return BuildSimulatedResponse(operation, code, 0, 0);
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
    for (;;) {
        const ByteVector frame =
            BuildCommand(ddcCC_CapabilitiesRequest, 0, static_cast<uint8_t>(offset >> 8),
                         static_cast<uint8_t>(offset & 0xFF));
        const ByteVector report = SubmitRequest(frame, kKindRead);
        const std::span<const uint8_t> reply = ParseHidStatus(report).frame;
        // A frame too short to hold a length byte, or a length byte of 0, has no fragment: the
        // text ends with what has come.
        if (reply.size() < kShortestCapabilityFrame || (reply[1] & 0x7F) == 0) {
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
        text.append(fragment, std::find(fragment, end, 0));
        offset = static_cast<uint16_t>(offset + n - 2);
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
    const ByteVector frame = BuildCommand(ddcCC_GetVCPFeatureRequest, vcpC_DisplayInfo, 0, 0);
    const ByteVector report = SubmitRequest(frame, kKindRead);
    if (report.empty()) {
        Trace("%s", failure_I);
        return {};
    }
    const std::optional<std::string> text = InformationText(ParseHidStatus(report).frame, text_I);
    VRX_ASSERT(text.has_value());
    return text.value_or(std::string());
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
