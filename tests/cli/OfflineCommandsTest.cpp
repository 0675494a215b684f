#include "CliRun.h"

#include "cli/OfflineCommands.h"
#include "sim/SimEdid.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

constexpr const char kExample[] =
    "(prot(monitor)type(LCD)model(ABC123)cmds(01 02 03 07 0C E3 F3)vcp(02 04 05 08 10 12 14(05 08 "
    "0B) 16 18 1A 52 60(11 12) AC AE B2 B6 C0 C6 C8 C9 D6(01 04) DF)mccs_ver(2.2))";

// The values of one code of a parse-caps report, or {-1} when the code is not there.
std::vector<int> Values(const std::string& out_I, int code_I) {
    const Json caps = ParseOut(out_I);
    for (const Json& option : caps.value("vcp", Json::array())) {
        if (option.value("code", -1) == code_I) {
            const Json values = option.value("values", Json());
            return values.is_array() ? values.get<std::vector<int>>() : std::vector<int>{};
        }
    }
    return {-1};
}

std::string WriteFile(const std::string& name_I, const std::vector<uint8_t>& bytes_I) {
    return WriteText(::testing::TempDir() + name_I, std::string(bytes_I.begin(), bytes_I.end()));
}

} // namespace

TEST_F(CliTest, ParseCapsBuildsTheOptionsAndCommandsOfTheExample) {
    SCliRun run = Run({"parse-caps", "--json"}, std::string(kExample) + "\n");
    ASSERT_EQ(run.exit, 0) << run.err;
    EXPECT_EQ(Run({"parse-caps", "-", "--json"}, kExample).out, run.out);
    Json caps = ParseOut(run.out);
    EXPECT_EQ(caps["raw"], kExample);
    EXPECT_EQ(caps["keys"].size(), 6u);
    EXPECT_TRUE(caps["missingKeys"].empty());
    EXPECT_EQ(Values(run.out, 0x14), (std::vector<int>{0x05, 0x08, 0x0B}));
    EXPECT_EQ(Values(run.out, 0x60), (std::vector<int>{0x11, 0x12}));
    // 0xC0 has no row in the code table; 0x10 is a level without a value list.
    EXPECT_EQ(Values(run.out, 0xC0), std::vector<int>{-1});
    EXPECT_EQ(Values(run.out, 0x10), std::vector<int>{});
    EXPECT_EQ(caps["commands"].size(), 7u);
    EXPECT_EQ(caps["commands"][6]["code"], 0xF3);

    // The parser's quirks belong to the model's tests; here only what the report adds.
    EXPECT_EQ(
        ParseOut(Run({"parse-caps", "--json", "(prot(monitor) type(LCD))"}).out)["missingKeys"][0],
        "type");
    run = Run({"parse-caps", kExample});
    EXPECT_NE(run.out.find("  0x14 Select Color Preset, non-continuous, values 0x05 0x08 0x0B\n"),
              std::string::npos)
        << run.out;
}

TEST_F(CliTest, ParseCapsWidensBatteryModeOnlyOnTheModelsThatNeedIt) {
    struct SRow {
        const char* edid; // empty: no model given
        const char* vcp;
        std::vector<int> values;
    };
    // The exact texts that the repair takes are the model's tests; here --edid picks the model.
    const SRow rows[] = {
        {"1066", "F4(02 03)", {0, 2, 3}}, // CedarSmallTwo
        {"1052", "F4(02 03)", {2, 3}},    // CedarSmall, first generation
        {"", "F4(02 03)", {2, 3}},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(std::string(row.edid) + " " + row.vcp);
        std::vector<std::string> args{"parse-caps", "--json",
                                      std::string("(vcp(10 ") + row.vcp + "))"};
        if (*row.edid) {
            args.push_back("--edid");
            args.push_back(row.edid);
        }
        const std::string out = Run(args).out;
        EXPECT_EQ(Values(out, 0xF4), row.values);
        EXPECT_EQ(ParseOut(out)["repairs"].size(), row.values.size() == 3 ? 1u : 0u);
    }
    // Gamma is a level on the Elm family and a choice elsewhere.
    for (const auto& [edid, kind] : {std::pair{"1060", "continuous"}, {"1044", "non-continuous"}}) {
        const std::string out = Run({"parse-caps", "--json", "--edid", edid, "(vcp(72))"}).out;
        EXPECT_EQ(ParseOut(out)["vcp"][0]["kind"], kind) << edid;
    }
}

TEST_F(CliTest, EdidReadsWhatDiscoveryReadsAsFarAsItGoes) {
    // The same EDID that the simulated display shows to discovery.
    SCliRun run = Run({"--simulate", "ElmLarge@video", "list", "--json"});
    ASSERT_EQ(run.exit, 0);
    Json listed = ParseOut(run.out)["displays"][0];
    const std::string path = WriteFile("elm.edid", Sim().Edid());
    Json edid = ParseOut(Run({"edid", path, "--json"}).out);
    EXPECT_EQ(edid["headerValid"], true);
    EXPECT_EQ(edid["shortName"], "VRX1060");
    EXPECT_EQ(edid["monitorName"], listed["name"]);
    EXPECT_EQ(edid["serialNumber"], listed["serial"]);
    EXPECT_EQ(edid["supported"], true);
    EXPECT_EQ(edid["modelNumber"], listed["model"]);
    EXPECT_EQ(edid["tabletId"], 0x0F5E037C);
    run = Run({"edid", path});
    EXPECT_NE(run.out.find("EDID number:    0x1060\n"), std::string::npos) << run.out;
    // "-" is standard input.
    const std::vector<uint8_t>& bytes = Sim().Edid();
    EXPECT_EQ(Run({"edid", "-"}, std::string(bytes.begin(), bytes.end())).out, run.out);

    // Without descriptors: the number is still read.
    std::vector<uint8_t> bare = BuildSimEdid(*FindSimModel("Birch"), 0x1049, "SN1");
    std::fill(bare.begin() + 54, bare.begin() + 126, 0x01);
    edid = ParseOut(Run({"edid", WriteFile("bare.edid", bare), "--json"}).out);
    EXPECT_EQ(edid["edidNumber"], 0x1049);
    EXPECT_EQ(edid["monitorName"], "");
    EXPECT_EQ(edid["supported"], true);
    EXPECT_NE(Run({"edid", WriteFile("bare.edid", bare)}).out.find("Monitor name:   (none)"),
              std::string::npos);

    // Maker ACR: A=1, C=3, R=18.
    std::vector<uint8_t> other = BuildSimEdid(*FindSimModel("Birch"), 0x1049, "SN1");
    other[8] = static_cast<uint8_t>((1 << 2) | (3 >> 3));
    other[9] = static_cast<uint8_t>(((3 & 7) << 5) | 18);
    edid = ParseOut(Run({"edid", WriteFile("other.edid", other), "--json"}).out);
    EXPECT_EQ(edid["shortName"], "ACR1049");
    EXPECT_EQ(edid["supported"], false);
    EXPECT_TRUE(edid["tabletId"].is_null());
}

TEST_F(CliTest, EdidRefusesWhatIsNoEdidFileInOneLine) {
    const std::string paths[] = {
        WriteFile("short.edid", {0x00, 0xFF}),
        ::testing::TempDir() + "no-such.edid",
        ::testing::TempDir(),
        "/dev/zero",
        WriteFile("large.edid", std::vector<uint8_t>(64 * 1024 + 1, 0x00)),
    };
    for (const std::string& path : paths) {
        const SCliRun run = Run({"edid", path});
        EXPECT_EQ(run.exit, 1) << path;
        EXPECT_TRUE(IsOneErrorLine(run.err)) << run.err;
    }
    EXPECT_EQ(Run({"edid",
                   WriteFile("largest.edid", BuildSimEdid(*FindSimModel("Birch"), 0x1049, "SN1"))})
                  .exit,
              0);
}

TEST_F(CliTest, JsonStaysValidUtf8WhateverBytesComeIn) {
    const std::pair<std::string, std::string> cases[] = {
        {"\xC3\xA9", "\xC3\xA9"},
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
        {"\xFF", "\\ufffd"},
        {"\xC3", "\\ufffd"},
        {"\xC3"
         "A",
         "\\ufffdA"},
        {"\xED\xA0\x80", "\\ufffd\\ufffd\\ufffd"},
        {"\xE0\x80\x80", "\\ufffd\\ufffd\\ufffd"},
        {"\xF4\x90\x80\x80", "\\ufffd\\ufffd\\ufffd\\ufffd"},
    };
    for (const auto& [bytes, written] : cases) {
        const SCliRun run = Run({"parse-caps", "--json", "(model(" + bytes + "))"});
        EXPECT_NE(run.out.find("\"model\":\"" + written + "\""), std::string::npos) << run.out;
    }
}
