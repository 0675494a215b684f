#include "platform/linux/CLinuxHidDevice.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"

#include <hidapi/hidapi.h>

#include <cerrno>

namespace {

// hidapi keeps one library state; its first call initialises it.
bool InitialiseHidApi() {
    static const bool ready = hid_init() == 0;
    return ready;
}

} // namespace

std::vector<std::string> FindScalerHidPaths() {
    std::vector<std::string> paths;
    if (!InitialiseHidApi()) {
        return paths;
    }
    hid_device_info* all = hid_enumerate(0, 0);
    for (const hid_device_info* info = all; info != nullptr; info = info->next) {
        if (info->usage_page == kScalerHidUsagePage && info->path != nullptr) {
            paths.emplace_back(info->path);
        }
    }
    hid_free_enumeration(all);
    return paths;
}

CLinuxHidDevice::~CLinuxHidDevice() {
    CLinuxHidDevice::Close();
}

bool CLinuxHidDevice::Fail() {
    mError = errno != 0 ? static_cast<uint32_t>(errno) : static_cast<uint32_t>(EIO);
    if (mDevice != nullptr) {
        const wchar_t* text = hid_error(mDevice);
        if (text != nullptr) {
            Trace("CLinuxHidDevice: %s\n", ToNarrow(text).c_str());
        }
    }
    return false;
}

bool CLinuxHidDevice::Open(const std::string& path_I) {
    Close();
    if (!InitialiseHidApi()) {
        return Fail();
    }
    errno = 0;
    mDevice = hid_open_path(path_I.c_str());
    return mDevice != nullptr || Fail();
}

void CLinuxHidDevice::Close() {
    if (mDevice != nullptr) {
        hid_close(mDevice);
        mDevice = nullptr;
    }
}

bool CLinuxHidDevice::SetFeature(const ByteVector& report_I) {
    if (mDevice == nullptr || report_I.empty()) {
        errno = EBADF;
        return Fail();
    }
    errno = 0;
    const int sent = hid_send_feature_report(mDevice, report_I.data(), report_I.size());
    return sent == static_cast<int>(report_I.size()) || Fail();
}

bool CLinuxHidDevice::GetFeature(ByteVector& report_IO) {
    if (mDevice == nullptr || report_IO.empty()) {
        errno = EBADF;
        return Fail();
    }
    errno = 0;
    const int got = hid_get_feature_report(mDevice, report_IO.data(), report_IO.size());
    if (got < 0) {
        return Fail();
    }
    // hidraw gives back the report as long as the device sent it; the rest stays zero.
    std::fill(report_IO.begin() + got, report_IO.end(), uint8_t{0});
    return true;
}
