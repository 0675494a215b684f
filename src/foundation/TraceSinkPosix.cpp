#include "foundation/TraceSink.h"

#include <unistd.h>

void WriteDebugOutput(const char* text, size_t length) {
    while (length > 0) {
        const ssize_t written = ::write(STDERR_FILENO, text, length);
        if (written <= 0) {
            return;
        }
        text += written;
        length -= static_cast<size_t>(written);
    }
}
