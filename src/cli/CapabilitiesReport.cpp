#include "cli/CapabilitiesReport.h"

#include "cli/CJsonWriter.h"
#include "model/VCPOptionCodeWithEnumerationT.h"

#include <cstdio>
#include <sstream>

namespace {

constexpr const char* kRequiredKeys[] = {"prot", "type", "model", "mccs_ver", "vcp", "cmds"};

std::string Hex(int32_t value_I) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%02X", static_cast<unsigned>(value_I));
    return text;
}

const char* KindName(const VCPOptionBase& option_I) {
    switch (option_I.Info().kind) {
    case SVCPCodeInfo::eContinuous:
        return "continuous";
    case SVCPCodeInfo::eNonContinuous:
        return "non-continuous";
    case SVCPCodeInfo::eTable:
        return "table";
    }
    return "";
}

// The values an option allows; null when it takes a level or any value.
const std::vector<int32_t>* AllowedValues(const VCPOptionBase& option_I) {
    const auto* enumeration = dynamic_cast<const VCPOptionEnumerationBase*>(&option_I);
    return enumeration ? &enumeration->Values() : nullptr;
}

} // namespace

std::vector<std::string> MissingCapabilityKeys(const CapabilitiesMap& keys_I) {
    std::vector<std::string> missing;
    for (const char* key : kRequiredKeys) {
        if (!keys_I.count(key)) {
            missing.emplace_back(key);
        }
    }
    return missing;
}

std::string FormatCapabilitiesText(const SCapabilitiesReport& report_I) {
    std::ostringstream out;
    out << "Capability string: " << report_I.raw << "\n";
    for (const std::string& repair : report_I.repairs) {
        out << "Repaired: " << repair << "\n";
    }
    out << "Keys:\n";
    for (const auto& [key, value] : report_I.keys) {
        out << "  \"" << key << "\" = \"" << value << "\"\n";
    }
    for (const std::string& key : MissingCapabilityKeys(report_I.keys)) {
        out << "Missing key: \"" << key << "\"\n";
    }
    out << "VCP codes:\n";
    for (const auto& [code, option] : report_I.options) {
        out << "  " << Hex(code) << " " << VCPCodeToString(code) << ", " << KindName(*option);
        if (const std::vector<int32_t>* values = AllowedValues(*option)) {
            if (values->empty()) {
                out << ", any value";
            } else {
                out << ", values";
                for (const int32_t value : *values) {
                    out << " " << Hex(value);
                }
            }
        }
        out << "\n";
    }
    out << "Commands:\n";
    for (const int32_t command : report_I.commands) {
        out << "  " << Hex(command) << " " << VCPCodeToString(static_cast<ddcCommandCodes>(command))
            << "\n";
    }
    return out.str();
}

std::string FormatCapabilitiesJson(const SCapabilitiesReport& report_I) {
    CJsonWriter json;
    json.BeginObject().Key("raw").String(report_I.raw);
    json.Key("repairs").BeginArray();
    for (const std::string& repair : report_I.repairs) {
        json.String(repair);
    }
    json.EndArray().Key("keys").BeginObject();
    for (const auto& [key, value] : report_I.keys) {
        json.Key(key).String(value);
    }
    json.EndObject().Key("missingKeys").BeginArray();
    for (const std::string& key : MissingCapabilityKeys(report_I.keys)) {
        json.String(key);
    }
    json.EndArray().Key("vcp").BeginArray();
    for (const auto& [code, option] : report_I.options) {
        json.BeginObject().Key("code").Number(code).Key("name").String(VCPCodeToString(code));
        json.Key("kind").String(KindName(*option)).Key("values");
        if (const std::vector<int32_t>* values = AllowedValues(*option)) {
            json.BeginArray();
            for (const int32_t value : *values) {
                json.Number(value);
            }
            json.EndArray();
        } else {
            json.Null();
        }
        json.EndObject();
    }
    json.EndArray().Key("commands").BeginArray();
    for (const int32_t command : report_I.commands) {
        json.BeginObject().Key("code").Number(command);
        json.Key("name").String(VCPCodeToString(static_cast<ddcCommandCodes>(command)));
        json.EndObject();
    }
    json.EndArray().EndObject();
    return json.Text();
}
