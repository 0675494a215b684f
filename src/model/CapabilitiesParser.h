#pragma once
// The capability string turned into the session's model. The readers are tolerant on purpose:
// they never fail by themselves, malformed text just yields less, and the session decides by
// looking at what came out.

#include "ddc/VcpCodes.h"
#include "model/VCPCodeInfoTable.h"
#include "model/VCPOptionBase.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

using CapabilitiesMap = std::map<std::string, std::string>;
using VCPOptionsMap = std::map<vcpCode, std::shared_ptr<VCPOptionBase>>;

// Keys at depth 1 and their values at depth 2 and deeper, inner parentheses kept as text. Keys
// are kept as they stand, blanks and case included; a pair with an empty key or value is not
// stored, and its key then runs into the next one.
CapabilitiesMap ParseCapabilitiesString(const std::string& caps_I);

// One option per code of the "vcp" value that has a row in codeInfo_I. gammaContinuous_I says
// whether Gamma is a level on this model.
VCPOptionsMap CreateVCPCodeMap(const std::string& vcpText_I, const VCPCodeInfoMap& codeInfo_I,
                               bool gammaContinuous_I);

// The command codes of the "cmds" value, up to the first token that is no number.
std::vector<int32_t> CreateCommandsVector(const std::string& cmdsText_I);

// Some firmware offers Battery Mode as F4(02 03) and yet reports 0; the value list is widened
// to let 0 through. Only the exact text is repaired. Returns true when vcpText_IO changed.
bool WidenBatteryModeOptions(std::string& vcpText_IO);
