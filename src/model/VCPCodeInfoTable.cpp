#include "model/VCPCodeInfoTable.h"

#include <cstdint>
#include <initializer_list>

namespace {

using A = SVCPCodeInfo::EAccess;

struct SCodeGroup {
    A access;
    SVCPCodeInfo::EKind kind;
    uint32_t readSize;
    uint32_t writeSize;
    std::initializer_list<uint8_t> codes;
};

// clang-format off
const SCodeGroup kCodeGroups[] = {
    {A::eReadWrite, SVCPCodeInfo::eContinuous, 4, 2,
     {0x0C, 0x0E, 0x10, 0x12, 0x13, 0x16, 0x17, 0x18, 0x1A, 0x1C, 0x20, 0x22, 0x24, 0x26, 0x28,
      0x29, 0x2A, 0x2C, 0x30, 0x32, 0x34, 0x36, 0x38, 0x39, 0x3A, 0x3C, 0x3E, 0x40, 0x41, 0x42,
      0x43, 0x44, 0x46, 0x48, 0x4A, 0x4C, 0x56, 0x58, 0x59, 0x5A, 0x5B, 0x5C, 0x5D, 0x5E, 0x64,
      0x6B, 0x6C, 0x6D, 0x6E, 0x6F, 0x70, 0x71, 0x7C, 0x87, 0x88, 0x8A, 0x8C, 0x8E, 0x90, 0x92,
      0x95, 0x96, 0x97, 0x98, 0x9A, 0x9B, 0x9C, 0x9D, 0x9E, 0x9F, 0xA0, 0xA5, 0xA6, 0xA7, 0xE4,
      0xE5, 0xE6}},
    {A::eReadWrite, SVCPCodeInfo::eNonContinuous, 4, 2,
     {0x02, 0x11, 0x14, 0x1E, 0x1F, 0x2E, 0x54, 0x60, 0x62, 0x63, 0x66, 0x82, 0x84, 0x86, 0x8D,
      0x8F, 0x91, 0x93, 0x94, 0xC4, 0xCA, 0xCC, 0xCD, 0xD0, 0xD4, 0xD6, 0xD7, 0xDA, 0xDB, 0xDC,
      0xDE, 0xE0, 0xE1, 0xE2, 0xE3, 0xE7, 0xE8, 0xE9, 0xEB, 0xEC, 0xED, 0xEE, 0xEF, 0xF0, 0xF3,
      0xF4}},
    {A::eReadOnly, SVCPCodeInfo::eNonContinuous, 4, 0,
     {0x03, 0x0B, 0x52, 0xAA, 0xAC, 0xAE, 0xB2, 0xB6, 0xC6, 0xC8, 0xC9, 0xCE, 0xDF}},
    {A::eWriteOnly, SVCPCodeInfo::eNonContinuous, 0, 2,
     {0x01, 0x04, 0x05, 0x06, 0x08, 0x0A, 0x8B, 0xA2, 0xB0, 0xB5, 0xEA}},
    {A::eReadOnly,  SVCPCodeInfo::eContinuous, 4,   0,   {0xC2}},
    {A::eReadOnly,  SVCPCodeInfo::eTable,      9,   0,   {0x73}},
    {A::eReadWrite, SVCPCodeInfo::eTable,      9,   9,   {0x74}},
    {A::eReadWrite, SVCPCodeInfo::eTable,      12,  12,  {0x75}},
    {A::eWriteOnly, SVCPCodeInfo::eTable,      0,   19,  {0x76}},
    {A::eReadOnly,  SVCPCodeInfo::eTable,      128, 0,   {0x78}},
    {A::eReadWrite, SVCPCodeInfo::eTable,      10,  10,  {0xA4}},
    {A::eReadWrite, SVCPCodeInfo::eTable,      5,   5,   {0xB4}},
    {A::eReadWrite, SVCPCodeInfo::eTable,      256, 256, {0xC3}},
    {A::eWriteOnly, SVCPCodeInfo::eTable,      0,   325, {0xCF}},
    {A::eReadWrite, SVCPCodeInfo::eTable,      16,  16,  {0xD2}},
    {A::eReadOnly,  SVCPCodeInfo::eTable,      70,  0,   {0xF2}},
};
// clang-format on

SVCPCodeInfo MakeInfo(const SCodeGroup& group_I) {
    switch (group_I.kind) {
    case SVCPCodeInfo::eContinuous:
        return SVCPCodeInfo::Continuous(group_I.access);
    case SVCPCodeInfo::eNonContinuous:
        return SVCPCodeInfo::NonContinuous(group_I.access);
    case SVCPCodeInfo::eTable:
        break;
    }
    return SVCPCodeInfo::Table(group_I.access, group_I.readSize, group_I.writeSize);
}

} // namespace

VCPCodeInfoMap BuildVCPCodeInfoTable(bool gammaContinuous_I) {
    VCPCodeInfoMap table;
    for (const SCodeGroup& group : kCodeGroups) {
        const SVCPCodeInfo info = MakeInfo(group);
        for (const uint8_t code : group.codes) {
            table.emplace(static_cast<vcpCode>(code), info);
        }
    }
    table.emplace(vcpC_Gamma, gammaContinuous_I ? SVCPCodeInfo::Continuous(A::eReadWrite)
                                                : SVCPCodeInfo::NonContinuous(A::eReadWrite));
    return table;
}
