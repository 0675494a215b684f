#pragma once
// What the program knows of one VCP code before asking the display: who may read or write it,
// whether it is a level, a choice or a table, and the byte sizes of its transfers.

#include <cstdint>

struct SVCPCodeInfo {
    enum EAccess : int { eReadOnly = 0, eWriteOnly = 1, eReadWrite = 2, ePlaceholder = 3 };
    enum EKind : int { eContinuous = 0, eNonContinuous = 1, eTable = 2 };

    EAccess access = ePlaceholder;
    EKind kind = eNonContinuous;
    uint32_t readSize = 0;
    uint32_t writeSize = 0;

    static SVCPCodeInfo Continuous(EAccess access_I);
    static SVCPCodeInfo NonContinuous(EAccess access_I);
    static SVCPCodeInfo Table(EAccess access_I, uint32_t readSize_I, uint32_t writeSize_I);

    bool Readable() const { return access == eReadOnly || access == eReadWrite; }
    bool Writable() const { return access == eWriteOnly || access == eReadWrite; }
    bool WriteOnly() const { return access == eWriteOnly; }
    bool Continuous() const { return kind == eContinuous; }
    bool Table() const { return kind == eTable; }

    bool operator==(const SVCPCodeInfo&) const = default;

private:
    SVCPCodeInfo(EAccess access_I, EKind kind_I, uint32_t readSize_I, uint32_t writeSize_I);
};
