#pragma once
// The connectors' transport interfaces over the simulated displays' front ends: an I2C bus, the
// two bridge libraries, serial ports and HID devices. A transport may hold keepAlive_I, the
// owner of the front ends it reaches, so that a connector that outlives the simulated platform
// still finds them.

#include "channels/IFtdiApi.h"
#include "channels/IHidDevice.h"
#include "channels/II2CBus.h"
#include "channels/ISerialPort.h"
#include "channels/ITIBridgeApi.h"
#include "sim/CSimFtdiLibrary.h"
#include "sim/CSimHidDevice.h"
#include "sim/CSimSerialDevice.h"
#include "sim/CSimTiBridge.h"
#include "sim/ISimI2CTarget.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

using SimKeepAlive = std::shared_ptr<const void>;

class CSimI2CBus : public II2CBus {
public:
    explicit CSimI2CBus(ISimI2CTarget& target_I, SimKeepAlive keepAlive_I = {})
        : mTarget(target_I), mKeepAlive(std::move(keepAlive_I)) {}
    bool Write(uint8_t address7_I, const ByteVector& data_I) override;
    bool Read(uint8_t address7_I, ByteVector& buffer_IO) override;

private:
    ISimI2CTarget& mTarget;
    SimKeepAlive mKeepAlive;
};

class CSimFtdiApi : public IFtdiApi {
public:
    explicit CSimFtdiApi(CSimFtdiLibrary& library_I, SimKeepAlive keepAlive_I = {})
        : mLibrary(library_I), mKeepAlive(std::move(keepAlive_I)) {}
    FtStatus FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) override;
    FtStatus FT_OpenEx(void* arg_I, uint32_t flags_I, FtHandle* handle_O) override;
    FtStatus FT_Close(FtHandle handle_I) override;
    FtStatus FT_Read(FtHandle handle_I, void* buffer_O, uint32_t count_I,
                     uint32_t* read_O) override;
    FtStatus FT_Write(FtHandle handle_I, const void* data_I, uint32_t count_I,
                      uint32_t* written_O) override;
    FtStatus FT_ResetDevice(FtHandle handle_I) override;
    FtStatus FT_SetChars(FtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I, uint8_t error_I,
                         uint8_t errorEnable_I) override;
    FtStatus FT_Purge(FtHandle handle_I, uint32_t mask_I) override;
    FtStatus FT_SetTimeouts(FtHandle handle_I, uint32_t readMs_I, uint32_t writeMs_I) override;
    FtStatus FT_GetQueueStatus(FtHandle handle_I, uint32_t* count_O) override;
    FtStatus FT_SetLatencyTimer(FtHandle handle_I, uint8_t milliseconds_I) override;
    FtStatus FT_SetBitMode(FtHandle handle_I, uint8_t mask_I, uint8_t mode_I) override;
    FtStatus FT_SetUSBParameters(FtHandle handle_I, uint32_t inSize_I, uint32_t outSize_I) override;

private:
    CSimFtdiLibrary& mLibrary;
    SimKeepAlive mKeepAlive;
};

class CSimTiApi : public ITIBridgeApi {
public:
    explicit CSimTiApi(CSimTiBridge& bridge_I, SimKeepAlive keepAlive_I = {})
        : mBridge(bridge_I), mKeepAlive(std::move(keepAlive_I)) {}
    int AvailableDevices() override { return mBridge.AvailableDevices(); }
    TiDevice OpenDevice(int index_I) override { return mBridge.OpenDevice(index_I); }
    int WriteI2C(uint8_t address7_I, const uint8_t* data_I, uint16_t length_I) override {
        return mBridge.WriteI2C(address7_I, data_I, length_I);
    }
    int ReadI2C(uint8_t address7_I, uint8_t* buffer_O, uint16_t length_I) override {
        return mBridge.ReadI2C(address7_I, buffer_O, length_I);
    }
    int CloseDevice() override { return mBridge.CloseDevice(); }

private:
    CSimTiBridge& mBridge;
    SimKeepAlive mKeepAlive;
};

// A serial port that opens by name among the simulated ports. A read that finds nothing waits
// the idle time-out once, on the time seam.
class CSimSerialPort : public ISerialPort {
public:
    using SNamedDevice = std::pair<std::string, CSimSerialDevice*>;

    CSimSerialPort(CSimSerialDevice& device_I, std::string name_I)
        : mDevices{{std::move(name_I), &device_I}} {}
    CSimSerialPort(std::vector<SNamedDevice> devices_I, SimKeepAlive keepAlive_I)
        : mDevices(std::move(devices_I)), mKeepAlive(std::move(keepAlive_I)) {}

    bool Open(const std::string& name_I, const SSerialSettings& settings_I,
              const SSerialTimeouts& timeouts_I) override;
    void Close() override { mDevice = nullptr; }
    bool Purge(uint32_t mask_I) override;
    void ClearErrors() override {}
    bool Write(const uint8_t* data_I, size_t size_I, size_t& written_O) override;
    bool Read(uint8_t* buffer_O, size_t max_I, size_t& read_O) override;
    uint32_t LastError() override { return mError; }

    // Keeps what the host wrote in writes, one entry per write; off unless a test asks.
    void RecordWrites(bool on_I) { mRecording = on_I; }
    std::vector<ByteVector> writes;
    SSerialTimeouts timeouts;

private:
    std::vector<SNamedDevice> mDevices;
    SimKeepAlive mKeepAlive;
    CSimSerialDevice* mDevice = nullptr;
    bool mRecording = false;
    uint32_t mError = 0;
};

// A HID device that opens by path among the simulated devices.
class CSimHidPort : public IHidDevice {
public:
    explicit CSimHidPort(CSimHidDevice& device_I) : mDevices{&device_I} {}
    CSimHidPort(std::vector<CSimHidDevice*> devices_I, SimKeepAlive keepAlive_I)
        : mDevices(std::move(devices_I)), mKeepAlive(std::move(keepAlive_I)) {}

    bool Open(const std::string& path_I) override;
    void Close() override;
    bool SetFeature(const ByteVector& report_I) override;
    bool GetFeature(ByteVector& report_IO) override;
    uint32_t LastError() override { return mError; }

    // Keeps every report the host sent in reports, status requests included; off unless a
    // test asks.
    void RecordReports(bool on_I) { mRecording = on_I; }
    std::vector<ByteVector> reports;

private:
    std::vector<CSimHidDevice*> mDevices;
    SimKeepAlive mKeepAlive;
    CSimHidDevice* mDevice = nullptr;
    bool mRecording = false;
    uint32_t mError = 0;
};
