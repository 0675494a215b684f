// What the display model costs without the wire: turning a capability string into the option
// map, and one read by code with refresh through a connector that answers at once.

#include "foundation/VirtualClock.h"
#include "model/CDisplay.h"
#include "support/CFakeConnector.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <string>

namespace {

// A capability string of about 1 KB: every continuous and non-continuous code of the table,
// every third with a value list, as the larger models announce.
std::string LargeCapabilities() {
    std::string vcp;
    int index = 0;
    for (const auto& [code, info] : BuildVCPCodeInfoTable(false)) {
        if (info.Table()) {
            continue;
        }
        char entry[64];
        if (!info.Continuous() && index % 3 == 0) {
            std::snprintf(entry, sizeof entry, "%02X(00 01 02 03 04 05) ", code);
        } else {
            std::snprintf(entry, sizeof entry, "%02X ", code);
        }
        vcp += entry;
        ++index;
    }
    vcp.pop_back();
    return "(prot(monitor)type(LCD)model(PDX-2700)cmds(01 02 03 07 0C E3 F3)vcp(" + vcp +
           ")mccs_ver(2.2))";
}

void BM_CapabilitiesToOptionMap(benchmark::State& state) {
    const std::string caps = LargeCapabilities();
    const VCPCodeInfoMap info = BuildVCPCodeInfoTable(false);
    for (auto _ : state) {
        const CapabilitiesMap map = ParseCapabilitiesString(caps);
        VCPOptionsMap options = CreateVCPCodeMap(map.at("vcp"), info, false);
        std::vector<int32_t> commands = CreateCommandsVector(map.at("cmds"));
        benchmark::DoNotOptimize(options);
        benchmark::DoNotOptimize(commands);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * caps.size()));
    state.counters["caps_bytes"] = static_cast<double>(caps.size());
}
BENCHMARK(BM_CapabilitiesToOptionMap);

void BM_GetVCPValueWithRefresh(benchmark::State& state) {
    CScopedVirtualClock clock;
    auto fake = std::make_shared<CFakeConnector>();
    fake->SetCapabilities(LargeCapabilities());
    fake->SetVcp(0x10, 50, 100);
    CDisplay display(fake, 0x1044);
    if (!display.Initialize("")) {
        state.SkipWithError("Initialize failed");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(display.GetVCPValue(vcpC_Luminance, true));
        if (fake->Sent().size() >= 4096) {
            fake->ClearSent();
        }
    }
}
BENCHMARK(BM_GetVCPValueWithRefresh);

} // namespace
