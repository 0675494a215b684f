#pragma once
// Exchanges that several connectors share word for word: the factory-mode switch, the EDID read
// in sixteen chunks that it brackets, and the firmware-level request and reply. They work through
// the connector's own SendRequest.

#include "ddc/Connector.h"

#include <optional>
#include <string>

// 6E 51 84 C0 E1 00 m check, m 1 for on and 0 for off; the reply is only checked by assertions.
void SetFactoryMode(Connector& connector_I, bool on_I);

// Factory mode on, chunks 0 to 15 of 16 EDID bytes each, factory mode off. owner_I names the
// caller in the timer line. A missing chunk adds nothing and does not end the read.
ByteVector ReadFactoryModeEDID(Connector& connector_I, const std::string& owner_I);

// The firmware level out of a VCP Feature Reply to 0xC9 whose check byte has been taken off:
// major, minor and build are bytes 7, 8 and 9. A reply that fails a test traces why and gives
// the zero version.
FileVersion FirmwareFromFeatureReply(const ByteVector& reply_I);

// Get VCP Feature of the firmware level, 0xC9.
ByteVector BuildFirmwareRequest();

// Takes the check byte off a non-empty firmware reply; a check byte that does not add up is
// traced and the reply kept all the same.
void DropFirmwareCheckByte(ByteVector& reply_I);

// One firmware request with its traces: the request, the reply and a bad check byte. The reply
// comes back without its check byte, or nothing when none came.
std::optional<ByteVector> SendFirmwareRequest(Connector& connector_I, const ByteVector& request_I,
                                              double delayS_I, unsigned expectedSize_I);
