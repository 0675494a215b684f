#include "FakeDisplayPlatform.h"

#include "ddc/EdidDescriptor.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/Trace.h"
#include "foundation/TraceCapture.h"
#include "foundation/VirtualClock.h"
#include "model/CEdidBuilder.h"

#include <gtest/gtest.h>

namespace {

class CTraceOn {
public:
    CTraceOn() : mWas(gTraceEnabled) { gTraceEnabled = true; }
    ~CTraceOn() { gTraceEnabled = mWas; }

private:
    bool mWas;
};

ByteVector Bytes(std::initializer_list<int> values_I) {
    ByteVector bytes;
    for (int value : values_I) {
        bytes.push_back(static_cast<uint8_t>(value));
    }
    return bytes;
}

ByteVector WithText(ByteVector bytes_I, const std::string& text_I) {
    bytes_I.insert(bytes_I.end(), text_I.begin(), text_I.end());
    return bytes_I;
}

TEST(EdidDescriptor, FindsTheTextBehindTheFirstTag) {
    struct SRow {
        ByteVector buffer;
        std::string expected;
    };
    const SRow rows[] = {
        {TestEdid("SN12345", "PDX-2700"), "SN12345"},
        // The line feed of an EDID text is unprintable and ends the copy; blanks are stripped.
        {WithText(Bytes({0, 0xFF, 0}), "A~12  \n    "), "A~12"},
        // Thirteen characters with no line feed run on to the next zero byte.
        {WithText(WithText(Bytes({0, 0xFF, 0}), "ABCDEFGHIJKLM"), std::string("\0\0\0\xFC", 4)),
         "ABCDEFGHIJKLM"},
        // A tag inside a timing block ends the search there, whatever follows.
        {WithText(Bytes({1, 0, 0xFF, 0, 0x05, 0, 0, 0, 0xFF, 0}), "REAL"), ""},
        {WithText(Bytes({0, 0xFF, 0, 0x7F}), "X"), ""},
        {Bytes({0, 0xFF}), ""},
        {TestEdid("", "PDX-2700"), ""},
    };
    for (const SRow& row : rows) {
        EXPECT_EQ(FindEdidDescriptor(row.buffer, kEdidSerialNumberTag), row.expected);
    }
    EXPECT_EQ(FindEdidDescriptor(TestEdid("SN1", "PDX-2700"), kEdidMonitorNameTag), "PDX-2700");
}

TEST(LookupByEDID, MapsAShortNameToItsTablet) {
    CEdidBuilder::Instance();
    CTraceOn traceOn;
    struct SRow {
        const char* shortName;
        uint32_t tablet;
        const char* line;
    };
    const SRow rows[] = {
        {"VRX1041", TabletId::Aspen, "LookupByEDID: found tablet: 4161 to match EDID: VRX1041\n"},
        {"VRX1048", TabletId::BirchTouch, "found tablet: 4168"},
        {"VRX9999", CEdidBuilder::kNoTablet, "found tablet: 39321 to match EDID: VRX9999\n"},
        {"ACR1041", CEdidBuilder::kNoTablet,
         "LookupByEDID: WARNING - found NO tablet to match EDID: ACR1041\n"},
        {"VRX", CEdidBuilder::kNoTablet, "HexStringToInteger: "},
    };
    for (const SRow& row : rows) {
        CTraceCapture trace;
        EXPECT_EQ(CDisplayConfigInterface::LookupByEDID(row.shortName), row.tablet)
            << row.shortName;
        EXPECT_TRUE(trace.Contains(row.line)) << trace.Lines();
    }
}

class MonitorListTest : public ::testing::Test {
protected:
    std::unique_ptr<CDisplayConfigInterface> Discover() {
        SDisplayConfigOptions options;
        options.language = LanguageProvider("en");
        return std::make_unique<CDisplayConfigInterface>(options, platform);
    }

    CScopedVirtualClock clock;
    std::shared_ptr<CFakeDisplayPlatform> platform = std::make_shared<CFakeDisplayPlatform>();
};

TEST_F(MonitorListTest, KeepsOnlyTheFamilysReadableMonitors) {
    platform->monitors = {
        {"MONITOR\\ACR0001", "card0-DP-1", TestEdid("SN0", "OTHER")},
        {"MONITOR\\VRX7777", "card0-DP-2", TestEdid("SN1", "UNKNOWN")},
        {"MONITOR\\vrx1041", "card0-DP-3", TestEdid("SN2", "LOWER")},
        {"MONITOR\\VRX1041", "card0-DP-4", TestEdid("", "NO SERIAL")},
        {"MONITOR\\VRX1041", "card0-DP-5", TestEdid("SN4", "")},
        {"MONITOR\\VRX1041", "card0-DP-6", {}},
        {"MONITOR\\VRX1044", "card1-HDMI-A-1", TestEdid("SN6", "PDX-2700")},
        {"MONITOR\\VRX1044", "", TestEdid("SN7", "NO KEY")},
    };
    platform->videoSerials = {L"SN6", L"SN7"};
    platform->handles[L"MONITOR\\VRX1044\\CARD1-HDMI-A-1"] = "/dev/i2c-7";
    CTraceOn traceOn;
    CTraceCapture trace;

    auto config = Discover();

    EXPECT_TRUE(trace.Contains("CWinDisplayConfigInterface::FindDisplays: found 2 displays\n"));
    EXPECT_TRUE(trace.Contains("GetNextMonitorID couldn't find \\VRX\n"));
    EXPECT_TRUE(trace.Contains("GetNextMonitorID couldn't supportedName for shortName: VRX7777\n"));
    EXPECT_TRUE(trace.Contains(
        "CWinDisplayConfigInterface::GetSerialNumAndName find serialNumber error\n"));
    EXPECT_TRUE(trace.Contains(
        "CWinDisplayConfigInterface::GetSerialNumAndName find monitor name error\n"));
    EXPECT_TRUE(trace.Contains("CWinDisplayConfigInterface::Init - mDisplayInfos has 2 items "
                               "[Display(s) found!]\n"));

    // The record without a device key is incomplete, so the video cable refuses it.
    ASSERT_EQ(config->DisplayInfos().size(), 1u);
    const SDisplayInfo& info = config->DisplayInfos()[0];
    EXPECT_EQ(info.DeviceID(), L"MONITOR\\VRX1044\\CARD1-HDMI-A-1");
    EXPECT_EQ(info.edidNumber, 0x1044);
    EXPECT_EQ(info.serialNumber, L"SN6");
    EXPECT_EQ(info.monitorName, L"PDX-2700");
    EXPECT_FALSE(info.modelNumber.empty());
    EXPECT_EQ(info.monitorHandle, "/dev/i2c-7");
    ASSERT_EQ(info.edid.size(), SDisplayInfo::kEdidBufferSize);
    EXPECT_EQ(ByteVector(info.edid.begin(), info.edid.begin() + 128), TestEdid("SN6", "PDX-2700"));
    EXPECT_EQ(info.edid[200], 0);
    EXPECT_TRUE(info.IsComplete());
}

TEST_F(MonitorListTest, ARecordWithoutDeviceKeyIsIncomplete) {
    platform->monitors = {{"MONITOR\\VRX1044", "", TestEdid("SN7", "NO KEY")}};
    platform->AddFtdi("SN7");

    auto config = Discover();

    ASSERT_EQ(config->DisplayInfos().size(), 1u);
    const SDisplayInfo& info = config->DisplayInfos()[0];
    EXPECT_TRUE(info.DeviceID().empty());
    EXPECT_EQ(info.edidNumber, 0);
    EXPECT_TRUE(info.monitorHandle.empty());
    EXPECT_FALSE(info.IsComplete());
}

TEST_F(MonitorListTest, NoMonitorsTracesThatNoneWasFound) {
    CTraceCapture trace;

    auto config = Discover();

    EXPECT_TRUE(trace.Contains("CWinDisplayConfigInterface::Init - mDisplayInfos has 0 items "
                               "[No displays found!]\n"));
    EXPECT_TRUE(config->DisplayNames().empty());
}

} // namespace
