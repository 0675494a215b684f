#include "I2CWireTap.h"

bool CI2CWireTap::Address(uint8_t addressByte_I) {
    mWriting = (addressByte_I & 1) == 0;
    if (mWriting) {
        writes.push_back({addressByte_I});
    }
    return mInner.Address(addressByte_I);
}

bool CI2CWireTap::Write(uint8_t byte_I) {
    if (mWriting && !writes.empty()) {
        writes.back().push_back(byte_I);
    }
    return mInner.Write(byte_I);
}

uint8_t CI2CWireTap::Read(bool hostAcks_I) {
    return mInner.Read(hostAcks_I);
}

void CI2CWireTap::Stop() {
    mWriting = false;
    mInner.Stop();
}
