// An FTDI chip whose every read is cut from the input: what the MPSSE makes of the bus. The
// reply hunt, the EDID loops and the information record must end.

#include "FuzzDevice.h"

#include "channels/CI2CConnectorFTDI.h"
#include "foundation/VirtualClock.h"

#include <memory>

namespace {

class CFuzzChip final : public IFtdiApi {
public:
    explicit CFuzzChip(CFuzzBytes& bytes_I) : mBytes(bytes_I) {}
    FtStatus FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) override {
        if (flags_I == Ft::kListNumberOnly) {
            *static_cast<uint32_t*>(arg1_IO) = 1;
        } else {
            *static_cast<uint32_t*>(arg2_IO) = 1;
        }
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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CScopedVirtualClock clock;
    CFuzzBytes bytes(data, size);
    CI2CConnectorFTDI connector(std::make_shared<CFuzzChip>(bytes));
    connector.Open(0L);
    connector.CapabilitiesString();
    connector.SerialNumber(kNoTabletId);
    connector.ReadEDID(kNoTabletId);
    connector.FWVersion();
    return 0;
}
