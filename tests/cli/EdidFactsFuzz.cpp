// What `edid FILE` prints from a file's bytes: any bytes, any length up to the file bound.

#include "cli/OfflineCommands.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ReadEdidFacts(ByteVector(data, data + size), 0x0409);
    return 0;
}
