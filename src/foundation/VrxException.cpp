#include "foundation/VrxException.h"

#include <sstream>

CVrxException::CVrxException(const char* file, int32_t line, const std::string& message,
                             uint16_t status)
    : mFile(file), mLine(line), mMessage(message), mStatus(status) {
    std::ostringstream text;
    if (mFile != nullptr) {
        text << "File: " << mFile << ", Line: " << std::dec << mLine << ", ";
    }
    if (mStatus != 0) {
        text << "Status: " << std::hex << static_cast<unsigned>(mStatus) << ", ";
    }
    text << " \"" << mMessage << "\"";
    mText = text.str();
}
