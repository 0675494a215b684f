#pragma once
// The calls of TI's USB-to-I2C bridge library. The bridge does the bus work itself: one whole
// write or read per call. No call names a device: the library keeps the one it opened last.

#include <cstdint>

using TiDevice = uintptr_t;

class ITIBridgeApi {
public:
    virtual ~ITIBridgeApi() = default;
    // Number of bridges.
    virtual int AvailableDevices() = 0;
    // A nonzero device value, or 0 on failure.
    virtual TiDevice OpenDevice(int index_I) = 0;
    // address7_I is the 7-bit bus address. 1 on success.
    virtual int WriteI2C(uint8_t address7_I, const uint8_t* data_I, uint16_t length_I) = 0;
    virtual int ReadI2C(uint8_t address7_I, uint8_t* buffer_O, uint16_t length_I) = 0;
    // Nonzero on success.
    virtual int CloseDevice() = 0;
};
