#pragma once
// TI's bridge library bound by name at run time: each call looks its function up on first use.
// A missing library or function fails the call with last import error 120, so that the TI
// channel just finds no devices.

#include "channels/ITIBridgeApi.h"
#include "foundation/CImportWin32API.h"

#include <memory>
#include <string>

class CTIExAPI32 final : public CImportWin32API, public ITIBridgeApi {
public:
    // The library's file name on this platform.
    static constexpr const wchar_t* kLibraryName = L"libTUSB3x10_I2C_API.so";

    explicit CTIExAPI32(std::wstring fileName_I = kLibraryName);

    // The process-wide object, loaded on first use.
    static std::shared_ptr<CTIExAPI32> Instance();

    int AvailableDevices() override;
    TiDevice OpenDevice(int index_I) override;
    int WriteI2C(uint8_t address7_I, const uint8_t* data_I, uint16_t length_I) override;
    int ReadI2C(uint8_t address7_I, uint8_t* buffer_O, uint16_t length_I) override;
    int CloseDevice() override;

private:
    template <typename Signature>
    using Bound = CImportedFunction<Signature>;

    Bound<int()> m_pAvailableDevices{*this, "AvailableDevices", 0};
    Bound<TiDevice(int)> m_pOpenDevice{*this, "OpenDevice", 0};
    Bound<int(uint8_t, const uint8_t*, uint16_t)> m_pWriteI2C{*this, "WriteI2C", 0};
    Bound<int(uint8_t, uint8_t*, uint16_t)> m_pReadI2C{*this, "ReadI2C", 0};
    Bound<int()> m_pCloseDevice{*this, "CloseDevice", 0};
};
