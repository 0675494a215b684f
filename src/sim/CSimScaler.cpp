#include "sim/CSimScaler.h"

#include "sim/SimEdid.h"
#include "sim/SimFrames.h"

#include "foundation/Trace.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

// Request opcodes and the opcodes of the replies.
constexpr uint8_t kGetFeature = 0x01;
constexpr uint8_t kFeatureReply = 0x02;
constexpr uint8_t kSetFeature = 0x03;
constexpr uint8_t kSaveSettings = 0x0C;
constexpr uint8_t kPrivate = 0xC0;
constexpr uint8_t kTableRead = 0xE2;
constexpr uint8_t kCapabilitiesReply = 0xE3;
constexpr uint8_t kTableReadReply = 0xE4;
constexpr uint8_t kCapabilities = 0xF3;

// Codes with a meaning of their own to the firmware.
constexpr uint8_t kRestoreFactory = 0x04;
constexpr uint8_t kRestoreColor = 0x08;
constexpr uint8_t kFirmwareLevel = 0xC9;
constexpr uint8_t kConditioning = 0xEA;
constexpr uint8_t kInformation = 0xF2;
constexpr uint8_t kEdidTable = 0xC3;
constexpr std::array<uint8_t, 3> kGains = {0x16, 0x18, 0x1A};

// Sub-commands of the private command C0.
constexpr uint8_t kFactoryMode = 0xE1;
constexpr uint8_t kEdidChunk = 0x66;
constexpr uint8_t kBridgeCaps = 0x6F;
constexpr uint8_t kBridgeVersion = 0xEF;

// Sizes the firmware hands out.
constexpr size_t kFragmentSize = 32;   // capability and EDID fragments
constexpr size_t kChunkSize = 16;      // EDID chunks and indexed EDID reads
constexpr size_t kEdidStoreSize = 256; // the EEPROM behind the chunk reads
constexpr size_t kBridgeChunkSize = 30;
constexpr int kBridgeChunks = 7;
constexpr size_t kInformationSize = 52;
constexpr size_t kInformationName = 14;
constexpr size_t kInformationSerial = 27;
constexpr size_t kInformationText = 13;

// The reset frame of the scaler, as it comes to address 0x77 or, through the TI bridge that
// always writes to 0x37, behind 6E.
constexpr std::array<uint8_t, 5> kResetTail = {0x05, 0x11, 0x00, 0x00, 0xEA};
constexpr uint8_t kResetAddress = 0xEE;
// The serial channel's private EDID command, with no address and no check byte.
constexpr std::array<uint8_t, 2> kSerialEdid = {0xA0, 0x00};

bool IsOffered(const SSimFeature& feature_I, uint16_t value_I) {
    if (feature_I.values.empty()) {
        return true;
    }
    if (value_I > 0xFF) {
        return false;
    }
    char text[3];
    std::snprintf(text, sizeof(text), "%02X", value_I);
    for (size_t at = 0; at < feature_I.values.size(); at += 3) {
        if (feature_I.values.substr(at, 2) == text) {
            return true;
        }
    }
    return false;
}

std::string BuildCapabilities(const SSimModel& model_I, const SSimFamily& family_I) {
    std::string vcp;
    for (const SSimFeature& feature : family_I.features) {
        char code[4];
        std::snprintf(code, sizeof(code), "%02X", feature.code);
        if (!vcp.empty()) {
            vcp += ' ';
        }
        vcp += code;
        if (!feature.values.empty()) {
            vcp += '(';
            vcp += feature.values;
            vcp += ')';
        }
    }
    std::string text = "(prot(monitor)type(LCD)model(";
    text += model_I.displayName;
    text += ")cmds(01 02 03 0C E3 F3)vcp(" + vcp + ")";
    if (!family_I.Has(eOmitsMccsVersion)) {
        text += "mccs_ver(2.2)";
    }
    return text + ")";
}

std::vector<uint8_t> FragmentReply(uint8_t opcode_I, uint16_t offset_I,
                                   std::span<const uint8_t> data_I) {
    std::vector<uint8_t> payload = {opcode_I, static_cast<uint8_t>(offset_I >> 8),
                                    static_cast<uint8_t>(offset_I & 0xFF)};
    if (offset_I < data_I.size()) {
        const size_t count = std::min(kFragmentSize, data_I.size() - offset_I);
        payload.insert(payload.end(), data_I.begin() + offset_I, data_I.begin() + offset_I + count);
    }
    return SimReplyFrame(payload);
}

std::span<const uint8_t> AsBytes(const std::string& text_I) {
    return {reinterpret_cast<const uint8_t*>(text_I.data()), text_I.size()};
}

} // namespace

CSimScaler::CSimScaler(const SSimModel& model_I, uint16_t edidNumber_I, std::string serial_I)
    : mModel(model_I), mFamily(SimFamily(model_I.family)), mSerial(std::move(serial_I)),
      mEdid(BuildSimEdid(model_I, edidNumber_I, mSerial)),
      mCapabilities(BuildCapabilities(model_I, mFamily)) {
    for (const SSimFeature& feature : mFamily.features) {
        if (feature.access == ESimAccess::eReadWrite) {
            mCurrent[feature.code] = feature.factory;
        }
    }
    mSaved = mCurrent;
}

std::optional<uint16_t> CSimScaler::Current(uint8_t code_I) const {
    const auto found = mCurrent.find(code_I);
    return found == mCurrent.end() ? std::nullopt : std::optional<uint16_t>(found->second);
}

std::optional<uint16_t> CSimScaler::Saved(uint8_t code_I) const {
    const auto found = mSaved.find(code_I);
    return found == mSaved.end() ? std::nullopt : std::optional<uint16_t>(found->second);
}

void CSimScaler::SetFromMenu(uint8_t code_I, uint16_t value_I) {
    if (mCurrent.count(code_I) != 0) {
        mCurrent[code_I] = value_I;
    }
}

void CSimScaler::PowerCycle() {
    mCurrent = mSaved;
    mFactoryMode = false;
}

std::vector<uint8_t> CSimScaler::DisplayInformation() const {
    std::vector<uint8_t> record(kInformationSize, 0x00);
    record[0] = static_cast<uint8_t>(kSimVendorId >> 8);
    record[1] = static_cast<uint8_t>(kSimVendorId & 0xFF);
    record[2] = static_cast<uint8_t>(mModel.productId >> 8);
    record[3] = static_cast<uint8_t>(mModel.productId & 0xFF);
    record[4] = mModel.firmware[0];
    record[5] = mModel.firmware[1];
    record[6] = mModel.firmware[2];
    // Texts are blank-padded to their 13 bytes.
    const auto put = [&](size_t at_I, std::string_view text_I) {
        std::fill_n(record.begin() + at_I, kInformationText, ' ');
        const std::string_view text = text_I.substr(0, kInformationText);
        std::copy(text.begin(), text.end(), record.begin() + at_I);
    };
    put(kInformationName, mModel.displayName);
    put(kInformationSerial, mSerial);
    return record;
}

std::vector<uint8_t> CSimScaler::Handle(const std::vector<uint8_t>& frame_I) {
    ++mCounters.requests;
    if (frame_I.size() == kSerialEdid.size() &&
        std::equal(kSerialEdid.begin(), kSerialEdid.end(), frame_I.begin())) {
        return mFamily.Has(eAnswersSerialEdid) ? mEdid : std::vector<uint8_t>{};
    }
    const bool resetTail = frame_I.size() == kResetTail.size() + 1 &&
                           std::equal(kResetTail.begin(), kResetTail.end(), frame_I.begin() + 1);
    if (resetTail && (frame_I[0] == kResetAddress || frame_I[0] == kSimDisplayAddress)) {
        ++mCounters.scalerResets;
        PowerCycle();
        return SimNullMessage();
    }
    if (frame_I.empty() || frame_I[0] != kSimDisplayAddress) {
        NoteHostError("request not addressed to 6E");
        return {};
    }
    if (frame_I.size() < 4) {
        return NoteHostError("request of " + std::to_string(frame_I.size()) + " bytes");
    }
    if (frame_I[1] != kSimHostAddress) {
        return NoteHostError("source address is not 51");
    }
    if ((frame_I[2] & 0x80) == 0) {
        return NoteHostError("length byte without bit 7");
    }
    const size_t length = frame_I[2] & 0x7F;
    if (frame_I.size() != length + 4) {
        return NoteHostError("length byte says " + std::to_string(length) + " but " +
                             std::to_string(frame_I.size() - 4) + " payload bytes came");
    }
    if (SimChecksum(frame_I, 0x00) != 0) {
        return NoteHostError("bad request checksum");
    }
    if (length == 0) {
        return SimNullMessage();
    }
    return HandleRequest(std::vector<uint8_t>(frame_I.begin() + 3, frame_I.end() - 1));
}

std::vector<uint8_t> CSimScaler::HandleRequest(const std::vector<uint8_t>& payload_I) {
    const size_t size = payload_I.size();
    switch (payload_I[0]) {
    case kGetFeature:
        return GetFeature(payload_I);
    case kSetFeature:
        ++mCounters.featureWrites;
        if (size != 4) {
            return NoteHostError("Set VCP Feature with " + std::to_string(size) + " bytes");
        }
        return SetFeature(payload_I[1], static_cast<uint16_t>(payload_I[2] << 8 | payload_I[3]));
    case kSaveSettings:
        if (size != 1) {
            return NoteHostError("Save Current Settings with data");
        }
        mSaved = mCurrent;
        ++mCounters.saves;
        return SimNullMessage();
    case kCapabilities:
        if (size != 3) {
            return NoteHostError("Capabilities Request with " + std::to_string(size) + " bytes");
        }
        return FragmentReply(kCapabilitiesReply,
                             static_cast<uint16_t>(payload_I[1] << 8 | payload_I[2]),
                             AsBytes(mCapabilities));
    case kTableRead:
        return TableRead(payload_I);
    case kPrivate:
        return Private(payload_I);
    default:
        return NoteHostError("unknown command " + std::to_string(payload_I[0]));
    }
}

std::vector<uint8_t> CSimScaler::GetFeature(const std::vector<uint8_t>& payload_I) {
    const bool indexed = payload_I.size() == 4 && payload_I[1] == kInformation;
    if (indexed && !mFamily.Has(eAnswersEdidIndexed)) {
        return Refuse(kInformation);
    }
    if (indexed) {
        const size_t at = payload_I[3] * kChunkSize;
        std::vector<uint8_t> chunk(kChunkSize, 0xFF);
        for (size_t i = 0; i < kChunkSize && at + i < mEdid.size(); ++i) {
            chunk[i] = mEdid[at + i];
        }
        return SimReplyFrame(chunk);
    }
    if (payload_I.size() != 2) {
        return NoteHostError("Get VCP Feature with " + std::to_string(payload_I.size()) + " bytes");
    }
    const uint8_t code = payload_I[1];
    if (code == kInformation && mFamily.Has(eAnswersInformation)) {
        std::vector<uint8_t> payload = {kFeatureReply};
        const std::vector<uint8_t> record = DisplayInformation();
        payload.insert(payload.end(), record.begin(), record.end());
        return SimReplyFrame(payload);
    }
    const SSimFeature* feature = FindSimFeature(mFamily, code);
    if (feature == nullptr || feature->access == ESimAccess::eWriteOnly) {
        return Refuse(code);
    }
    if (code == kFirmwareLevel) {
        return FeatureReply(0, code, mModel.firmware[0],
                            static_cast<uint16_t>(mModel.firmware[1] << 8 | mModel.firmware[2]));
    }
    return FeatureReply(0, code, feature->maximum, mCurrent[code]);
}

std::vector<uint8_t> CSimScaler::SetFeature(uint8_t code_I, uint16_t value_I) {
    const SSimFeature* feature = FindSimFeature(mFamily, code_I);
    if (feature == nullptr || feature->access == ESimAccess::eReadOnly) {
        ++mCounters.refusedWrites;
        return SimNullMessage();
    }
    if (feature->access == ESimAccess::eWriteOnly) {
        // A momentary command acts on any value but 0.
        if (value_I != 0) {
            if (code_I == kRestoreFactory) {
                RestoreFactory(false);
            } else if (code_I == kRestoreColor) {
                RestoreFactory(true);
            } else if (code_I == kConditioning) {
                ++mCounters.conditionings;
            }
        }
        return SimNullMessage();
    }
    if (feature->values.empty()) {
        value_I = std::min(value_I, feature->maximum);
    } else if (!IsOffered(*feature, value_I)) {
        ++mCounters.refusedWrites;
        return SimNullMessage();
    }
    Store(code_I, value_I);
    ApplyEffects(code_I, value_I);
    if (mFamily.customCode != 0 &&
        std::find(kGains.begin(), kGains.end(), code_I) != kGains.end()) {
        Store(mFamily.customCode, mFamily.customValue);
    }
    return SimNullMessage();
}

std::vector<uint8_t> CSimScaler::TableRead(const std::vector<uint8_t>& payload_I) {
    if (payload_I.size() != 4) {
        return NoteHostError("Table Read with " + std::to_string(payload_I.size()) + " bytes");
    }
    const uint16_t offset = static_cast<uint16_t>(payload_I[2] << 8 | payload_I[3]);
    if (payload_I[1] == kCapabilities && mFamily.Has(eAnswersPrivateCaps)) {
        return FragmentReply(kTableReadReply, offset, AsBytes(mCapabilities));
    }
    if (payload_I[1] == kEdidTable && mFamily.Has(eAnswersEdidFragments)) {
        return FragmentReply(kTableReadReply, offset, mEdid);
    }
    return SimNullMessage();
}

std::vector<uint8_t> CSimScaler::Private(const std::vector<uint8_t>& payload_I) {
    const size_t size = payload_I.size();
    const uint8_t command = size > 1 ? payload_I[1] : 0;
    const bool knows = mFamily.Has(eAnswersEdidChunks) || mFamily.Has(eAnswersBridge);
    if (command == kFactoryMode && size == 4 && knows) {
        mFactoryMode = payload_I[3] != 0;
        return SimNullMessage();
    }
    if (command == kEdidChunk && size == 3 && mFamily.Has(eAnswersEdidChunks) && mFactoryMode) {
        // 16 EDID bytes and two bytes of the EEPROM's page address.
        const size_t at = payload_I[2] * kChunkSize;
        std::vector<uint8_t> chunk(kChunkSize + 2, 0x00);
        for (size_t i = 0; i < kChunkSize; ++i) {
            chunk[i] = at + i < mEdid.size() ? mEdid[at + i] : (at + i < kEdidStoreSize ? 0xFF : 0);
        }
        chunk[kChunkSize + 1] = payload_I[2];
        return SimReplyFrame(chunk);
    }
    if (command == kBridgeCaps && size == 3 && mFamily.Has(eAnswersBridge)) {
        const uint8_t index = payload_I[2];
        if (index == 0) {
            const std::vector<uint8_t> sizeReply = {
                kCapabilitiesReply, static_cast<uint8_t>(mCapabilities.size() >> 8),
                static_cast<uint8_t>(mCapabilities.size() & 0xFF)};
            return SimReplyFrame(sizeReply);
        }
        if (index <= kBridgeChunks) {
            std::vector<uint8_t> chunk(kBridgeChunkSize, 0x00);
            const size_t at = (index - 1) * kBridgeChunkSize;
            for (size_t i = 0; i < kBridgeChunkSize && at + i < mCapabilities.size(); ++i) {
                chunk[i] = static_cast<uint8_t>(mCapabilities[at + i]);
            }
            return SimReplyFrame(chunk);
        }
    }
    if (command == kBridgeVersion && size == 2 && mFamily.Has(eAnswersBridge)) {
        // Six digits, last first: major, minor, build as two digits each.
        char text[7];
        std::snprintf(text, sizeof(text), "%02u%02u%02u", mModel.firmware[0] % 100u,
                      mModel.firmware[1] % 100u, mModel.firmware[2] % 100u);
        std::vector<uint8_t> digits(text, text + 6);
        std::reverse(digits.begin(), digits.end());
        return SimReplyFrame(digits);
    }
    return SimNullMessage();
}

void CSimScaler::Store(uint8_t code_I, uint16_t value_I) {
    if (mCurrent.count(code_I) != 0) {
        mCurrent[code_I] = value_I;
    }
}

void CSimScaler::ApplyEffects(uint8_t code_I, uint16_t value_I) {
    for (const SSimEffect& effect : mFamily.effects) {
        if (effect.code == code_I && effect.value == value_I) {
            Store(effect.targetCode, effect.targetValue);
        }
    }
}

void CSimScaler::RestoreFactory(bool colorOnly_I) {
    for (const SSimFeature& feature : mFamily.features) {
        if (feature.access == ESimAccess::eReadWrite && (!colorOnly_I || feature.color)) {
            mCurrent[feature.code] = feature.factory;
        }
    }
    if (colorOnly_I) {
        ++mCounters.colorResets;
    } else {
        // A factory reset also rewrites the non-volatile copy.
        mSaved = mCurrent;
        ++mCounters.factoryResets;
    }
}

std::vector<uint8_t> CSimScaler::FeatureReply(uint8_t result_I, uint8_t code_I, uint16_t maximum_I,
                                              uint16_t value_I) const {
    const std::array<uint8_t, 8> payload = {kFeatureReply,
                                            result_I,
                                            code_I,
                                            0x00,
                                            static_cast<uint8_t>(maximum_I >> 8),
                                            static_cast<uint8_t>(maximum_I & 0xFF),
                                            static_cast<uint8_t>(value_I >> 8),
                                            static_cast<uint8_t>(value_I & 0xFF)};
    return SimReplyFrame(payload);
}

std::vector<uint8_t> CSimScaler::Refuse(uint8_t code_I) const {
    return FeatureReply(0x01, code_I, 0, 0);
}

std::vector<uint8_t> CSimScaler::NoteHostError(std::string text_I) {
    ReportHostError(std::move(text_I));
    return SimNullMessage();
}

void CSimScaler::ReportHostError(std::string text_I) {
    if (gTraceEnabled) {
        Trace("Simulated %.*s %s: host error: %s\n", static_cast<int>(mModel.name.size()),
              mModel.name.data(), mSerial.c_str(), text_I.c_str());
    }
    mHostErrors.push_back(std::move(text_I));
}
