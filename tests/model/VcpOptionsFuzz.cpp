// "vcp" values as a scaler might send them. The first byte chooses whether Gamma is a level.
// Every option belongs to a code of the table, carries that code's info, and an option whose
// kind is Table exists only as an enumerated one, made because the text gave it a set.

#include "model/CapabilitiesParser.h"
#include "model/VCPOptionCodeWithEnumerationT.h"
#include "model/VCPOptionSingleCode.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const bool gammaContinuous = (data[0] & 1) != 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    static const VCPCodeInfoMap tables[] = {BuildVCPCodeInfoTable(false),
                                            BuildVCPCodeInfoTable(true)};
    const VCPCodeInfoMap& info = tables[gammaContinuous ? 1 : 0];
    for (const auto& [code, option] : CreateVCPCodeMap(text, info, gammaContinuous)) {
        const auto row = info.find(code);
        if (!option || row == info.end() || !(option->Info() == row->second)) {
            std::abort();
        }
        const auto* enumerated = dynamic_cast<const VCPOptionEnumerationBase*>(option.get());
        const bool single = dynamic_cast<const VCPOptionSingleCode*>(option.get()) != nullptr;
        if (single == (enumerated != nullptr)) {
            std::abort();
        }
        if (row->second.Table() && enumerated == nullptr) {
            std::abort();
        }
        if (option->Dump().empty()) {
            std::abort();
        }
    }
    return 0;
}
