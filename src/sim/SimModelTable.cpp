#include "sim/SimModelTable.h"

#include <algorithm>

namespace {

using A = ESimAccess;

constexpr SimChannelSet kSerial = SimChannelBit(ESimChannel::eSerial);
constexpr SimChannelSet kFtdi = SimChannelBit(ESimChannel::eFtdi);
constexpr SimChannelSet kTi = SimChannelBit(ESimChannel::eTi);
constexpr SimChannelSet kFtdiHid = kFtdi | SimChannelBit(ESimChannel::eHid);

constexpr std::string_view kOsdLanguages = "01 02 03 04 05 06 07 08 09 0A 0D 14 1E 26";

// Features in code order: code, maximum, factory value, offered values, access, colour.
constexpr SSimFeature kAlderFeatures[] = {
    {0x04, 1, 0, "", A::eWriteOnly},
    {0x08, 1, 0, "", A::eWriteOnly},
    {0x10, 100, 50, ""},
    {0x12, 100, 50, ""},
    {0x14, 11, 5, "04 05 08 0B", A::eReadWrite, true},
    {0x16, 100, 100, "", A::eReadWrite, true},
    {0x18, 100, 93, "", A::eReadWrite, true},
    {0x1A, 100, 88, "", A::eReadWrite, true},
    {0x86, 8, 8, "03 08"},
};

constexpr SSimFeature kBirchFeatures[] = {
    {0x04, 1, 0, "", A::eWriteOnly},
    {0x08, 1, 0, "", A::eWriteOnly},
    {0x10, 100, 70, ""},
    {0x12, 100, 50, ""},
    {0x14, 11, 5, "04 05 06 08 09 0B", A::eReadWrite, true},
    {0x16, 255, 255, "", A::eReadWrite, true},
    {0x18, 255, 236, "", A::eReadWrite, true},
    {0x1A, 255, 224, "", A::eReadWrite, true},
    {0x59, 255, 128, "", A::eReadWrite, true},
    {0x5B, 255, 128, "", A::eReadWrite, true},
    {0x5D, 255, 128, "", A::eReadWrite, true},
    {0x72, 2, 2, "01 02", A::eReadWrite, true},
    {0x87, 4, 2, ""},
    {0x9B, 255, 128, "", A::eReadWrite, true},
    {0x9D, 255, 128, "", A::eReadWrite, true},
    {0x9F, 255, 128, "", A::eReadWrite, true},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xCC, 38, 2, kOsdLanguages},
    {0xE0, 1, 0, "00 01"},
    {0xE2, 3, 1, "01 02 03"},
    {0xE3, 4, 2, "01 02 03 04", A::eReadWrite, true},
    {0xE4, 255, 128, "", A::eReadWrite, true},
    {0xE5, 255, 128, "", A::eReadWrite, true},
    {0xE6, 255, 128, "", A::eReadWrite, true},
    {0xE8, 1, 0, "00 01"},
    {0xE9, 1, 0, "00 01"},
    {0xEA, 1, 0, "01", A::eWriteOnly},
    {0xF0, 9, 7, "01 03 04 05 06 07 09", A::eReadWrite, true},
};

#define SIM_ELM_COMMON                                                                             \
    {0x04, 1, 0, "", A::eWriteOnly}, {0x08, 1, 0, "", A::eWriteOnly}, {0x10, 100, 60, ""},         \
        {0x12, 100, 50, ""}, {                                                                     \
        0x14, 12, 5, "04 05 08 09 0B 0C", A::eReadWrite, true                                      \
    }

constexpr SSimFeature kElmFeatures[] = {
    SIM_ELM_COMMON,
    {0x16, 255, 255, "", A::eReadWrite, true},
    {0x18, 255, 236, "", A::eReadWrite, true},
    {0x1A, 255, 224, "", A::eReadWrite, true},
    {0x59, 100, 50, "", A::eReadWrite, true},
    {0x5B, 100, 50, "", A::eReadWrite, true},
    {0x5D, 100, 50, "", A::eReadWrite, true},
    {0x72, 26, 22, "", A::eReadWrite, true},
    {0x87, 4, 2, ""},
    {0x9B, 100, 50, "", A::eReadWrite, true},
    {0x9D, 100, 50, "", A::eReadWrite, true},
    {0x9F, 100, 50, "", A::eReadWrite, true},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xCC, 38, 2, kOsdLanguages},
    {0xE0, 1, 0, "00 01"},
    {0xE2, 3, 1, "01 02 03"},
    {0xE4, 255, 128, "", A::eReadWrite, true},
    {0xE5, 255, 128, "", A::eReadWrite, true},
    {0xE6, 255, 128, "", A::eReadWrite, true},
    {0xE8, 1, 0, "00 01"},
    {0xE9, 1, 0, "00 01"},
    {0xEA, 1, 0, "01", A::eWriteOnly},
    {0xEE, 1, 1, "00 01"},
    {0xF0, 13, 5, "02 03 05 06 07 08 09 0A 0B 0C 0D", A::eReadWrite, true},
};

// ElmHuge's firmware offers the fan code of the larger models although it has no fan.
constexpr SSimFeature kElmHugeFeatures[] = {
    SIM_ELM_COMMON,
    {0x16, 255, 255, "", A::eReadWrite, true},
    {0x18, 255, 236, "", A::eReadWrite, true},
    {0x1A, 255, 224, "", A::eReadWrite, true},
    {0x59, 100, 50, "", A::eReadWrite, true},
    {0x5B, 100, 50, "", A::eReadWrite, true},
    {0x5D, 100, 50, "", A::eReadWrite, true},
    {0x72, 26, 22, "", A::eReadWrite, true},
    {0x87, 4, 2, ""},
    {0x9B, 100, 50, "", A::eReadWrite, true},
    {0x9D, 100, 50, "", A::eReadWrite, true},
    {0x9F, 100, 50, "", A::eReadWrite, true},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xCC, 38, 2, kOsdLanguages},
    {0xE0, 1, 0, "00 01"},
    {0xE2, 3, 1, "01 02 03"},
    {0xE4, 255, 128, "", A::eReadWrite, true},
    {0xE5, 255, 128, "", A::eReadWrite, true},
    {0xE6, 255, 128, "", A::eReadWrite, true},
    {0xE8, 1, 0, "00 01"},
    {0xE9, 1, 0, "00 01"},
    {0xEE, 1, 1, "00 01"},
    {0xF0, 13, 5, "02 03 05 06 07 08 09 0A 0B 0C 0D", A::eReadWrite, true},
    {0xF3, 1, 1, "00 01"},
};

constexpr SSimFeature kElmLargeFeatures[] = {
    SIM_ELM_COMMON,
    {0x16, 100, 100, "", A::eReadWrite, true},
    {0x18, 100, 93, "", A::eReadWrite, true},
    {0x1A, 100, 88, "", A::eReadWrite, true},
    {0x59, 100, 50, "", A::eReadWrite, true},
    {0x5B, 100, 50, "", A::eReadWrite, true},
    {0x5D, 100, 50, "", A::eReadWrite, true},
    {0x72, 26, 22, "", A::eReadWrite, true},
    {0x87, 4, 2, ""},
    {0x9B, 100, 50, "", A::eReadWrite, true},
    {0x9D, 100, 50, "", A::eReadWrite, true},
    {0x9F, 100, 50, "", A::eReadWrite, true},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xCC, 38, 2, kOsdLanguages},
    {0xE0, 1, 0, "00 01"},
    {0xE2, 3, 1, "01 02 03"},
    {0xE4, 100, 50, "", A::eReadWrite, true},
    {0xE5, 100, 50, "", A::eReadWrite, true},
    {0xE6, 100, 50, "", A::eReadWrite, true},
    {0xE8, 1, 0, "00 01"},
    {0xE9, 1, 0, "00 01"},
    {0xEE, 1, 1, "00 01"},
    {0xF0, 13, 0, "00 05 06 07 08 09 0A 0B 0C 0D", A::eReadWrite, true},
    {0xF3, 1, 1, "00 01"},
};

#undef SIM_ELM_COMMON

constexpr SSimFeature kFirFeatures[] = {
    {0x04, 1, 0, "", A::eWriteOnly},
    {0x12, 100, 50, ""},
    {0x13, 100, 80, ""},
    {0x14, 11, 5, "04 05 08 0B", A::eReadWrite, true},
    {0x16, 255, 255, "", A::eReadWrite, true},
    {0x18, 255, 236, "", A::eReadWrite, true},
    {0x1A, 255, 224, "", A::eReadWrite, true},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xE2, 2, 1, "01 02"},
    {0xEF, 3, 2, "00 01 02 03"},
};

constexpr SSimFeature kFirTwoFeatures[] = {
    {0x04, 1, 0, "", A::eWriteOnly},
    {0x12, 100, 50, ""},
    {0x14, 11, 5, "04 05 08 0B", A::eReadWrite, true},
    {0x16, 255, 255, "", A::eReadWrite, true},
    {0x18, 255, 236, "", A::eReadWrite, true},
    {0x1A, 255, 224, "", A::eReadWrite, true},
    {0x6B, 100, 80, ""},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xDA, 1, 0, "00 01"},
    {0xEF, 3, 2, "00 01 02 03"},
};

constexpr SSimFeature kHazelFeatures[] = {
    {0x04, 1, 0, "", A::eWriteOnly},
    {0x12, 100, 50, ""},
    {0x14, 11, 5, "04 05 08 0B", A::eReadWrite, true},
    {0x16, 255, 255, "", A::eReadWrite, true},
    {0x18, 255, 236, "", A::eReadWrite, true},
    {0x1A, 255, 224, "", A::eReadWrite, true},
    {0x6B, 100, 80, ""},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xDA, 1, 0, "00 01"},
};

// The bridge hands out at most 210 bytes of capability text: keep the list short.
constexpr SSimFeature kCedarOneFeatures[] = {
    {0x04, 1, 0, "", A::eWriteOnly},
    {0x10, 100, 50, ""},
    {0x12, 100, 50, ""},
    {0x14, 11, 5, "04 05 08 0B", A::eReadWrite, true},
    {0x16, 255, 128, "", A::eReadWrite, true},
    {0x18, 255, 103, "", A::eReadWrite, true},
    {0x1A, 255, 116, "", A::eReadWrite, true},
    {0x72, 3, 2, "01 02 03", A::eReadWrite, true},
    {0x86, 8, 8, "01 03 08"},
    {0xE3, 9, 0, "00 01 02 07 08 09", A::eReadWrite, true},
};

// Battery mode factory value 0 is not in the offered list: this firmware reports it all the same.
constexpr SSimFeature kCedarTwoFeatures[] = {
    {0x04, 1, 0, "", A::eWriteOnly},
    {0x10, 100, 50, ""},
    {0x12, 100, 50, ""},
    {0x14, 11, 5, "04 05 08 0B", A::eReadWrite, true},
    {0x16, 255, 128, "", A::eReadWrite, true},
    {0x18, 255, 103, "", A::eReadWrite, true},
    {0x1A, 255, 116, "", A::eReadWrite, true},
    {0x72, 3, 2, "01 02 03", A::eReadWrite, true},
    {0x86, 8, 8, "01 03 08"},
    {0xC9, 0, 0, "", A::eReadOnly},
    {0xE0, 1, 0, "00 01"},
    {0xF0, 9, 0, "00 01 02 07 08 09", A::eReadWrite, true},
    {0xF4, 3, 0, "02 03"},
};

#define SIM_GAINS(preset, red, green, blue)                                                        \
    {0x14, preset, 0x16, red}, {0x14, preset, 0x18, green}, {                                      \
        0x14, preset, 0x1A, blue                                                                   \
    }
#define SIM_CALIBRATION(code, preset, red, green, blue)                                            \
    {code, preset, 0x16, red}, {code, preset, 0x18, green}, {                                      \
        code, preset, 0x1A, blue                                                                   \
    }

constexpr SSimEffect kPercentEffects[] = {
    SIM_GAINS(4, 100, 84, 69),
    SIM_GAINS(5, 100, 93, 88),
    SIM_GAINS(8, 89, 91, 100),
};

constexpr SSimEffect kRawEffects[] = {
    SIM_GAINS(4, 255, 213, 176),
    SIM_GAINS(5, 255, 236, 224),
    SIM_GAINS(8, 226, 232, 255),
};

constexpr SSimEffect kBirchEffects[] = {
    SIM_GAINS(4, 255, 213, 176),
    SIM_GAINS(5, 255, 236, 224),
    SIM_GAINS(6, 245, 240, 255),
    SIM_GAINS(8, 226, 232, 255),
    SIM_GAINS(9, 214, 224, 255),
    SIM_GAINS(11, 255, 224, 200),
    SIM_CALIBRATION(0xF0, 5, 250, 244, 238),
    SIM_CALIBRATION(0xF0, 6, 244, 250, 238),
};

// The gamma of an Elm follows its display preset.
#define SIM_ELM_GAMMA                                                                              \
    {0xF0, 2, 0x72, 22}, {0xF0, 3, 0x72, 22}, {0xF0, 5, 0x72, 22}, {0xF0, 6, 0x72, 22},            \
        {0xF0, 7, 0x72, 24}, {0xF0, 8, 0x72, 26}, {0xF0, 9, 0x72, 24}, {0xF0, 10, 0x72, 22},       \
        {0xF0, 11, 0x72, 22}, {0xF0, 12, 0x72, 24}, {                                              \
        0xF0, 13, 0x72, 22                                                                         \
    }

constexpr SSimEffect kElmEffects[] = {
    SIM_ELM_GAMMA,
    SIM_GAINS(4, 255, 213, 176),
    SIM_GAINS(5, 255, 236, 224),
    SIM_GAINS(8, 226, 232, 255),
    SIM_GAINS(9, 214, 224, 255),
    SIM_GAINS(11, 255, 224, 200),
    SIM_GAINS(12, 255, 255, 255),
    SIM_CALIBRATION(0xF0, 11, 240, 236, 250),
    SIM_CALIBRATION(0xF0, 12, 236, 240, 246),
};

constexpr SSimEffect kElmLargeEffects[] = {
    {0xF0, 0, 0x72, 22},
    SIM_ELM_GAMMA,
    SIM_GAINS(4, 100, 84, 69),
    SIM_GAINS(5, 100, 93, 88),
    SIM_GAINS(8, 89, 91, 100),
    SIM_GAINS(9, 84, 88, 100),
    SIM_GAINS(11, 100, 88, 78),
    SIM_GAINS(12, 100, 100, 100),
    SIM_CALIBRATION(0xF0, 11, 94, 93, 98),
    SIM_CALIBRATION(0xF0, 12, 93, 94, 96),
};

// The Cedar presets leave gains by which a host can tell the preset from a custom colour.
#define SIM_CEDAR_GAINS                                                                            \
    SIM_GAINS(4, 128, 98, 96), SIM_GAINS(5, 128, 103, 116), SIM_GAINS(8, 118, 99, 128)

constexpr SSimEffect kCedarOneEffects[] = {
    SIM_CEDAR_GAINS,
    SIM_CALIBRATION(0xE3, 8, 126, 104, 120),
    SIM_CALIBRATION(0xE3, 9, 124, 106, 118),
};

constexpr SSimEffect kCedarTwoEffects[] = {
    SIM_CEDAR_GAINS,
    SIM_CALIBRATION(0xF0, 8, 126, 104, 120),
    SIM_CALIBRATION(0xF0, 9, 124, 106, 118),
};

#undef SIM_CEDAR_GAINS
#undef SIM_ELM_GAMMA
#undef SIM_CALIBRATION
#undef SIM_GAINS

using F = ESimFamily;

constexpr uint16_t kElmAnswers =
    eOmitsMccsVersion | eAnswersPrivateCaps | eAnswersInformation | eAnswersEdidIndexed;

// family, features, effects, custom-colour code and value, what it answers.
const SSimFamily kFamilies[] = {
    {F::eAlder, kAlderFeatures, kPercentEffects, 0x14, 11, eAnswersSerialEdid},
    {F::eBirch, kBirchFeatures, kBirchEffects, 0xF0, 9,
     eAnswersPrivateCaps | eAnswersInformation | eAnswersEdidFragments},
    {F::eElm, kElmFeatures, kElmEffects, 0xF0, 13, kElmAnswers},
    {F::eElmLarge, kElmLargeFeatures, kElmLargeEffects, 0xF0, 13, kElmAnswers},
    {F::eElmHuge, kElmHugeFeatures, kElmEffects, 0xF0, 13, kElmAnswers},
    {F::eFir, kFirFeatures, kRawEffects, 0x14, 11, eAnswersInformation},
    {F::eFirTwo, kFirTwoFeatures, kRawEffects, 0x14, 11, eAnswersInformation},
    {F::eHazel, kHazelFeatures, kRawEffects, 0x14, 11, eAnswersInformation | eAnswersEdidFragments},
    {F::eCedarOne, kCedarOneFeatures, kCedarOneEffects, 0x14, 11,
     eAnswersEdidIndexed | eAnswersEdidChunks | eAnswersBridge},
    {F::eCedarTwo, kCedarTwoFeatures, kCedarTwoEffects, 0x14, 11,
     eAnswersInformation | eAnswersEdidIndexed | eAnswersEdidChunks},
};

// name, product id, EDID numbers, family, channel group, DDC/CI on the video cable, built in,
// display name, firmware.
// clang-format off
constexpr SSimModel kModels[] = {
    {"Alder",           0x0304, {0x1040, 0},      F::eAlder,    kSerial,  false, false, "PDX-1300",    {1, 2, 5}},
    {"Aspen",           0x0307, {0x1041, 0},      F::eAlder,    kSerial,  false, false, "PDX-2100",    {1, 3, 0}},
    {"AspenTwo",        0x0325, {0x1042, 0},      F::eAlder,    kSerial,  false, false, "PDX-2200",    {1, 4, 2}},
    {"AlderTouch",      0x0333, {0x1046, 0},      F::eAlder,    kSerial,  false, false, "PDX-1300T",   {1, 5, 1}},
    {"BirchTouch",      0x032B, {0x1043, 0x1048}, F::eBirch,    kFtdi,    true,  false, "PDX-2700T",   {2, 1, 4}},
    {"Birch",           0x032A, {0x1044, 0x1049}, F::eBirch,    kFtdi,    true,  false, "PDX-2700",    {2, 1, 4}},
    {"ElmSmall",        0x034F, {0x1054, 0},      F::eElm,      kFtdi,    true,  false, "PDX-1600",    {3, 0, 7}},
    {"ElmMedium",       0x0350, {0x1055, 0},      F::eElm,      kFtdi,    true,  false, "PDX-2400",    {3, 0, 7}},
    {"ElmLargeTouch",   0x0351, {0x1056, 0},      F::eElmLarge, kFtdi,    true,  false, "PDX-3200T",   {3, 2, 1}},
    {"ElmHuge",         0x0352, {0x1057, 0},      F::eElmHuge,  kFtdi,    true,  false, "PDX-4200",    {3, 1, 0}},
    {"ElmLarge",        0x037C, {0x1060, 0x1063}, F::eElmLarge, kFtdi,    true,  false, "PDX-3200",    {3, 2, 1}},
    {"FirSmall",        0x0390, {0x1064, 0},      F::eFir,      kFtdi,    true,  false, "QRN-1600",    {4, 0, 3}},
    {"FirSmallLite",    0x0396, {0x1068, 0},      F::eFir,      kFtdi,    true,  false, "QRN-1600L",   {4, 0, 3}},
    {"CedarSmallTwo",   0x0398, {0x1066, 0},      F::eCedarTwo, kFtdi,    false, true,  "TCP-1320",    {5, 1, 0}},
    {"CedarLargeTwo",   0x0399, {0x1067, 0},      F::eCedarTwo, kFtdi,    false, true,  "TCP-1620",    {5, 1, 0}},
    {"Hazel",           0x03A6, {0x1070, 0},      F::eHazel,    kFtdiHid, true,  false, "PDX-2410S",   {6, 0, 2}},
    {"FirSmallTwo",     0x03AE, {0x1071, 0},      F::eFirTwo,   kFtdiHid, true,  false, "QRN-1620",    {6, 1, 0}},
    {"FirSmallLiteTwo", 0x03B0, {0x1072, 0},      F::eFirTwo,   kFtdiHid, true,  false, "QRN-1620L",   {6, 1, 0}},
    {"CedarSmall",      0x034D, {0x1052, 0},      F::eCedarOne, kTi,      false, true,  "TCP-1300",    {1, 8, 3}},
    {"CedarLarge",      0x034E, {0x1053, 0},      F::eCedarOne, kTi,      false, true,  "TCP-1600",    {1, 8, 3}},
    {"FirLarge",        0x0391, {0x1065, 0},      F::eFir,      0,        true,  false, "QRN-2400",    {4, 1, 0}},
};
// clang-format on

} // namespace

std::span<const SSimModel> SimModels() {
    return kModels;
}

const SSimModel* FindSimModel(std::string_view name_I) {
    const auto found = std::find_if(std::begin(kModels), std::end(kModels),
                                    [&](const SSimModel& m) { return m.name == name_I; });
    return found == std::end(kModels) ? nullptr : &*found;
}

const SSimModel* FindSimModelByEdid(uint16_t edidNumber_I) {
    if (edidNumber_I == 0) {
        return nullptr;
    }
    const auto found =
        std::find_if(std::begin(kModels), std::end(kModels), [&](const SSimModel& m) {
            return m.edidNumbers[0] == edidNumber_I || m.edidNumbers[1] == edidNumber_I;
        });
    return found == std::end(kModels) ? nullptr : &*found;
}

const SSimFamily& SimFamily(ESimFamily family_I) {
    for (const SSimFamily& family : kFamilies) {
        if (family.family == family_I) {
            return family;
        }
    }
    return kFamilies[0];
}

const SSimFeature* FindSimFeature(const SSimFamily& family_I, uint8_t code_I) {
    for (const SSimFeature& feature : family_I.features) {
        if (feature.code == code_I) {
            return &feature;
        }
    }
    return nullptr;
}

SimChannelSet DefaultSimChannels(const SSimModel& model_I) {
    return static_cast<SimChannelSet>(model_I.group |
                                      (model_I.videoDdc ? SimChannelBit(ESimChannel::eVideo) : 0));
}
