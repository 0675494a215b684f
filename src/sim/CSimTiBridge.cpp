#include "sim/CSimTiBridge.h"

#include <cstddef>
#include <utility>

namespace {

// Device values are the slot plus this base, so that none is 0.
constexpr uintptr_t kDeviceValueBase = 0x1000;

} // namespace

void CSimTiBridge::AddDevice(ISimI2CTarget& bus_I, std::function<bool()> present_I) {
    mBridges.push_back({&bus_I, true, std::move(present_I)});
}

void CSimTiBridge::SetPresent(int index_I, bool present_I) {
    if (index_I >= 0 && static_cast<size_t>(index_I) < mBridges.size()) {
        mBridges[static_cast<size_t>(index_I)].present = present_I;
    }
}

int CSimTiBridge::AvailableDevices() const {
    int count = 0;
    for (const SBridge& bridge : mBridges) {
        count += bridge.IsPresent() ? 1 : 0;
    }
    return count;
}

int CSimTiBridge::PresentIndexToSlot(int index_I) const {
    int seen = 0;
    for (size_t slot = 0; slot < mBridges.size(); ++slot) {
        if (!mBridges[slot].IsPresent()) {
            continue;
        }
        if (seen == index_I) {
            return static_cast<int>(slot);
        }
        ++seen;
    }
    return -1;
}

uintptr_t CSimTiBridge::OpenDevice(int index_I) {
    const int slot = index_I < 0 ? -1 : PresentIndexToSlot(index_I);
    if (slot < 0) {
        return 0;
    }
    mOpen = slot;
    return kDeviceValueBase + static_cast<uintptr_t>(slot);
}

int CSimTiBridge::CloseDevice() {
    if (mOpen < 0) {
        return 0;
    }
    mOpen = -1;
    return 1;
}

ISimI2CTarget* CSimTiBridge::OpenBus() const {
    if (mOpen < 0 || !mBridges[static_cast<size_t>(mOpen)].IsPresent()) {
        return nullptr;
    }
    return mBridges[static_cast<size_t>(mOpen)].bus;
}

int CSimTiBridge::WriteI2C(uint8_t address7_I, const uint8_t* data_I, uint16_t length_I) {
    ISimI2CTarget* bus = OpenBus();
    if (bus == nullptr || (data_I == nullptr && length_I > 0)) {
        return 0;
    }
    bool acked = bus->Address(static_cast<uint8_t>(address7_I << 1));
    for (uint16_t index = 0; acked && index < length_I; ++index) {
        acked = bus->Write(data_I[index]);
    }
    bus->Stop();
    return acked ? 1 : 0;
}

int CSimTiBridge::ReadI2C(uint8_t address7_I, uint8_t* buffer_O, uint16_t length_I) {
    ISimI2CTarget* bus = OpenBus();
    if (bus == nullptr || (buffer_O == nullptr && length_I > 0)) {
        return 0;
    }
    if (!bus->Address(static_cast<uint8_t>((address7_I << 1) | 1))) {
        bus->Stop();
        return 0;
    }
    // The bridge acknowledges every byte but the last, as an I2C master does.
    for (uint16_t index = 0; index < length_I; ++index) {
        buffer_O[index] = bus->Read(index + 1 < length_I);
    }
    bus->Stop();
    return 1;
}
