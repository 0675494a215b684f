#pragma once
// A tty (/dev/ttyUSBn) as the serial channel's port: raw termios at the asked line settings,
// held exclusively, and a read that returns what has come, or waits the read time-out for a
// first byte when nothing has. A port whose device is gone reports error 22 on a write.

#include "channels/ISerialPort.h"

class CLinuxSerialPort final : public ISerialPort {
public:
    CLinuxSerialPort() = default;
    ~CLinuxSerialPort() override;
    CLinuxSerialPort(const CLinuxSerialPort&) = delete;
    CLinuxSerialPort& operator=(const CLinuxSerialPort&) = delete;

    // name_I is a device node, or a name under /dev.
    bool Open(const std::string& name_I, const SSerialSettings& settings_I,
              const SSerialTimeouts& timeouts_I) override;
    void Close() override;
    bool Purge(uint32_t mask_I) override;
    void ClearErrors() override;
    bool Write(const uint8_t* data_I, size_t size_I, size_t& written_O) override;
    bool Read(uint8_t* buffer_O, size_t max_I, size_t& read_O) override;
    // An errno, except that a vanished device is reported as kErrorDeviceGone.
    uint32_t LastError() override { return mError; }

private:
    bool Fail(int errno_I);

    int mFd = -1;
    uint32_t mError = 0;
    int mReadWaitMs = 0;
};
