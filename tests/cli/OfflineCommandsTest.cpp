#include "CliRun.h"
#include "JsonReader.h"

#include "cli/OfflineCommands.h"
#include "sim/SimEdid.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

constexpr const char kExample[] =
    "(prot(monitor)type(LCD)model(ABC123)cmds(01 02 03 07 0C E3 F3)vcp(02 04 05 08 10 12 14(05 08 "
    "0B) 16 18 1A 52 60(11 12) AC AE B2 B6 C0 C6 C8 C9 D6(01 04) DF)mccs_ver(2.2))";

SJson Json(const std::string& text_I) {
    const std::optional<SJson> json = ParseJson(text_I);
    EXPECT_TRUE(json.has_value()) << text_I;
    return json.value_or(SJson{});
}

std::vector<int> Values(const SJson& caps_I, int code_I) {
    for (const SJson& option : caps_I["vcp"].items) {
        if (option["code"].Int() == code_I) {
            std::vector<int> values;
            for (const SJson& value : option["values"].items) {
                values.push_back(value.Int());
            }
            return values;
        }
    }
    return {-1};
}

bool HasCode(const SJson& caps_I, int code_I) {
    return Values(caps_I, code_I) != std::vector<int>{-1};
}

std::string WriteFile(const std::string& name_I, const std::vector<uint8_t>& bytes_I) {
    const std::string path = ::testing::TempDir() + name_I;
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes_I.data()),
               static_cast<std::streamsize>(bytes_I.size()));
    return path;
}

} // namespace

TEST_F(CliTest, ParseCapsBuildsTheOptionsAndCommandsOfTheExample) {
    SCliRun run = Run({"parse-caps", "--json"}, std::string(kExample) + "\n");
    ASSERT_EQ(run.exit, 0) << run.err;
    const SJson caps = Json(run.out);
    EXPECT_EQ(caps["raw"].text, kExample);
    EXPECT_EQ(caps["keys"].members.size(), 6u);
    EXPECT_TRUE(caps["missingKeys"].items.empty());
    EXPECT_EQ(Values(caps, 0x14), (std::vector<int>{0x05, 0x08, 0x0B}));
    EXPECT_EQ(Values(caps, 0x60), (std::vector<int>{0x11, 0x12}));
    // 0xC0 has no row in the code table; 0x10 is a level without a value list.
    EXPECT_FALSE(HasCode(caps, 0xC0));
    EXPECT_TRUE(HasCode(caps, 0x10));
    EXPECT_EQ(caps["commands"].items.size(), 7u);
    EXPECT_EQ(caps["commands"][6]["code"].Int(), 0xF3);

    // The parser's quirks belong to the model's tests; here only what the report adds.
    const SJson blank = Json(Run({"parse-caps", "--json", "(prot(monitor) type(LCD))"}).out);
    EXPECT_EQ(blank["missingKeys"][0].text, "type");

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
        const SJson caps = Json(Run(args).out);
        EXPECT_EQ(Values(caps, 0xF4), row.values);
        EXPECT_EQ(caps["repairs"].items.size(), row.values.size() == 3 ? 1u : 0u);
    }
    // Gamma is a level on the Elm family and a choice elsewhere.
    const SJson elm = Json(Run({"parse-caps", "--json", "--edid", "1060", "(vcp(72))"}).out);
    EXPECT_EQ(elm["vcp"][0]["kind"].text, "continuous");
    const SJson birch = Json(Run({"parse-caps", "--json", "--edid", "1044", "(vcp(72))"}).out);
    EXPECT_EQ(birch["vcp"][0]["kind"].text, "non-continuous");
}

TEST_F(CliTest, EdidReadsWhatDiscoveryReads) {
    // The same EDID that the simulated display shows to discovery.
    SCliRun run = Run({"--simulate", "ElmLarge@video", "list", "--json"});
    ASSERT_EQ(run.exit, 0);
    const SJson listed = Json(run.out)["displays"][0];
    const std::string path = WriteFile("elm.edid", Sim().Edid());

    run = Run({"edid", path, "--json"});
    ASSERT_EQ(run.exit, 0) << run.err;
    const SJson edid = Json(run.out);
    EXPECT_TRUE(edid["headerValid"].boolean);
    EXPECT_EQ(edid["shortName"].text, "VRX1060");
    EXPECT_EQ(edid["monitorName"].text, listed["name"].text);
    EXPECT_EQ(edid["serialNumber"].text, listed["serial"].text);
    EXPECT_TRUE(edid["supported"].boolean);
    EXPECT_EQ(edid["modelNumber"].text, listed["model"].text);
    EXPECT_EQ(edid["tabletId"].number, 0x0F5E037C);

    run = Run({"edid", path});
    EXPECT_NE(run.out.find("EDID number:    0x1060\n"), std::string::npos) << run.out;
}

TEST_F(CliTest, EdidWithoutDescriptorsOrFromAnotherMakerIsReadAsFarAsItGoes) {
    std::vector<uint8_t> bare = BuildSimEdid(*FindSimModel("Birch"), 0x1049, "SN1");
    // Blank the four descriptor slots.
    std::fill(bare.begin() + 54, bare.begin() + 126, 0x01);
    SJson edid = Json(Run({"edid", WriteFile("bare.edid", bare), "--json"}).out);
    EXPECT_EQ(edid["edidNumber"].Int(), 0x1049);
    EXPECT_EQ(edid["monitorName"].text, "");
    EXPECT_EQ(edid["serialNumber"].text, "");
    EXPECT_TRUE(edid["supported"].boolean);
    EXPECT_NE(Run({"edid", WriteFile("bare.edid", bare)}).out.find("Monitor name:   (none)"),
              std::string::npos);

    // Maker ACR: A=1, C=3, R=18.
    std::vector<uint8_t> other = BuildSimEdid(*FindSimModel("Birch"), 0x1049, "SN1");
    other[8] = static_cast<uint8_t>((1 << 2) | (3 >> 3));
    other[9] = static_cast<uint8_t>(((3 & 7) << 5) | 18);
    edid = Json(Run({"edid", WriteFile("other.edid", other), "--json"}).out);
    EXPECT_EQ(edid["shortName"].text, "ACR1049");
    EXPECT_FALSE(edid["supported"].boolean);
    EXPECT_EQ(edid["tabletId"].type, SJson::eNull);

    EXPECT_EQ(Run({"edid", WriteFile("short.edid", {0x00, 0xFF})}).exit, 1);
    const SCliRun missing = Run({"edid", ::testing::TempDir() + "no-such.edid"});
    EXPECT_EQ(missing.exit, 1);
    EXPECT_TRUE(IsOneErrorLine(missing.err));
}
