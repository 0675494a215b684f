#pragma once
// The 16-bit status vocabulary of the code base and its names. The list keeps the order in
// which the name table is filled.

#include <cstdint>
#include <map>
#include <string>

#define VRX_STATUS_CODES(X)                                                                        \
    X(VRXSTATUS_SUCCESS, 0x0000)                                                                   \
    X(VRXSTATUS_FAILURE, 0xFFFF)                                                                   \
    X(VRXSTATUS_MEMORY_BAD, 0x0100)                                                                \
    X(VRXSTATUS_MEMORY_ALLOC, 0x0101)                                                              \
    X(VRXSTATUS_MEMORY_BAD_PTR, 0x0102)                                                            \
    X(VRXSTATUS_MEMORY_NULL_PTR, 0x0103)                                                           \
    X(VRXSTATUS_MEMORY_BAD_FREE, 0x0104)                                                           \
    X(VRXSTATUS_MEMORY_OVERRUN, 0x0105)                                                            \
    X(VRXSTATUS_RESOURCE_MISSING, 0x0200)                                                          \
    X(VRXSTATUS_RESOURCE_BAD, 0x0201)                                                              \
    X(VRXSTATUS_RESOURCE_EXISTS, 0x0202)                                                           \
    X(VRXSTATUS_RESOURCE_BAD_ALLOC, 0x0203)                                                        \
    X(VRXSTATUS_RESOURCE_BAD_OPEN, 0x0204)                                                         \
    X(VRXSTATUS_RESOURCE_BAD_CLOSE, 0x0205)                                                        \
    X(VRXSTATUS_RESOURCE_BAD_SEEK, 0x0206)                                                         \
    X(VRXSTATUS_RESOURCE_BAD_WRITE, 0x0207)                                                        \
    X(VRXSTATUS_RESOURCE_BAD_READ, 0x0208)                                                         \
    X(VRXSTATUS_RESOURCE_ACCESS_DENIED, 0x0209)                                                    \
    X(VRXSTATUS_RESOURCE_FULL, 0x020A)                                                             \
    X(VRXSTATUS_RESOURCE_EMPTY, 0x020B)                                                            \
    X(VRXSTATUS_RESOURCE_SHMEM, 0x020C)                                                            \
    X(VRXSTATUS_RESOURCE_SEMA, 0x020D)                                                             \
    X(VRXSTATUS_RESOURCE_TIMER_ALLOC, 0x020E)                                                      \
    X(VRXSTATUS_RESOURCE_EUID_NOT_ROOT, 0x020F)                                                    \
    X(VRXSTATUS_INVALID_TAG, 0x0800)                                                               \
    X(VRXSTATUS_TAG_NOT_IN_LIST, 0x0801)                                                           \
    X(VRXSTATUS_DATA_SUPRESSED, 0x0802)                                                            \
    X(VRXSTATUS_CANT_OPEN_PORT, 0x0700)                                                            \
    X(VRXSTATUS_CANT_CLOSE_PORT, 0x0701)                                                           \
    X(VRXSTATUS_READ_LENGTH, 0x0702)                                                               \
    X(VRXSTATUS_WRITE_LENGTH, 0x0703)                                                              \
    X(VRXSTATUS_BAUD_RATE, 0x0704)                                                                 \
    X(VRXSTATUS_SIO_SET_PORT, 0x0705)                                                              \
    X(VRXSTATUS_SET_BUFFER, 0x0706)                                                                \
    X(VRXSTATUS_PREFS_MISSING, 0x031B)                                                             \
    X(VRXSTATUS_PREFS_BAD, 0x0301)                                                                 \
    X(VRXSTATUS_PREFS_WRONG_VERSION, 0x0302)                                                       \
    X(VRXSTATUS_PREFS_BAD_ALLOC, 0x0303)                                                           \
    X(VRXSTATUS_PREFS_BAD_OPEN, 0x0304)                                                            \
    X(VRXSTATUS_PREFS_BAD_CLOSE, 0x0305)                                                           \
    X(VRXSTATUS_PREFS_BAD_SEEK, 0x0306)                                                            \
    X(VRXSTATUS_PREFS_BAD_WRITE, 0x0307)                                                           \
    X(VRXSTATUS_PREFS_BAD_READ, 0x0308)                                                            \
    X(VRXSTATUS_PREFS_ACCESS_DENIED, 0x0309)                                                       \
    X(VRXSTATUS_PREFS_BAD_VALUE, 0x030A)                                                           \
    X(VRXSTATUS_PREFS_EOF, 0x030B)                                                                 \
    X(VRXSTATUS_PREFS_TEMP_FILE, 0x030C)                                                           \
    X(VRXSTATUS_PREFS_BAD_FATAL, 0x030D)                                                           \
    X(VRXSTATUS_XSETTINGS_IMPORT_ERR, 0x1100)                                                      \
    X(VRXSTATUS_XSETTINGS_BAD_IMPORT_FILE, 0x1101)                                                 \
    X(VRXSTATUS_XSETTINGS_NO_IMPORT_FILE, 0x1102)                                                  \
    X(VRXSTATUS_XSETTINGS_EXPORT_ERR, 0x1110)                                                      \
    X(VRXSTATUS_OS_WRONG_VERSION, 0x0400)                                                          \
    X(VRXSTATUS_OS_BAD_SPAWN, 0x0401)                                                              \
    X(VRXSTATUS_OS_BAD_EXE, 0x0402)                                                                \
    X(VRXSTATUS_OS_MISSING_EXE, 0x0403)                                                            \
    X(VRXSTATUS_OS_BAD_DRIVER_LOAD, 0x0404)                                                        \
    X(VRXSTATUS_OS_ADB_MANAGER, 0x0405)                                                            \
    X(VRXSTATUS_OS_BAD_KERNEL_LOAD, 0x0406)                                                        \
    X(VRXSTATUS_OS_BAD_KERNEL_UNLOAD, 0x0407)                                                      \
    X(VRXSTATUS_OS_CANT_OPEN_DRIVER, 0x0408)                                                       \
    X(VRXSTATUS_OS_DRIVER_CALL, 0x0409)                                                            \
    X(VRXSTATUS_OS_INVALID_REFNUM, 0x040A)                                                         \
    X(VRXSTATUS_OS_TIME_OF_DAY, 0x040B)                                                            \
    X(VRXSTATUS_OS_BAD_SYSTEM_INFO, 0x040C)                                                        \
    X(VRXSTATUS_OS_BAD_RESOURCE, 0x040D)                                                           \
    X(VRXSTATUS_OS_NO_MORE_PORTS, 0x040E)                                                          \
    X(VRXSTATUS_OS_PORT_IN_USE, 0x040F)                                                            \
    X(VRXSTATUS_OS_FAILURE, 0x0410)                                                                \
    X(VRXSTATUS_OS_BAD_REGISTRY_ACCESS, 0x0411)                                                    \
    X(VRXSTATUS_OS_ZERO_SESSION, 0x0412)                                                           \
    X(VRXSTATUS_TABLET_MISSING, 0x0500)                                                            \
    X(VRXSTATUS_TABLET_LOST_CONNECTION, 0x0501)                                                    \
    X(VRXSTATUS_TABLET_ACQUIRE_AMBIGUOUS, 0x0502)                                                  \
    X(VRXSTATUS_TABLET_BAD_OPEN, 0x0503)                                                           \
    X(VRXSTATUS_TABLET_BAD_INIT, 0x0504)                                                           \
    X(VRXSTATUS_TABLET_BAD_CLOSE, 0x0505)                                                          \
    X(VRXSTATUS_TABLET_BAD_FLUSH, 0x0506)                                                          \
    X(VRXSTATUS_TABLET_BAD_SEND, 0x0507)                                                           \
    X(VRXSTATUS_TABLET_BAD_READ, 0x0508)                                                           \
    X(VRXSTATUS_TABLET_BAD_ACQUIRE, 0x0509)                                                        \
    X(VRXSTATUS_TABLET_BAD_STREAM, 0x050A)                                                         \
    X(VRXSTATUS_TABLET_TIMEOUT, 0x050B)                                                            \
    X(VRXSTATUS_TABLET_BAD_PARAM, 0x050C)                                                          \
    X(VRXSTATUS_TABLET_BAD_SIZE, 0x050D)                                                           \
    X(VRXSTATUS_TABLET_FOUND, 0x050E)                                                              \
    X(VRXSTATUS_TABLET_NEED_PRESSURE, 0x050F)                                                      \
    X(VRXSTATUS_TABLET_DONT_NEED_PRESSURE, 0x0510)                                                 \
    X(VRXSTATUS_TABLET_UNREAD, 0x0511)                                                             \
    X(VRXSTATUS_TABLET_CLOSE, 0x0512)                                                              \
    X(VRXSTATUS_INTERNAL_UNEXPECTED, 0x0600)                                                       \
    X(VRXSTATUS_INTERNAL_MISSING_LINK, 0x0601)                                                     \
    X(VRXSTATUS_INTERNAL_BUFFER_OVERFLOW, 0x0602)                                                  \
    X(VRXSTATUS_METHOD_NOT_IMPLEMENTED, 0x0603)                                                    \
    X(VRXSTATUS_PREFTAG_MISMATCH, 0x0604)                                                          \
    X(VRXSTATUS_TAGLIST_CORRUPT, 0x0605)                                                           \
    X(VRXSTATUS_OBJECT_NOT_FOUND, 0x0606)                                                          \
    X(VRXSTATUS_INVALID_HANDLE, 0x0607)                                                            \
    X(VRXSTATUS_CONTEXT_DISABLED, 0x0608)                                                          \
    X(VRXSTATUS_POINT_OUTSIDE_CONTEXT, 0x0609)                                                     \
    X(VRXSTATUS_DRIVER_OFF, 0x060A)                                                                \
    X(VRXSTATUS_MENU_EVENT, 0x060B)                                                                \
    X(VRXSTATUS_DONE_PROCESSING, 0x060C)                                                           \
    X(VRXSTATUS_ABORTING_STARTUP, 0x060D)                                                          \
    X(VRXSTATUS_HARDWARE_ERROR, 0x060E)                                                            \
    X(VRXSTATUS_UNKNOWN_DEVICE, 0x060F)                                                            \
    X(VRXSTATUS_DEVICE_ALREADY_OPEN, 0x0610)                                                       \
    X(VRXSTATUS_API_BAD_PARAMETER, 0x0900)                                                         \
    X(VRXSTATUS_API_BAD_DATA_SIZE, 0x0901)                                                         \
    X(VRXSTATUS_API_BAD_IO, 0x0902)                                                                \
    X(VRXSTATUS_API_CORRUPT_DATA, 0x0903)                                                          \
    X(VRXSTATUS_CPL_NO_TABLETS, 0x1001)                                                            \
    X(VRXSTATUS_CPL_NO_TRANSDUCERS, 0x1002)                                                        \
    X(VRXSTATUS_CPL_ALREADY_RUNNING, 0x1003)                                                       \
    X(VRXSTATUS_APPSETFORNOSAVE, 0x1004)                                                           \
    X(VRXSTATUS_NOCHANGE, 0x1005)                                                                  \
    X(VRXSTATUS_NEWTABLETADDED, 0x1006)                                                            \
    X(VRXSTATUS_NEWTOOLADDED, 0x1007)                                                              \
    X(VRXSTATUS_ADDTABLETFAILED, 0x1008)                                                           \
    X(VRXSTATUS_CPL_IPC_FAILURE, 0x1009)                                                           \
    X(VRXSTATUS_TABLETSETFORNOSAVE, 0x100A)                                                        \
    X(VRXSTATUS_NO_PORTS_AVAILABLE, 0x100B)                                                        \
    X(VRXSTATUS_TOOLALREADYADDED, 0x100C)                                                          \
    X(VRXSTATUS_TABLET_NOT_SUPPORTED, 0x100D)                                                      \
    X(VRXSTATUS_VERSION_MISMATCH, 0x100E)                                                          \
    X(VRXSTATUS_CPL_NO_DRIVER_INSTALLED, 0x1010)                                                   \
    X(VRXSTATUS_TBLT_IGNORE, 0x1015)                                                               \
    X(VRXSTATUS_TBLT_OBSOLETE, 0x1016)                                                             \
    X(VRXSTATUS_TBLT_UNSUPPORTED, 0x1017)                                                          \
    X(VRXSTATUS_TBLT_OBS_UNSUPP, 0x1018)                                                           \
    X(VRXSTATUS_TBLT_MIXED_OBSOLETE, 0x1019)                                                       \
    X(VRXSTATUS_TBLT_MIXED_UNSUPPORTED, 0x101A)                                                    \
    X(VRXSTATUS_TBLT_MIXED_OBS_UNSUPP, 0x101B)

enum EVrxStatus : uint16_t {
#define VRX_STATUS_ENUMERATOR(name, value) name = value,
    VRX_STATUS_CODES(VRX_STATUS_ENUMERATOR)
#undef VRX_STATUS_ENUMERATOR
};

// The process-wide map from value to name, filled on first use. A call with destroy_I true
// releases it and returns null; a later call fills it again.
const std::map<uint16_t, std::string>* StatusCodeNames(bool destroy_I = false);

// The name of a status value, or an empty string for a value outside the table.
std::string StatusCodeName(uint16_t status);
