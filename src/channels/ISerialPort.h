#pragma once
// A serial port as the serial connector needs it. The platform opens the named port for
// exclusive use with the given line settings and time-outs; a read returns at once with what
// has come, or after the idle time-out when nothing has.

#include <cstddef>
#include <cstdint>
#include <string>

struct SSerialSettings {
    uint32_t baudRate = 0;
    uint8_t byteSize = 0;
    uint8_t parity = 0;   // 0 none
    uint8_t stopBits = 0; // 0 one
};

// In milliseconds; 0xFFFFFFFF in the interval and the read multiplier together with a read
// constant make a read return what has come, or wait that constant when nothing has.
struct SSerialTimeouts {
    uint32_t readInterval = 0;
    uint32_t readTotalMultiplier = 0;
    uint32_t readTotalConstant = 0;
    uint32_t writeTotalMultiplier = 0;
    uint32_t writeTotalConstant = 0;
};

class ISerialPort {
public:
    // A write to a port whose device has gone.
    static constexpr uint32_t kErrorDeviceGone = 22;
    // Which buffers a purge empties: both directions, pending work aborted.
    static constexpr uint32_t kPurgeAll = 15;

    virtual ~ISerialPort() = default;
    // false with LastError set; a port that fails its settings is left closed.
    virtual bool Open(const std::string& name_I, const SSerialSettings& settings_I,
                      const SSerialTimeouts& timeouts_I) = 0;
    virtual void Close() = 0;
    virtual bool Purge(uint32_t mask_I) = 0;
    // Clears a line error so that the port goes on; its report is not needed.
    virtual void ClearErrors() = 0;
    virtual bool Write(const uint8_t* data_I, size_t size_I, size_t& written_O) = 0;
    virtual bool Read(uint8_t* buffer_O, size_t max_I, size_t& read_O) = 0;
    virtual uint32_t LastError() = 0;
};
