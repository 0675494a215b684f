#pragma once
// The kinds and access of every VCP code the program knows; a code missing here gets no option,
// whatever the capability string offers.

#include "ddc/VcpCodes.h"
#include "model/SVCPCodeInfo.h"

#include <map>

using VCPCodeInfoMap = std::map<vcpCode, SVCPCodeInfo>;

// Gamma (0x72) is the one code whose kind depends on the model: a continuous level (gamma times
// ten) on some models, a choice of gammaCode on the others.
VCPCodeInfoMap BuildVCPCodeInfoTable(bool gammaContinuous_I);
