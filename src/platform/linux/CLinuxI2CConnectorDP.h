#pragma once
// The video channel on Linux: DDC/CI over the i2c-dev node of the monitor's DDC bus, slave
// 0x37. When the node can't be opened, the capability error tells the user which node and why,
// with the way to get access.

#include "discovery/CMonitorConnectorDP.h"

#include <string>

class CLinuxI2CConnectorDP final : public CMonitorConnectorDP {
public:
    CLinuxI2CConnectorDP();

    bool OpenDisplayInfo(const SDisplayInfo& info_I) override;

private:
    std::unique_ptr<II2CBus> OpenNode(const SDisplayInfo& info_I);

    std::string mOpenError;
};
