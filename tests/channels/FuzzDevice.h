#pragma once
// The device side of the channel fuzz targets: the input's bytes, given out in order and then
// from the start again, so that a device never falls silent and every loop that waits on it
// must end by its own bounds. An empty input gives zeros.

#include <cstddef>
#include <cstdint>

class CFuzzBytes {
public:
    CFuzzBytes(const uint8_t* data_I, size_t size_I) : mData(data_I), mSize(size_I) {}
    uint8_t Next() {
        if (mSize == 0) {
            return 0;
        }
        const uint8_t byte = mData[mAt];
        mAt = (mAt + 1) % mSize;
        return byte;
    }
    void Fill(uint8_t* buffer_O, size_t size_I) {
        for (size_t i = 0; i < size_I; ++i) {
            buffer_O[i] = Next();
        }
    }

private:
    const uint8_t* mData;
    size_t mSize;
    size_t mAt = 0;
};
