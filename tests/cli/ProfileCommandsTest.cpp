#include "CliRun.h"
#include "JsonReader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// Profiles land in a folder of the test's own, given as XDG_CONFIG_HOME.
class ProfileTest : public CliTest {
protected:
    void SetUp() override {
        const char* was = std::getenv("XDG_CONFIG_HOME");
        mConfigWas = was ? std::optional<std::string>(was) : std::nullopt;
        mConfig = fs::temp_directory_path() /
                  ("paneltune-profiles-" + std::to_string(::getpid()) + "-" +
                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(mConfig);
        ::setenv("XDG_CONFIG_HOME", mConfig.c_str(), 1);
        mKeepDisplays = true;
    }
    void TearDown() override {
        fs::remove_all(mConfig);
        if (mConfigWas) {
            ::setenv("XDG_CONFIG_HOME", mConfigWas->c_str(), 1);
        } else {
            ::unsetenv("XDG_CONFIG_HOME");
        }
    }

    fs::path File(const std::string& name_I) const {
        return mConfig / "paneltune" / "profiles" / (name_I + ".profile");
    }

    fs::path mConfig;
    std::optional<std::string> mConfigWas;
};

int Brightness(const std::string& getAll_I) {
    const SJson json = ParseJson(getAll_I).value_or(SJson{});
    for (const SJson& setting : json["settings"].items) {
        if (setting["name"].text == "brightness") {
            return setting["value"].Int();
        }
    }
    return -1;
}

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
        EXPECT_EQ(Brightness(changed), 80);
        EXPECT_NE(changed, saved);
        run({"profile", "apply", "night"});
        EXPECT_EQ(run({"get", "all", "--json"}), saved);
        EXPECT_EQ(Brightness(saved), 20);
        EXPECT_FALSE(Sim().Scaler().Saved(0x10) == 20 || Sim().Scaler().Saved(0x6B) == 20);
        run({"profile", "delete", "night"});
        EXPECT_FALSE(fs::exists(File("night")));
    }
}

TEST_F(ProfileTest, ProfilesOfOtherModelsDamagedOrMissingAreRefusedWithOneLine) {
    const std::string twoDisplays = "ElmLarge@video,Hazel@hid";
    ASSERT_EQ(Run({"--simulate", twoDisplays, "profile", "save", "night"}).exit, 0);
    const std::string night = [&] {
        std::ifstream file(File("night"));
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
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
    std::ifstream file(File("night"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), night);

    const std::optional<SJson> list = ParseJson(Run({"profile", "list", "--json"}).out);
    ASSERT_TRUE(list.has_value());
    ASSERT_EQ((*list)["profiles"].items.size(), 2u);
    EXPECT_FALSE((*list)["profiles"][0]["valid"].boolean); // broken
    EXPECT_EQ((*list)["profiles"][1]["serial"].text, "VRX1060000001");
}

TEST_F(ProfileTest, ApplyWithSaveStoresTheSettingsInTheDisplay) {
    ASSERT_EQ(Run({"--simulate", "Birch", "set", "brightness", "20"}).exit, 0);
    ASSERT_EQ(Run({"--simulate", "Birch", "profile", "save", "night"}).exit, 0);
    ASSERT_EQ(Run({"--simulate", "Birch", "set", "brightness", "80", "--save"}).exit, 0);
    const SCliRun run =
        Run({"--simulate", "Birch", "profile", "apply", "night", "--save", "--json"});
    ASSERT_EQ(run.exit, 0) << run.err;
    const SJson json = ParseJson(run.out).value_or(SJson{});
    EXPECT_TRUE(json["saved"].boolean);
    EXPECT_EQ(json["changed"][0].text, "brightness");
    EXPECT_EQ(Sim().Scaler().Saved(0x10), 20);
}
