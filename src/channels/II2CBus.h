#pragma once
// One I2C bus as a host sees it: whole write and read transactions at a 7-bit address. The
// video cable's DDC bus (i2c-dev on Linux) and test buses implement it.

#include "ddc/Frames.h"

#include <cstdint>

class II2CBus {
public:
    virtual ~II2CBus() = default;
    // START, the address for writing, the bytes, STOP. false when the bus failed or a byte was
    // not acknowledged.
    virtual bool Write(uint8_t address7_I, const ByteVector& data_I) = 0;
    // START, the address for reading, buffer_IO.size() bytes (all but the last acknowledged),
    // STOP. false when the bus failed or the address was not acknowledged.
    virtual bool Read(uint8_t address7_I, ByteVector& buffer_IO) = 0;
};
