#include "platform/linux/CLinuxSerialPort.h"

#include "foundation/Trace.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace {

// The rates the family's bridges use and their neighbours.
constexpr std::array<std::pair<uint32_t, speed_t>, 8> kBaudRates{{
    {1200, B1200},
    {2400, B2400},
    {4800, B4800},
    {9600, B9600},
    {19200, B19200},
    {38400, B38400},
    {57600, B57600},
    {115200, B115200},
}};

// Errors by which a tty says that its USB device has gone.
bool IsDeviceGone(int errno_I) {
    return errno_I == EIO || errno_I == ENODEV || errno_I == ENXIO;
}

bool ApplySettings(int fd_I, const SSerialSettings& settings_I) {
    speed_t speed = 0;
    for (const auto& [rate, code] : kBaudRates) {
        if (rate == settings_I.baudRate) {
            speed = code;
        }
    }
    if (speed == 0 || settings_I.byteSize < 5 || settings_I.byteSize > 8) {
        errno = EINVAL;
        return false;
    }
    termios tio{};
    if (::tcgetattr(fd_I, &tio) != 0) {
        return false;
    }
    ::cfmakeraw(&tio);
    tio.c_cflag &= ~(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS);
    constexpr std::array<tcflag_t, 4> kSizes{CS5, CS6, CS7, CS8};
    tio.c_cflag |= kSizes[settings_I.byteSize - 5] | CLOCAL | CREAD;
    // Parity as the serial settings number it: 0 none, 1 odd, 2 even.
    if (settings_I.parity == 1) {
        tio.c_cflag |= PARENB | PARODD;
    } else if (settings_I.parity == 2) {
        tio.c_cflag |= PARENB;
    }
    if (settings_I.stopBits != 0) {
        tio.c_cflag |= CSTOPB;
    }
    // Reads never block in the driver; the wait for a first byte is a poll.
    tio.c_cc[VMIN] = 0;
    tio.c_cc[VTIME] = 0;
    return ::cfsetispeed(&tio, speed) == 0 && ::cfsetospeed(&tio, speed) == 0 &&
           ::tcsetattr(fd_I, TCSANOW, &tio) == 0;
}

} // namespace

CLinuxSerialPort::~CLinuxSerialPort() {
    CLinuxSerialPort::Close();
}

bool CLinuxSerialPort::Fail(int errno_I) {
    mError = IsDeviceGone(errno_I) ? kErrorDeviceGone : static_cast<uint32_t>(errno_I);
    return false;
}

bool CLinuxSerialPort::Open(const std::string& name_I, const SSerialSettings& settings_I,
                            const SSerialTimeouts& timeouts_I) {
    Close();
    const std::string node = name_I.find('/') == std::string::npos ? "/dev/" + name_I : name_I;
    mFd = ::open(node.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (mFd < 0) {
        return Fail(errno);
    }
    // Exclusive, as a COM port is: a second open by anyone but root fails with EBUSY.
    if (::ioctl(mFd, TIOCEXCL) != 0 || !ApplySettings(mFd, settings_I)) {
        const int error = errno;
        Close();
        return Fail(error);
    }
    mReadWaitMs = static_cast<int>(timeouts_I.readTotalConstant);
    mError = 0;
    return true;
}

void CLinuxSerialPort::Close() {
    if (mFd >= 0) {
        ::close(mFd);
        mFd = -1;
    }
}

bool CLinuxSerialPort::Purge(uint32_t mask_I) {
    if (mFd < 0) {
        return Fail(EBADF);
    }
    // Bits 0 and 1 abort pending work, which a tty has none of; 2 and 3 clear the buffers.
    const bool output = (mask_I & 0x4u) != 0;
    const bool input = (mask_I & 0x8u) != 0;
    const int queue = output && input ? TCIOFLUSH : output ? TCOFLUSH : input ? TCIFLUSH : -1;
    if (queue >= 0 && ::tcflush(mFd, queue) != 0) {
        return Fail(errno);
    }
    return true;
}

void CLinuxSerialPort::ClearErrors() {
    // A raw tty keeps no error state that would stop it.
}

bool CLinuxSerialPort::Write(const uint8_t* data_I, size_t size_I, size_t& written_O) {
    written_O = 0;
    if (mFd < 0) {
        return Fail(EBADF);
    }
    while (written_O < size_I) {
        const ssize_t n = ::write(mFd, data_I + written_O, size_I - written_O);
        if (n < 0 && errno == EAGAIN) {
            pollfd ready{mFd, POLLOUT, 0};
            if (::poll(&ready, 1, -1) < 0 && errno != EINTR) {
                return Fail(errno);
            }
            continue;
        }
        if (n < 0 && errno != EINTR) {
            return Fail(errno);
        }
        written_O += n > 0 ? static_cast<size_t>(n) : 0;
    }
    return true;
}

bool CLinuxSerialPort::Read(uint8_t* buffer_O, size_t max_I, size_t& read_O) {
    read_O = 0;
    if (mFd < 0) {
        return Fail(EBADF);
    }
    pollfd ready{mFd, POLLIN, 0};
    int polled = ::poll(&ready, 1, mReadWaitMs);
    while (polled < 0 && errno == EINTR) {
        polled = ::poll(&ready, 1, mReadWaitMs);
    }
    if (polled < 0) {
        return Fail(errno);
    }
    if (polled == 0) {
        return true;
    }
    const ssize_t n = ::read(mFd, buffer_O, max_I);
    if (n < 0) {
        return errno == EAGAIN ? true : Fail(errno);
    }
    read_O = static_cast<size_t>(n);
    return true;
}
