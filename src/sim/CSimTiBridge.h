#pragma once
// The TI USB-to-I2C bridge library over simulated bridges: the bridge does the bus work itself,
// one whole write or read per call, and the library keeps the one open bridge that every call
// goes to.

#include "sim/ISimI2CTarget.h"

#include <cstdint>
#include <functional>
#include <vector>

class CSimTiBridge {
public:
    // The targets stay owned by the caller; one target is the bus behind one bridge.
    // present_I, when given, ties the bridge to the display it sits in.
    void AddDevice(ISimI2CTarget& bus_I, std::function<bool()> present_I = {});
    // A bridge taken off USB no longer counts, and calls to it fail.
    void SetPresent(int index_I, bool present_I);

    int AvailableDevices() const;
    // A nonzero device value, or 0 when the index names no bridge.
    uintptr_t OpenDevice(int index_I);
    // address7_I is the 7-bit bus address. 1 on success, 0 when the bus refused a byte.
    int WriteI2C(uint8_t address7_I, const uint8_t* data_I, uint16_t length_I);
    int ReadI2C(uint8_t address7_I, uint8_t* buffer_O, uint16_t length_I);
    // Nonzero on success, 0 when no bridge was open.
    int CloseDevice();

    bool HasOpenDevice() const { return mOpen >= 0; }

private:
    struct SBridge {
        ISimI2CTarget* bus;
        bool present;
        std::function<bool()> presenceProbe;
        bool IsPresent() const { return present && (!presenceProbe || presenceProbe()); }
    };
    ISimI2CTarget* OpenBus() const;
    int PresentIndexToSlot(int index_I) const;

    std::vector<SBridge> mBridges;
    int mOpen = -1;
};
