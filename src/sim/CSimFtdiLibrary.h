#pragma once
// The FTDI programming interface over a set of simulated chips, call for call: the list and
// open calls with their flags, and the per-handle calls that check the handle first. Pointer
// arguments follow the vendor's conventions so that a host binding passes them through.

#include "sim/CSimFtdiChip.h"
#include "sim/SimFtdiTypes.h"

#include <cstdint>
#include <vector>

class CSimFtdiLibrary {
public:
    // The chips stay owned by the caller and must outlive the library.
    void AddChip(CSimFtdiChip& chip_I);

    // kListNumberOnly: arg1_IO is a uint32_t* for the count. kListByIndex with an open flag:
    // arg1_IO is the index, arg2_IO a uint32_t* for the location or a char buffer of 64 bytes
    // for the serial number or description. kListAll with an open flag: arg1_IO is an array of
    // char buffers, arg2_IO a uint32_t* for the count.
    SimFtStatus ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) const;
    // arg_I is a zero-terminated string for serial number and description, the location itself
    // for kOpenByLocation.
    SimFtStatus OpenEx(void* arg_I, uint32_t flags_I, SimFtHandle* handle_O);
    SimFtStatus Close(SimFtHandle handle_I);

    SimFtStatus ResetDevice(SimFtHandle handle_I);
    SimFtStatus SetUSBParameters(SimFtHandle handle_I, uint32_t inSize_I, uint32_t outSize_I);
    SimFtStatus SetChars(SimFtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I,
                         uint8_t error_I, uint8_t errorEnable_I);
    SimFtStatus Purge(SimFtHandle handle_I, uint32_t mask_I);
    SimFtStatus SetTimeouts(SimFtHandle handle_I, uint32_t readMs_I, uint32_t writeMs_I);
    SimFtStatus SetLatencyTimer(SimFtHandle handle_I, uint8_t milliseconds_I);
    SimFtStatus SetBitMode(SimFtHandle handle_I, uint8_t mask_I, uint8_t mode_I);
    SimFtStatus GetQueueStatus(SimFtHandle handle_I, uint32_t* count_O);
    SimFtStatus Read(SimFtHandle handle_I, void* buffer_O, uint32_t count_I, uint32_t* read_O);
    SimFtStatus Write(SimFtHandle handle_I, const void* data_I, uint32_t count_I,
                      uint32_t* written_O);

private:
    std::vector<CSimFtdiChip*> PresentChips() const;
    CSimFtdiChip* OpenChip(SimFtHandle handle_I) const;

    std::vector<CSimFtdiChip*> mChips;
};
