#pragma once
// Status codes, flags and the handle of the FTDI programming interface, with the values of the
// vendor's published header so that a host binding can pass them through unchanged.

#include <cstdint>

using SimFtStatus = uint32_t;
using SimFtHandle = void*;

namespace SimFt {

constexpr SimFtStatus kOk = 0;
constexpr SimFtStatus kInvalidHandle = 1;
constexpr SimFtStatus kDeviceNotFound = 2;
constexpr SimFtStatus kDeviceNotOpened = 3;
constexpr SimFtStatus kIoError = 4;
constexpr SimFtStatus kInvalidParameter = 6;
constexpr SimFtStatus kInvalidArgs = 16;
constexpr SimFtStatus kNotSupported = 17;

constexpr uint32_t kOpenBySerialNumber = 0x00000001;
constexpr uint32_t kOpenByDescription = 0x00000002;
constexpr uint32_t kOpenByLocation = 0x00000004;
constexpr uint32_t kListNumberOnly = 0x80000000;
constexpr uint32_t kListByIndex = 0x40000000;
constexpr uint32_t kListAll = 0x20000000;

constexpr uint32_t kPurgeRx = 1;
constexpr uint32_t kPurgeTx = 2;

constexpr uint8_t kBitModeReset = 0x00;
constexpr uint8_t kBitModeMpsse = 0x02;

constexpr uint32_t kLocationNone = 0xFFFFFFFF;

} // namespace SimFt
