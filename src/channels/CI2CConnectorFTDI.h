#pragma once
// The scaler behind an FTDI USB bridge in MPSSE mode: the connector clocks I2C itself, byte by
// byte, through the FTDI library's calls. The scaler is at 0x6E for writing and 0x6F for
// reading. The connector also owns the DisplayInformation record of VCP code 0xF2, which gives
// a name and serial number where the EDID has none.

#include "channels/IFtdiApi.h"
#include "ddc/Connector.h"

#include <cstdint>
#include <memory>

class CI2CConnectorFTDI : public Connector {
public:
    // The DisplayInformation frame without its check byte: three header bytes and the 52-byte
    // record.
    static constexpr size_t kDisplayInformationFrameSize = 55;

    explicit CI2CConnectorFTDI(std::shared_ptr<IFtdiApi> api_I);
    ~CI2CConnectorFTDI() override;

    // How many bridges the library sees; 0 when it can't tell.
    static uint32_t NumberOfDevices(IFtdiApi& api_I);

    bool IsUsable() override { return true; }
    int ConnectorType() override { return eConnectorType_FTDI; }
    bool Open(const std::string& port_I) override;
    // Opens the bridge of that index and sets its MPSSE up for I2C at 100 kHz.
    bool Open(long device_I) override;
    bool Close() override;
    bool IsOpen() override { return mFTHandle != nullptr; }
    // A NACK costs one more round per unit of retries, and one more with retries 0.
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override;
    std::string CapabilitiesString() override;
    // From EDID, else from the DisplayInformation record.
    std::string MonitorName() override;
    // From EDID, else from the DisplayInformation record; in upper case either way.
    std::string SerialNumber(uint32_t sid_I) override;
    FileVersion FWVersion() override;
    // The tablet id picks the way: none for models without EDID, the indexed read of 0xF2 for
    // the Kestrel24 family and an unknown tablet, else the EDID table read in fragments.
    ByteVector ReadEDID(uint32_t sid_I) override;

    // The 0xF2 record's frame, or empty when the scaler has none.
    ByteVector ReadDisplayInformation();
    ByteVector ReadEDIDKestrel24();

protected:
    // The open sequence; a status of the library's kind, 0 on success.
    FtStatus OpenFTDIHandle(long index_I);

    // I2C on the MPSSE. Each gives a status, 0 on success.
    FtStatus I2CWrite(const ByteVector& buffer_I);
    FtStatus I2CStart();
    FtStatus I2CStop();
    FtStatus I2CSendByte(uint8_t value_I, bool wait_I);
    FtStatus I2CReadByte(bool ack_I, uint8_t& byte_O);
    FtStatus I2CRead1(uint8_t& byte_O);
    FtStatus I2CRead(uint32_t count_I, ByteVector& bytes_O);
    // Drains what the chip has for the host; callers throw the bytes away.
    FtStatus I2CReadAll();
    // The bad opcode AA; with check_I the chip must answer FA or AA in the right place.
    FtStatus SendBadCommand(bool check_I);

private:
    void CloseHandle();
    ByteVector ReadEDIDFragments(uint32_t sid_I);
    // Fills mRawDisplayInformation when it is empty; whether it holds the record now.
    bool FillDisplayInformation();

    std::shared_ptr<IFtdiApi> mApi;
    FtHandle mFTHandle = nullptr;
    ByteVector mRawDisplayInformation;
};
