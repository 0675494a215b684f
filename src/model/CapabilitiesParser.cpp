#include "model/CapabilitiesParser.h"

#include "foundation/Trace.h"
#include "model/HexList.h"
#include "model/VCPOptionCodeWithEnumerationT.h"
#include "model/VCPOptionSingleCode.h"

namespace {

// A blank or a parenthesis ends nothing of its own at the end of the text.
bool IsBlankOrParenthesis(char c) {
    return c == ' ' || c == '(' || c == ')';
}

// The code of one "vcp" entry: hexadecimal, read as far as it goes; unreadable text and numbers
// beyond 16 bits give 0, which has no row.
vcpCode EntryCode(const std::string& key_I) {
    int64_t number = 0;
    if (!ReadHexNumber(key_I, number) || number < 0 || number > 0xFFFF) {
        return vcpC_Undefined;
    }
    return static_cast<vcpCode>(static_cast<int16_t>(static_cast<uint16_t>(number)));
}

template <typename T>
std::shared_ptr<VCPOptionBase> MakeNamedEnumeration(vcpCode code, const std::string& optionSet,
                                                    const VCPCodeInfoMap& codeInfo_I) {
    VRX_ASSERT(!optionSet.empty());
    VRX_ASSERT(!codeInfo_I.at(code).Continuous() && !codeInfo_I.at(code).Table());
    return std::make_shared<VCPOptionCodeWithEnumerationT<T>>(code, codeInfo_I.at(code), optionSet);
}

std::shared_ptr<VCPOptionBase> MakeOption(vcpCode code, const std::string& optionSet,
                                          const VCPCodeInfoMap& codeInfo_I,
                                          bool gammaContinuous_I) {
    switch (code) {
    case vcpC_SelectColorPreset:
        return MakeNamedEnumeration<colorPresetCode>(code, optionSet, codeInfo_I);
    case vcpC_Gamma:
        if (gammaContinuous_I) {
            VRX_ASSERT(codeInfo_I.at(code).Continuous() && !codeInfo_I.at(code).Table());
            return std::make_shared<VCPOptionSingleCode>(code, codeInfo_I.at(code));
        }
        return MakeNamedEnumeration<gammaCode>(code, optionSet, codeInfo_I);
    case vcpC_DisplayScaling:
    case vcpC_AspectRatio:
        return MakeNamedEnumeration<displayScalingCode>(code, optionSet, codeInfo_I);
    case vcpC_UniformityCompensation:
        return MakeNamedEnumeration<uniformityCompCode>(code, optionSet, codeInfo_I);
    case vcpC_ColorSpace:
        return MakeNamedEnumeration<colorSpaceCode>(code, optionSet, codeInfo_I);
    case vcpC_LedBrightness:
        return MakeNamedEnumeration<ledBrightnessCode>(code, optionSet, codeInfo_I);
    case vcpC_DisplayPresets:
        return MakeNamedEnumeration<displayPresetCode>(code, optionSet, codeInfo_I);
    default:
        break;
    }
    if (!optionSet.empty()) {
        return MakeNamedEnumeration<int>(code, optionSet, codeInfo_I);
    }
    const SVCPCodeInfo& info = codeInfo_I.at(code);
    if (info.Table()) {
        return nullptr;
    }
    if (info.Continuous()) {
        return std::make_shared<VCPOptionSingleCode>(code, info);
    }
    return std::make_shared<VCPOptionCodeWithEnumerationT<int>>(code, info, std::string());
}

void TraceCreated(const VCPOptionBase& option_I, const std::string& optionSet_I) {
    const std::string name = VCPCodeToString(option_I.GetCode());
    if (dynamic_cast<const VCPOptionSingleCode*>(&option_I) != nullptr) {
        Trace("Single Option %s\n", name.c_str());
    } else if (optionSet_I.empty()) {
        Trace("Enumerated Option %s: Option Set <all>\n", name.c_str());
    } else {
        Trace("Enumerated Option %s: Option Set %s\n", name.c_str(), optionSet_I.c_str());
    }
}

void FinishEntry(std::string& key, std::string& optionSet, const VCPCodeInfoMap& codeInfo_I,
                 bool gammaContinuous_I, VCPOptionsMap& options_IO) {
    VRX_ASSERT(!key.empty());
    const vcpCode code = EntryCode(key);
    if (codeInfo_I.count(code) != 0) {
        auto option = MakeOption(code, optionSet, codeInfo_I, gammaContinuous_I);
        if (!option) {
            Trace("Table Option %s <Not Implemented>\n", VCPCodeToString(code).c_str());
        } else {
            if (gTraceEnabled) {
                TraceCreated(*option, optionSet);
            }
            options_IO[code] = std::move(option);
        }
    }
    key.clear();
    optionSet.clear();
}

} // namespace

CapabilitiesMap ParseCapabilitiesString(const std::string& caps_I) {
    CapabilitiesMap map;
    int parens = 0;
    std::string key;
    std::string value;
    for (const char c : caps_I) {
        if (c == '(') {
            if (parens >= 2) {
                value += c;
            }
            ++parens;
        } else if (c == ')') {
            if (parens >= 3) {
                value += c;
            } else {
                VRX_ASSERT(parens != 0);
                if (!key.empty() && !value.empty()) {
                    map[key] = value;
                    key.clear();
                    value.clear();
                }
            }
            --parens;
        } else if (parens == 1) {
            key += c;
        } else {
            VRX_ASSERT(parens != 0);
            value += c;
        }
    }
    return map;
}

VCPOptionsMap CreateVCPCodeMap(const std::string& vcpText_I, const VCPCodeInfoMap& codeInfo_I,
                               bool gammaContinuous_I) {
    VCPOptionsMap options;
    int parens = 0;
    std::string key;
    std::string optionSet;
    for (size_t i = 0; i < vcpText_I.size(); ++i) {
        const char c = vcpText_I[i];
        if (i + 1 == vcpText_I.size()) {
            if (!IsBlankOrParenthesis(c)) {
                (parens == 1 ? optionSet : key) += c;
            }
            parens = 0;
        } else if (c == '(') {
            ++parens;
            continue;
        } else if (c == ')') {
            --parens;
            continue;
        } else if (parens != 0) {
            // Depth 2 and deeper keeps only the blanks.
            if (c == ' ' || parens == 1) {
                optionSet += c;
            }
            continue;
        } else if (c != ' ') {
            key += c;
            continue;
        }
        FinishEntry(key, optionSet, codeInfo_I, gammaContinuous_I, options);
    }
    return options;
}

std::vector<int32_t> CreateCommandsVector(const std::string& cmdsText_I) {
    if (gTraceEnabled) {
        Trace("Commands src: %s", cmdsText_I.c_str());
    }
    std::vector<int32_t> commands = ReadHexList(cmdsText_I);
    if (gTraceEnabled) {
        Trace("Commands parsed: \n");
        for (const int32_t command : commands) {
            Trace("%s (0x%X)\n", VCPCodeToString(static_cast<ddcCommandCodes>(command)).c_str(),
                  static_cast<unsigned>(command));
        }
    }
    return commands;
}

bool WidenBatteryModeOptions(std::string& vcpText_IO) {
    if (vcpText_IO.find("F4(02 03)") == std::string::npos) {
        return false;
    }
    Trace("CDisplay::Initialize: WARNING - HACKING 0xF4 options to include illegal zero value\n");
    const size_t open = vcpText_IO.find("F4(");
    vcpText_IO.insert(open + 3, "00 ");
    Trace("Updated caps for 0xF4: %s\n", vcpText_IO.c_str());
    return true;
}
