#include "SimHost.h"

#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <random>

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
}
