#include "sim/CSimI2CSlave.h"

#include "sim/CSimDisplay.h"
#include "sim/SimFrames.h"

namespace {

constexpr uint8_t kWriteAddress = 0x6E;
constexpr uint8_t kReadAddress = 0x6F;
constexpr uint8_t kResetAddress = 0xEE;
constexpr uint8_t kIdleBus = 0xFF;
constexpr uint8_t kBusy = 0x00;

} // namespace

CSimI2CSlave::CSimI2CSlave(CSimDisplay& display_I)
    : mDisplay(display_I), mPending(SimNullMessage()) {}

bool CSimI2CSlave::Address(uint8_t addressByte_I) {
    EndTransaction();
    if (!mDisplay.IsPlugged()) {
        return false;
    }
    if (addressByte_I == kWriteAddress || addressByte_I == kResetAddress) {
        mNackAt = mDisplay.TakeNack();
        if (mNackAt && *mNackAt == 0) {
            return false;
        }
        mMode = EMode::eWrite;
        mFrame.assign(1, addressByte_I);
        mFrameLost = false;
        return true;
    }
    if (addressByte_I == kReadAddress) {
        mMode = EMode::eRead;
        mReadAt = 0;
        mBusy = mDisplay.PollNotReady();
        return true;
    }
    return false;
}

bool CSimI2CSlave::Write(uint8_t byte_I) {
    if (mMode != EMode::eWrite || mFrameLost) {
        return false;
    }
    if (mNackAt && static_cast<size_t>(*mNackAt) == mFrame.size()) {
        mFrameLost = true;
        return false;
    }
    mFrame.push_back(byte_I);
    return true;
}

uint8_t CSimI2CSlave::Read(bool hostAcks_I) {
    if (mMode != EMode::eRead) {
        return kIdleBus;
    }
    uint8_t byte = kBusy;
    if (!mBusy) {
        byte = mReadAt < mPending.size() ? mPending[mReadAt] : kIdleBus;
        ++mReadAt;
    }
    if (!hostAcks_I) {
        EndTransaction();
    }
    return byte;
}

void CSimI2CSlave::Stop() {
    EndTransaction();
}

void CSimI2CSlave::EndTransaction() {
    if (mMode == EMode::eWrite && mFrame.size() > 1 && !mFrameLost) {
        mPending = mDisplay.Transact(mFrame);
    } else if (mMode == EMode::eRead && mReadAt > 0) {
        // A reply is read once; asked again, the scaler has nothing more to say.
        mPending = SimNullMessage();
    }
    mMode = EMode::eIdle;
    mFrame.clear();
    mNackAt.reset();
    mReadAt = 0;
    mBusy = false;
}
