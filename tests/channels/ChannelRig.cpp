#include "ChannelRig.h"

#include "channels/CI2CBusConnectorDP.h"
#include "channels/CI2CConnectorFTDI.h"
#include "channels/CI2CConnectorTI.h"
#include "channels/CUSBConnector.h"
#include "channels/CVcpHIDDeviceConnector.h"
#include "foundation/StringUtilities.h"
#include "sim/SimModelTable.h"

namespace {

std::string SerialFor(const char* model_I) {
    std::string serial = "SN" + ToUpper(model_I);
    serial.resize(13, '0');
    return serial;
}

} // namespace

CChannelRig::CChannelRig(const char* model_I, ESimChannel channel_I, std::string serial_I)
    : mDisplay(std::make_unique<CSimDisplay>(*FindSimModel(model_I),
                                             serial_I.empty() ? SerialFor(model_I) : serial_I,
                                             SimChannelBit(channel_I))),
      mTap(mDisplay->I2C()) {
    switch (channel_I) {
    case ESimChannel::eVideo: {
        auto connector = std::make_shared<CI2CBusConnectorDP>();
        mOpened = connector->OpenBus(std::make_unique<CSimI2CBus>(mTap));
        mConnector = connector;
        break;
    }
    case ESimChannel::eFtdi:
        mChip = std::make_unique<CSimFtdiChip>(mTap, SSimFtdiIdentity{"FT0001", "bridge", 0x2011});
        mFtdiLibrary.AddChip(*mChip);
        mConnector =
            std::make_shared<CI2CConnectorFTDI>(std::make_shared<CSimFtdiApi>(mFtdiLibrary));
        mOpened = mConnector->Open(0L);
        break;
    case ESimChannel::eTi:
        mTiBridge.AddDevice(mTap);
        mConnector = std::make_shared<CI2CConnectorTI>(std::make_shared<CSimTiApi>(mTiBridge));
        mOpened = mConnector->Open(0L);
        break;
    case ESimChannel::eHid: {
        mHid = std::make_unique<CSimHidDevice>(*mDisplay, SSimHidIdentity{kHidPath});
        auto port = std::make_unique<CSimHidPort>(*mHid);
        port->RecordReports(true);
        mHidPort = port.get();
        mConnector = std::make_shared<CVcpHIDDeviceConnector>(std::move(port));
        mOpened = mConnector->Open(std::string(kHidPath));
        break;
    }
    case ESimChannel::eSerial: {
        mSerial = std::make_unique<CSimSerialDevice>(*mDisplay);
        auto port = std::make_unique<CSimSerialPort>(*mSerial, "ttyUSB0");
        port->RecordWrites(true);
        mSerialPort = port.get();
        mConnector = std::make_shared<CUSBConnector>(std::move(port));
        mOpened = mConnector->Open(std::string("ttyUSB0"));
        break;
    }
    }
}
