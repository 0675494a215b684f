#pragma once
// The scaler's vendor HID interface: feature report 0xE5 of 512 bytes carries a DDC/CI request
// in, and a status report carries the state of the work and the scaler's reply frame out. The
// firmware takes a while: a chosen number of status polls answer "not ready" first.

#include "sim/ISimFrameTarget.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

struct SSimHidIdentity {
    std::string path;
    uint16_t vendorId = 0;
    uint16_t productId = 0;
    uint16_t versionNumber = 0;
    uint16_t usagePage = 0xFFD1; // the scaler channel's vendor-defined page
    uint16_t usage = 0x0001;
};

class CSimHidDevice {
public:
    static constexpr uint8_t kReportId = 0xE5;
    static constexpr size_t kReportSize = 512; // report id included
    static constexpr unsigned kForever = ~0u;

    // Status byte values. Any value but the two "not ready" ones means the work is done.
    static constexpr uint8_t kStatusDone = 0x00;
    static constexpr uint8_t kStatusBusy = 0x01;
    static constexpr uint8_t kStatusPending = 0x05;
    static constexpr uint8_t kStatusNoReply = 0x03;

    CSimHidDevice(ISimFrameTarget& target_I, SSimHidIdentity identity_I);

    const SSimHidIdentity& Identity() const { return mIdentity; }
    uint16_t FeatureReportLength() const { return kReportSize; }

    // A handle to the device; fails while it is unplugged or held exclusively elsewhere.
    bool Open();
    void Close();
    bool IsOpen() const { return mOpenCount > 0; }

    // Both take the whole report, id in byte 0; false is the device's refusal (a stall).
    bool SetFeature(const std::vector<uint8_t>& report_I);
    bool GetFeature(std::vector<uint8_t>& report_IO);

    // How many status polls after each request answer "not ready", and with which of the two
    // codes; kForever makes the firmware never finish.
    void SetNotReadyPolls(unsigned polls_I, uint8_t code_I = kStatusBusy);
    // Fault hooks: a device gone from USB refuses everything; a device held elsewhere can't be
    // opened.
    void SetPresent(bool present_I) { mPresent = present_I; }
    void SetHeldExclusively(bool held_I) { mHeldExclusively = held_I; }
    // Ties the device to the display's own state: busy_I is asked at each status poll once the
    // chosen not-ready polls are spent, present_I at each call (a vanished display takes its HID
    // interface with it).
    void SetBusyProbe(std::function<bool()> busy_I) { mBusyProbe = std::move(busy_I); }
    void SetPresenceProbe(std::function<bool()> present_I) {
        mPresenceProbe = std::move(present_I);
    }

    unsigned Requests() const { return mRequests; }
    unsigned StatusPolls() const { return mStatusPolls; }
    // One line per malformed report that the host sent, in order.
    const std::vector<std::string>& HostErrors() const { return mHostErrors; }

private:
    bool Present() const { return mPresent && (!mPresenceProbe || mPresenceProbe()); }
    bool Refuse(std::string text_I);
    void HandleRequest(uint8_t kind_I, const std::vector<uint8_t>& report_I);

    ISimFrameTarget& mTarget;
    SSimHidIdentity mIdentity;
    int mOpenCount = 0;
    bool mPresent = true;
    bool mHeldExclusively = false;
    unsigned mNotReadyPolls = 0;
    uint8_t mNotReadyCode = kStatusBusy;
    unsigned mNotReadyLeft = 0;
    uint8_t mLastKind = 0;
    bool mHasRequest = false;
    std::vector<uint8_t> mReply;
    unsigned mRequests = 0;
    unsigned mStatusPolls = 0;
    std::vector<std::string> mHostErrors;
    std::function<bool()> mBusyProbe;
    std::function<bool()> mPresenceProbe;
};
