// A scaler's replies to the capability loops: the input is cut into replies, each led by its
// length byte, and the last one comes again for ever. Both loops must end by their own bounds,
// so a hang is a finding.

#include "support/CFakeConnector.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr size_t kLongestText = 33 * 1024;

std::vector<ByteVector> Replies(const uint8_t* data_I, size_t size_I) {
    std::vector<ByteVector> replies;
    size_t at = 0;
    while (at < size_I) {
        const size_t length = std::min<size_t>(data_I[at], size_I - at - 1);
        replies.emplace_back(data_I + at + 1, data_I + at + 1 + length);
        at += 1 + length;
    }
    return replies;
}

void RunLoop(const std::vector<ByteVector>& replies_I, bool private_I) {
    CFakeConnector connector;
    connector.QueueReplies(replies_I);
    connector.RepeatLastReply();
    const std::string text =
        private_I ? connector.ReadCapabilitiesPrivate(1) : connector.ReadCapabilitiesStandard(0);
    // Far above the length bound of the loops, whose last fragment may pass it a little.
    if (text.size() > kLongestText) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto replies = Replies(data, size);
    RunLoop(replies, true);
    RunLoop(replies, false);
    return 0;
}
