#pragma once
// The exception of the shared helpers. Nothing in the application raises or catches it; it is
// part of the vocabulary so that a helper that throws reports in the common text format.

#include <cstdint>
#include <exception>
#include <string>

class CVrxException : public std::exception {
public:
    // file may be null and must have static life. The text reads
    // "File: f, Line: n, Status: ffff,  \"message\"", each of the first two parts only when given.
    CVrxException(const char* file, int32_t line, const std::string& message, uint16_t status);

    const char* what() const noexcept override { return mText.c_str(); }

    const char* File() const { return mFile; }
    int32_t Line() const { return mLine; }
    const std::string& Message() const { return mMessage; }
    uint16_t Status() const { return mStatus; }

private:
    const char* mFile;
    int32_t mLine;
    std::string mMessage;
    uint16_t mStatus;
    std::string mText;
};
