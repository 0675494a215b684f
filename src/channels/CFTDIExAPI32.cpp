#include "channels/CFTDIExAPI32.h"

#include "foundation/Trace.h"

// A call through a function that could not be bound names the member in an assertion; the
// wrapper itself has already left error 120 and status 17.
#define FTDI_CALL(member, ...)                                                                     \
    do {                                                                                           \
        const FtStatus status = member(__VA_ARGS__);                                               \
        if (!member.IsBound()) {                                                                   \
            VRX_ASSERT_NOT_REACHED(member);                                                        \
        }                                                                                          \
        return status;                                                                             \
    } while (0)

CFTDIExAPI32::CFTDIExAPI32(std::wstring fileName_I)
    : CImportWin32API(std::move(fileName_I), true, true) {}

std::shared_ptr<CFTDIExAPI32> CFTDIExAPI32::Instance() {
    static const std::shared_ptr<CFTDIExAPI32> instance = [] {
        auto api = std::make_shared<CFTDIExAPI32>();
        api->Load();
        return api;
    }();
    return instance;
}

FtStatus CFTDIExAPI32::FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) {
    FTDI_CALL(m_pList, arg1_IO, arg2_IO, flags_I);
}

FtStatus CFTDIExAPI32::FT_OpenEx(void* arg_I, uint32_t flags_I, FtHandle* handle_O) {
    FTDI_CALL(m_pOpen, arg_I, flags_I, handle_O);
}

FtStatus CFTDIExAPI32::FT_Close(FtHandle handle_I) {
    FTDI_CALL(m_pClose, handle_I);
}

FtStatus CFTDIExAPI32::FT_Read(FtHandle handle_I, void* buffer_O, uint32_t count_I,
                               uint32_t* read_O) {
    FTDI_CALL(m_pRead, handle_I, buffer_O, count_I, read_O);
}

FtStatus CFTDIExAPI32::FT_Write(FtHandle handle_I, const void* data_I, uint32_t count_I,
                                uint32_t* written_O) {
    FTDI_CALL(m_pWrite, handle_I, data_I, count_I, written_O);
}

FtStatus CFTDIExAPI32::FT_ResetDevice(FtHandle handle_I) {
    FTDI_CALL(m_pReset, handle_I);
}

FtStatus CFTDIExAPI32::FT_SetChars(FtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I,
                                   uint8_t error_I, uint8_t errorEnable_I) {
    FTDI_CALL(m_pSetChars, handle_I, event_I, eventEnable_I, error_I, errorEnable_I);
}

FtStatus CFTDIExAPI32::FT_Purge(FtHandle handle_I, uint32_t mask_I) {
    FTDI_CALL(m_pPurge, handle_I, mask_I);
}

FtStatus CFTDIExAPI32::FT_SetTimeouts(FtHandle handle_I, uint32_t readMs_I, uint32_t writeMs_I) {
    FTDI_CALL(m_pSetTimeouts, handle_I, readMs_I, writeMs_I);
}

FtStatus CFTDIExAPI32::FT_GetQueueStatus(FtHandle handle_I, uint32_t* count_O) {
    FTDI_CALL(m_pGetQueueStatus, handle_I, count_O);
}

FtStatus CFTDIExAPI32::FT_SetLatencyTimer(FtHandle handle_I, uint8_t milliseconds_I) {
    FTDI_CALL(m_pSetLatency, handle_I, milliseconds_I);
}

FtStatus CFTDIExAPI32::FT_SetBitMode(FtHandle handle_I, uint8_t mask_I, uint8_t mode_I) {
    FTDI_CALL(m_pSetBitMode, handle_I, mask_I, mode_I);
}

FtStatus CFTDIExAPI32::FT_SetUSBParameters(FtHandle handle_I, uint32_t inSize_I,
                                           uint32_t outSize_I) {
    FTDI_CALL(m_pSetUSBParams, handle_I, inSize_I, outSize_I);
}
