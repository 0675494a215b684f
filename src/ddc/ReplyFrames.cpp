#include "ddc/ReplyFrames.h"

#include "ddc/VcpCodes.h"

#include <algorithm>

namespace {

constexpr uint8_t kFeatureReplyLength = kLengthFlag | 8;

uint16_t Word(std::span<const uint8_t> bytes_I, size_t high_I) {
    return static_cast<uint16_t>(bytes_I[high_I] << 8 | bytes_I[high_I + 1]);
}

constexpr size_t kHidStatusAt = 4;
constexpr size_t kHidFrameAt = 6;

} // namespace

bool StartsWith(const ByteVector& bytes_I, std::initializer_list<uint8_t> prefix_I) {
    return bytes_I.size() >= prefix_I.size() &&
           std::equal(prefix_I.begin(), prefix_I.end(), bytes_I.begin());
}

std::optional<SFeatureReply> ParseFeatureReply(const ByteVector& reply_I, uint8_t code_I,
                                               const char*& fault_O) {
    const uint8_t expected[] = {kDisplayAddress, kFeatureReplyLength, ddcCC_VCPReplyCode, 0x00,
                                code_I};
    const char* const failures[] = {"address is incorrect", "length is incorrect",
                                    "reply code is incorrect", "vcp code error",
                                    "it is NOT a response to our query"};
    for (size_t at = 0; at < std::size(expected); ++at) {
        if (at >= reply_I.size() || reply_I[at] != expected[at]) {
            fault_O = failures[at];
            return std::nullopt;
        }
    }
    constexpr size_t kTypeAt = 5;
    if (reply_I.size() <= kTypeAt || reply_I[kTypeAt] > 1) {
        fault_O = "Bad code type";
        return std::nullopt;
    }
    if (reply_I.size() < kFeatureReplySize) {
        fault_O = "length is incorrect";
        return std::nullopt;
    }
    fault_O = nullptr;
    return SFeatureReply{reply_I[kTypeAt], Word(reply_I, 6), Word(reply_I, 8)};
}

const char* ShortReplyFault(const ByteVector& reply_I) {
    if (reply_I.size() < 2) {
        return "Send request failed";
    }
    if (StartsWith(reply_I, {kDisplayAddress, kLengthFlag})) {
        return "Send request no data";
    }
    return "Send request unknown response";
}

std::optional<SFragment> ParseFragment(const ByteVector& reply_I) {
    if (reply_I.size() < kFragmentHeader) {
        return std::nullopt;
    }
    return SFragment{static_cast<uint8_t>(reply_I[1] & 0x7F), Word(reply_I, 3)};
}

std::optional<std::string> InformationText(std::span<const uint8_t> frame_I,
                                           EInformationText text_I) {
    const auto at = static_cast<size_t>(text_I);
    if (frame_I.size() < at + kInformationTextSize) {
        return std::nullopt;
    }
    const auto begin = frame_I.begin() + static_cast<long>(at);
    return std::string(begin, begin + static_cast<long>(kInformationTextSize));
}

std::optional<SFeatureReply> SHidStatus::FeatureValues() const {
    if (frame.size() < kFeatureReplySize) {
        return std::nullopt;
    }
    return SFeatureReply{frame[5], Word(frame, 6), Word(frame, 8)};
}

SHidStatus ParseHidStatus(const ByteVector& report_I) {
    SHidStatus parsed;
    if (report_I.size() > kHidStatusAt) {
        parsed.status = report_I[kHidStatusAt];
    }
    if (report_I.size() > kHidFrameAt) {
        parsed.frame = std::span<const uint8_t>(report_I).subspan(kHidFrameAt);
    }
    return parsed;
}
