#pragma once
// The device behind the stand-in for libftdi1 that the tests load by name: the library forwards
// each call to the object a test installs with fake_ftdi_install.

#include <cstdint>

class IFakeFtdi {
public:
    virtual ~IFakeFtdi() = default;
    virtual int Count() = 0;
    // libftdi1's results: 0 or a count on success, negative on failure.
    virtual int Open(unsigned index_I) = 0;
    virtual int Close() = 0;
    virtual int Reset() = 0;
    virtual int Purge() = 0;
    virtual int Read(unsigned char* buffer_O, int size_I) = 0;
    virtual int Write(const unsigned char* data_I, int size_I) = 0;
    virtual int SetLatency(unsigned char milliseconds_I) = 0;
    virtual int SetBitMode(unsigned char mask_I, unsigned char mode_I) = 0;
    virtual int SetChars(unsigned char event_I, unsigned char eventEnable_I) = 0;
    virtual int SetChunks(unsigned readSize_I, unsigned writeSize_I) = 0;
};

using FakeFtdiInstall = void (*)(IFakeFtdi*);
