#include "cli/OfflineCommands.h"

#include "cli/CJsonWriter.h"
#include "cli/CapabilitiesReport.h"
#include "ddc/EdidDescriptor.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "model/CDisplay.h"
#include "model/CEdidBuilder.h"
#include "resources/CResourceModule.h"
#include "resources/ResourceLookup.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

// Far above an EDID with every extension block (32 KiB); a larger file is something else.
constexpr size_t kLargestEdidFile = 64 * 1024;
constexpr uint8_t kEdidHeader[] = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
// Maker id (big endian, three letters of five bits) and product code (little endian).
constexpr size_t kMakerIdOffset = 8;
constexpr size_t kProductCodeOffset = 10;

std::string Hex4(uint32_t value_I, int digits_I) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%0*X", digits_I, value_I);
    return text;
}

std::string ModelGroup(const char* group_I, uint32_t tabletId_I, uint16_t languageId_I) {
    if (tabletId_I == CEdidBuilder::kNoTablet) {
        return {};
    }
    return ToNarrow(GetGroupString(group_I, static_cast<uint16_t>(tabletId_I & 0xFFFF),
                                   languageId_I, true, ProgramResources()));
}

} // namespace

SEdidFacts ReadEdidFacts(const ByteVector& edid_I, uint16_t languageId_I) {
    SEdidFacts facts;
    facts.headerValid = edid_I.size() >= sizeof kEdidHeader &&
                        std::equal(std::begin(kEdidHeader), std::end(kEdidHeader), edid_I.begin());
    if (edid_I.size() >= kProductCodeOffset + 2) {
        const unsigned maker = (edid_I[kMakerIdOffset] << 8) | edid_I[kMakerIdOffset + 1];
        for (const int shift : {10, 5, 0}) {
            facts.makerId += static_cast<char>('A' - 1 + ((maker >> shift) & 0x1F));
        }
        facts.edidNumber = static_cast<uint16_t>(edid_I[kProductCodeOffset] |
                                                 (edid_I[kProductCodeOffset + 1] << 8));
        char shortName[16];
        std::snprintf(shortName, sizeof shortName, "%s%04X", facts.makerId.c_str(),
                      facts.edidNumber);
        facts.shortName = shortName;
        CEdidBuilder::Instance();
        facts.tabletId = CDisplayConfigInterface::LookupByEDID(facts.shortName);
        facts.productName = ModelGroup("2000", facts.tabletId, languageId_I);
        if (!facts.productName.empty()) {
            facts.modelNumber = ModelGroup("2101", facts.tabletId, languageId_I);
        }
    }
    // Discovery reads the descriptors from a buffer of fixed size, whatever the block count.
    ByteVector buffer(SDisplayInfo::kEdidBufferSize, 0x00);
    std::copy_n(edid_I.begin(), std::min(edid_I.size(), buffer.size()), buffer.begin());
    facts.monitorName = FindEdidDescriptor(buffer, kEdidMonitorNameTag);
    facts.serialNumber = FindEdidDescriptor(buffer, kEdidSerialNumberTag);
    return facts;
}

int RunParseCaps(const SCliContext& context_I) {
    SCapabilitiesReport report;
    if (context_I.options.operands.empty() || context_I.options.operands[0] == "-") {
        report.raw.assign(std::istreambuf_iterator<char>(context_I.in),
                          std::istreambuf_iterator<char>());
        while (!report.raw.empty() && (report.raw.back() == '\n' || report.raw.back() == '\r')) {
            report.raw.pop_back();
        }
    } else {
        report.raw = context_I.options.operands[0];
    }
    report.keys = ParseCapabilitiesString(report.raw);

    // The model decides the kind of gamma and whether the battery mode values are widened.
    bool gammaContinuous = false;
    if (context_I.options.edidNumber != 0) {
        CEdidBuilder::Instance();
        const CDisplay model(nullptr, context_I.options.edidNumber);
        gammaContinuous = model.IsElmFamily();
        const auto vcp = report.keys.find("vcp");
        if (model.IsCedarGenTwo() && vcp != report.keys.end() &&
            WidenBatteryModeOptions(vcp->second)) {
            report.repairs.push_back("F4(02 03) read as F4(00 02 03)");
        }
    }
    const auto vcp = report.keys.find("vcp");
    if (vcp != report.keys.end()) {
        report.options =
            CreateVCPCodeMap(vcp->second, BuildVCPCodeInfoTable(gammaContinuous), gammaContinuous);
    }
    const auto cmds = report.keys.find("cmds");
    if (cmds != report.keys.end()) {
        report.commands = CreateCommandsVector(cmds->second);
    }
    context_I.out << (context_I.options.json ? FormatCapabilitiesJson(report)
                                             : FormatCapabilitiesText(report));
    return eCliExit_Done;
}

int RunEdid(const SCliContext& context_I) {
    const std::string& path = context_I.options.operands[0];
    // "-" is standard input, as for every tool that reads a file.
    const bool fromInput = path == "-";
    std::ifstream file;
    if (!fromInput) {
        std::error_code error;
        if (!std::filesystem::is_regular_file(path, error)) {
            return context_I.Fail(
                eCliExit_Usage, "cannot read '" + path + "': " +
                                    (error ? error.message() : std::string("not a regular file")));
        }
        file.open(path, std::ios::binary);
        if (!file) {
            return context_I.Fail(eCliExit_Usage,
                                  "cannot read '" + path + "': " + std::strerror(errno));
        }
    }
    std::istream& source = fromInput ? context_I.in : file;
    // One byte more than allowed tells a file that is too large.
    ByteVector edid(kLargestEdidFile + 1);
    source.read(reinterpret_cast<char*>(edid.data()), static_cast<std::streamsize>(edid.size()));
    edid.resize(static_cast<size_t>(source.gcount()));
    if (edid.size() > kLargestEdidFile) {
        return context_I.Fail(eCliExit_Usage, "'" + path + "' is too large to be an EDID");
    }
    if (edid.size() < kProductCodeOffset + 2) {
        return context_I.Fail(eCliExit_Usage, "'" + path + "' is too short to be an EDID");
    }
    const uint16_t language =
        MakeDisplayConfigOptions(context_I.options).language.mLanguage.languageId;
    const SEdidFacts facts = ReadEdidFacts(edid, language);
    const bool supported = !facts.productName.empty();
    if (context_I.options.json) {
        CJsonWriter json;
        json.BeginObject().Key("headerValid").Bool(facts.headerValid);
        json.Key("makerId").String(facts.makerId).Key("edidNumber").Number(facts.edidNumber);
        json.Key("shortName").String(facts.shortName);
        json.Key("monitorName").String(facts.monitorName);
        json.Key("serialNumber").String(facts.serialNumber);
        json.Key("supported").Bool(supported);
        json.Key("tabletId");
        if (facts.tabletId == CEdidBuilder::kNoTablet) {
            json.Null();
        } else {
            json.Number(facts.tabletId);
        }
        json.Key("productName").String(facts.productName);
        json.Key("modelNumber").String(facts.modelNumber).EndObject();
        context_I.out << json.Text();
        return eCliExit_Done;
    }
    const auto orNone = [](const std::string& text_I) {
        return text_I.empty() ? std::string("(none)") : text_I;
    };
    std::ostringstream out;
    out << "EDID header:    " << (facts.headerValid ? "valid" : "not valid") << "\n"
        << "Maker id:       " << facts.makerId << "\n"
        << "EDID number:    " << Hex4(facts.edidNumber, 4) << "\n"
        << "Monitor name:   " << orNone(facts.monitorName) << "\n"
        << "Serial number:  " << orNone(facts.serialNumber) << "\n";
    if (supported) {
        out << "Supported:      yes, " << facts.productName << " (" << facts.modelNumber
            << "), tablet " << Hex4(facts.tabletId, 8) << "\n";
    } else {
        out << "Supported:      no\n";
    }
    context_I.out << out.str();
    return eCliExit_Done;
}
