#include "sim/SimDescription.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <set>

namespace {

constexpr size_t kSerialSize = 13;
constexpr std::string_view kReserved = ",:@+= ";

std::string_view Trim(std::string_view text_I) {
    const auto blank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    while (!text_I.empty() && blank(text_I.front())) {
        text_I.remove_prefix(1);
    }
    while (!text_I.empty() && blank(text_I.back())) {
        text_I.remove_suffix(1);
    }
    return text_I;
}

bool SameText(std::string_view a_I, std::string_view b_I) {
    return a_I.size() == b_I.size() &&
           std::equal(a_I.begin(), a_I.end(), b_I.begin(), [](char a, char b) {
               return std::tolower(static_cast<unsigned char>(a)) ==
                      std::tolower(static_cast<unsigned char>(b));
           });
}

std::vector<std::string_view> Split(std::string_view text_I, char separator_I) {
    std::vector<std::string_view> parts;
    size_t start = 0;
    while (true) {
        const size_t end = text_I.find(separator_I, start);
        parts.push_back(text_I.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos) {
            return parts;
        }
        start = end + 1;
    }
}

const SSimModel* ModelByName(std::string_view name_I) {
    for (const SSimModel& model : SimModels()) {
        if (SameText(model.name, name_I)) {
            return &model;
        }
    }
    return nullptr;
}

std::string KnownModels() {
    std::string names;
    for (const SSimModel& model : SimModels()) {
        names += names.empty() ? "" : ", ";
        names += model.name;
    }
    return names;
}

// Each parser gives an error text, empty on success.
std::string ParseChannels(std::string_view text_I, SimChannelSet& channels_I) {
    channels_I = 0;
    if (SameText(Trim(text_I), "none")) {
        return {};
    }
    for (const std::string_view part : Split(text_I, '+')) {
        const std::string_view name = Trim(part);
        std::optional<ESimChannel> channel;
        for (int i = 0; i < kSimChannelCount && !channel; ++i) {
            if (SameText(name, SimChannelName(static_cast<ESimChannel>(i)))) {
                channel = static_cast<ESimChannel>(i);
            }
        }
        if (!channel) {
            return "unknown channel \"" + std::string(name) +
                   "\" (known: video, ftdi, ti, hid, serial, none)";
        }
        if ((channels_I & SimChannelBit(*channel)) != 0) {
            return "channel \"" + std::string(name) + "\" given twice";
        }
        channels_I |= SimChannelBit(*channel);
    }
    return {};
}

std::string ParseSerial(std::string_view text_I, std::string& serial_I) {
    if (text_I.empty() || text_I.size() > kSerialSize) {
        return "serial number \"" + std::string(text_I) + "\" must have 1 to 13 characters";
    }
    for (const char c : text_I) {
        if (c < 0x21 || c > 0x7E || kReserved.find(c) != std::string_view::npos) {
            return "serial number \"" + std::string(text_I) + "\" holds a character not allowed";
        }
    }
    serial_I = std::string(text_I);
    serial_I.resize(kSerialSize, '0');
    return {};
}

std::string ParseEdid(std::string_view text_I, const SSimModel& model_I, uint16_t& edid_I) {
    std::string_view digits = text_I;
    if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
        digits.remove_prefix(2);
    }
    unsigned value = 0;
    const auto [end, status] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    const bool parsed =
        status == std::errc() && end == digits.data() + digits.size() && !digits.empty();
    if (!parsed || value == 0 ||
        std::find(model_I.edidNumbers.begin(), model_I.edidNumbers.end(), value) ==
            model_I.edidNumbers.end()) {
        char known[16];
        std::snprintf(known, sizeof(known), "%04X", model_I.edidNumbers[0]);
        std::string message = "EDID number \"" + std::string(text_I) + "\" is not one of " +
                              std::string(model_I.name) + "'s (" + known;
        if (model_I.edidNumbers[1] != 0) {
            std::snprintf(known, sizeof(known), "%04X", model_I.edidNumbers[1]);
            message += std::string(", ") + known;
        }
        return message + ")";
    }
    edid_I = static_cast<uint16_t>(value);
    return {};
}

// Reads the decimal number at the front of text_I; false when there is none.
bool TakeNumber(std::string_view& text_I, int& number_I) {
    const auto [end, status] =
        std::from_chars(text_I.data(), text_I.data() + text_I.size(), number_I);
    if (status != std::errc() || number_I < 0) {
        return false;
    }
    text_I.remove_prefix(static_cast<size_t>(end - text_I.data()));
    return true;
}

std::string ParseFault(std::string_view text_I, std::vector<SSimFault>& faults_I) {
    const std::string bad = "fault \"" + std::string(text_I) + "\"";
    std::string_view rest = text_I;
    size_t letters = 0;
    while (letters < rest.size() && std::isalpha(static_cast<unsigned char>(rest[letters]))) {
        ++letters;
    }
    std::string name(rest.substr(0, letters));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    rest.remove_prefix(letters);
    const std::optional<ESimFault> kind = SimFaultFromName(name);
    if (!kind) {
        return bad + " is of no known kind (known: nack, badchecksum, null, short, notready, "
                     "othercode, silence, late, unplug)";
    }
    SSimFault fault{*kind};
    const bool hasParam = !rest.empty() && std::isdigit(static_cast<unsigned char>(rest[0]));
    if (hasParam != SimFaultTakesParam(*kind)) {
        return bad + (hasParam ? " takes no number" : " needs a number");
    }
    if (hasParam && !TakeNumber(rest, fault.param)) {
        return bad + " has a number out of range";
    }
    if (!rest.empty() && rest[0] == '@') {
        rest.remove_prefix(1);
        if (!TakeNumber(rest, fault.skip)) {
            return bad + " needs a count behind @";
        }
    }
    if (!rest.empty() && rest[0] == '*') {
        rest.remove_prefix(1);
        if (SameText(rest, "forever")) {
            fault.times = -1;
            rest = {};
        } else if (!TakeNumber(rest, fault.times) || fault.times == 0) {
            return bad + " needs a count of 1 or more, or forever, behind *";
        }
    }
    if (!rest.empty()) {
        return bad + " has \"" + std::string(rest) + "\" left over";
    }
    faults_I.push_back(fault);
    return {};
}

std::string ParseDisplay(std::string_view text_I, SSimDisplayEntry& entry_I) {
    const std::vector<std::string_view> parts = Split(text_I, ':');
    const std::string_view head = Trim(parts[0]);
    const size_t at = head.find('@');
    const std::string_view name = Trim(head.substr(0, at));
    if (name.empty()) {
        return "no model name";
    }
    entry_I.model = ModelByName(name);
    if (entry_I.model == nullptr) {
        return "unknown model \"" + std::string(name) + "\" (known: " + KnownModels() + ")";
    }
    entry_I.channels = DefaultSimChannels(*entry_I.model);
    if (at != std::string_view::npos) {
        if (std::string error = ParseChannels(head.substr(at + 1), entry_I.channels);
            !error.empty()) {
            return error;
        }
    }
    for (size_t i = 1; i < parts.size(); ++i) {
        const std::string_view option = Trim(parts[i]);
        const size_t equals = option.find('=');
        const std::string_view key = Trim(option.substr(0, equals));
        const std::string_view value =
            equals == std::string_view::npos ? std::string_view() : Trim(option.substr(equals + 1));
        std::string error;
        if (equals != std::string_view::npos && SameText(key, "serial")) {
            error = ParseSerial(value, entry_I.serial);
        } else if (equals != std::string_view::npos && SameText(key, "edid")) {
            error = ParseEdid(value, *entry_I.model, entry_I.edidNumber);
        } else if (equals != std::string_view::npos && SameText(key, "fault")) {
            error = ParseFault(value, entry_I.faults);
        } else {
            error =
                "unknown option \"" + std::string(option) + "\" (known: serial=, edid=, fault=)";
        }
        if (!error.empty()) {
            return error;
        }
    }
    if (entry_I.edidNumber == 0) {
        entry_I.edidNumber = entry_I.model->edidNumbers[0];
    }
    return {};
}

std::string DefaultSerial(uint16_t edidNumber_I, size_t position_I) {
    char text[32];
    std::snprintf(text, sizeof(text), "VRX%04X%06zu", edidNumber_I, position_I % 1000000);
    return text;
}

} // namespace

SSimDescription ParseSimDescription(std::string_view text_I) {
    SSimDescription result;
    if (Trim(text_I).empty()) {
        return result;
    }
    const std::vector<std::string_view> items = Split(text_I, ',');
    for (size_t i = 0; i < items.size(); ++i) {
        SSimDisplayEntry entry;
        if (std::string error = ParseDisplay(items[i], entry); !error.empty()) {
            result.error = "display " + std::to_string(i + 1) + " (\"" +
                           std::string(Trim(items[i])) + "\"): " + error;
            result.displays.clear();
            return result;
        }
        if (entry.serial.empty()) {
            entry.serial = DefaultSerial(entry.edidNumber, i + 1);
        }
        result.displays.push_back(std::move(entry));
    }
    std::set<std::string> serials;
    for (size_t i = 0; i < result.displays.size(); ++i) {
        if (!serials.insert(result.displays[i].serial).second) {
            result.error = "display " + std::to_string(i + 1) + ": serial number " +
                           result.displays[i].serial + " is already taken by another display";
            result.displays.clear();
            return result;
        }
    }
    return result;
}

std::string FormatSimDescription(std::span<const SSimDisplayEntry> displays_I) {
    std::string text;
    for (const SSimDisplayEntry& entry : displays_I) {
        if (entry.model == nullptr) {
            continue;
        }
        text += text.empty() ? "" : ",";
        text += entry.model->name;
        text += '@';
        std::string channels;
        for (int i = 0; i < kSimChannelCount; ++i) {
            if ((entry.channels & SimChannelBit(static_cast<ESimChannel>(i))) != 0) {
                channels += channels.empty() ? "" : "+";
                channels += SimChannelName(static_cast<ESimChannel>(i));
            }
        }
        text += channels.empty() ? "none" : channels;
        char edid[16];
        std::snprintf(edid, sizeof(edid), "%04X", entry.edidNumber);
        text += ":serial=" + entry.serial + ":edid=" + edid;
        for (const SSimFault& fault : entry.faults) {
            text += ":fault=" + std::string(SimFaultName(fault.kind));
            text += SimFaultTakesParam(fault.kind) ? std::to_string(fault.param) : "";
            text += fault.skip != 0 ? "@" + std::to_string(fault.skip) : "";
            text += fault.times < 0    ? "*forever"
                    : fault.times != 1 ? "*" + std::to_string(fault.times)
                                       : "";
        }
    }
    return text;
}

std::vector<std::unique_ptr<CSimDisplay>>
MakeSimDisplays(std::span<const SSimDisplayEntry> displays_I) {
    std::vector<std::unique_ptr<CSimDisplay>> displays;
    for (const SSimDisplayEntry& entry : displays_I) {
        if (entry.model != nullptr) {
            displays.push_back(std::make_unique<CSimDisplay>(*entry.model, entry.serial,
                                                             entry.channels, entry.edidNumber));
            for (const SSimFault& fault : entry.faults) {
                displays.back()->Faults().Arm(fault);
            }
        }
    }
    return displays;
}
