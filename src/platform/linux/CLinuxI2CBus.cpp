#include "platform/linux/CLinuxI2CBus.h"

#include "foundation/Trace.h"

#include <linux/i2c-dev.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

CLinuxI2CBus::CLinuxI2CBus(std::string node_I) : mNode(std::move(node_I)) {}

CLinuxI2CBus::~CLinuxI2CBus() {
    if (mFd >= 0) {
        ::close(mFd);
    }
}

bool CLinuxI2CBus::Open() {
    if (mFd >= 0) {
        return true;
    }
    mFd = ::open(mNode.c_str(), O_RDWR | O_CLOEXEC);
    mErrno = mFd < 0 ? errno : 0;
    return mFd >= 0;
}

bool CLinuxI2CBus::SelectSlave(uint8_t address7_I) {
    if (mFd < 0) {
        mErrno = EBADF;
        return false;
    }
    if (::ioctl(mFd, I2C_SLAVE, static_cast<unsigned long>(address7_I)) < 0) {
        mErrno = errno;
        Trace("CLinuxI2CBus: I2C_SLAVE 0x%02X on %s failed: %s\n", address7_I, mNode.c_str(),
              std::strerror(mErrno));
        return false;
    }
    return true;
}

bool CLinuxI2CBus::Write(uint8_t address7_I, const ByteVector& data_I) {
    if (!SelectSlave(address7_I)) {
        return false;
    }
    const ssize_t written = ::write(mFd, data_I.data(), data_I.size());
    if (written != static_cast<ssize_t>(data_I.size())) {
        mErrno = written < 0 ? errno : EIO;
        return false;
    }
    return true;
}

bool CLinuxI2CBus::Read(uint8_t address7_I, ByteVector& buffer_IO) {
    if (!SelectSlave(address7_I)) {
        return false;
    }
    const ssize_t got = ::read(mFd, buffer_IO.data(), buffer_IO.size());
    if (got != static_cast<ssize_t>(buffer_IO.size())) {
        mErrno = got < 0 ? errno : EIO;
        return false;
    }
    return true;
}

std::string CLinuxI2CBus::DescribeOpenFailure(const std::string& node_I, int errno_I) {
    std::string text = node_I + " could not be opened: " + std::strerror(errno_I) + ".";
    if (errno_I == EACCES || errno_I == EPERM) {
        text += " The display's bus needs the udev rules 70-paneltune.rules (in "
                "/usr/lib/udev/rules.d or /etc/udev/rules.d); install them, reload udev with "
                "'udevadm control --reload && udevadm trigger' and log in again.";
    } else if (errno_I == ENOENT) {
        text += " The i2c-dev kernel module may be missing: load it with 'modprobe i2c-dev'.";
    } else if (errno_I == EBUSY) {
        text += " Another program holds the bus.";
    }
    return text;
}
