#pragma once
// The operations of FTDI's bridge library that the FTDI connector uses, call for call, with the
// library's status values, flags and argument conventions. One implementation binds FTDI's own
// library by name; others give the same calls the same meaning over another driver or a
// simulated chip.

#include <cstdint>

using FtStatus = uint32_t;
using FtHandle = void*;

namespace Ft {

constexpr FtStatus kOk = 0;
constexpr FtStatus kInvalidHandle = 1;
// Also what the connector gives when a device index has no location.
constexpr FtStatus kDeviceNotFound = 2;
constexpr FtStatus kDeviceNotOpened = 3;
// Also what the connector gives for a wrong count, a missing ACK or a read that timed out.
constexpr FtStatus kIoError = 4;
// Also what the connector gives for an index beyond the number of devices.
constexpr FtStatus kInvalidParameter = 6;
// A function of the library that could not be bound.
constexpr FtStatus kNotSupported = 17;

constexpr uint32_t kOpenByLocation = 0x00000004;
constexpr uint32_t kListNumberOnly = 0x80000000;
constexpr uint32_t kListByIndex = 0x40000000;
constexpr uint32_t kLocationNone = 0xFFFFFFFF;

constexpr uint32_t kPurgeRxTx = 3;
constexpr uint8_t kBitModeReset = 0x00;
constexpr uint8_t kBitModeMpsse = 0x02;

} // namespace Ft

class IFtdiApi {
public:
    virtual ~IFtdiApi() = default;
    // kListNumberOnly: arg1_IO is a uint32_t* for the count. kListByIndex | kOpenByLocation:
    // arg1_IO is the index itself, arg2_IO a uint32_t* for the location id.
    virtual FtStatus FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) = 0;
    // kOpenByLocation: arg_I is the location id itself.
    virtual FtStatus FT_OpenEx(void* arg_I, uint32_t flags_I, FtHandle* handle_O) = 0;
    virtual FtStatus FT_Close(FtHandle handle_I) = 0;
    virtual FtStatus FT_Read(FtHandle handle_I, void* buffer_O, uint32_t count_I,
                             uint32_t* read_O) = 0;
    virtual FtStatus FT_Write(FtHandle handle_I, const void* data_I, uint32_t count_I,
                              uint32_t* written_O) = 0;
    virtual FtStatus FT_ResetDevice(FtHandle handle_I) = 0;
    virtual FtStatus FT_SetChars(FtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I,
                                 uint8_t error_I, uint8_t errorEnable_I) = 0;
    virtual FtStatus FT_Purge(FtHandle handle_I, uint32_t mask_I) = 0;
    virtual FtStatus FT_SetTimeouts(FtHandle handle_I, uint32_t readMs_I, uint32_t writeMs_I) = 0;
    virtual FtStatus FT_GetQueueStatus(FtHandle handle_I, uint32_t* count_O) = 0;
    virtual FtStatus FT_SetLatencyTimer(FtHandle handle_I, uint8_t milliseconds_I) = 0;
    virtual FtStatus FT_SetBitMode(FtHandle handle_I, uint8_t mask_I, uint8_t mode_I) = 0;
    virtual FtStatus FT_SetUSBParameters(FtHandle handle_I, uint32_t inSize_I,
                                         uint32_t outSize_I) = 0;
};
