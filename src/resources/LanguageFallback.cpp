#include "resources/LanguageFallback.h"

namespace {

constexpr uint16_t kNeutral = 0;
constexpr uint16_t kEnglish = 9;
constexpr uint16_t kChinese = 4;
constexpr uint16_t kPrimaryRange = 1024;

// Chinese falls back by script: Traditional (Taiwan) and Simplified (China) to the bare
// language, Hong Kong and Macao to Traditional, every other region to Simplified.
uint16_t NextChinese(uint16_t id) {
    switch (id) {
    case 4:
        return kNeutral;
    case 1028:
    case 2052:
        return kChinese;
    case 3076:
    case 5124:
        return 1028;
    default:
        return 2052;
    }
}

} // namespace

bool LanguageFallback(uint16_t& languageId_IO) {
    const uint16_t id = languageId_IO;
    if (id == kNeutral) {
        return false;
    }
    if (id % kPrimaryRange == kChinese) {
        languageId_IO = NextChinese(id);
        return languageId_IO != id;
    }
    if (id < kPrimaryRange) {
        languageId_IO = id == kEnglish ? kNeutral : kEnglish;
    } else {
        languageId_IO = id % kPrimaryRange;
    }
    return true;
}
