// Feature reports from a HID device: every status report is cut from the input. Requests,
// the capability loop and the information record must end and never take a report that does
// not answer them.

#include "FuzzDevice.h"

#include "channels/CVcpHIDDeviceConnector.h"
#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"

#include <memory>

namespace {

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CScopedVirtualClock clock;
    CFuzzBytes bytes(data, size);
    CVcpHIDDeviceConnector connector(std::make_unique<CFuzzHid>(bytes));
    connector.Open(std::string("fuzz"));
    connector.CapabilitiesString();
    connector.SendRequest(BuildGetVCPFeature(0x10), 0.05, 38, 0);
    connector.SerialNumber(kNoTabletId);
    connector.FWVersion();
    return 0;
}
