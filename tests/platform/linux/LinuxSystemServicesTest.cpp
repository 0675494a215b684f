#include "platform/linux/LinuxSystemServices.h"
#include "platform/linux/CLinuxPlatform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class LinuxSystemServicesTest : public ::testing::Test {
protected:
    void SetUp() override {
        mRoot = fs::temp_directory_path() / ("paneltune-services-" + std::to_string(::getpid()));
        fs::create_directories(mRoot);
    }
    void TearDown() override { fs::remove_all(mRoot); }

    std::string Write(const std::string& name_I, const std::string& text_I) {
        const fs::path path = mRoot / name_I;
        std::ofstream(path) << text_I;
        return path.string();
    }

    fs::path mRoot;
};

TEST_F(LinuxSystemServicesTest, TellsTheMakersOwnComputersIgnoringCase) {
    const struct {
        const char* text;
        bool maker;
    } cases[] = {
        {"Vorex Co.,Ltd\n", true},   {"vorex co.,ltd", true}, {"Vorex Co.,Ltd  \n", true},
        {"Vorex Co., Ltd\n", false}, {"LENOVO\n", false},     {"", false},
    };
    for (const auto& row : cases) {
        SLinuxPlatformFiles files;
        files.sysVendor = Write("sys_vendor", row.text);
        EXPECT_EQ(CLinuxPlatform(files).IsMakerSystem(), row.maker) << row.text;
    }
    EXPECT_FALSE(LinuxUtils::IsMakerSystem((mRoot / "missing").string()));
}

TEST_F(LinuxSystemServicesTest, FindsTheSharedDataBesideAnInstalledProgram) {
    fs::create_directories(mRoot / "usr" / "bin");
    fs::create_directories(mRoot / "usr" / "share" / "paneltune");
    fs::create_directories(mRoot / "build" / "src" / "app");
    EXPECT_EQ(fs::path(LinuxUtils::InstallFolder((mRoot / "usr/bin/paneltune").wstring())),
              mRoot / "usr" / "share" / "paneltune");
    EXPECT_EQ(fs::path(LinuxUtils::InstallFolder((mRoot / "build/src/app/paneltune").wstring())),
              mRoot / "build" / "src" / "app");

    EXPECT_EQ(fs::path(LinuxUtils::ModulePath()), fs::canonical("/proc/self/exe"));
}

} // namespace
