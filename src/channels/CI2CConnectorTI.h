#pragma once
// The scaler behind a TI USB-to-I2C bridge, which writes and reads whole messages at 0x37. A read
// is sized by the caller and cut to the frame's own length; capabilities come in seven fixed
// chunks and the firmware version through a private frame.

#include "channels/ITIBridgeApi.h"
#include "ddc/Connector.h"

#include <memory>

class CI2CConnectorTI : public Connector {
public:
    explicit CI2CConnectorTI(std::shared_ptr<ITIBridgeApi> api_I);
    ~CI2CConnectorTI() override;

    // How many bridges the library sees; 0 when it can't tell.
    static int NumberOfDevices(ITIBridgeApi& api_I);

    bool IsUsable() override { return true; }
    int ConnectorType() override { return eConnectorType_TI; }
    bool Open(const std::string& port_I) override;
    bool Open(long device_I) override;
    // Gives the bridge back; the EDID stays.
    bool Close() override;
    bool IsOpen() override { return mTIDevice != 0; }
    // Reads exactly expectedSize_I bytes, then cuts or zero-extends them to the size the
    // frame's length byte gives; retries is ignored.
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override;
    std::string CapabilitiesString() override;
    FileVersion FWVersion() override;
    ByteVector ReadEDID(uint32_t sid_I) override;

private:
    void CloseTIHandle();

    std::shared_ptr<ITIBridgeApi> mApi;
    TiDevice mTIDevice = 0;
};
