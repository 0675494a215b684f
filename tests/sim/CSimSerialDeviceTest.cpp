#include "sim/CSimSerialDevice.h"

#include "SimFakeTargets.h"

#include "foundation/VirtualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

using Bytes = std::vector<uint8_t>;

const Bytes kGetLuminance = {0x6E, 0x51, 0x82, 0x01, 0x10, 0xAC};
const Bytes kLuminanceReply = {0x6E, 0x88, 0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 0x32, 0xF2};

class SerialDevice : public ::testing::Test {
protected:
    bool Write(const Bytes& bytes_I) { return mDevice.Write(bytes_I.data(), bytes_I.size()); }
    Bytes ReadAll() {
        Bytes buffer(512);
        const int count = mDevice.Read(buffer.data(), buffer.size());
        buffer.resize(count < 0 ? 0 : static_cast<size_t>(count));
        return buffer;
    }

    CScopedVirtualClock mClock;
    CScriptedFrameTarget mTarget;
    CSimSerialDevice mDevice{mTarget};
};

TEST_F(SerialDevice, ReplyComesAtLineSpeed) {
    mTarget.replies = {kLuminanceReply};
    ASSERT_TRUE(Write(kGetLuminance));
    EXPECT_THAT(mTarget.frames, ElementsAre(kGetLuminance));

    // Six bytes out take 6.25 ms; ten bytes back at 1.04 ms each.
    EXPECT_TRUE(ReadAll().empty());
    mClock->Advance(10);
    EXPECT_THAT(ReadAll(), ElementsAre(0x6E, 0x88, 0x02));
    mClock->Advance(70);
    // The line carries no check byte.
    EXPECT_THAT(ReadAll(),
                ElementsAreArray(kLuminanceReply.begin() + 3, kLuminanceReply.end() - 1));
    EXPECT_TRUE(ReadAll().empty());
}

TEST_F(SerialDevice, CommandsAreCutFromTheByteStream) {
    const Bytes privateEdid = {0xA0, 0x00};
    const Bytes reset = {0xEE, 0x05, 0x11, 0x00, 0x00, 0xEA};
    // Split anywhere, with a stray byte in front.
    Bytes stream = {0x42};
    for (const Bytes* command : {&kGetLuminance, &privateEdid, &reset}) {
        stream.insert(stream.end(), command->begin(), command->end());
    }
    for (size_t at = 0; at < stream.size(); at += 4) {
        const size_t size = std::min<size_t>(4, stream.size() - at);
        ASSERT_TRUE(mDevice.Write(stream.data() + at, size));
    }
    EXPECT_THAT(mTarget.frames, ElementsAre(kGetLuminance, privateEdid, reset));
    EXPECT_EQ(mDevice.HostErrors().size(), 1u);
}

} // namespace
