#include "CliRun.h"

#include "cli/SettingsTable.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr const char kEveryChannel[] =
    "ElmLarge@video,Hazel@hid,Birch@ftdi,Aspen@serial,CedarSmall@ti";

} // namespace

TEST_F(CliTest, ListNamesEveryDisplayWithItsChannelAndKeepsTracesOffStandardError) {
    const SCliRun run = Run({"--simulate", kEveryChannel, "list", "--json"});
    ASSERT_EQ(run.exit, 0) << run.err;
    EXPECT_EQ(run.err, "");
    Json list = ParseOut(run.out);
    const char* channels[] = {"video", "hid", "ftdi", "serial", "ti"};
    ASSERT_EQ(list["displays"].size(), 5u);
    const std::string text = Run({"--simulate", kEveryChannel, "list"}).out;
    for (size_t index = 0; index < 5; ++index) {
        Json& display = list["displays"][index];
        SCOPED_TRACE(Sim(index).Model().name);
        EXPECT_EQ(display["index"], index);
        EXPECT_EQ(display["serial"], Sim(index).SerialNumber());
        EXPECT_EQ(display["edidNumber"], Sim(index).EdidNumber());
        EXPECT_EQ(display["channel"], channels[index]);
        // The simulator and the resources tell one story.
        EXPECT_EQ(display["name"], display["model"]);
        const std::string line =
            std::to_string(index) + "  " + display["name"].get<std::string>() + " ";
        EXPECT_NE(text.find("\n" + line), std::string::npos) << text;
    }
    EXPECT_TRUE(text.starts_with("#  NAME"));
}

TEST_F(CliTest, ModeLimitsDiscoveryToItsChannels) {
    struct SRow {
        const char* mode;
        std::vector<std::string> channels;
    };
    const SRow rows[] = {
        {"all", {"video", "hid", "ftdi", "serial", "ti"}},
        {"hid", {"hid"}},
        {"video", {"video"}},
        // The legacy walk looks at every channel listed, the HID channel included.
        {"ftdi", {"hid", "ftdi", "serial", "ti"}},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.mode);
        const SCliRun run =
            Run({"--simulate", kEveryChannel, "--mode", row.mode, "list", "--json"});
        ASSERT_EQ(run.exit, 0) << run.err;
        std::vector<std::string> channels;
        const Json list = ParseOut(run.out);
        for (const Json& display : list.value("displays", Json::array())) {
            channels.push_back(display.value("channel", ""));
        }
        EXPECT_EQ(channels, row.channels) << run.out;
    }
}

TEST_F(CliTest, DebugSendsTracesAndTheTimingToStandardError) {
    const uint64_t sleptBefore = TotalRequestedSleepMs();
    const SCliRun run = Run({"--simulate", "Hazel@hid", "list", "--debug"});
    ASSERT_EQ(run.exit, 0);
    EXPECT_NE(run.err.find("GetNextMonitorID"), std::string::npos);
    const std::string waits =
        "protocol waits " + std::to_string(TotalRequestedSleepMs() - sleptBefore) + ".0 ms";
    EXPECT_NE(run.err.find(waits), std::string::npos) << run.err;
    EXPECT_FALSE(gTraceEnabled);
}

TEST_F(CliTest, GetAllReportsWhatTheDisplayHoldsAndWhatItLacks) {
    const SCliRun run = Run({"--simulate", "ElmLarge@video", "get", "all", "--json"});
    ASSERT_EQ(run.exit, 0) << run.err;
    ASSERT_EQ(ParseOut(run.out)["settings"].size(), SettingsTable().size());
    Json brightness = Setting(run.out, "brightness");
    EXPECT_EQ(brightness["offered"], true);
    EXPECT_EQ(brightness["value"], *Sim().Scaler().Current(0x10));
    EXPECT_EQ(brightness["maximum"], 100);
    // The Elm family keeps gamma in tenths.
    EXPECT_EQ(Setting(run.out, "gamma")["value"], *Sim().Scaler().Current(0x72));
    EXPECT_EQ(Setting(run.out, "fan-speed")["offered"], true);
    // Power LED and battery mode belong to other families.
    EXPECT_EQ(Setting(run.out, "battery-mode")["offered"], false);
    EXPECT_FALSE(Setting(run.out, "power-led").contains("value"));
}

TEST_F(CliTest, CommandsTakeValuesAsGetPrintsThemOrFailWithTheirExitCodeAndOneLine) {
    struct SRow {
        std::vector<std::string> args; // after --simulate
        int exit;
        std::string shown; // standard output when done, else part of the one error line
        uint8_t code = 0;  // of display 0, and its value afterwards
        int value = 0;
        std::vector<std::pair<uint8_t, uint16_t>> menu = {}; // set on display 0 before discovery
    };
    // Brightness starts at 50; ElmLarge's gamma, in tenths, at 2.2 and goes up to 2.6.
    const SRow rows[] = {
        {{"ElmLarge@video", "set", "brightness", "41"}, 0, "brightness = 41\n", 0x10, 41},
        {{"ElmLarge@video", "set", "brightness", "+10"}, 0, "brightness = 60\n", 0x10, 60},
        {{"ElmLarge@video", "set", "brightness", "--", "-80"}, 0, "brightness = 0\n", 0x10, 0},
        {{"ElmLarge@video", "set", "brightness", "+80"}, 0, "brightness = 100\n", 0x10, 100},
        {{"ElmLarge@video", "set", "brightness", "101"}, 2, "(0 to 100)", 0x10, 50},
        {{"ElmLarge@video", "set", "brightness", "+1x"}, 1, "(a number, or +N or -N)", 0x10, 50},
        {{"ElmLarge@video", "set", "gamma", "2"}, 0, "gamma = 2.0\n", 0x72, 20},
        {{"ElmLarge@video", "set", "gamma", "3.0"}, 2, "gamma (0.5 to 2.6)", 0x72, 22},
        {{"ElmLarge@video", "set", "gamma", "22"}, 2, "(0.5 to 2.6)", 0x72, 22},
        {{"ElmLarge@video", "set", "temperature", "9300K"}, 0, "temperature = 9300k\n"},
        // A number is never a position in the list of names.
        {{"ElmLarge@video", "set", "temperature", "4"}, 1, "(5000k, 5700k,"},
        {{"Birch@ftdi", "set", "aspect-ratio", "1:1"}, 0, "aspect-ratio = 1:1\n", 0xE2, 2},
        {{"Birch@ftdi", "set", "aspect-ratio", "2"}, 1, "(full, aspect, 1:1)"},
        // The custom colour rows show while the display runs its custom colour preset.
        {{"Birch@ftdi", "set", "rgb-gain", "10,20,30"},
         0,
         "rgb-gain = 10,20,30\n",
         0x18,
         20,
         {{0xF0, 9}}},
        // ElmSmall has no 7500K cell: with its temperature control shown the setter refuses it.
        {{"ElmSmall@video", "set", "temperature", "7500k"},
         2,
         "does not offer temperature 7500k",
         0x14,
         8,
         {{0xF0, 5}, {0x14, 8}}},
        {{"Hazel@hid", "setvcp", "6B", "0x21"},
         0,
         "0x6B Unsupported VPC Code: 33 (maximum 100)\n",
         0x6B,
         0x21},
        // 0x14 takes only the presets its capability string lists.
        {{"ElmLarge@video", "setvcp", "14", "2"},
         2,
         "does not offer 2 for 0x14",
         0x14,
         5,
         {{0x14, 5}}},
        {{"ElmLarge@video", "setvcp", "10", "101"},
         2,
         "101 is outside the range of 0x10 (0 to 100)",
         0x10,
         50},
        {{"getvcp", "1FF"}, 1, "1FF"},
        // Restore Factory Defaults is a trigger with nothing to read.
        {{"getvcp", "04"}, 2, "0x04 can only be written"},
        {{"list", "--bogus"}, 1, "unknown option '--bogus'"},
        {{"get", "loudness"}, 1, "unknown setting 'loudness'"},
        {{"Birch@warp", "list"}, 1, "bad simulation"},
        {{"Birch@none", "get", "all"}, 2, "no display found"},
        {{"-d", "2", "get", "all"}, 2, "no display 2 (found 2)"},
        {{"Birch@ftdi", "get", "fan-speed"}, 2, "fan-speed is not offered by this display"},
        {{"Hazel@hid", "set", "gamma", "2.2"}, 2, "gamma is not offered by this display"},
        {{"getvcp", "C0"}, 2, "VCP code 0xC0 is not offered by this display"},
        {{"ElmLarge@video", "set", "space", "srgb"},
         2,
         "space is not offered by this display while color-setting is temperature"},
        {{"CedarSmall@ti", "reset-color"}, 2, "offers no colour reset"},
        {{"ElmLarge@video", "condition-lcd", "--yes"}, 2, "offers no LCD conditioning"},
        {{"ElmLarge@video:fault=silence*forever", "list"}, 2, "no display found"},
        // Only Set VCP Feature is long enough to reach byte 7, so every read still works.
        {{"ElmLarge@video:fault=nack7*forever", "set", "brightness", "40"},
         3,
         "setting brightness failed: the display did not answer",
         0x10,
         50},
        {{"ElmLarge@video:fault=nack7*forever", "setvcp", "10", "40"},
         3,
         "writing 0x10 failed: the display did not answer",
         0x10,
         50},
    };
    for (const SRow& row : rows) {
        mPrepare = [&row](CSimulatedPlatform& platform_I) {
            if (platform_I.DisplayCount() == 0) {
                return;
            }
            platform_I.Display(0).Scaler().SetFromMenu(0x10, 50);
            for (const auto& [code, value] : row.menu) {
                platform_I.Display(0).Scaler().SetFromMenu(code, value);
            }
        };
        std::vector<std::string> args{"--simulate"};
        args.insert(args.end(), row.args.begin(), row.args.end());
        const SCliRun run = Run(args);
        SCOPED_TRACE(row.args[0] + " " + row.args.back());
        EXPECT_EQ(run.exit, row.exit) << run.err;
        if (row.exit == 0) {
            EXPECT_EQ(run.out, row.shown);
        } else {
            EXPECT_TRUE(IsOneErrorLine(run.err)) << run.err;
            EXPECT_NE(run.err.find(row.shown), std::string::npos) << run.err;
            EXPECT_EQ(run.out, "");
        }
        if (row.code != 0) {
            EXPECT_EQ(Sim().Scaler().Current(row.code), row.value);
        }
    }
    EXPECT_NE(Run({"--simulate=", "list"}).err.find("the simulation holds no display"),
              std::string::npos);
}

TEST_F(CliTest, JsonOutputsNameTheDisplayAndReadWhatItHolds) {
    const std::vector<std::string> commands[] = {
        {"get", "brightness"},
        {"set", "brightness", "30"},
        {"getvcp", "0x12"},
        {"setvcp", "6B", "20"},
        {"save"},
    };
    for (const std::vector<std::string>& command : commands) {
        std::vector<std::string> args{"--simulate", "-d", "1", "--json"};
        args.insert(args.end(), command.begin(), command.end());
        const SCliRun run = Run(args);
        SCOPED_TRACE(command[0]);
        ASSERT_EQ(run.exit, 0) << run.err;
        Json json = ParseOut(run.out);
        EXPECT_EQ(json["display"], 1);
        if (command[0] == "getvcp") {
            EXPECT_EQ(json["code"], 0x12);
            EXPECT_EQ(json["value"], *Sim(1).Scaler().Current(0x12));
        }
    }
    mPrepare = [](CSimulatedPlatform& platform_I) {
        platform_I.Display(0).Scaler().SetFromMenu(0xF0, 9);
    };
    const Json gain =
        Setting(Run({"--simulate", "Birch@ftdi", "get", "rgb-gain", "--json"}).out, "rgb-gain");
    EXPECT_EQ(gain["value"][0], *Sim().Scaler().Current(0x16));
    EXPECT_EQ(gain["value"][2], *Sim().Scaler().Current(0x1A));
}

TEST_F(CliTest, WhatCannotBeTakenBackAsksOnATerminalUnlessTold) {
    using SCounters = CSimScaler::SCounters;
    struct SRow {
        std::vector<std::string> args;
        bool terminal;
        std::string input;
        int exit;
        int SCounters::*counter;
        int count;
    };
    const SRow rows[] = {
        {{"factory-reset"}, true, "n\n", 4, &SCounters::factoryResets, 0},
        {{"factory-reset"}, true, "yes\n", 0, &SCounters::factoryResets, 1},
        {{"factory-reset"}, false, "yes\n", 1, &SCounters::factoryResets, 0},
        {{"factory-reset", "--yes"}, false, "", 0, &SCounters::factoryResets, 1},
        {{"reset-color"}, true, "\n", 4, &SCounters::colorResets, 0},
        {{"reset-color"}, false, "", 1, &SCounters::colorResets, 0},
        {{"reset-color", "-y"}, false, "", 0, &SCounters::colorResets, 1},
        {{"condition-lcd"}, true, "Y\n", 0, &SCounters::conditionings, 1},
        {{"condition-lcd"}, false, "", 1, &SCounters::conditionings, 0},
        {{"save"}, false, "", 0, &SCounters::saves, 1},
        {{"set", "brightness", "41"}, false, "", 0, &SCounters::saves, 0},
        {{"set", "brightness", "42", "--save"}, false, "", 0, &SCounters::saves, 1},
    };
    for (const SRow& row : rows) {
        std::vector<std::string> args{"--simulate", "Birch@ftdi"};
        args.insert(args.end(), row.args.begin(), row.args.end());
        mTerminal = row.terminal;
        const SCliRun run = Run(args, row.input);
        SCOPED_TRACE(row.args[0] + (row.terminal ? " on a terminal" : " without one"));
        EXPECT_EQ(run.exit, row.exit) << run.err;
        EXPECT_EQ(Sim().Scaler().Counters().*row.counter, row.count);
        const bool asked = run.err.find("[y/N]") != std::string::npos;
        EXPECT_EQ(asked, row.terminal && row.args[0] != "save" && row.args.size() == 1);
        if (row.exit == 1) {
            EXPECT_NE(run.err.find("needs --yes"), std::string::npos) << run.err;
        }
    }
}

TEST_F(CliTest, CapabilitiesShowTheStringAndTheSessionsReadingOfIt) {
    const SCliRun run = Run({"--simulate", "Birch@ftdi", "capabilities", "--json"});
    ASSERT_EQ(run.exit, 0) << run.err;
    Json caps = ParseOut(run.out);
    EXPECT_EQ(caps["raw"], Sim().Scaler().CapabilityString());
    EXPECT_TRUE(caps["keys"].contains("vcp"));
    EXPECT_TRUE(caps["missingKeys"].empty());
    EXPECT_FALSE(caps["commands"].empty());
    EXPECT_TRUE(std::any_of(caps["vcp"].begin(), caps["vcp"].end(), [&](const Json& code_I) {
        return code_I["code"] == 0x10 && code_I["kind"] == "continuous";
    }));
}

TEST_F(CliTest, HelpListsTheCommandsAndEachCommandsOwnOptions) {
    SCliRun run = Run({"--help"});
    EXPECT_EQ(run.exit, 0);
    for (const SCliCommandInfo& command : CliCommands()) {
        EXPECT_NE(run.out.find(std::string("  ") + command.name + " "), std::string::npos);
    }
    run = Run({"set", "--help"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_NE(run.out.find("--save"), std::string::npos);
    EXPECT_NE(run.out.find("rgb-saturation"), std::string::npos);
    EXPECT_NE(Run({"--help"}).out.find("4 a question answered no"), std::string::npos);
    EXPECT_EQ(Run({"--version"}).out, "paneltunectl " PANELTUNE_VERSION "\n");
    EXPECT_EQ(Run({"-V"}).out, "paneltunectl " PANELTUNE_VERSION "\n");
}

namespace {

// The one facts file a run on one simulated display leaves.
std::filesystem::path FactsFile(const std::string& cacheHome_I) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry :
         std::filesystem::directory_iterator(cacheHome_I + "/paneltune/simulated")) {
        files.push_back(entry.path());
    }
    EXPECT_EQ(files.size(), 1u);
    return files.empty() ? std::filesystem::path() : files.front();
}

std::string Replaced(std::string text_I, const std::string& from_I, const std::string& to_I) {
    const size_t at = text_I.find(from_I);
    EXPECT_NE(at, std::string::npos) << from_I;
    return at == std::string::npos ? text_I : text_I.replace(at, from_I.size(), to_I);
}

} // namespace

TEST_F(CliTest, AWarmGetAsksOnlyTheCheckAndWhatTheAnswerNeeds) {
    // Frames the scaler saw and the sum of waits of the second run, once the first has kept the
    // display's facts: pairing, the firmware check, and the reads of the value and its status.
    // A cold run reads the capability string on top.
    struct SRow {
        const char* description;
        int warmRequests;
        uint64_t warmWaitsMs;
    };
    const SRow rows[] = {
        {"ElmLarge@video", 5, 320}, {"Hazel@hid", 4, 0},        {"Birch@ftdi", 3, 996},
        {"Aspen@serial", 3, 870},   {"CedarSmall@ti", 21, 940},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.description);
        const SCliRun cold = Run({"--simulate", row.description, "get", "brightness"});
        ASSERT_EQ(cold.exit, 0) << cold.err;
        const int coldRequests = Sim().Scaler().Counters().requests;
        const uint64_t sleptBefore = TotalRequestedSleepMs();
        const SCliRun warm = Run({"--simulate", row.description, "get", "brightness"});
        ASSERT_EQ(warm.exit, 0) << warm.err;
        EXPECT_EQ(warm.out, cold.out);
        EXPECT_EQ(Sim().Scaler().Counters().requests, row.warmRequests);
        EXPECT_EQ(TotalRequestedSleepMs() - sleptBefore, row.warmWaitsMs);
        EXPECT_GT(coldRequests, row.warmRequests);
        std::filesystem::remove_all(mCacheHome + "/paneltune");
    }
}

TEST_F(CliTest, KeptFactsThatDoNotHoldAreReadAgainAndRewritten) {
    // The FTDI bridge pairs on its kept EDID, so a stale file must not pair it either.
    int warmRequests = 0;
    std::filesystem::path file;
    for (const char* description : {"Birch@ftdi", "ElmLarge@video"}) {
        std::filesystem::remove_all(mCacheHome + "/paneltune");
        const SCliRun cold = Run({"--simulate", description, "list", "--json"});
        ASSERT_EQ(cold.exit, 0) << cold.err;
        file = FactsFile(mCacheHome);
        const std::string good = ReadText(file);
        Run({"--simulate", description, "list"});
        warmRequests = Sim().Scaler().Counters().requests;
        const std::string rows[] = {
            Replaced(good, "firmware ", "firmware 1"),
            Replaced(good, "serial VRX", "serial XRV"),
            good.substr(0, good.size() / 2),
        };
        for (const std::string& row : rows) {
            SCOPED_TRACE(description + row);
            WriteText(file, row);
            const SCliRun run = Run({"--simulate", description, "list", "--json"});
            ASSERT_EQ(run.exit, 0) << run.err;
            EXPECT_EQ(run.out, cold.out);
            EXPECT_GT(Sim().Scaler().Counters().requests, warmRequests);
            EXPECT_EQ(ReadText(file), good);
        }
    }
    // A refresh reads in full although the facts hold.
    const SCliRun refresh = Run({"--simulate", "ElmLarge@video", "--refresh", "list"});
    ASSERT_EQ(refresh.exit, 0) << refresh.err;
    EXPECT_GT(Sim().Scaler().Counters().requests, warmRequests);
    // A cache folder that cannot be made costs a full read each time, nothing else.
    setenv("XDG_CACHE_HOME", (file.string() + "/below-a-file").c_str(), 1);
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(Run({"--simulate", "ElmLarge@video", "list"}).exit, 0);
        EXPECT_GT(Sim().Scaler().Counters().requests, warmRequests);
    }
}

TEST_F(CliTest, ReadingCommandsWriteNothingToAnyDisplayUnlessTheLanguageIsGiven) {
    struct SRow {
        std::vector<std::string> args;
        bool writes;
    };
    const SRow rows[] = {
        {{"list"}, false},
        {{"get", "all"}, false},
        {{"capabilities"}, false},
        {{"getvcp", "10"}, false},
        // Cold and warm alike.
        {{"get", "brightness"}, false},
        {{"--language", "fr", "list"}, true},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.args[0]);
        std::vector<std::string> args = {"--simulate", kEveryChannel};
        args.insert(args.end(), row.args.begin(), row.args.end());
        ASSERT_EQ(Run(args).exit, 0);
        int writes = 0;
        for (size_t index = 0; index < mPlatform->DisplayCount(); ++index) {
            writes +=
                Sim(index).Scaler().Counters().featureWrites + Sim(index).Scaler().Counters().saves;
        }
        EXPECT_EQ(writes > 0, row.writes) << writes;
    }
}
