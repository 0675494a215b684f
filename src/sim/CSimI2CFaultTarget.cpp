#include "sim/CSimI2CFaultTarget.h"

CSimI2CFaultTarget::CSimI2CFaultTarget(ISimI2CTarget& inner_I) : mInner(inner_I) {}

void CSimI2CFaultTarget::NackByte(unsigned position_I, unsigned times_I) {
    mNackPosition = position_I;
    mTimesLeft = times_I;
}

bool CSimI2CFaultTarget::Refuses() {
    const bool refuse = mTimesLeft > 0 && mPosition == mNackPosition;
    ++mPosition;
    if (!refuse) {
        return false;
    }
    if (mTimesLeft != kAlways) {
        --mTimesLeft;
    }
    ++mNacksGiven;
    return true;
}

bool CSimI2CFaultTarget::Address(uint8_t addressByte_I) {
    mPosition = 0;
    if (Refuses()) {
        return false;
    }
    return mInner.Address(addressByte_I);
}

bool CSimI2CFaultTarget::Write(uint8_t byte_I) {
    if (Refuses()) {
        return false;
    }
    return mInner.Write(byte_I);
}

uint8_t CSimI2CFaultTarget::Read(bool hostAcks_I) {
    return mInner.Read(hostAcks_I);
}

void CSimI2CFaultTarget::Stop() {
    mInner.Stop();
}
