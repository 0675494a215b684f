#pragma once
// The scaler at the far end of a USB serial port: DDC/CI frames as plain bytes at 9600 baud,
// 8N1, with replies that leave their check byte off, and the channel's private EDID command
// A0 00. The scaler sends each reply byte by byte at
// the line's speed, so a reader that comes too early finds only part of it; time is that of the
// time seam.

#include "sim/ISimFrameTarget.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

struct SSimSerialSettings {
    uint32_t baudRate = 9600;
    uint8_t dataBits = 8;
    uint8_t parity = 0;   // none
    uint8_t stopBits = 0; // one
    bool operator==(const SSimSerialSettings&) const = default;
};

class CSimSerialDevice {
public:
    explicit CSimSerialDevice(ISimFrameTarget& target_I);

    // The settings the host gave its port; bytes sent with any others are noise to the scaler.
    void SetHostSettings(const SSimSerialSettings& settings_I) { mHostSettings = settings_I; }

    // Bytes from the host. false when the port is unplugged.
    bool Write(const uint8_t* data_I, size_t size_I);
    // Bytes that have reached the host by now, at most max_I; -1 when the port is unplugged.
    int Read(uint8_t* buffer_O, size_t max_I);
    // Bytes that have arrived and not been read.
    size_t Available() const;
    // Drops the bytes on their way to the host, as a purge of the port does; a command the
    // scaler has only in part is dropped by the scaler itself after a pause.
    void Purge();

    // Fault hooks: an unplugged port fails every call; a silent scaler hears the host and never
    // answers.
    void SetPlugged(bool plugged_I) { mPlugged = plugged_I; }
    bool IsPlugged() const { return mPlugged && (!mPresenceProbe || mPresenceProbe()); }
    // Ties the port to the display's own state: a vanished display takes its port with it.
    void SetPresenceProbe(std::function<bool()> present_I) {
        mPresenceProbe = std::move(present_I);
    }
    void SetSilent(bool silent_I) { mSilent = silent_I; }

    unsigned FramesHandled() const { return mFramesHandled; }
    const std::vector<std::string>& HostErrors() const { return mHostErrors; }

private:
    // Size of the command that starts the receive buffer; 0 for a byte that starts none.
    size_t CommandSize() const;
    void TakeCommands(int64_t lastByteNs_I);

    ISimFrameTarget& mTarget;
    SSimSerialSettings mHostSettings;
    bool mPlugged = true;
    bool mSilent = false;
    std::vector<uint8_t> mReceived;
    std::vector<uint8_t> mReply;
    size_t mReplyRead = 0;
    int64_t mReplyStartNs = 0;
    int64_t mLastByteNs = 0;
    unsigned mFramesHandled = 0;
    std::vector<std::string> mHostErrors;
    std::function<bool()> mPresenceProbe;
};
