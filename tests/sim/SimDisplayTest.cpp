#include "SimHost.h"

#include "sim/CSimDisplay.h"
#include "sim/SimDescription.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <random>

namespace {

const Bytes kBrightness = {0x6E, 0x88, 0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 0x32, 0xF2};

CSimDisplay MakeAlder() {
    return CSimDisplay(*FindSimModel("Alder"), "SN00000000001", 0);
}

} // namespace

TEST(SimDisplay, InjectedReplyFaultsChangeTheReplyAsTheirNameSays) {
    Bytes badCheck = kBrightness;
    badCheck.back() = static_cast<uint8_t>(~badCheck.back());
    Bytes otherCode = kBrightness;
    otherCode[4] = 0x11;
    otherCode.back() = XorAll(Bytes(otherCode.begin(), otherCode.end() - 1), 0x50);
    const struct {
        SSimFault fault;
        Bytes reply;
    } cases[] = {
        {{ESimFault::eBadChecksum}, badCheck},
        {{ESimFault::eNullMessage}, kNullMessage},
        {{ESimFault::eShortReply, 4}, Bytes(kBrightness.begin(), kBrightness.begin() + 4)},
        {{ESimFault::eOtherCode}, otherCode},
        {{ESimFault::eSilence}, {}},
    };
    for (const auto& c : cases) {
        CSimDisplay display = MakeAlder();
        display.Faults().Arm(c.fault);
        EXPECT_EQ(display.Transact(GetVcp(0x10)), c.reply) << int(c.fault.kind);
        EXPECT_EQ(display.Transact(GetVcp(0x10)), kBrightness) << "a fault strikes once";
    }
    // The reply to a write stays the null message whatever a data fault says.
    CSimDisplay display = MakeAlder();
    display.Faults().Arm({ESimFault::eNullMessage, 0, 0, -1});
    display.Faults().Arm({ESimFault::eOtherCode, 0, 0, -1});
    EXPECT_EQ(display.Transact(SetVcp(0x10, 3)), kNullMessage);
    EXPECT_EQ(display.Scaler().Current(0x10), 3);
}

TEST(SimDisplay, FaultsWaitTheirTurnAndStrikeTheirCount) {
    CSimDisplay display = MakeAlder();
    display.Faults().Arm({ESimFault::eNullMessage, 0, 2, 2});
    std::vector<bool> struck;
    for (int i = 0; i < 6; ++i) {
        struck.push_back(display.Transact(GetVcp(0x10)) == kNullMessage);
    }
    EXPECT_EQ(struck, (std::vector<bool>{false, false, true, true, false, false}));
    EXPECT_FALSE(display.Faults().Armed(ESimFault::eNullMessage));
}

TEST(SimDisplay, AnyBytesGetAWellFormedReplyOrSilence) {
    std::mt19937 random(7);
    for (const SSimModel& model : SimModels()) {
        CSimDisplay display(model, "SN00000000001", 0);
        for (int i = 0; i < 300; ++i) {
            Bytes frame(random() % 12);
            for (uint8_t& byte : frame) {
                byte = static_cast<uint8_t>(random());
            }
            if (i % 2 == 0 && frame.size() >= 4) {
                // Half of them well framed, so that the commands behind the frame are reached.
                frame[0] = 0x6E;
                frame[1] = 0x51;
                frame[2] = static_cast<uint8_t>(0x80 | (frame.size() - 4));
                frame.back() = XorAll(Bytes(frame.begin(), frame.end() - 1), 0x00);
            }
            const Bytes reply = display.Transact(frame);
            if (reply.empty() || (frame.size() == 2 && frame[0] == 0xA0 && frame[1] == 0x00)) {
                continue;
            }
            ASSERT_GE(reply.size(), 3u);
            EXPECT_EQ(reply[0], 0x6E);
            EXPECT_EQ((reply[1] & 0x7F) + 3u, reply.size());
            EXPECT_EQ(XorAll(reply, 0x50), 0);
        }
    }
    EXPECT_TRUE(ParseSimDescription("\x01@\xFF:=,::@+").error.size() > 0);
}
