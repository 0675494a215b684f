#include "sim/SimTypes.h"

#include <array>

namespace {

constexpr std::array<std::string_view, kSimChannelCount> kChannelNames = {"video", "ftdi", "ti",
                                                                          "hid", "serial"};

} // namespace

std::string_view SimChannelName(ESimChannel channel_I) {
    const auto index = static_cast<size_t>(channel_I);
    return index < kChannelNames.size() ? kChannelNames[index] : std::string_view("unknown");
}

std::optional<ESimChannel> SimChannelFromName(std::string_view name_I) {
    for (size_t i = 0; i < kChannelNames.size(); ++i) {
        if (kChannelNames[i] == name_I) {
            return static_cast<ESimChannel>(i);
        }
    }
    return std::nullopt;
}
