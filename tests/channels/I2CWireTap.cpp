#include "I2CWireTap.h"

bool CI2CWireTap::Address(uint8_t addressByte_I) {
    mWriting = (addressByte_I & 1) == 0;
    mRefused = false;
    if (mWriting) {
        writes.push_back({addressByte_I});
    }
    const bool ack = mInner.Address(addressByte_I);
    if (!ack && mWriting) {
        mRefused = true;
        ++refusedWrites;
    }
    return ack;
}

bool CI2CWireTap::Write(uint8_t byte_I) {
    if (mWriting && !writes.empty()) {
        writes.back().push_back(byte_I);
    }
    const bool ack = mInner.Write(byte_I);
    if (!ack && mWriting && !mRefused) {
        mRefused = true;
        ++refusedWrites;
    }
    return ack;
}

uint8_t CI2CWireTap::Read(bool hostAcks_I) {
    return mInner.Read(hostAcks_I);
}

void CI2CWireTap::Stop() {
    mWriting = false;
    mInner.Stop();
}
