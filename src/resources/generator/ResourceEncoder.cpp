#include "resources/generator/ResourceEncoder.h"

namespace {

constexpr char16_t kMarker = 0x0298;
constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr uint32_t kStringsPerBlock = 16;

void AppendLittleEndian16(std::vector<uint8_t>& bytes, uint16_t value) {
    bytes.push_back(static_cast<uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<uint8_t>(value >> 8));
}

} // namespace

std::u16string EncodeCodedString(std::string_view utf8_I) {
    std::u16string coded(1, kMarker);
    for (size_t i = 0; i < utf8_I.size(); i += 3) {
        const size_t count = std::min<size_t>(3, utf8_I.size() - i);
        uint32_t bits = 0;
        for (size_t k = 0; k < 3; ++k) {
            const uint32_t byte = k < count ? static_cast<unsigned char>(utf8_I[i + k]) : 0U;
            bits = (bits << 8) | byte;
        }
        for (size_t k = 0; k < 4; ++k) {
            coded.push_back(k <= count ? kAlphabet[(bits >> (18 - 6 * k)) & 0x3F] : u'=');
        }
    }
    return coded;
}

std::map<uint16_t, std::vector<uint16_t>> BuildStringBlocks(const std::vector<SDataRow>& rows_I) {
    std::map<uint16_t, std::vector<std::u16string>> entries;
    for (const SDataRow& row : rows_I) {
        auto& block = entries[static_cast<uint16_t>(row.key / kStringsPerBlock + 1)];
        block.resize(kStringsPerBlock);
        block[row.key % kStringsPerBlock] = EncodeCodedString(row.text);
    }
    std::map<uint16_t, std::vector<uint16_t>> blocks;
    for (const auto& [blockId, strings] : entries) {
        std::vector<uint16_t>& words = blocks[blockId];
        for (const std::u16string& text : strings) {
            if (text.empty()) {
                words.push_back(0);
                continue;
            }
            words.push_back(static_cast<uint16_t>(text.size() + 1));
            words.insert(words.end(), text.begin(), text.end());
            words.push_back(0);
        }
    }
    return blocks;
}

std::vector<uint8_t> BuildGroup(const std::vector<SDataRow>& rows_I) {
    std::vector<uint8_t> bytes;
    for (const SDataRow& row : rows_I) {
        AppendLittleEndian16(bytes, static_cast<uint16_t>(row.key));
        for (const char16_t unit : EncodeCodedString(row.text)) {
            AppendLittleEndian16(bytes, unit);
        }
        AppendLittleEndian16(bytes, 0);
    }
    AppendLittleEndian16(bytes, 0xFFFF);
    return bytes;
}
