#include "CliRun.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

class ProfileTest : public CliTest {
protected:
    ProfileTest() { mKeepDisplays = true; }

    std::filesystem::path File(const std::string& name_I) const {
        return std::filesystem::path(mHome) / "config/paneltune/profiles" / (name_I + ".profile");
    }
};

} // namespace

// On one display of every family: what a profile saved is what applying it brings back, every
// setting the display offers, and nothing is stored in the display unless asked.
TEST_F(ProfileTest, ApplyingAProfileBringsBackEverySettingOfEachFamily) {
    struct SRow {
        const char* display;
        std::vector<std::vector<std::string>> changes;
    };
    const SRow rows[] = {
        {"Alder", {{"contrast", "33"}, {"aspect-ratio", "aspect"}}},
        {"Birch", {{"contrast", "33"}, {"gamma", "2.2"}, {"color-setting", "temperature"}}},
        {"ElmSmall", {{"contrast", "33"}, {"space", "srgb"}, {"sharpness", "4"}}},
        {"ElmLarge", {{"gamma", "2.4"}, {"temperature", "5000k"}, {"fan-speed", "low"}}},
        {"ElmHuge", {{"contrast", "33"}, {"uniformity", "on"}, {"auto-power-down", "off"}}},
        {"FirSmall", {{"temperature", "5000k"}, {"power-led", "high"}}},
        {"CedarSmallTwo", {{"contrast", "33"}, {"space", "native"}, {"battery-mode", "desktop"}}},
        {"Hazel", {{"contrast", "33"}, {"temperature", "9300k"}}},
        {"FirSmallTwo", {{"contrast", "33"}, {"power-led", "off"}}},
        {"CedarSmall", {{"contrast", "33"}, {"gamma", "2.4"}}},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.display);
        mPlatform.reset();
        const auto run = [&](std::vector<std::string> args_I) {
            args_I.insert(args_I.begin(), {"--simulate", row.display});
            const SCliRun result = Run(args_I);
            EXPECT_EQ(result.exit, 0) << args_I.back() << ": " << result.err;
            return result.out;
        };
        run({"set", "brightness", "20"});
        const std::string saved = run({"get", "all", "--json"});
        run({"profile", "save", "night"});
        run({"set", "brightness", "80"});
        for (const std::vector<std::string>& change : row.changes) {
            run({"set", change[0], change[1]});
        }
        const std::string changed = run({"get", "all", "--json"});
        EXPECT_EQ(Setting(changed, "brightness")["value"], 80);
        EXPECT_NE(changed, saved);
        run({"profile", "apply", "night"});
        EXPECT_EQ(run({"get", "all", "--json"}), saved);
        EXPECT_EQ(Setting(saved, "brightness")["value"], 20);
        EXPECT_FALSE(Sim().Scaler().Saved(0x10) == 20 || Sim().Scaler().Saved(0x6B) == 20);
        run({"profile", "delete", "night"});
        EXPECT_FALSE(std::filesystem::exists(File("night")));
    }
}

TEST_F(ProfileTest, ProfilesOfOtherModelsDamagedOrMissingAreRefusedWithOneLine) {
    const std::string twoDisplays = "ElmLarge@video,Hazel@hid";
    ASSERT_EQ(Run({"--simulate", twoDisplays, "profile", "save", "night"}).exit, 0);
    const std::string night = ReadText(File("night"));
    std::ofstream(File("broken")) << "model = PDX-3200\nserial\n";

    struct SRow {
        std::vector<std::string> args;
        int exit;
        const char* error;
    };
    const SRow rows[] = {
        {{"--display", "1", "profile", "apply", "night"}, 2, "belongs to a PDX-3200"},
        {{"--display", "1", "profile", "save", "night"}, 2, "delete it first"},
        {{"profile", "apply", "broken"}, 2, "is damaged"},
        {{"profile", "apply", "missing"}, 2, "there is no profile 'missing'"},
        {{"profile", "delete", "missing"}, 2, "there is no profile 'missing'"},
        {{"profile", "save", "../night"}, 1, "is not a profile name"},
        {{"profile", "rename", "night"}, 1, "unknown action 'rename'"},
        {{"profile", "list", "night"}, 1, "takes no NAME"},
        {{"profile", "apply"}, 1, "needs NAME"},
    };
    for (const SRow& row : rows) {
        std::vector<std::string> args = {"--simulate", twoDisplays};
        args.insert(args.end(), row.args.begin(), row.args.end());
        const SCliRun run = Run(args);
        EXPECT_EQ(run.exit, row.exit) << row.error;
        EXPECT_TRUE(IsOneErrorLine(run.err)) << run.err;
        EXPECT_NE(run.err.find(row.error), std::string::npos) << run.err;
    }
    EXPECT_EQ(ReadText(File("night")), night);

    Json list = ParseOut(Run({"profile", "list", "--json"}).out);
    ASSERT_EQ(list["profiles"].size(), 2u);
    EXPECT_EQ(list["profiles"][0]["valid"], false); // broken
    EXPECT_EQ(list["profiles"][1]["serial"], "VRX1060000001");
}

TEST_F(ProfileTest, ApplyWithSaveStoresTheSettingsInTheDisplay) {
    ASSERT_EQ(Run({"--simulate", "Birch", "set", "brightness", "20"}).exit, 0);
    ASSERT_EQ(Run({"--simulate", "Birch", "profile", "save", "night"}).exit, 0);
    ASSERT_EQ(Run({"--simulate", "Birch", "set", "brightness", "80", "--save"}).exit, 0);
    const SCliRun run =
        Run({"--simulate", "Birch", "profile", "apply", "night", "--save", "--json"});
    ASSERT_EQ(run.exit, 0) << run.err;
    Json json = ParseOut(run.out);
    EXPECT_EQ(json["saved"], true);
    EXPECT_EQ(json["changed"][0], "brightness");
    EXPECT_EQ(Sim().Scaler().Saved(0x10), 20);
}
