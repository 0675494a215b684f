// A bridge library that has only its device counts: every other function is missing, as in an
// old or foreign build of the library.

#include <cstdint>

namespace {

constexpr uint32_t kListNumberOnly = 0x80000000;
constexpr uint32_t kListByIndex = 0x40000000;
constexpr uint32_t kLocation = 0x2011;

} // namespace

extern "C" {

__attribute__((visibility("default"))) uint32_t FT_ListDevices(void* arg1, void* arg2,
                                                               uint32_t flags) {
    if ((flags & kListNumberOnly) != 0) {
        *static_cast<uint32_t*>(arg1) = 1;
        return 0;
    }
    if ((flags & kListByIndex) != 0 && arg1 == nullptr) {
        *static_cast<uint32_t*>(arg2) = kLocation;
        return 0;
    }
    return 2;
}

__attribute__((visibility("default"))) int AvailableDevices() {
    return 1;
}

} // extern "C"
