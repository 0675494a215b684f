#pragma once
// One simulated display reached over one channel: the display, the front end of that channel,
// the transport over it, and an opened connector.

#include "I2CWireTap.h"

#include "ddc/Connector.h"
#include "platform/sim/SimTransports.h"
#include "sim/CSimDisplay.h"
#include "sim/CSimFtdiChip.h"

#include <memory>
#include <string>
#include <vector>

class CChannelRig {
public:
    static constexpr const char* kHidPath = "/dev/hidraw3";

    // serial_I of 13 characters; empty gives one made of the model's name.
    CChannelRig(const char* model_I, ESimChannel channel_I, std::string serial_I = "");

    CSimDisplay& Display() { return *mDisplay; }
    CSimScaler& Scaler() { return mDisplay->Scaler(); }
    const std::shared_ptr<Connector>& GetConnector() const { return mConnector; }
    bool Opened() const { return mOpened; }

    // Every report sent on the HID channel, and every write on the serial line.
    CSimHidPort* HidPort() { return mHidPort; }
    CSimHidDevice* HidDevice() { return mHid.get(); }
    CSimSerialPort* SerialPort() { return mSerialPort; }
    CSimFtdiChip* FtdiChip() { return mChip.get(); }
    // Request frames on an I2C channel in bus order, from the 6E on.
    CI2CWireTap& Tap() { return mTap; }

private:
    std::unique_ptr<CSimDisplay> mDisplay;
    CI2CWireTap mTap;
    std::unique_ptr<CSimFtdiChip> mChip;
    CSimFtdiLibrary mFtdiLibrary;
    CSimTiBridge mTiBridge;
    std::unique_ptr<CSimHidDevice> mHid;
    std::unique_ptr<CSimSerialDevice> mSerial;
    CSimHidPort* mHidPort = nullptr;
    CSimSerialPort* mSerialPort = nullptr;
    std::shared_ptr<Connector> mConnector;
    bool mOpened = false;
};
