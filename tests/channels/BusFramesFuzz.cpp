// The video channel's frame layer over a bus whose every read is cut from the input: both
// capability loops, the firmware query and the EDID chunks must end.

#include "FuzzDevice.h"

#include "channels/CI2CBusConnectorDP.h"
#include "foundation/VirtualClock.h"

#include <memory>

namespace {

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CScopedVirtualClock clock;
    CFuzzBytes bytes(data, size);
    CI2CBusConnectorDP connector;
    connector.OpenBus(std::make_unique<CFuzzBus>(bytes));
    connector.CapabilitiesString();
    connector.FWVersion();
    connector.ReadEDID(kNoTabletId);
    return 0;
}
