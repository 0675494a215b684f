#pragma once
// What the simulated displays know about each model and each scaler firmware, as tables of data.

#include "sim/SimTypes.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

enum class ESimAccess : uint8_t { eReadWrite, eReadOnly, eWriteOnly };

// One VCP feature that a firmware offers.
struct SSimFeature {
    uint8_t code = 0;
    uint16_t maximum = 0; // continuous: top of the range; non-continuous: reported as maximum
    uint16_t factory = 0; // value as shipped and after Restore Factory Defaults
    // Values offered in the capability string as hexadecimal pairs; empty means a continuous
    // range 0 to maximum. A write of a value outside the list is ignored.
    std::string_view values;
    ESimAccess access = ESimAccess::eReadWrite;
    bool color = false; // put back by Restore Factory Color Defaults
};

// Writing `code` with `value` also sets `targetCode` to `targetValue` (presets that move gamma,
// colour presets that move the gains, calibrator presets).
struct SSimEffect {
    uint8_t code = 0;
    uint16_t value = 0;
    uint8_t targetCode = 0;
    uint16_t targetValue = 0;
};

// What a firmware answers beyond Get and Set VCP Feature, Save and the capability read F3.
enum ESimAnswers : uint16_t {
    eAnswersPrivateCaps = 1 << 0,   // the table-read form E2 F3 of the capability read
    eAnswersInformation = 1 << 1,   // a plain read of F2 with the information record
    eAnswersEdidIndexed = 1 << 2,   // the indexed read F2 00 i with 16 EDID bytes
    eAnswersEdidFragments = 1 << 3, // the table-read form E2 C3 with EDID fragments
    eAnswersEdidChunks = 1 << 4,    // C0 66 i with EDID chunks while in factory mode (C0 E1)
    eAnswersBridge = 1 << 5,        // the TI bridge's C0 6F chunks and C0 EF version
    eAnswersSerialEdid = 1 << 6,    // the serial channel's A0 00 with raw EDID
    eOmitsMccsVersion = 1 << 7,     // quirk: the capability string has no mccs_ver
};

// One scaler firmware.
struct SSimFamily {
    ESimFamily family;
    std::span<const SSimFeature> features;
    std::span<const SSimEffect> effects;
    // A write of a gain switches this code to this value (the preset of the user's own colour);
    // code 0 means none.
    uint8_t customCode = 0;
    uint16_t customValue = 0;
    uint16_t answers = 0; // ESimAnswers

    bool Has(ESimAnswers what_I) const { return (answers & what_I) != 0; }
};

struct SSimModel {
    std::string_view name;  // the model's name as descriptions spell it
    uint16_t productId = 0; // USB product id of the tablet; vendor id is kSimVendorId
    std::array<uint16_t, 2> edidNumbers{}; // EDID product codes, first is the default; 0 = none
    ESimFamily family = ESimFamily::eAlder;
    SimChannelSet group = 0; // the channel group: channels of the scaler other than the video cable
    bool videoDdc = false;   // the scaler answers DDC/CI on the video cable too
    bool builtIn = false;    // built into the maker's computer
    std::string_view displayName;      // EDID display-name descriptor and information record, <= 13
    std::array<uint8_t, 3> firmware{}; // major, minor, build
};

inline constexpr uint16_t kSimVendorId = 0x0F5E;
// EDID manufacturer id "VRX" in the packed form of the EDID header.
inline constexpr uint16_t kSimManufacturerId =
    ((('V' - '@') << 10) | (('R' - '@') << 5) | ('X' - '@'));

std::span<const SSimModel> SimModels();
const SSimModel* FindSimModel(std::string_view name_I);
const SSimModel* FindSimModelByEdid(uint16_t edidNumber_I);
const SSimFamily& SimFamily(ESimFamily family_I);
const SSimFeature* FindSimFeature(const SSimFamily& family_I, uint8_t code_I);
// The channel group of the model, plus the video cable when its scaler answers there.
SimChannelSet DefaultSimChannels(const SSimModel& model_I);
