#pragma once
// The firmware of one simulated scaler: it takes a DDC/CI request frame as the bus delivers it
// and answers as the display's firmware would. It checks what the host sends, and keeps a note of
// every malformed request, so that a test can see a host's mistake.

#include "sim/SimModelTable.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

class CSimScaler {
public:
    // serial_I is the 13-character serial number the display reports.
    CSimScaler(const SSimModel& model_I, uint16_t edidNumber_I, std::string serial_I);

    // A request in bus order from its destination byte on. Returns the reply frame, check byte
    // included; the null message when the scaler has nothing to say; empty when the request was
    // not for this scaler or its firmware has no answer on the wire (silence).
    std::vector<uint8_t> Handle(const std::vector<uint8_t>& frame_I);

    // Values as the firmware holds them now, and as saved in non-volatile memory.
    std::optional<uint16_t> Current(uint8_t code_I) const;
    std::optional<uint16_t> Saved(uint8_t code_I) const;
    // A change made on the display's own menu: taken as it stands, without side effects.
    void SetFromMenu(uint8_t code_I, uint16_t value_I);
    // Power off and on: the values come back from non-volatile memory, factory mode ends.
    void PowerCycle();

    const SSimModel& Model() const { return mModel; }
    const SSimFamily& Family() const { return mFamily; }
    const std::string& SerialNumber() const { return mSerial; }
    const std::vector<uint8_t>& Edid() const { return mEdid; }
    const std::string& CapabilityString() const { return mCapabilities; }
    // The 52-byte information record of code 0xF2: name at 14, serial number at 27, 13 bytes each.
    std::vector<uint8_t> DisplayInformation() const;
    bool FactoryMode() const { return mFactoryMode; }

    struct SCounters {
        int requests = 0;      // every frame the host sent, good or bad
        int featureWrites = 0; // Set VCP Feature requests, refused ones included
        int saves = 0;
        int factoryResets = 0;
        int colorResets = 0;
        int conditionings = 0;
        int scalerResets = 0;
        int refusedWrites = 0; // writes of unknown or read-only codes, or values not offered
    };
    const SCounters& Counters() const { return mCounters; }
    // One line per malformed request or broken rule of the bus, in order.
    const std::vector<std::string>& HostErrors() const { return mHostErrors; }
    void ReportHostError(std::string text_I);

private:
    std::vector<uint8_t> HandleRequest(const std::vector<uint8_t>& payload_I);
    std::vector<uint8_t> GetFeature(const std::vector<uint8_t>& payload_I);
    std::vector<uint8_t> SetFeature(uint8_t code_I, uint16_t value_I);
    std::vector<uint8_t> Private(const std::vector<uint8_t>& payload_I);
    std::vector<uint8_t> TableRead(const std::vector<uint8_t>& payload_I);
    void Store(uint8_t code_I, uint16_t value_I);
    void ApplyEffects(uint8_t code_I, uint16_t value_I);
    void RestoreFactory(bool colorOnly_I);
    std::vector<uint8_t> FeatureReply(uint8_t result_I, uint8_t code_I, uint16_t maximum_I,
                                      uint16_t value_I) const;
    std::vector<uint8_t> Refuse(uint8_t code_I) const;
    std::vector<uint8_t> NoteHostError(std::string text_I);

    const SSimModel& mModel;
    const SSimFamily& mFamily;
    std::string mSerial;
    std::vector<uint8_t> mEdid;
    std::string mCapabilities;
    std::map<uint8_t, uint16_t> mCurrent;
    std::map<uint8_t, uint16_t> mSaved;
    bool mFactoryMode = false;
    SCounters mCounters;
    std::vector<std::string> mHostErrors;
};
