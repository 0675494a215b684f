#include "channels/CVcpHIDDeviceConnector.h"

#include "foundation/Trace.h"

CVcpHIDDeviceConnector::CVcpHIDDeviceConnector(std::unique_ptr<IHidDevice> device_I)
    : mDevice(std::move(device_I)) {}

CVcpHIDDeviceConnector::~CVcpHIDDeviceConnector() {
    CloseHIDDevice();
}

bool CVcpHIDDeviceConnector::Close() {
    CloseHIDDevice();
    return true;
}

bool CVcpHIDDeviceConnector::OpenHIDDevice(const std::string& path_I) {
    if (path_I.empty()) {
        return false;
    }
    CloseHIDDevice();
    if (!mDevice->Open(path_I)) {
        Trace("OpenHIDDevice: ERROR [%i]: %s appears to be opened exclusively.\n\n",
              static_cast<int>(mDevice->LastError()), path_I.c_str());
        return IsOpen();
    }
    mDeviceOpen = true;
    Trace("OpenHIDDevice: SUCCESS: opened a handle to instance: %s\n", path_I.c_str());
    return IsOpen();
}

bool CVcpHIDDeviceConnector::CloseHIDDevice() {
    if (IsOpen()) {
        mDevice->Close();
        mDeviceOpen = false;
    }
    return true;
}

bool CVcpHIDDeviceConnector::SetFeature(ByteVector& buffer_IO) {
    if (!IsOpen()) {
        VRX_ASSERT_NOT_REACHED("SetFeature: ERROR: device is not open");
        return false;
    }
    if (buffer_IO.size() > kReportSize) {
        Trace("SetFeature: ERROR: SetFeature can't handle commandBuf size > %i\n",
              static_cast<int>(kReportSize));
        VRX_ASSERT_NOT_REACHED("ERROR: SetFeature databuf too big");
        return false;
    }
    buffer_IO.resize(kReportSize, 0x00);
    if (!mDevice->SetFeature(buffer_IO)) {
        Trace("HidD_SetFeature returned an error: [%i]\n\n",
              static_cast<int>(mDevice->LastError()));
        return false;
    }
    return true;
}

bool CVcpHIDDeviceConnector::GetFeature(ByteVector& buffer_IO) {
    if (!IsOpen()) {
        VRX_ASSERT_NOT_REACHED("GetFeature: ERROR: device is not open");
        return false;
    }
    if (buffer_IO.size() > kReportSize) {
        Trace("GetFeature: ERROR: GetFeature can't handle commandBuf size > %i\n",
              static_cast<int>(kReportSize));
        VRX_ASSERT_NOT_REACHED("ERROR: GetFeature databuf too big");
        return false;
    }
    buffer_IO.resize(kReportSize, 0x00);
    if (!mDevice->GetFeature(buffer_IO)) {
        Trace("HidD_GetFeature returned an error: [%i]\n\n",
              static_cast<int>(mDevice->LastError()));
        return false;
    }
    return true;
}
