#include "sim/CSimHidDevice.h"

#include "SimFakeTargets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

using Bytes = std::vector<uint8_t>;

const Bytes kGetLuminance = {0x6E, 0x51, 0x82, 0x01, 0x10, 0xAC};
const Bytes kSetLuminance = {0x6E, 0x51, 0x84, 0x03, 0x10, 0x00, 0x32, 0x9A};
// Value 50 of a maximum of 300: above 255, to show which bytes the report holds.
const Bytes kLuminanceReply = {0x6E, 0x88, 0x02, 0x00, 0x10, 0x00, 0x01, 0x2C, 0x00, 0x32, 0xBB};

Bytes RequestReport(uint8_t kind_I, const Bytes& frame_I) {
    Bytes report = {0xE5, 0x04, kind_I, 0x00, 0x00};
    report.insert(report.end(), frame_I.begin(), frame_I.end());
    report.resize(CSimHidDevice::kReportSize, 0);
    return report;
}

Bytes StatusReport() {
    Bytes report = {0xE5, 0x04, 0x00};
    report.resize(CSimHidDevice::kReportSize, 0);
    return report;
}

class HidDevice : public ::testing::Test {
protected:
    // One status poll as the host makes it: the status request out, the report in.
    Bytes Poll() {
        EXPECT_TRUE(mDevice.SetFeature(StatusReport()));
        Bytes report = StatusReport();
        EXPECT_TRUE(mDevice.GetFeature(report));
        return report;
    }

    CScriptedFrameTarget mTarget;
    CSimHidDevice mDevice{mTarget, {"/dev/hidraw3", 0x0F5E, 0x03A6, 0x0100}};
};

TEST_F(HidDevice, RequestFrameGoesOutAndReplyLiesAtByteSix) {
    mTarget.replies = {kLuminanceReply};
    ASSERT_TRUE(mDevice.Open());
    ASSERT_TRUE(mDevice.SetFeature(RequestReport(0x03, kGetLuminance)));
    EXPECT_THAT(mTarget.frames, ElementsAre(kGetLuminance));

    const Bytes report = Poll();
    EXPECT_EQ(report.size(), 512u);
    EXPECT_THAT(Bytes(report.begin(), report.begin() + 6),
                ElementsAre(0xE5, 0x04, 0x03, 0x00, CSimHidDevice::kStatusDone, 0x00));
    EXPECT_THAT(Bytes(report.begin() + 6, report.begin() + 17), ElementsAreArray(kLuminanceReply));
    EXPECT_TRUE(std::all_of(report.begin() + 17, report.end(), [](uint8_t b) { return b == 0; }));
}

TEST_F(HidDevice, MalformedReportsAreRefusedAndNoted) {
    Bytes tooLong = RequestReport(0x03, kGetLuminance);
    tooLong.push_back(0);
    Bytes otherId = RequestReport(0x03, kGetLuminance);
    otherId[0] = 0xE4;
    EXPECT_FALSE(mDevice.SetFeature(tooLong));
    EXPECT_FALSE(mDevice.SetFeature(otherId));
    EXPECT_FALSE(mDevice.SetFeature(RequestReport(0x07, kGetLuminance)));
    EXPECT_TRUE(mTarget.frames.empty());
    EXPECT_EQ(mDevice.HostErrors().size(), 3u);

    // A write sent as a read is served, and noted.
    mTarget.replies = {{0x6E, 0x80, 0xBE}};
    EXPECT_TRUE(mDevice.SetFeature(RequestReport(0x03, kSetLuminance)));
    EXPECT_THAT(mTarget.frames, ElementsAre(kSetLuminance));
    EXPECT_EQ(mDevice.HostErrors().size(), 4u);
    EXPECT_EQ(Poll()[7], 0x80);
}

} // namespace
