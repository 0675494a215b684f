// Bytes from a serial line: each read takes as many bytes as the input's next byte says (0 is a
// quiet line). The reply assembly, the capability loop and the EDID read must end.

#include "FuzzDevice.h"

#include "channels/CUSBConnector.h"
#include "foundation/VirtualClock.h"

#include <algorithm>
#include <memory>

namespace {

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CScopedVirtualClock clock;
    CFuzzBytes bytes(data, size);
    CUSBConnector connector(std::make_unique<CFuzzPort>(bytes));
    connector.Open(std::string("fuzz"));
    connector.CapabilitiesString();
    connector.ReadEDID(kNoTabletId);
    return 0;
}
