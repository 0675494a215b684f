#include "platform/sim/SimTransports.h"

#include "foundation/TimeSeam.h"

#include <algorithm>

namespace {

// Errors as a platform reports them: no such port, a closed handle, a device that failed.
constexpr uint32_t kErrorFileNotFound = 2;
constexpr uint32_t kErrorInvalidHandle = 6;
constexpr uint32_t kErrorGenFailure = 31;

} // namespace

bool CSimI2CBus::Write(uint8_t address7_I, const ByteVector& data_I) {
    bool acked = mTarget.Address(static_cast<uint8_t>(address7_I << 1));
    for (size_t i = 0; acked && i < data_I.size(); ++i) {
        acked = mTarget.Write(data_I[i]);
    }
    mTarget.Stop();
    return acked;
}

bool CSimI2CBus::Read(uint8_t address7_I, ByteVector& buffer_IO) {
    if (!mTarget.Address(static_cast<uint8_t>(address7_I << 1 | 1))) {
        mTarget.Stop();
        return false;
    }
    for (size_t i = 0; i < buffer_IO.size(); ++i) {
        buffer_IO[i] = mTarget.Read(i + 1 < buffer_IO.size());
    }
    mTarget.Stop();
    return true;
}

FtStatus CSimFtdiApi::FT_ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) {
    return mLibrary.ListDevices(arg1_IO, arg2_IO, flags_I);
}
FtStatus CSimFtdiApi::FT_OpenEx(void* arg_I, uint32_t flags_I, FtHandle* handle_O) {
    return mLibrary.OpenEx(arg_I, flags_I, handle_O);
}
FtStatus CSimFtdiApi::FT_Close(FtHandle handle_I) {
    return mLibrary.Close(handle_I);
}
FtStatus CSimFtdiApi::FT_Read(FtHandle handle_I, void* buffer_O, uint32_t count_I,
                              uint32_t* read_O) {
    return mLibrary.Read(handle_I, buffer_O, count_I, read_O);
}
FtStatus CSimFtdiApi::FT_Write(FtHandle handle_I, const void* data_I, uint32_t count_I,
                               uint32_t* written_O) {
    return mLibrary.Write(handle_I, data_I, count_I, written_O);
}
FtStatus CSimFtdiApi::FT_ResetDevice(FtHandle handle_I) {
    return mLibrary.ResetDevice(handle_I);
}
FtStatus CSimFtdiApi::FT_SetChars(FtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I,
                                  uint8_t error_I, uint8_t errorEnable_I) {
    return mLibrary.SetChars(handle_I, event_I, eventEnable_I, error_I, errorEnable_I);
}
FtStatus CSimFtdiApi::FT_Purge(FtHandle handle_I, uint32_t mask_I) {
    return mLibrary.Purge(handle_I, mask_I);
}
FtStatus CSimFtdiApi::FT_SetTimeouts(FtHandle handle_I, uint32_t readMs_I, uint32_t writeMs_I) {
    return mLibrary.SetTimeouts(handle_I, readMs_I, writeMs_I);
}
FtStatus CSimFtdiApi::FT_GetQueueStatus(FtHandle handle_I, uint32_t* count_O) {
    return mLibrary.GetQueueStatus(handle_I, count_O);
}
FtStatus CSimFtdiApi::FT_SetLatencyTimer(FtHandle handle_I, uint8_t milliseconds_I) {
    return mLibrary.SetLatencyTimer(handle_I, milliseconds_I);
}
FtStatus CSimFtdiApi::FT_SetBitMode(FtHandle handle_I, uint8_t mask_I, uint8_t mode_I) {
    return mLibrary.SetBitMode(handle_I, mask_I, mode_I);
}
FtStatus CSimFtdiApi::FT_SetUSBParameters(FtHandle handle_I, uint32_t inSize_I,
                                          uint32_t outSize_I) {
    return mLibrary.SetUSBParameters(handle_I, inSize_I, outSize_I);
}

bool CSimSerialPort::Open(const std::string& name_I, const SSerialSettings& settings_I,
                          const SSerialTimeouts& timeouts_I) {
    const auto found =
        std::find_if(mDevices.begin(), mDevices.end(),
                     [&name_I](const SNamedDevice& device) { return device.first == name_I; });
    if (found == mDevices.end() || !found->second->IsPlugged()) {
        mError = kErrorFileNotFound;
        return false;
    }
    mDevice = found->second;
    mDevice->SetHostSettings(
        {settings_I.baudRate, settings_I.byteSize, settings_I.parity, settings_I.stopBits});
    timeouts = timeouts_I;
    return true;
}

bool CSimSerialPort::Purge(uint32_t /*mask_I*/) {
    if (mDevice == nullptr) {
        mError = kErrorInvalidHandle;
        return false;
    }
    mDevice->Purge();
    return true;
}

bool CSimSerialPort::Write(const uint8_t* data_I, size_t size_I, size_t& written_O) {
    written_O = 0;
    if (mDevice == nullptr) {
        mError = kErrorInvalidHandle;
        return false;
    }
    if (mRecording) {
        writes.emplace_back(data_I, data_I + size_I);
    }
    if (!mDevice->Write(data_I, size_I)) {
        mError = kErrorDeviceGone;
        return false;
    }
    written_O = size_I;
    return true;
}

bool CSimSerialPort::Read(uint8_t* buffer_O, size_t max_I, size_t& read_O) {
    read_O = 0;
    if (mDevice == nullptr) {
        mError = kErrorInvalidHandle;
        return false;
    }
    int count = mDevice->Read(buffer_O, max_I);
    if (count == 0) {
        SleepMs(timeouts.readTotalConstant);
        count = mDevice->Read(buffer_O, max_I);
    }
    if (count < 0) {
        mError = kErrorGenFailure;
        return false;
    }
    read_O = static_cast<size_t>(count);
    return true;
}

bool CSimHidPort::Open(const std::string& path_I) {
    const auto found =
        std::find_if(mDevices.begin(), mDevices.end(), [&path_I](const CSimHidDevice* device) {
            return device->Identity().path == path_I;
        });
    if (found == mDevices.end() || !(*found)->Open()) {
        mError = kErrorFileNotFound;
        return false;
    }
    mDevice = *found;
    return true;
}

void CSimHidPort::Close() {
    if (mDevice != nullptr) {
        mDevice->Close();
        mDevice = nullptr;
    }
}

bool CSimHidPort::SetFeature(const ByteVector& report_I) {
    if (mRecording) {
        reports.push_back(report_I);
    }
    if (mDevice == nullptr || !mDevice->SetFeature(report_I)) {
        mError = mDevice == nullptr ? kErrorInvalidHandle : kErrorGenFailure;
        return false;
    }
    return true;
}

bool CSimHidPort::GetFeature(ByteVector& report_IO) {
    if (mDevice == nullptr || !mDevice->GetFeature(report_IO)) {
        mError = mDevice == nullptr ? kErrorInvalidHandle : kErrorGenFailure;
        return false;
    }
    return true;
}
