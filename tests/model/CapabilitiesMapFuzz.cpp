// Capability strings as a scaler might send them: the parser stores no pair with an empty key
// or value, and the option map built from any "vcp" value holds only known, non-table codes
// or codes that came with a value list.

#include "model/CapabilitiesParser.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string caps(reinterpret_cast<const char*>(data), size);
    const CapabilitiesMap map = ParseCapabilitiesString(caps);
    size_t stored = 0;
    for (const auto& [key, value] : map) {
        if (key.empty() || value.empty()) {
            std::abort();
        }
        stored += key.size() + value.size();
    }
    if (stored > size) {
        std::abort();
    }
    const auto vcp = map.find("vcp");
    if (vcp != map.end()) {
        static const VCPCodeInfoMap info = BuildVCPCodeInfoTable(false);
        for (const auto& [code, option] : CreateVCPCodeMap(vcp->second, info, false)) {
            if (!option || option->GetCode() != code || info.count(code) == 0) {
                std::abort();
            }
        }
    }
    return 0;
}
