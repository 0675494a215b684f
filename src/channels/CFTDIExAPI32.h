#pragma once
// FTDI's bridge library bound by name at run time: each call looks its function up on first
// use. A missing library or function fails the call with status 17 and last import error 120,
// so that the FTDI channel just finds no devices.

#include "channels/IFtdiApi.h"
#include "foundation/CImportWin32API.h"

#include <memory>
#include <string>

class CFTDIExAPI32 final : public CImportWin32API, public IFtdiApi {
public:
    // The library's file name on this platform.
    static constexpr const wchar_t* kLibraryName = L"libftd2xx.so";

    explicit CFTDIExAPI32(std::wstring fileName_I = kLibraryName);

    // The process-wide object, loaded on first use.
    static std::shared_ptr<CFTDIExAPI32> Instance();

    FtStatus FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) override;
    FtStatus FT_OpenEx(void* arg_I, uint32_t flags_I, FtHandle* handle_O) override;
    FtStatus FT_Close(FtHandle handle_I) override;
    FtStatus FT_Read(FtHandle handle_I, void* buffer_O, uint32_t count_I,
                     uint32_t* read_O) override;
    FtStatus FT_Write(FtHandle handle_I, const void* data_I, uint32_t count_I,
                      uint32_t* written_O) override;
    FtStatus FT_ResetDevice(FtHandle handle_I) override;
    FtStatus FT_SetChars(FtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I, uint8_t error_I,
                         uint8_t errorEnable_I) override;
    FtStatus FT_Purge(FtHandle handle_I, uint32_t mask_I) override;
    FtStatus FT_SetTimeouts(FtHandle handle_I, uint32_t readMs_I, uint32_t writeMs_I) override;
    FtStatus FT_GetQueueStatus(FtHandle handle_I, uint32_t* count_O) override;
    FtStatus FT_SetLatencyTimer(FtHandle handle_I, uint8_t milliseconds_I) override;
    FtStatus FT_SetBitMode(FtHandle handle_I, uint8_t mask_I, uint8_t mode_I) override;
    FtStatus FT_SetUSBParameters(FtHandle handle_I, uint32_t inSize_I, uint32_t outSize_I) override;

private:
    template <typename Signature>
    using Bound = CImportedFunction<Signature>;

    Bound<FtStatus(void*, uint32_t, FtHandle*)> m_pOpen{*this, "FT_OpenEx", Ft::kNotSupported};
    Bound<FtStatus(void*, void*, uint32_t)> m_pList{*this, "FT_ListDevices", Ft::kNotSupported};
    Bound<FtStatus(FtHandle)> m_pClose{*this, "FT_Close", Ft::kNotSupported};
    Bound<FtStatus(FtHandle, void*, uint32_t, uint32_t*)> m_pRead{*this, "FT_Read",
                                                                  Ft::kNotSupported};
    Bound<FtStatus(FtHandle, const void*, uint32_t, uint32_t*)> m_pWrite{*this, "FT_Write",
                                                                         Ft::kNotSupported};
    Bound<FtStatus(FtHandle)> m_pReset{*this, "FT_ResetDevice", Ft::kNotSupported};
    Bound<FtStatus(FtHandle, uint8_t, uint8_t, uint8_t, uint8_t)> m_pSetChars{*this, "FT_SetChars",
                                                                              Ft::kNotSupported};
    Bound<FtStatus(FtHandle, uint32_t)> m_pPurge{*this, "FT_Purge", Ft::kNotSupported};
    Bound<FtStatus(FtHandle, uint32_t, uint32_t)> m_pSetTimeouts{*this, "FT_SetTimeouts",
                                                                 Ft::kNotSupported};
    Bound<FtStatus(FtHandle, uint32_t*)> m_pGetQueueStatus{*this, "FT_GetQueueStatus",
                                                           Ft::kNotSupported};
    Bound<FtStatus(FtHandle, uint8_t)> m_pSetLatency{*this, "FT_SetLatencyTimer",
                                                     Ft::kNotSupported};
    Bound<FtStatus(FtHandle, uint8_t, uint8_t)> m_pSetBitMode{*this, "FT_SetBitMode",
                                                              Ft::kNotSupported};
    Bound<FtStatus(FtHandle, uint32_t, uint32_t)> m_pSetUSBParams{*this, "FT_SetUSBParameters",
                                                                  Ft::kNotSupported};
};
