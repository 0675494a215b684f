#pragma once
// A one-line description of a set of simulated displays, for tests, /simulate and people.
//
//   description := [ display { "," display } ]
//   display     := model [ "@" channels ] { ":" option }
//   channels    := channel { "+" channel } | "none"
//   channel     := "video" | "ftdi" | "ti" | "hid" | "serial"
//   option      := "serial=" text | "edid=" hex | "fault=" fault
//   fault       := kind [ number ] [ "@" skip ] [ "*" ( times | "forever" ) ]
//   kind        := "nack" | "badchecksum" | "null" | "short" | "notready" | "othercode"
//                  | "silence" | "late" | "unplug"
//
// Examples:
//   ElmLarge@video,Hazel@hid:serial=ABC,Birch@ftdi
//   Birch@ftdi+video:edid=1049, Birch:serial=SN00000000002
//   Hazel@hid:fault=notready*3:fault=unplug@20
//
// Model names are those of the model table (ElmLarge, Hazel, CedarSmallTwo, ...). Names, channels
// and option keys are matched without regard to case; blanks around items are ignored.
// Without "@" a display answers on its model's channel group plus the video cable where its
// scaler answers there; "none" leaves it a monitor with no control channel.
// A serial number has 1 to 13 printable characters other than , : @ + = and blank; a shorter
// one is padded with "0" to the 13 characters the display reports. Without one a display gets
// "VRX", its EDID number in four hex digits and its position in the description in six digits
// (VRX1060000001), so two displays of one model differ. "edid=" picks one of the model's EDID
// numbers (hex, an optional 0x); the first is the default.
// "fault=" arms a fault on the display (see CSimFaults.h): nack, short and late need their number
// (byte index, bytes kept, milliseconds); "@" lets that many occasions pass first; "*" says on how
// many occasions it strikes, once by default. Several faults may be given.
// A bad description yields an error text naming the display and the fault, and no displays.

#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct SSimDisplayEntry {
    const SSimModel* model = nullptr;
    std::string serial; // always 13 characters
    SimChannelSet channels = 0;
    uint16_t edidNumber = 0;
    std::vector<SSimFault> faults;
};

struct SSimDescription {
    std::vector<SSimDisplayEntry> displays;
    std::string error; // empty when the description is good
    bool Ok() const { return error.empty(); }
};

SSimDescription ParseSimDescription(std::string_view text_I);
// The canonical description of a set: every display with its channels, serial and EDID number.
std::string FormatSimDescription(std::span<const SSimDisplayEntry> displays_I);
std::vector<std::unique_ptr<CSimDisplay>>
MakeSimDisplays(std::span<const SSimDisplayEntry> displays_I);
