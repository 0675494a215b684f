#pragma once
// One i2c-dev node (/dev/i2c-N) as an I2C bus: each transaction selects the slave with
// I2C_SLAVE, then one write or one read of the whole buffer.

#include "channels/II2CBus.h"

#include <string>

class CLinuxI2CBus final : public II2CBus {
public:
    explicit CLinuxI2CBus(std::string node_I);
    ~CLinuxI2CBus() override;
    CLinuxI2CBus(const CLinuxI2CBus&) = delete;
    CLinuxI2CBus& operator=(const CLinuxI2CBus&) = delete;

    // Opens the node for reading and writing; false leaves the reason in LastErrno.
    bool Open();
    const std::string& Node() const { return mNode; }
    // The errno of the last failing call, 0 when none failed.
    int LastErrno() const { return mErrno; }

    bool Write(uint8_t address7_I, const ByteVector& data_I) override;
    bool Read(uint8_t address7_I, ByteVector& buffer_IO) override;

    // What a user needs to hear when the node can't be opened: the node, the reason and the
    // way out.
    static std::string DescribeOpenFailure(const std::string& node_I, int errno_I);

private:
    bool SelectSlave(uint8_t address7_I);

    std::string mNode;
    int mFd = -1;
    int mErrno = 0;
};
