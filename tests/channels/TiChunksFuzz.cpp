// Reads through a TI bridge: every I2C read is cut from the input. The capability chunks, the
// firmware query and the EDID chunks must end.

#include "FuzzDevice.h"

#include "channels/CI2CConnectorTI.h"
#include "foundation/VirtualClock.h"

#include <memory>

namespace {

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CScopedVirtualClock clock;
    CFuzzBytes bytes(data, size);
    CI2CConnectorTI connector(std::make_shared<CFuzzBridge>(bytes));
    connector.Open(0L);
    connector.CapabilitiesString();
    connector.FWVersion();
    connector.ReadEDID(kNoTabletId);
    return 0;
}
