#pragma once
// A five-byte version value with the text and number forms used for firmware, the MCCS version
// of a capability string and the program itself. All zero means no version.

#include <compare>
#include <cstdint>
#include <string>

class FileVersion {
public:
    enum ERelease : uint8_t {
        EUnknownVersion = 0,
        EAlphaVersion = 1,
        EBetaVersion = 2,
        EWebVersion = 3,
        EDevelopmentVersion = 4,
        EFinalVersion = 5,
    };

    FileVersion() = default;
    FileVersion(uint8_t major, uint8_t minor, uint8_t variation, uint8_t release, uint8_t build);
    // Number styles 2 to 5; any other style gives zero.
    FileVersion(uint32_t number, int style);
    // "1.23", "2.3.4", "2.3.4b5" and their like; text without a "." gives zero.
    explicit FileVersion(const std::string& text, bool bIsWeb_I = false);

    // The inverse of the number constructor; other styles give 0.
    uint32_t AsNumber(int style) const;
    // Text styles 0 to 5; other styles give an empty string.
    std::string AsString(int style) const;
    // Folds a three-part version whose release and build are unknown into two parts, undoing the
    // split of a two-part text: 2.0.1 becomes 2.1.0.
    void Normalize();
    // Any of major, minor, variation or build set; the release does not count.
    bool IsValid() const;

    auto operator<=>(const FileVersion&) const = default;

    uint8_t mMajor = 0;
    uint8_t mMinor = 0;
    uint8_t mVariation = 0;
    uint8_t mRelease = EUnknownVersion;
    uint8_t mBuild = 0;

private:
    void ParseText(std::string text, bool bIsWeb_I);
};
