#pragma once
// The channel front ends of one simulated display, each tied to the display's own state: a
// front end is there while the display is plugged in and answers on that channel, and the HID
// status says "not ready" while the scaler is busy. Its bridges join the process-wide FTDI and TI
// libraries through Attach.

#include "sim/CSimDisplay.h"
#include "sim/CSimFtdiChip.h"
#include "sim/CSimFtdiLibrary.h"
#include "sim/CSimHidDevice.h"
#include "sim/CSimI2CFaultTarget.h"
#include "sim/CSimSerialDevice.h"
#include "sim/CSimTiBridge.h"

#include <cstdint>
#include <string>

struct SSimChannelAddresses {
    std::string hidPath;
    std::string ftdiSerialNumber;
    std::string ftdiDescription;
    uint32_t ftdiLocationId = 0;
};

class CSimDisplayChannels {
public:
    CSimDisplayChannels(CSimDisplay& display_I, const SSimChannelAddresses& addresses_I);
    CSimDisplayChannels(const CSimDisplayChannels&) = delete;
    CSimDisplayChannels& operator=(const CSimDisplayChannels&) = delete;

    CSimDisplay& Display() { return mDisplay; }
    // Bus faults of the front ends on the display's I2C bus, seen by the FTDI and TI bridges.
    CSimI2CFaultTarget& BusFaults() { return mBusFaults; }
    CSimFtdiChip& FtdiChip() { return mFtdiChip; }
    CSimHidDevice& Hid() { return mHid; }
    CSimSerialDevice& Serial() { return mSerial; }

    // The libraries keep pointers into this object, which must outlive them.
    void Attach(CSimFtdiLibrary& ftdi_I, CSimTiBridge& ti_I);

private:
    bool Reachable(ESimChannel channel_I) const;

    CSimDisplay& mDisplay;
    CSimI2CFaultTarget mBusFaults;
    CSimFtdiChip mFtdiChip;
    CSimHidDevice mHid;
    CSimSerialDevice mSerial;
};
