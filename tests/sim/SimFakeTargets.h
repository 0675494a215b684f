#pragma once
// Small stand-ins for the scaler behind the channel front ends: an I2C target that writes down
// every bus event and answers from a script, and a frame target that answers frames from a
// script.

#include "sim/ISimFrameTarget.h"
#include "sim/ISimI2CTarget.h"

#include <cstdint>
#include <cstdio>
#include <deque>
#include <set>
#include <string>
#include <vector>

// Events read "A6E+" (address 0x6E, ACK), "W51-" (byte 0x51, NACK), "R02+" (byte 0x02 read,
// host ACK), "P" (STOP).
class CRecordingI2CTarget final : public ISimI2CTarget {
public:
    std::vector<std::string> events;
    std::set<uint8_t> addresses{0x6E, 0x6F};
    std::deque<uint8_t> toRead;

    bool Address(uint8_t addressByte_I) override {
        const bool ack = addresses.count(addressByte_I) != 0;
        events.push_back(Event('A', addressByte_I, ack));
        return ack;
    }
    bool Write(uint8_t byte_I) override {
        events.push_back(Event('W', byte_I, true));
        return true;
    }
    uint8_t Read(bool hostAcks_I) override {
        uint8_t byte = 0xFF;
        if (!toRead.empty()) {
            byte = toRead.front();
            toRead.pop_front();
        }
        events.push_back(Event('R', byte, hostAcks_I));
        return byte;
    }
    void Stop() override { events.push_back("P"); }

private:
    static std::string Event(char kind_I, uint8_t byte_I, bool ack_I) {
        char text[8];
        std::snprintf(text, sizeof text, "%c%02X%c", kind_I, byte_I, ack_I ? '+' : '-');
        return text;
    }
};

class CScriptedFrameTarget final : public ISimFrameTarget {
public:
    std::vector<std::vector<uint8_t>> frames;
    std::deque<std::vector<uint8_t>> replies;

    std::vector<uint8_t> Transact(const std::vector<uint8_t>& frame_I) override {
        frames.push_back(frame_I);
        if (replies.empty()) {
            return {};
        }
        std::vector<uint8_t> reply = replies.front();
        replies.pop_front();
        return reply;
    }
};
