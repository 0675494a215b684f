// Profile files as a person, a full disk or another program might leave them. Reading never
// throws; a text that reads writes back to a text that reads the same.

#include "profiles/ProfileText.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    SProfile profile;
    std::string error;
    if (!ParseProfile(text, profile, error)) {
        if (error.empty()) {
            std::abort();
        }
        return 0;
    }
    SProfile again;
    if (!ParseProfile(FormatProfile(profile), again, error) || !(again == profile)) {
        std::abort();
    }
    return 0;
}
