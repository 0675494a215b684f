// EDID bytes as a channel might return them: the monitor name holds no zero byte and no trailing
// white space, the serial number only printable bytes, and neither read fails.

#include "support/CFakeConnector.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

bool IsPrintable(char c_I) {
    return c_I >= 0x20 && c_I <= 0x7E;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CFakeConnector connector;
    connector.SetEDID(ByteVector(data, data + size));
    const std::string name = connector.MonitorName();
    const std::string serial = connector.SerialNumber(0x0F5E0304);
    if (name.find('\0') != std::string::npos || name.size() > size) {
        std::abort();
    }
    if (!name.empty() && std::string(" \t\n\v\f\r").find(name.back()) != std::string::npos) {
        std::abort();
    }
    for (char c : serial) {
        if (!IsPrintable(c)) {
            std::abort();
        }
    }
    return 0;
}
