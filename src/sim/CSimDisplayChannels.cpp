#include "sim/CSimDisplayChannels.h"

#include "sim/SimModelTable.h"

namespace {

SSimHidIdentity HidIdentity(const CSimDisplay& display_I, const std::string& path_I) {
    SSimHidIdentity identity;
    identity.path = path_I;
    identity.vendorId = kSimVendorId;
    identity.productId = display_I.Model().productId;
    // The release number is the firmware's major and minor version.
    identity.versionNumber =
        static_cast<uint16_t>(display_I.Model().firmware[0] << 8 | display_I.Model().firmware[1]);
    return identity;
}

} // namespace

CSimDisplayChannels::CSimDisplayChannels(CSimDisplay& display_I,
                                         const SSimChannelAddresses& addresses_I)
    : mDisplay(display_I), mBusFaults(display_I.I2C()),
      mFtdiChip(mBusFaults, {addresses_I.ftdiSerialNumber, addresses_I.ftdiDescription,
                             addresses_I.ftdiLocationId}),
      mHid(display_I, HidIdentity(display_I, addresses_I.hidPath)), mSerial(display_I) {
    mFtdiChip.SetPresenceProbe([this] { return Reachable(ESimChannel::eFtdi); });
    mHid.SetPresenceProbe([this] { return Reachable(ESimChannel::eHid); });
    mHid.SetBusyProbe([this] { return mDisplay.PollNotReady(); });
    mSerial.SetPresenceProbe([this] { return Reachable(ESimChannel::eSerial); });
}

bool CSimDisplayChannels::Reachable(ESimChannel channel_I) const {
    return mDisplay.IsPlugged() && mDisplay.AnswersOn(channel_I);
}

void CSimDisplayChannels::Attach(CSimFtdiLibrary& ftdi_I, CSimTiBridge& ti_I) {
    ftdi_I.AddChip(mFtdiChip);
    ti_I.AddDevice(mBusFaults, [this] { return Reachable(ESimChannel::eTi); });
}
