// Every channel, every fault of the simulator, once and for ever, before and after discovery,
// under each command a new user tries first: each run ends within bounded virtual time and
// either gives the fault-free answer or fails with the right exit code and one line of reason.

#include "CliRun.h"

#include "sim/CSimFaults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr const char* kChannels[] = {"ElmLarge@video", "Hazel@hid", "Birch@ftdi", "Aspen@serial",
                                     "CedarSmall@ti"};

struct SFaultKind {
    ESimFault kind;
    const char* text; // with its number where it needs one
};
constexpr SFaultKind kFaults[] = {
    {ESimFault::eNack, "nack1"},        {ESimFault::eBadChecksum, "badchecksum"},
    {ESimFault::eNullMessage, "null"},  {ESimFault::eShortReply, "short4"},
    {ESimFault::eNotReady, "notready"}, {ESimFault::eOtherCode, "othercode"},
    {ESimFault::eSilence, "silence"},   {ESimFault::eLate, "late150"},
    {ESimFault::eUnplug, "unplug"},
};

const std::vector<std::vector<std::string>> kCommands = {
    {"list"}, {"get", "all"}, {"set", "brightness", "40"}, {"capabilities"}};

// Far above what any command takes on a display that answers.
constexpr uint64_t kVirtualBoundMs = 120000;

constexpr uint8_t kLuminanceCodes[] = {0x10, 0x6B};

// The list without its last column: a firmware version that could not be read shows blank.
std::string WithoutFirmware(const std::string& list_I) {
    std::string kept;
    size_t start = 0;
    while (start < list_I.size()) {
        const size_t end = list_I.find('\n', start);
        const std::string line = list_I.substr(start, end - start);
        kept += line.substr(0, std::min(line.size(), size_t{62})) + "\n";
        start = end == std::string::npos ? list_I.size() : end + 1;
    }
    return kept;
}

} // namespace

class FaultMatrixTest : public CliTest {
protected:
    SCliRun RunCommand(const std::string& description_I,
                       const std::vector<std::string>& command_I) {
        std::vector<std::string> args = {"--simulate", description_I};
        args.insert(args.end(), command_I.begin(), command_I.end());
        const uint64_t before = mClock->TotalSleptMs();
        const SCliRun run = Run(args);
        mElapsedMs = mClock->TotalSleptMs() - before;
        return run;
    }

    bool BrightnessIs40() {
        for (const uint8_t code : kLuminanceCodes) {
            if (Sim().Scaler().Current(code) == std::optional<uint16_t>(40)) {
                return true;
            }
        }
        return false;
    }

    uint64_t mElapsedMs = 0;
};

TEST_F(FaultMatrixTest, EveryRunEndsWithTheAnswerOrAOneLineReason) {
    for (const char* channel : kChannels) {
        std::vector<SCliRun> faultFree;
        for (const auto& command : kCommands) {
            faultFree.push_back(RunCommand(channel, command));
            ASSERT_EQ(faultFree.back().exit, 0) << channel << " " << command[0];
        }
        // What discovery alone takes of each kind of occasion.
        RunCommand(channel, kCommands[0]);
        std::vector<int> discovery;
        for (const SFaultKind& fault : kFaults) {
            discovery.push_back(Sim().Faults().Occasions(fault.kind));
        }
        for (size_t f = 0; f < std::size(kFaults); ++f) {
            for (const bool afterDiscovery : {false, true}) {
                for (const char* times : {"1", "forever"}) {
                    const std::string description =
                        std::string(channel) + ":fault=" + kFaults[f].text + "@" +
                        std::to_string(afterDiscovery ? discovery[f] : 0) + "*" + times;
                    const bool pairingMustSurvive = !afterDiscovery && std::string(times) == "1" &&
                                                    kFaults[f].kind != ESimFault::eUnplug;
                    for (size_t c = 0; c < kCommands.size(); ++c) {
                        const SCliRun run = RunCommand(description, kCommands[c]);
                        SCOPED_TRACE(description + " " + kCommands[c][0] + "\n" + run.out +
                                     run.err);
                        EXPECT_LT(mElapsedMs, kVirtualBoundMs);
                        // Discovery survives one lost or garbled reply on any channel.
                        if (pairingMustSurvive && c == 0) {
                            EXPECT_EQ(run.exit, 0);
                        }
                        if (run.exit == 0) {
                            if (c == 0) {
                                EXPECT_EQ(WithoutFirmware(run.out),
                                          WithoutFirmware(faultFree[c].out));
                            } else {
                                EXPECT_EQ(run.out, faultFree[c].out);
                            }
                            if (kCommands[c][0] == "set") {
                                EXPECT_TRUE(BrightnessIs40());
                            }
                            continue;
                        }
                        EXPECT_TRUE(IsOneErrorLine(run.err));
                        EXPECT_EQ(run.err.find("not offered"), std::string::npos);
                        if (run.exit == 2) {
                            EXPECT_EQ(run.err.rfind("paneltunectl: no display found: no simulated "
                                                    "display answered",
                                                    0),
                                      0u);
                        } else {
                            EXPECT_EQ(run.exit, 3);
                        }
                    }
                }
            }
        }
    }
}
