#pragma once
// What the program knows about each model, one row per model: its two identities (the tablet's
// USB product id and the product codes its monitor shows in EDID), the channels that reach its
// scaler, and every choice the session, the delegate and the FTDI channel make by model. The
// EDID map, the model predicates, the channel groups and the delegate's model decisions are all
// read from here; adding a model is adding a row.

#include "ddc/VcpCodes.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

// The finest split of the models that the delegate's tables need. A delegate table row names
// the groups it holds for as a set of these bits.
enum EModelGroup : uint32_t {
    eModelGroup_None = 0,
    eModelGroup_Birch = 1u << 0,
    // ElmSmall, ElmMedium, ElmHuge: the Elm family without the ElmLarge family.
    eModelGroup_Elm = 1u << 1,
    eModelGroup_ElmLarge = 1u << 2,
    eModelGroup_Fir = 1u << 3,
    eModelGroup_FirTwo = 1u << 4,
    eModelGroup_Hazel = 1u << 5,
    eModelGroup_CedarOne = 1u << 6,
    eModelGroup_CedarTwo = 1u << 7,
    // Aspen and AspenTwo.
    eModelGroup_Aspen = 1u << 8,
    eModelGroup_Alder = 1u << 9,
};

using ModelGroups = uint32_t;
constexpr ModelGroups kElmFamilyGroups = eModelGroup_Elm | eModelGroup_ElmLarge;
constexpr ModelGroups kCedarFamilyGroups = eModelGroup_CedarOne | eModelGroup_CedarTwo;

// Which channels reach a model's scaler, as the matching rules name them; a row holds a set.
enum class EChannelGroup : uint8_t {
    eSerial = 1u << 0,  // the USB serial port
    eFtdi = 1u << 1,    // the FTDI bridge
    eTi = 1u << 2,      // the TI bridge
    eHid = 1u << 3,     // the vendor HID channel
    eBuiltIn = 1u << 4, // built into the maker's own computer when it is one
};

using ChannelGroups = uint8_t;
constexpr ChannelGroups operator|(EChannelGroup a_I, EChannelGroup b_I) {
    return static_cast<ChannelGroups>(static_cast<ChannelGroups>(a_I) |
                                      static_cast<ChannelGroups>(b_I));
}

// How the colour gains read: 0 to 100, or the scaler's raw 0 to 255.
enum class EColorScale : uint8_t { eRaw, ePercent };

// Whether brightness and contrast are read afresh each time: these scalers change them through
// their own menu and presets, so a cached value is not trusted.
enum class ELevels : uint8_t { eCached, eRefreshed };

// How the FTDI channel reads the EDID from the scaler.
enum class EFtdiEdid : uint8_t {
    eFragments,         // the table read E2 C3 in fragments
    eIndexed,           // the indexed read of 0xF2, then the fragments if that gives nothing
    eIndexedWarnsEmpty, // as eIndexed; an empty fragment reply is worth a warning
    eNone,              // the scaler has no EDID on this channel
};

// When a brightness and contrast pair asks the user first.
enum class ETooDark : uint8_t {
    eWeightedSum,     // brightness + 9 x contrast below 200
    eBothBelow20,     // brightness and contrast both below 20
    eCustomColorOnly, // the weighted sum, but only under the custom colour setting
    eNever,
};

struct SModelRow {
    std::string_view name;
    uint16_t productId = 0;                // the tablet's; the vendor half is TabletId::kVendor
    std::array<uint16_t, 2> edidNumbers{}; // 0 = none; two production runs of one panel
    EModelGroup group = eModelGroup_None;  // the family as the delegate's tables split it
    ChannelGroups channels = 0;            // besides the video cable
    vcpCode brightness = vcpC_Luminance;   // the code that holds brightness
    EColorScale colorScale = EColorScale::eRaw;
    ELevels levels = ELevels::eCached;
    uint32_t factoryResetSettleMs = 0; // the scaler stays busy after it acknowledged the reset
    EFtdiEdid ftdiEdid = EFtdiEdid::eFragments;
    ETooDark tooDark = ETooDark::eWeightedSum;
};

namespace ModelTableRows {

using enum EChannelGroup;
using enum EColorScale;
using enum ELevels;
using enum EFtdiEdid;
using enum ETooDark;
constexpr ChannelGroups kNoChannel = 0;
constexpr ChannelGroups kSerial = static_cast<ChannelGroups>(eSerial);
constexpr ChannelGroups kFtdi = static_cast<ChannelGroups>(eFtdi);
constexpr ChannelGroups kFtdiBuiltIn = eFtdi | eBuiltIn;
constexpr ChannelGroups kFtdiHid = eFtdi | eHid;
constexpr ChannelGroups kTiBuiltIn = eTi | eBuiltIn;
constexpr vcpCode kLuminance = vcpC_Luminance;
constexpr vcpCode kBacklight = vcpC_BacklightControl;
constexpr vcpCode kWhiteLevel = vcpC_BacklightLevelWhite;
constexpr uint32_t kSettle = 10000;

// clang-format off
inline constexpr std::array<SModelRow, 21> kModels{{
    // model           product  EDID numbers      family                channels      brightness   colours   levels      reset ms  FTDI EDID           too dark
    {"Alder",           0x0304, {0x1040, 0},      eModelGroup_Alder,    kSerial,      kLuminance,  ePercent, eCached,    0,        eFragments,         eBothBelow20},
    {"Aspen",           0x0307, {0x1041, 0},      eModelGroup_Aspen,    kSerial,      kLuminance,  ePercent, eCached,    0,        eFragments,         eBothBelow20},
    {"AspenTwo",        0x0325, {0x1042, 0},      eModelGroup_Aspen,    kSerial,      kLuminance,  ePercent, eCached,    0,        eFragments,         eBothBelow20},
    {"AlderTouch",      0x0333, {0x1046, 0},      eModelGroup_Alder,    kSerial,      kLuminance,  ePercent, eCached,    0,        eFragments,         eBothBelow20},
    {"BirchTouch",      0x032B, {0x1043, 0x1048}, eModelGroup_Birch,    kFtdi,        kLuminance,  eRaw,     eCached,    kSettle,  eFragments,         eWeightedSum},
    {"Birch",           0x032A, {0x1044, 0x1049}, eModelGroup_Birch,    kFtdi,        kLuminance,  eRaw,     eCached,    kSettle,  eFragments,         eWeightedSum},
    {"ElmSmall",        0x034F, {0x1054, 0},      eModelGroup_Elm,      kFtdi,        kLuminance,  eRaw,     eRefreshed, kSettle,  eIndexed,           eCustomColorOnly},
    {"ElmMedium",       0x0350, {0x1055, 0},      eModelGroup_Elm,      kFtdi,        kLuminance,  eRaw,     eRefreshed, kSettle,  eIndexed,           eCustomColorOnly},
    {"ElmLargeTouch",   0x0351, {0x1056, 0},      eModelGroup_ElmLarge, kFtdi,        kLuminance,  ePercent, eRefreshed, kSettle,  eIndexedWarnsEmpty, eCustomColorOnly},
    {"ElmHuge",         0x0352, {0x1057, 0},      eModelGroup_Elm,      kFtdi,        kLuminance,  eRaw,     eRefreshed, kSettle,  eIndexed,           eCustomColorOnly},
    {"ElmLarge",        0x037C, {0x1060, 0x1063}, eModelGroup_ElmLarge, kFtdi,        kLuminance,  ePercent, eRefreshed, kSettle,  eIndexed,           eCustomColorOnly},
    {"FirSmall",        0x0390, {0x1064, 0},      eModelGroup_Fir,      kFtdi,        kBacklight,  eRaw,     eCached,    0,        eNone,              eNever},
    {"FirSmallLite",    0x0396, {0x1068, 0},      eModelGroup_Fir,      kFtdi,        kBacklight,  eRaw,     eCached,    0,        eNone,              eNever},
    {"CedarSmallTwo",   0x0398, {0x1066, 0},      eModelGroup_CedarTwo, kFtdiBuiltIn, kLuminance,  eRaw,     eRefreshed, kSettle,  eIndexed,           eNever},
    {"CedarLargeTwo",   0x0399, {0x1067, 0},      eModelGroup_CedarTwo, kFtdiBuiltIn, kLuminance,  eRaw,     eRefreshed, kSettle,  eIndexed,           eNever},
    {"Hazel",           0x03A6, {0x1070, 0},      eModelGroup_Hazel,    kFtdiHid,     kWhiteLevel, eRaw,     eCached,    0,        eFragments,         eNever},
    {"FirSmallTwo",     0x03AE, {0x1071, 0},      eModelGroup_FirTwo,   kFtdiHid,     kWhiteLevel, eRaw,     eCached,    0,        eNone,              eNever},
    {"FirSmallLiteTwo", 0x03B0, {0x1072, 0},      eModelGroup_FirTwo,   kFtdiHid,     kWhiteLevel, eRaw,     eCached,    0,        eNone,              eNever},
    {"CedarSmall",      0x034D, {0x1052, 0},      eModelGroup_CedarOne, kTiBuiltIn,   kLuminance,  eRaw,     eRefreshed, kSettle,  eIndexed,           eNever},
    {"CedarLarge",      0x034E, {0x1053, 0},      eModelGroup_CedarOne, kTiBuiltIn,   kLuminance,  eRaw,     eRefreshed, kSettle,  eIndexed,           eNever},
    // In the EDID map but in no channel group: only a true serial number matches it.
    {"FirLarge",        0x0391, {0x1065, 0},      eModelGroup_Fir,      kNoChannel,   kBacklight,  eRaw,     eCached,    0,        eNone,              eNever},
}};

// Tablets of the product line without a row above whose EDID the FTDI channel still knows how
// to read.
struct SFtdiOnlyTablet {
    uint16_t productId;
    EFtdiEdid ftdiEdid;
};
inline constexpr std::array<SFtdiOnlyTablet, 10> kFtdiOnlyTablets{{
    {0x034A, eIndexed}, {0x034B, eIndexed}, {0x0353, eIndexed}, {0x0354, eIndexed},
    {0x0355, eIndexedWarnsEmpty}, {0x0356, eIndexed}, {0x039A, eIndexed}, {0x039B, eIndexed},
    {0x03AA, eIndexed}, {0x03AC, eIndexed},
}};
// clang-format on

} // namespace ModelTableRows

using ModelTableRows::kModels;

// The tablet ids (vendor id in the high half, product id in the low half) of the models that
// code names.
namespace TabletId {
constexpr uint32_t kVendor = 0x0F5E0000u;

consteval uint32_t Of(std::string_view name_I) {
    for (const SModelRow& row : kModels) {
        if (row.name == name_I) {
            return kVendor | row.productId;
        }
    }
    throw "no such model"; // a compile error: the name has no row
}

constexpr uint32_t Alder = Of("Alder");
constexpr uint32_t Aspen = Of("Aspen");
constexpr uint32_t AspenTwo = Of("AspenTwo");
constexpr uint32_t AlderTouch = Of("AlderTouch");
constexpr uint32_t BirchTouch = Of("BirchTouch");
constexpr uint32_t Birch = Of("Birch");
constexpr uint32_t ElmSmall = Of("ElmSmall");
constexpr uint32_t ElmMedium = Of("ElmMedium");
constexpr uint32_t ElmLargeTouch = Of("ElmLargeTouch");
constexpr uint32_t ElmHuge = Of("ElmHuge");
constexpr uint32_t ElmLarge = Of("ElmLarge");
constexpr uint32_t FirSmall = Of("FirSmall");
constexpr uint32_t FirSmallLite = Of("FirSmallLite");
constexpr uint32_t CedarSmallTwo = Of("CedarSmallTwo");
constexpr uint32_t CedarLargeTwo = Of("CedarLargeTwo");
constexpr uint32_t Hazel = Of("Hazel");
constexpr uint32_t FirSmallTwo = Of("FirSmallTwo");
constexpr uint32_t FirSmallLiteTwo = Of("FirSmallLiteTwo");
constexpr uint32_t CedarSmall = Of("CedarSmall");
constexpr uint32_t CedarLarge = Of("CedarLarge");
constexpr uint32_t FirLarge = Of("FirLarge");
} // namespace TabletId

// The row of the model that shows this EDID number; a row with no name and the defaults when
// no model does.
const SModelRow& ModelOfEdid(uint16_t edid_I);
// Whether the EDID number belongs to a model the channel group reaches.
bool IsInChannelGroup(EChannelGroup group_I, uint16_t edid_I);
// How the FTDI channel reads the EDID of a tablet; the indexed read first for an unknown one
// (kNoTabletId), the fragments for a tablet it does not know.
EFtdiEdid FtdiEdidOfTablet(uint32_t tabletId_I);
