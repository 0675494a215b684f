#include "foundation/StatusCodes.h"

#include <memory>
#include <mutex>
#include <utility>

namespace {

std::mutex gStatusNamesLock;
std::unique_ptr<std::map<uint16_t, std::string>> gStatusNames;

// Builds the table on first use; the caller holds gStatusNamesLock.
std::map<uint16_t, std::string>& FilledStatusNames() {
    if (!gStatusNames) {
        gStatusNames = std::make_unique<std::map<uint16_t, std::string>>();
        auto& names = *gStatusNames;
#define VRX_STATUS_INSERT(name, value) names.insert(std::make_pair(uint16_t{value}, #name));
        VRX_STATUS_CODES(VRX_STATUS_INSERT)
#undef VRX_STATUS_INSERT
    }
    return *gStatusNames;
}

} // namespace

const std::map<uint16_t, std::string>* StatusCodeNames(bool destroy_I) {
    std::lock_guard<std::mutex> hold(gStatusNamesLock);
    if (destroy_I) {
        gStatusNames.reset();
        return nullptr;
    }
    return &FilledStatusNames();
}

std::string StatusCodeName(uint16_t status) {
    std::lock_guard<std::mutex> hold(gStatusNamesLock);
    const auto& names = FilledStatusNames();
    const auto found = names.find(status);
    return found == names.end() ? std::string() : found->second;
}
