// The channels' parsers of device input. Each fuzz target builds this file with FUZZ_CHANNEL
// naming its connector, whose device reads are cut from the input: its bytes given out in order
// and then from the start again (zeros for an empty input), so that a device never falls silent
// and every loop that waits on it must end by its own bounds. The connector's common operations
// must all end and never take a reply that does not answer them.

#include "channels/CI2CBusConnectorDP.h"
#include "channels/CI2CConnectorFTDI.h"
#include "channels/CI2CConnectorTI.h"
#include "channels/CUSBConnector.h"
#include "channels/CVcpHIDDeviceConnector.h"
#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace {

class CFuzzBytes {
public:
    CFuzzBytes(const uint8_t* data_I, size_t size_I) : mData(data_I), mSize(size_I) {}
    uint8_t Next() {
        const uint8_t byte = mSize == 0 ? 0 : mData[mAt];
        mAt = mSize == 0 ? 0 : (mAt + 1) % mSize;
        return byte;
    }
    void Fill(uint8_t* buffer_O, size_t size_I) {
        std::generate_n(buffer_O, size_I, [this] { return Next(); });
    }

private:
    const uint8_t* mData;
    size_t mSize;
    size_t mAt = 0;
};

// Feature reports of a HID device: every status report is cut from the input.
class CFuzzHid final : public IHidDevice {
public:
    explicit CFuzzHid(CFuzzBytes& bytes_I) : mBytes(bytes_I) {}
    bool Open(const std::string&) override { return true; }
    void Close() override {}
    bool SetFeature(const ByteVector&) override { return true; }
    bool GetFeature(ByteVector& report_IO) override {
        mBytes.Fill(report_IO.data(), report_IO.size());
        return true;
    }
    uint32_t LastError() override { return 0; }

private:
    CFuzzBytes& mBytes;
};

// A serial line: each read takes as many bytes as the input's next byte says (0 is a quiet line).
class CFuzzPort final : public ISerialPort {
public:
    explicit CFuzzPort(CFuzzBytes& bytes_I) : mBytes(bytes_I) {}
    bool Open(const std::string&, const SSerialSettings&, const SSerialTimeouts&) override {
        return true;
    }
    void Close() override {}
    bool Purge(uint32_t) override { return true; }
    void ClearErrors() override {}
    bool Write(const uint8_t*, size_t size_I, size_t& written_O) override {
        written_O = size_I;
        return true;
    }
    bool Read(uint8_t* buffer_O, size_t max_I, size_t& read_O) override {
        read_O = std::min<size_t>(mBytes.Next(), max_I);
        mBytes.Fill(buffer_O, read_O);
        return true;
    }
    uint32_t LastError() override { return 0; }

private:
    CFuzzBytes& mBytes;
};

// A TI bridge: every I2C read is cut from the input.
class CFuzzBridge final : public ITIBridgeApi {
public:
    explicit CFuzzBridge(CFuzzBytes& bytes_I) : mBytes(bytes_I) {}
    int AvailableDevices() override { return 1; }
    TiDevice OpenDevice(int) override { return 1; }
    int WriteI2C(uint8_t, const uint8_t*, uint16_t) override { return 1; }
    int ReadI2C(uint8_t, uint8_t* buffer_O, uint16_t length_I) override {
        mBytes.Fill(buffer_O, length_I);
        return 1;
    }
    int CloseDevice() override { return 1; }

private:
    CFuzzBytes& mBytes;
};

// The video channel's DDC bus: every read is cut from the input.
class CFuzzBus final : public II2CBus {
public:
    explicit CFuzzBus(CFuzzBytes& bytes_I) : mBytes(bytes_I) {}
    bool Write(uint8_t, const ByteVector&) override { return true; }
    bool Read(uint8_t, ByteVector& buffer_IO) override {
        mBytes.Fill(buffer_IO.data(), buffer_IO.size());
        return true;
    }

private:
    CFuzzBytes& mBytes;
};

// An FTDI chip: what the MPSSE makes of the bus, and the queue's count, are cut from the input.
class CFuzzChip final : public IFtdiApi {
public:
    explicit CFuzzChip(CFuzzBytes& bytes_I) : mBytes(bytes_I) {}
    FtStatus FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) override {
        *static_cast<uint32_t*>(flags_I == Ft::kListNumberOnly ? arg1_IO : arg2_IO) = 1;
        return Ft::kOk;
    }
    FtStatus FT_OpenEx(void*, uint32_t, FtHandle* handle_O) override {
        *handle_O = this;
        return Ft::kOk;
    }
    FtStatus FT_Close(FtHandle) override { return Ft::kOk; }
    FtStatus FT_Read(FtHandle, void* buffer_O, uint32_t count_I, uint32_t* read_O) override {
        mBytes.Fill(static_cast<uint8_t*>(buffer_O), count_I);
        *read_O = count_I;
        return Ft::kOk;
    }
    FtStatus FT_Write(FtHandle, const void*, uint32_t count_I, uint32_t* written_O) override {
        *written_O = count_I;
        return Ft::kOk;
    }
    FtStatus FT_ResetDevice(FtHandle) override { return Ft::kOk; }
    FtStatus FT_SetChars(FtHandle, uint8_t, uint8_t, uint8_t, uint8_t) override { return Ft::kOk; }
    FtStatus FT_Purge(FtHandle, uint32_t) override { return Ft::kOk; }
    FtStatus FT_SetTimeouts(FtHandle, uint32_t, uint32_t) override { return Ft::kOk; }
    FtStatus FT_GetQueueStatus(FtHandle, uint32_t* count_O) override {
        *count_O = mBytes.Next();
        return Ft::kOk;
    }
    FtStatus FT_SetLatencyTimer(FtHandle, uint8_t) override { return Ft::kOk; }
    FtStatus FT_SetBitMode(FtHandle, uint8_t, uint8_t) override { return Ft::kOk; }
    FtStatus FT_SetUSBParameters(FtHandle, uint32_t, uint32_t) override { return Ft::kOk; }

private:
    CFuzzBytes& mBytes;
};

std::shared_ptr<Connector> OpenedConnector(std::string_view channel_I, CFuzzBytes& bytes_I) {
    std::shared_ptr<Connector> connector;
    if (channel_I == "hid_reports") {
        connector = std::make_shared<CVcpHIDDeviceConnector>(std::make_unique<CFuzzHid>(bytes_I));
    } else if (channel_I == "serial_replies") {
        connector = std::make_shared<CUSBConnector>(std::make_unique<CFuzzPort>(bytes_I));
    } else if (channel_I == "ti_chunks") {
        connector = std::make_shared<CI2CConnectorTI>(std::make_shared<CFuzzBridge>(bytes_I));
    } else if (channel_I == "ftdi_replies") {
        connector = std::make_shared<CI2CConnectorFTDI>(std::make_shared<CFuzzChip>(bytes_I));
    } else {
        auto bus = std::make_shared<CI2CBusConnectorDP>();
        bus->OpenBus(std::make_unique<CFuzzBus>(bytes_I));
        return bus;
    }
    // The bridges open by index, the other channels by path.
    if (!connector->Open(0L)) {
        connector->Open(std::string("fuzz"));
    }
    return connector;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CScopedVirtualClock clock;
    CFuzzBytes bytes(data, size);
    const std::shared_ptr<Connector> connector = OpenedConnector(FUZZ_CHANNEL, bytes);
    connector->CapabilitiesString();
    connector->SendRequest(BuildGetVCPFeature(0x10), 0.05, 38, 0);
    connector->SerialNumber(kNoTabletId);
    connector->ReadEDID(kNoTabletId);
    connector->FWVersion();
    return 0;
}
