#pragma once
// The scaler's I2C slave at 0x37 (0x6E to write, 0x6F to read), also listening at 0x77 for the
// reset frame. A write transaction delivers a request frame when it ends (STOP or repeated
// START); a read transaction returns the pending reply byte by byte. Reading with no request
// pending gives the null message; past the end of the reply the bus reads 0xFF; a busy scaler
// answers 0x00 until its reply is ready.

#include "sim/ISimI2CTarget.h"

#include <cstdint>
#include <optional>
#include <vector>

class CSimDisplay;

class CSimI2CSlave final : public ISimI2CTarget {
public:
    explicit CSimI2CSlave(CSimDisplay& display_I);

    bool Address(uint8_t addressByte_I) override;
    bool Write(uint8_t byte_I) override;
    uint8_t Read(bool hostAcks_I) override;
    void Stop() override;

private:
    enum class EMode : uint8_t { eIdle, eWrite, eRead };
    void EndTransaction();

    CSimDisplay& mDisplay;
    EMode mMode = EMode::eIdle;
    std::vector<uint8_t> mFrame;
    std::optional<int> mNackAt;
    bool mFrameLost = false;
    std::vector<uint8_t> mPending;
    size_t mReadAt = 0;
    bool mBusy = false;
};
