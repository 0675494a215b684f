#pragma once
// A umockdev testbed with the devices the Linux platform looks at: DRM connectors with EDIDs and
// DDC buses, i2c-dev nodes that answer as an I2C slave, hidraw nodes that answer feature
// reports, and USB serial ttys backed by a pty. The test program runs under umockdev-wrapper.

#include "sim/CSimHidDevice.h"
#include "sim/ISimI2CTarget.h"

#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <vector>

struct _UMockdevTestbed;
struct _UMockdevIoctlBase;

class CUmockdevRig {
public:
    CUmockdevRig();
    ~CUmockdevRig();
    CUmockdevRig(const CUmockdevRig&) = delete;
    CUmockdevRig& operator=(const CUmockdevRig&) = delete;

    // Whether the process runs under umockdev's preload; it tells only once a testbed exists.
    static bool InMockEnvironment();

    // An i2c adapter i2c-<bus>; its syspath.
    std::string AddI2CAdapter(int bus_I);
    // A DRM connector. busLink_I >= 0 links its ddc to adapter i2c-<busLink_I>; busChild_I >= 0
    // puts an adapter i2c-<busChild_I> below it.
    std::string AddConnector(const std::string& name_I, const std::vector<uint8_t>& edid_I,
                             const char* status_I, int busLink_I, int busChild_I = -1);
    // The i2c-dev class device of adapter i2c-<bus>, its node /dev/i2c-<bus> left out: a bus
    // whose node does not open. Returns the node's name.
    std::string AddI2CDevice(int bus_I);
    // /dev/i2c-<bus> answers through the target at the slave address the caller selects.
    void AttachI2C(int bus_I, ISimI2CTarget& target_I);

    // A USB device with a tty below it; the pty's far end.
    int AddUsbSerial(const std::string& tty_I, uint16_t vendorId_I, uint16_t productId_I);

    // A HID interface of the USB device vid:pid with a report descriptor on usagePage_I, and its
    // hidraw node answering through the device.
    void AddHidraw(const std::string& hidraw_I, uint16_t vendorId_I, uint16_t productId_I,
                   uint16_t usagePage_I, CSimHidDevice& device_I);

    // What the handler of one emulated node answers with.
    struct SNode {
        ISimI2CTarget* i2c = nullptr;
        CSimHidDevice* hid = nullptr;
        unsigned long address = 0;
    };

private:
    void Attach(const std::string& node_I, SNode& node_IO);
    // A USB device vid:pid; its syspath, for g_free.
    char* AddUsbDevice(uint16_t vendorId_I, uint16_t productId_I);

    _UMockdevTestbed* mTestbed;
    std::map<int, std::string> mAdapters;
    std::list<SNode> mNodes;
    std::vector<_UMockdevIoctlBase*> mHandlers;
    int mUsbCount = 0;
};
