#include "platform/linux/CLibFtdi1Api.h"

#include "foundation/Trace.h"

#include <algorithm>
#include <vector>

namespace {

// The chip's latency timer and read time-out after a reset, in milliseconds.
constexpr uint32_t kDefaultLatencyMs = 16;
constexpr uint32_t kDefaultReadTimeoutMs = 5000;
// libftdi1 reports "device not found" as -3 from its open calls.
constexpr int kLibFtdiNoDevice = -3;
// The bytes one USB transfer can bring in.
constexpr int kTransferBytes = 4096;

} // namespace

struct CLibFtdi1Api::SHandle {
    ftdi_context* context = nullptr;
    std::vector<uint8_t> readAhead;
    uint32_t latencyMs = kDefaultLatencyMs;
    uint32_t readTimeoutMs = kDefaultReadTimeoutMs;
};

CLibFtdi1Api::CLibFtdi1Api(std::wstring fileName_I)
    : CImportWin32API(std::move(fileName_I), true, true) {}

CLibFtdi1Api::SHandle* CLibFtdi1Api::HandleOf(FtHandle handle_I) {
    return static_cast<SHandle*>(handle_I);
}

int CLibFtdi1Api::CountDevices() {
    ftdi_context* context = m_pNew();
    if (context == nullptr) {
        return -1;
    }
    ftdi_device_list* list = nullptr;
    const int count = m_pFindAll(context, &list, kVendorId, kProductId);
    if (list != nullptr) {
        m_pListFree(&list);
    }
    m_pFree(context);
    return count;
}

FtStatus CLibFtdi1Api::FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) {
    const int count = CountDevices();
    if (count < 0) {
        return GetLastImportError() == kErrorCallNotImplemented ? Ft::kNotSupported : Ft::kIoError;
    }
    if ((flags_I & Ft::kListNumberOnly) != 0) {
        *static_cast<uint32_t*>(arg1_IO) = static_cast<uint32_t>(count);
        return Ft::kOk;
    }
    if ((flags_I & Ft::kListByIndex) != 0 && (flags_I & Ft::kOpenByLocation) != 0) {
        const auto index = reinterpret_cast<uintptr_t>(arg1_IO);
        if (index >= static_cast<uintptr_t>(count)) {
            return Ft::kDeviceNotFound;
        }
        *static_cast<uint32_t*>(arg2_IO) = static_cast<uint32_t>(index + 1);
        return Ft::kOk;
    }
    return Ft::kInvalidParameter;
}

FtStatus CLibFtdi1Api::FT_OpenEx(void* arg_I, uint32_t flags_I, FtHandle* handle_O) {
    *handle_O = nullptr;
    const auto location = reinterpret_cast<uintptr_t>(arg_I);
    if (flags_I != Ft::kOpenByLocation || location == 0 || location == Ft::kLocationNone) {
        return Ft::kInvalidParameter;
    }
    ftdi_context* context = m_pNew();
    if (context == nullptr) {
        return GetLastImportError() == kErrorCallNotImplemented ? Ft::kNotSupported
                                                                : Ft::kDeviceNotOpened;
    }
    const int opened = m_pOpenIndex(context, kVendorId, kProductId, nullptr, nullptr,
                                    static_cast<unsigned>(location - 1));
    if (opened < 0) {
        const char* text = m_pErrorString(context);
        Trace("CLibFtdi1Api: open of bridge %u failed (%d): %s\n",
              static_cast<unsigned>(location - 1), opened, text != nullptr ? text : "");
        m_pFree(context);
        return opened == kLibFtdiNoDevice ? Ft::kDeviceNotFound : Ft::kDeviceNotOpened;
    }
    auto* handle = new SHandle;
    handle->context = context;
    *handle_O = handle;
    return Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_Close(FtHandle handle_I) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    m_pClose(handle->context);
    m_pFree(handle->context);
    delete handle;
    return Ft::kOk;
}

bool CLibFtdi1Api::ReadAhead(SHandle& handle_IO) {
    unsigned char buffer[kTransferBytes];
    const int got = m_pRead(handle_IO.context, buffer, kTransferBytes);
    if (got < 0) {
        return false;
    }
    handle_IO.readAhead.insert(handle_IO.readAhead.end(), buffer, buffer + got);
    return true;
}

FtStatus CLibFtdi1Api::FT_Read(FtHandle handle_I, void* buffer_O, uint32_t count_I,
                               uint32_t* read_O) {
    *read_O = 0;
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    // Each transfer that brings nothing lasts one latency period; the time-out is that many.
    const uint32_t transfers = handle->readTimeoutMs / std::max<uint32_t>(handle->latencyMs, 1) + 1;
    for (uint32_t i = 0; handle->readAhead.size() < count_I && i < transfers; ++i) {
        if (!ReadAhead(*handle)) {
            return Ft::kIoError;
        }
    }
    const auto taken = static_cast<uint32_t>(std::min<size_t>(count_I, handle->readAhead.size()));
    std::copy_n(handle->readAhead.begin(), taken, static_cast<unsigned char*>(buffer_O));
    handle->readAhead.erase(handle->readAhead.begin(), handle->readAhead.begin() + taken);
    *read_O = taken;
    return Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_Write(FtHandle handle_I, const void* data_I, uint32_t count_I,
                                uint32_t* written_O) {
    *written_O = 0;
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    const int written = m_pWrite(handle->context, static_cast<const unsigned char*>(data_I),
                                 static_cast<int>(count_I));
    if (written < 0) {
        return Ft::kIoError;
    }
    *written_O = static_cast<uint32_t>(written);
    return Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_ResetDevice(FtHandle handle_I) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    handle->readAhead.clear();
    return m_pReset(handle->context) < 0 ? Ft::kIoError : Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_SetChars(FtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I,
                                   uint8_t error_I, uint8_t errorEnable_I) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    return m_pSetEventChar(handle->context, event_I, eventEnable_I) < 0 ||
                   m_pSetErrorChar(handle->context, error_I, errorEnable_I) < 0
               ? Ft::kIoError
               : Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_Purge(FtHandle handle_I, uint32_t /*mask_I*/) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    handle->readAhead.clear();
    // Releases before 1.5 call it ftdi_usb_purge_buffers.
    int flushed = m_pFlush(handle->context);
    if (flushed < 0 && GetLastImportError() == kErrorCallNotImplemented) {
        flushed = m_pPurgeOld(handle->context);
    }
    return flushed < 0 ? Ft::kIoError : Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_SetTimeouts(FtHandle handle_I, uint32_t readMs_I, uint32_t /*writeMs*/) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    handle->readTimeoutMs = readMs_I;
    return Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_GetQueueStatus(FtHandle handle_I, uint32_t* count_O) {
    *count_O = 0;
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    if (!ReadAhead(*handle)) {
        return Ft::kIoError;
    }
    *count_O = static_cast<uint32_t>(handle->readAhead.size());
    return Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_SetLatencyTimer(FtHandle handle_I, uint8_t milliseconds_I) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    if (m_pSetLatency(handle->context, milliseconds_I) < 0) {
        return Ft::kIoError;
    }
    handle->latencyMs = milliseconds_I;
    return Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_SetBitMode(FtHandle handle_I, uint8_t mask_I, uint8_t mode_I) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    // libftdi1 numbers the modes as FTDI does: 0 reset, 2 MPSSE.
    return m_pSetBitMode(handle->context, mask_I, mode_I) < 0 ? Ft::kIoError : Ft::kOk;
}

FtStatus CLibFtdi1Api::FT_SetUSBParameters(FtHandle handle_I, uint32_t inSize_I,
                                           uint32_t outSize_I) {
    SHandle* handle = HandleOf(handle_I);
    if (handle == nullptr) {
        return Ft::kInvalidHandle;
    }
    return m_pReadChunk(handle->context, inSize_I) < 0 ||
                   m_pWriteChunk(handle->context, outSize_I) < 0
               ? Ft::kIoError
               : Ft::kOk;
}
