#include "sim/SimEdid.h"

#include <algorithm>
#include <array>

namespace {

constexpr size_t kDescriptorText = 13;

// Header, then the bytes of the basic display parameters, chromaticity, established and
// standard timings (offsets 18 to 53).
constexpr std::array<uint8_t, 8> kHeader = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
constexpr std::array<uint8_t, 36> kParameters = {
    0x01, 0x04,                                                 // EDID 1.4
    0xA5, 0x3C, 0x22, 0x78, 0x3A,                               // digital, 60 x 34 cm, gamma 2.2
    0xEE, 0x95, 0xA3, 0x54, 0x4C, 0x99, 0x26, 0x0F, 0x50, 0x54, // sRGB-like chromaticity
    0x00, 0x00, 0x00,                                           // no established timings
    0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01,             // standard timings unused
    0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01};
// 1920x1080 at 60 Hz, 148.5 MHz, 600 x 340 mm.
constexpr std::array<uint8_t, 18> kPreferredTiming = {0x02, 0x3A, 0x80, 0x18, 0x71, 0x38,
                                                      0x2D, 0x40, 0x58, 0x2C, 0x45, 0x00,
                                                      0x58, 0x54, 0x21, 0x00, 0x00, 0x1E};
constexpr std::array<uint8_t, 18> kRangeLimits = {0x00, 0x00, 0x00, 0xFD, 0x00, 0x38,
                                                  0x4C, 0x1E, 0x53, 0x11, 0x00, 0x0A,
                                                  0x20, 0x20, 0x20, 0x20, 0x20, 0x20};

// A text descriptor: a shorter text ends with a line feed and is padded with blanks.
void PutTextDescriptor(std::vector<uint8_t>& edid_I, uint8_t tag_I, std::string_view text_I) {
    const std::array<uint8_t, 5> head = {0x00, 0x00, 0x00, tag_I, 0x00};
    edid_I.insert(edid_I.end(), head.begin(), head.end());
    const std::string_view text = text_I.substr(0, kDescriptorText);
    edid_I.insert(edid_I.end(), text.begin(), text.end());
    if (text.size() < kDescriptorText) {
        edid_I.push_back(0x0A);
        edid_I.insert(edid_I.end(), kDescriptorText - text.size() - 1, 0x20);
    }
}

} // namespace

std::vector<uint8_t> BuildSimEdid(const SSimModel& model_I, uint16_t edidNumber_I,
                                  std::string_view serial_I) {
    std::vector<uint8_t> edid;
    edid.reserve(kSimEdidSize);
    edid.insert(edid.end(), kHeader.begin(), kHeader.end());
    edid.push_back(static_cast<uint8_t>(kSimManufacturerId >> 8));
    edid.push_back(static_cast<uint8_t>(kSimManufacturerId & 0xFF));
    edid.push_back(static_cast<uint8_t>(edidNumber_I & 0xFF)); // product code, low byte first
    edid.push_back(static_cast<uint8_t>(edidNumber_I >> 8));
    // The numeric serial number carries the tablet's product id, so that two EDIDs of one model
    // differ only in their serial text.
    edid.push_back(static_cast<uint8_t>(model_I.productId & 0xFF));
    edid.push_back(static_cast<uint8_t>(model_I.productId >> 8));
    edid.push_back(0x00);
    edid.push_back(0x00);
    edid.push_back(12);   // week of manufacture
    edid.push_back(0x1E); // 2020
    edid.insert(edid.end(), kParameters.begin(), kParameters.end());
    edid.insert(edid.end(), kPreferredTiming.begin(), kPreferredTiming.end());
    PutTextDescriptor(edid, 0xFC, model_I.displayName);
    PutTextDescriptor(edid, 0xFF, serial_I);
    edid.insert(edid.end(), kRangeLimits.begin(), kRangeLimits.end());
    edid.push_back(0x00); // no extension block
    uint8_t sum = 0;
    for (const uint8_t byte : edid) {
        sum = static_cast<uint8_t>(sum + byte);
    }
    edid.push_back(static_cast<uint8_t>(0x100 - sum));
    return edid;
}
