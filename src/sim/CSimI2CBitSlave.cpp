#include "sim/CSimI2CBitSlave.h"

CSimI2CBitSlave::CSimI2CBitSlave(ISimI2CTarget& target_I) : mTarget(target_I) {}

void CSimI2CBitSlave::Reset() {
    mSlaveSda = true;
    mState = EState::Idle;
    mInTransaction = false;
    mAddressPhase = false;
    mReading = false;
    mBitCount = 0;
    mShift = 0;
}

void CSimI2CBitSlave::SetMasterLines(bool scl_I, bool masterSda_I) {
    // Lines that move together are taken in the order that keeps the data valid around the
    // clock: data before a rising clock, data after a falling one.
    const bool sclFalls = mScl && !scl_I;
    if (sclFalls) {
        mScl = false;
        OnSclFall();
    }
    if (masterSda_I != mMasterSda) {
        const bool oldSda = Sda();
        mMasterSda = masterSda_I;
        if (mScl && Sda() != oldSda) {
            OnSdaChangeWhileSclHigh(oldSda);
        }
    }
    if (!mScl && scl_I) {
        mScl = true;
        OnSclRise();
    }
}

void CSimI2CBitSlave::OnSdaChangeWhileSclHigh(bool oldSda_I) {
    if (oldSda_I) {
        // START or repeated START: whatever was under way ends here.
        mSlaveSda = true;
        mInTransaction = true;
        mAddressPhase = true;
        mState = EState::Receive;
        mBitCount = 0;
        mShift = 0;
        return;
    }
    const bool wasInTransaction = mInTransaction;
    Reset();
    if (wasInTransaction) {
        mTarget.Stop();
    }
}

void CSimI2CBitSlave::OnSclRise() {
    switch (mState) {
    case EState::Receive:
        mShift = static_cast<uint8_t>((mShift << 1) | (Sda() ? 1 : 0));
        ++mBitCount;
        break;
    case EState::AckIn:
        mHostAcked = !Sda();
        break;
    case EState::Idle:
    case EState::AckOut:
    case EState::Send:
        break;
    }
}

void CSimI2CBitSlave::OnSclFall() {
    switch (mState) {
    case EState::Receive:
        if (mBitCount == 8) {
            bool ack = false;
            if (mAddressPhase) {
                mReading = (mShift & 0x01) != 0;
                ack = mTarget.Address(mShift);
            } else {
                ack = mTarget.Write(mShift);
            }
            mAddressPhase = false;
            mSlaveSda = !ack;
            // After a NACK the slave keeps off the bus until the next START or STOP.
            mState = ack ? EState::AckOut : EState::Idle;
        }
        break;
    case EState::AckOut:
        mSlaveSda = true;
        if (mReading) {
            LoadNextByte();
        } else {
            mState = EState::Receive;
            mBitCount = 0;
            mShift = 0;
        }
        break;
    case EState::Send:
        ++mBitCount;
        if (mBitCount < 8) {
            mSlaveSda = ((mShift << mBitCount) & 0x80) != 0;
        } else {
            mSlaveSda = true;
            mState = EState::AckIn;
        }
        break;
    case EState::AckIn:
        if (mHostAcked) {
            LoadNextByte();
        } else {
            mState = EState::Idle;
        }
        break;
    case EState::Idle:
        break;
    }
}

void CSimI2CBitSlave::LoadNextByte() {
    // The first bit must be on SDA before the next rising edge, which is before the master's
    // answer to this byte exists: the byte is asked for as acknowledged, and a NACK later only
    // makes the slave let go of the bus.
    mShift = mTarget.Read(true);
    mBitCount = 0;
    mSlaveSda = (mShift & 0x80) != 0;
    mState = EState::Send;
}
