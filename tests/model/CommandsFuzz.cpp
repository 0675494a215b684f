// "cmds" values as a scaler might send them: every command read stands for one run of hex
// digits in the text, so there are never more commands than such runs.

#include "model/CapabilitiesParser.h"

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    size_t runs = 0;
    bool inRun = false;
    for (const char c : text) {
        const bool digit = std::isxdigit(static_cast<unsigned char>(c)) != 0;
        runs += (digit && !inRun) ? 1 : 0;
        inRun = digit;
    }
    if (CreateCommandsVector(text).size() > runs) {
        std::abort();
    }
    return 0;
}
