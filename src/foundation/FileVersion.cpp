#include "foundation/FileVersion.h"

#include "foundation/Trace.h"

#include <sstream>

namespace {

// The release letter of text style 0, by release value.
constexpr const char* kReleaseLetters[] = {"?", "a", "b", "w", "d", "-"};

// Characters that end the variation in a three-part text, with the release each stands for.
struct SReleaseMark {
    char mark;
    uint8_t release;
};
constexpr SReleaseMark kReleaseMarks[] = {
    {'A', FileVersion::EAlphaVersion},       {'a', FileVersion::EAlphaVersion},
    {'B', FileVersion::EBetaVersion},        {'b', FileVersion::EBetaVersion},
    {'W', FileVersion::EWebVersion},         {'w', FileVersion::EWebVersion},
    {'F', FileVersion::EFinalVersion},       {'f', FileVersion::EFinalVersion},
    {'D', FileVersion::EDevelopmentVersion}, {'d', FileVersion::EDevelopmentVersion},
    {'-', FileVersion::EFinalVersion},       {'.', FileVersion::EFinalVersion},
    {'?', FileVersion::EUnknownVersion},
};
constexpr const char* kReleaseMarkSet = "AaBbWwFfDd-.?";

uint8_t Byte(uint32_t value, int shift) {
    return static_cast<uint8_t>((value >> shift) & 0xFF);
}

} // namespace

FileVersion::FileVersion(uint8_t major, uint8_t minor, uint8_t variation, uint8_t release,
                         uint8_t build)
    : mMajor(major), mMinor(minor), mVariation(variation), mRelease(release), mBuild(build) {}

FileVersion::FileVersion(uint32_t number, int style) {
    switch (style) {
    case 2:
    case 5:
        mMajor = Byte(number, 16);
        mMinor = Byte(number, 8);
        mVariation = Byte(number, 0);
        mRelease = style == 2 ? EFinalVersion : EUnknownVersion;
        break;
    case 3: {
        const uint32_t low = number & 0xFFFF;
        mMajor = Byte(number, 16);
        mMinor = static_cast<uint8_t>(low / 10);
        mVariation = static_cast<uint8_t>(low % 10);
        break;
    }
    case 4:
        mMajor = Byte(number, 8);
        mMinor = Byte(number, 0);
        break;
    default:
        VRX_ASSERT_NOT_REACHED("This style not supported from number");
        break;
    }
}

FileVersion::FileVersion(const std::string& text, bool bIsWeb_I) {
    ParseText(text, bIsWeb_I);
}

void FileVersion::ParseText(std::string text, bool bIsWeb_I) {
    const size_t firstDot = text.find('.');
    if (text.empty() || firstDot == std::string::npos) {
        return;
    }
    text[firstDot] = ' ';
    const size_t secondDot = text.find('.', firstDot + 1);
    if (secondDot != std::string::npos) {
        text[secondDot] = ' ';
        const size_t markAt = text.find_first_of(kReleaseMarkSet, secondDot);
        if (markAt == std::string::npos) {
            mRelease = EFinalVersion;
            text += " 0";
        } else {
            bool known = false;
            for (const SReleaseMark& entry : kReleaseMarks) {
                if (entry.mark == text[markAt]) {
                    mRelease = entry.release;
                    known = true;
                    break;
                }
            }
            if (!known) {
                VRX_ASSERT_NOT_REACHED("Search string and case list mismatch");
            }
            text[markAt] = ' ';
        }
        std::istringstream numbers(text);
        int major = 0, minor = 0, variation = 0, build = 0;
        numbers >> major >> minor >> variation >> build;
        mMajor = static_cast<uint8_t>(major);
        mMinor = static_cast<uint8_t>(minor);
        mVariation = static_cast<uint8_t>(variation);
        mBuild = static_cast<uint8_t>(build);
        if (bIsWeb_I) {
            mRelease = EWebVersion;
        }
        return;
    }
    VRX_ASSERT(!bIsWeb_I);
    std::istringstream numbers(text);
    int first = 0, second = 0;
    numbers >> first >> second;
    mMajor = static_cast<uint8_t>(first);
    mMinor = static_cast<uint8_t>(second / 10);
    mVariation = static_cast<uint8_t>(second % 10);
}

uint32_t FileVersion::AsNumber(int style) const {
    const uint32_t threeBytes = (uint32_t{mMajor} << 16) | (uint32_t{mMinor} << 8) | mVariation;
    switch (style) {
    case 2:
        VRX_ASSERT(mRelease != FileVersion::EUnknownVersion);
        return threeBytes;
    case 3:
        VRX_ASSERT(mMinor < 25);
        VRX_ASSERT(mVariation < 10);
        VRX_ASSERT(mRelease == FileVersion::EUnknownVersion);
        return (uint32_t{mMajor} << 16) | (uint32_t{mMinor} * 10 + mVariation);
    case 4:
        return (uint32_t{mMajor} << 8) | mMinor;
    case 5:
        VRX_ASSERT(mRelease == FileVersion::EUnknownVersion);
        return threeBytes;
    default:
        VRX_ASSERT_NOT_REACHED("This style not supported as number");
        return 0;
    }
}

std::string FileVersion::AsString(int style) const {
    std::ostringstream text;
    const auto number = [](uint8_t value) { return static_cast<unsigned>(value); };
    switch (style) {
    case 0: {
        const char* letter = mRelease <= EFinalVersion ? kReleaseLetters[mRelease] : "?";
        text << number(mMajor) << '.' << number(mMinor) << '.' << number(mVariation) << letter
             << number(mBuild);
        break;
    }
    case 1:
        text << number(mMajor) << '.' << number(mMinor) << '.' << number(mVariation) << '.'
             << number(mBuild);
        break;
    case 2:
        VRX_ASSERT(mRelease == FileVersion::EFinalVersion);
        VRX_ASSERT(mBuild == 0);
        text << number(mMajor) << '.' << number(mMinor) << '.' << number(mVariation);
        break;
    case 3:
    case 5:
        VRX_ASSERT(mRelease == FileVersion::EUnknownVersion);
        text << number(mMajor) << '.' << number(mMinor) << number(mVariation);
        break;
    case 4:
        VRX_ASSERT(mVariation == 0);
        VRX_ASSERT(mBuild == 0);
        VRX_ASSERT(mRelease == FileVersion::EUnknownVersion);
        text << number(mMajor) << (mMinor < 10 ? ".0" : ".") << number(mMinor);
        break;
    default:
        break;
    }
    return text.str();
}

void FileVersion::Normalize() {
    const bool allZero = mMajor == 0 && mMinor == 0 && mVariation == 0;
    if (allZero || mBuild != 0 || mRelease != EUnknownVersion) {
        return;
    }
    if (mVariation < 10) {
        mMinor = static_cast<uint8_t>(mMinor * 10 + mVariation);
        mVariation = 0;
    }
}

bool FileVersion::IsValid() const {
    return mMajor != 0 || mMinor != 0 || mVariation != 0 || mBuild != 0;
}
