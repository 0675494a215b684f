#pragma once
// The device end of an I2C bus at the level of its two wires. A bit-banging or MPSSE master moves
// SCL and its own drive of SDA; this slave watches the edges as a real one does (START and STOP
// while SCL is high, a data bit sampled at each rising SCL edge, its own SDA changed only while
// SCL is low) and speaks to a byte-level target.

#include "sim/ISimI2CTarget.h"

#include <cstdint>

class CSimI2CBitSlave {
public:
    explicit CSimI2CBitSlave(ISimI2CTarget& target_I);

    // The lines as the master leaves them: scl_I true is SCL high, masterSda_I false is the
    // master pulling SDA low (true is released or driven high).
    void SetMasterLines(bool scl_I, bool masterSda_I);

    bool Scl() const { return mScl; }
    // The wired-AND of the master's and the slave's drive.
    bool Sda() const { return mMasterSda && mSlaveSda; }
    bool SlaveHoldsSdaLow() const { return !mSlaveSda; }

    // Forgets any transfer in progress without telling the target, as after a power cycle.
    void Reset();

private:
    enum class EState { Idle, Receive, AckOut, Send, AckIn };

    void OnSdaChangeWhileSclHigh(bool oldSda_I);
    void OnSclRise();
    void OnSclFall();
    void LoadNextByte();

    ISimI2CTarget& mTarget;
    bool mScl = true;
    bool mMasterSda = true;
    bool mSlaveSda = true;
    EState mState = EState::Idle;
    bool mInTransaction = false;
    bool mAddressPhase = false;
    bool mReading = false;
    bool mHostAcked = false;
    int mBitCount = 0;
    uint8_t mShift = 0;
};
