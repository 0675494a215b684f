// Replies to Get VCP Feature as a scaler, a bridge or a broken cable might deliver them. The
// first byte chooses the code read; the rest is the reply to a refresh after a good first read.
// A read never throws, leaves no error in the option, reports all zeros when invalid and keeps
// a level within the range of its first read.

#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "model/CDisplay.h"
#include "support/CFakeConnector.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

const char kCaps[] = "(prot(monitor)type(LCD)model(A)cmds(01 03 0C)vcp(10 14(05 08 0B) 60(11 12) "
                     "86 C8 F0(00 01 02) 74(01))mccs_ver(2.2))";
const vcpCode kCodes[] = {vcpC_Luminance,
                          vcpC_SelectColorPreset,
                          vcpC_InputSource,
                          vcpC_DisplayScaling,
                          vcpC_DisplayControllerType,
                          vcpC_DisplayPresets,
                          vcpC_SinglePointLUTOperation};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    CScopedVirtualClock clock;
    const vcpCode code = kCodes[data[0] % std::size(kCodes)];
    auto fake = std::make_shared<CFakeConnector>();
    fake->SetCapabilities(kCaps);
    fake->SetVcp(static_cast<uint8_t>(code), 1, 100);
    CDisplay display(fake, 0x1044);
    if (!display.Initialize("") || !display.GetVCPValue(code, false).valid) {
        std::abort();
    }
    fake->QueueReply(ByteVector(data + 1, data + size));
    const SVCPResult result = display.GetVCPValue(code, true);
    const VCPOptionBase& option = *display.GetOptions().at(code);
    if (option.HasError()) {
        std::abort();
    }
    if (!result.valid && !(result == SVCPResult{})) {
        std::abort();
    }
    if (option.Info().Continuous() && (option.GetValue() < 0 || option.GetValue() > 100)) {
        std::abort();
    }
    if (fake->Sent().size() != (option.Info().Table() ? 0u : 2u)) {
        std::abort();
    }
    return 0;
}
