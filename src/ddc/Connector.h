#pragma once
// The channel to one display's scaler. It is a byte contract: SendRequest takes a whole DDC/CI
// request frame and gives back a whole reply frame, whatever wire lies below, so every reader
// of replies needs one parser. Failures are values: false, an empty vector or string, a zero
// version. A connector has no lock; one thread at a time uses it.

#include "ddc/Frames.h"
#include "foundation/FileVersion.h"

#include <cstdint>
#include <string>
#include <utility>

// The display's 32-bit identifier (USB vendor id high, product id low) when none is known.
constexpr uint32_t kNoTabletId = 0xFFFFFFFFu;

// The fixed numbering that discovery compares.
enum EConnectorType : int {
    eConnectorType_Serial = 0,
    eConnectorType_FTDI = 1,
    eConnectorType_TI = 2,
    eConnectorType_DisplayPort = 3,
    eConnectorType_HID = 4,
};

class Connector {
public:
    Connector() = default;
    virtual ~Connector();
    Connector(const Connector&) = delete;
    Connector& operator=(const Connector&) = delete;

    virtual bool IsUsable() = 0;
    virtual int ConnectorType() = 0;
    virtual bool Open(const std::string& port_I) = 0;
    virtual bool Open(long device_I) = 0;
    // Drops the EDID and the cached version; always succeeds.
    virtual bool Close();
    virtual bool IsOpen() = 0;
    // The reply frame, or an empty vector when the request failed or nothing came back. The
    // delay is waited between writing and reading where the wire has such a gap.
    virtual ByteVector SendRequest(const ByteVector& toSend_I, double delay,
                                   unsigned expectedSize_I, int retries) = 0;
    virtual std::string CapabilitiesString() = 0;
    // The text of the EDID's display-name descriptor, up to its first zero byte.
    virtual std::string MonitorName();
    // The text of the EDID's serial-number descriptor, up to its first unprintable byte.
    virtual std::string SerialNumber(uint32_t sid_I);
    virtual FileVersion FWVersion() = 0;
    virtual ByteVector ReadEDID(uint32_t sid_I) = 0;

    // The EDID read so far. One known from an earlier run may be handed in: the name and the
    // serial number then need no exchange.
    const ByteVector& KnownEDID() const { return mEDID; }
    void TakeKnownEDID(ByteVector edid_I) { mEDID = std::move(edid_I); }

    // Save Current Settings; true when the scaler acknowledged it.
    bool SaveSettingsToScalar();
    // The scaler's reset frame; true when the scaler acknowledged it.
    bool ScalarReset();

    // The first balanced parenthesis group of the bytes received, or all of them when they
    // never balance.
    static std::string ExtractCapabilitiesString(const ByteVector& capsStr_I);

protected:
    // The two fragment loops that read the capability string: the standard request and the
    // table-read request. Both give the empty string when the scaler has none to give.
    std::string ReadCapabilitiesStandard(int retries);
    std::string ReadCapabilitiesPrivate(int retries);

    // The raw EDID, read on first demand; empty counts as not read.
    ByteVector mEDID;
    // For the children's firmware reads; zero after construction and after Close.
    FileVersion mCachedVersion;

private:
    std::string ReadCapabilities(bool private_I, int retries);
    std::string ReadEDIDText(uint32_t sid_I, uint8_t tag_I, bool toFirstZero_I,
                             const char* traceFormat_I);
};
