#include "channels/CTIExAPI32.h"

#include "foundation/Trace.h"

// A call through a function that could not be bound names the member in an assertion; the
// wrapper itself has already left error 120 and the failure value.
#define TI_CALL(member, ...)                                                                       \
    do {                                                                                           \
        const auto result = member(__VA_ARGS__);                                                   \
        if (!member.IsBound()) {                                                                   \
            VRX_ASSERT_NOT_REACHED(member);                                                        \
        }                                                                                          \
        return result;                                                                             \
    } while (0)

CTIExAPI32::CTIExAPI32(std::wstring fileName_I)
    : CImportWin32API(std::move(fileName_I), true, true) {}

std::shared_ptr<CTIExAPI32> CTIExAPI32::Instance() {
    static const std::shared_ptr<CTIExAPI32> instance = [] {
        auto api = std::make_shared<CTIExAPI32>();
        api->Load();
        return api;
    }();
    return instance;
}

int CTIExAPI32::AvailableDevices() {
    TI_CALL(m_pAvailableDevices);
}

TiDevice CTIExAPI32::OpenDevice(int index_I) {
    TI_CALL(m_pOpenDevice, index_I);
}

int CTIExAPI32::WriteI2C(uint8_t address7_I, const uint8_t* data_I, uint16_t length_I) {
    TI_CALL(m_pWriteI2C, address7_I, data_I, length_I);
}

int CTIExAPI32::ReadI2C(uint8_t address7_I, uint8_t* buffer_O, uint16_t length_I) {
    TI_CALL(m_pReadI2C, address7_I, buffer_O, length_I);
}

int CTIExAPI32::CloseDevice() {
    TI_CALL(m_pCloseDevice);
}
