// Capability bytes as a scaler might send them: the extracted text is always a prefix of the
// input, and a balanced group when the input begins with one.

#include "ddc/Connector.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const ByteVector input(data, data + size);
    const std::string text = Connector::ExtractCapabilitiesString(input);
    const std::string received(input.begin(), input.end());
    if (received.compare(0, text.size(), text) != 0) {
        std::abort();
    }
    if (size > 0 && text.empty()) {
        std::abort();
    }
    return 0;
}
