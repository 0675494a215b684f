#pragma once
// The FTDI library's calls given their meaning over libftdi1, bound by name at run time, for
// machines without FTDI's own library. It reaches the family's bridge (0403:6014) only; a
// device's location id is its index in libftdi1's list plus one. libftdi1 has no queue status
// and no time-outs of its own: the handle keeps what has been read ahead and counts a read's
// time-out in USB transfers of one latency period each.

#include "channels/IFtdiApi.h"
#include "foundation/CImportWin32API.h"

#include <string>

struct ftdi_context;
struct ftdi_device_list;

class CLibFtdi1Api final : public CImportWin32API, public IFtdiApi {
public:
    static constexpr const wchar_t* kLibraryName = L"libftdi1.so.2";
    static constexpr int kVendorId = 0x0403;
    static constexpr int kProductId = 0x6014;

    explicit CLibFtdi1Api(std::wstring fileName_I = kLibraryName);

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
    struct SHandle;
    static SHandle* HandleOf(FtHandle handle_I);
    // How many devices of the family's bridge libftdi1 sees; negative on failure.
    int CountDevices();
    // Reads what one USB transfer brings into the handle's read-ahead; false on failure.
    bool ReadAhead(SHandle& handle_IO);

    template <typename Signature>
    using Bound = CImportedFunction<Signature>;

    Bound<ftdi_context*()> m_pNew{*this, "ftdi_new", nullptr};
    Bound<void(ftdi_context*)> m_pFree{*this, "ftdi_free"};
    Bound<int(ftdi_context*, ftdi_device_list**, int, int)> m_pFindAll{*this, "ftdi_usb_find_all",
                                                                       -1};
    Bound<void(ftdi_device_list**)> m_pListFree{*this, "ftdi_list_free"};
    Bound<int(ftdi_context*, int, int, const char*, const char*, unsigned)> m_pOpenIndex{
        *this, "ftdi_usb_open_desc_index", -1};
    Bound<int(ftdi_context*)> m_pClose{*this, "ftdi_usb_close", -1};
    Bound<int(ftdi_context*)> m_pReset{*this, "ftdi_usb_reset", -1};
    Bound<int(ftdi_context*)> m_pFlush{*this, "ftdi_tcioflush", -1};
    Bound<int(ftdi_context*)> m_pPurgeOld{*this, "ftdi_usb_purge_buffers", -1};
    Bound<int(ftdi_context*, unsigned char*, int)> m_pRead{*this, "ftdi_read_data", -1};
    Bound<int(ftdi_context*, const unsigned char*, int)> m_pWrite{*this, "ftdi_write_data", -1};
    Bound<int(ftdi_context*, unsigned char)> m_pSetLatency{*this, "ftdi_set_latency_timer", -1};
    Bound<int(ftdi_context*, unsigned char, unsigned char)> m_pSetBitMode{*this, "ftdi_set_bitmode",
                                                                          -1};
    Bound<int(ftdi_context*, unsigned char, unsigned char)> m_pSetEventChar{
        *this, "ftdi_set_event_char", -1};
    Bound<int(ftdi_context*, unsigned char, unsigned char)> m_pSetErrorChar{
        *this, "ftdi_set_error_char", -1};
    Bound<int(ftdi_context*, unsigned)> m_pReadChunk{*this, "ftdi_read_data_set_chunksize", -1};
    Bound<int(ftdi_context*, unsigned)> m_pWriteChunk{*this, "ftdi_write_data_set_chunksize", -1};
    Bound<const char*(ftdi_context*)> m_pErrorString{*this, "ftdi_get_error_string", nullptr};
};
