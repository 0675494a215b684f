#include "discovery/CDisplayConfigInterface.h"

#include "discovery/CMonitorConnectorDP.h"
#include "foundation/ScopeTimer.h"
#include "foundation/StringUtilities.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "model/CEdidBuilder.h"
#include "model/ModelTable.h"
#include "model/UiDisplayDelegate.h"

#include <cstdio>
#include <iterator>

namespace {

// An inclusive range of indexes.
struct SRange {
    int first;
    int last;
    bool Contains(int value_I) const { return value_I >= first && value_I <= last; }
};

// The connector type that no connector has: with it nothing matches without a serial number.
constexpr int kNoConnectorType = 5;

// The wait of each channel before its serial number is asked a second time, by connector type:
// the pause it takes before asking again elsewhere (serial, FTDI, TI, video, HID).
constexpr uint32_t kSerialRetryWaitMs[] = {200, 1000, 50, 50, 100};

// The channel's serial number; one lost reply must not lose the display, so an empty answer is
// asked once more after the channel's own wait.
std::string ChannelSerialNumber(Connector& connector_I) {
    std::string serial = connector_I.SerialNumber(kNoTabletId);
    const int type = connector_I.ConnectorType();
    if (serial.empty() && type >= 0 && type < static_cast<int>(std::size(kSerialRetryWaitMs))) {
        SleepMs(kSerialRetryWaitMs[type]);
        serial = connector_I.SerialNumber(kNoTabletId);
    }
    return serial;
}

} // namespace

CDisplayConfigInterface::CDisplayConfigInterface(const SDisplayConfigOptions& options_I,
                                                 std::shared_ptr<IDisplayPlatform> platform_I)
    : mLanguage(options_I.language), mSkipSerialMatch(options_I.skipSerialMatch),
      mExitOnError(options_I.exitOnError), mConnectionMode(options_I.connectionMode),
      mSetOsdLanguage(options_I.setOsdLanguage), mFactsStore(options_I.factsStore),
      mRefreshFacts(options_I.refreshFacts), mPlatform(std::move(platform_I)),
      mCurrentDisplayInfo(&mEmptyDisplayInfo) {
    Init();
}

CDisplayConfigInterface::~CDisplayConfigInterface() = default;

void CDisplayConfigInterface::Init() {
    CScopeTimer timer("CWinDisplayConfigInterface::Init");
    CEdidBuilder* pEdidBldr = CEdidBuilder::Instance();
    VRX_ASSERT(pEdidBldr);
    const bool verbose = gTraceEnabled;

    FindDisplays();
    Trace("CWinDisplayConfigInterface::Init - mDisplayInfos has %d items %s\n",
          static_cast<int>(mDisplayInfos.size()),
          mDisplayInfos.empty() ? "[No displays found!]" : "[Display(s) found!]");
    if (verbose) {
        Trace("CWinDisplayConfigInterface::Init - mDisplayInfos size: %d\n",
              static_cast<int>(mDisplayInfos.size()));
    }
    // Each record that has a monitor on the desktop takes its handle.
    for (SDisplayInfo& info : mDisplayInfos) {
        if (verbose) {
            Trace("CWinDisplayConfigInterface::MonitorEnumProc trying to match with %S\n",
                  info.DeviceID().c_str());
        }
        mPlatform->RefreshMonitor(info);
    }
    if (verbose) {
        Trace("CWinDisplayConfigInterface::Init - looking for Vcp HID devices...\n");
    }
    FindVcpHIDDevices();

    bool legacyScanDone = false;
    bool legacyNeeded = false;
    std::string errorText;
    size_t at = 0;
    while (at < mDisplayInfos.size()) {
        SDisplayInfo& info = mDisplayInfos[at];
        if (verbose) {
            Trace("CWinDisplayConfigInterface::Init: - displayInfo %S\n", info.monitorName.c_str());
        }
        bool unconnected = true;
        if (mConnectionMode == eConnectionMode_All || mConnectionMode == eConnectionMode_HID) {
            if (ConnectOverHid(info, verbose)) {
                unconnected = false;
                legacyNeeded = false;
            }
        }
        if (mConnectionMode == eConnectionMode_Video ||
            (mConnectionMode == eConnectionMode_All && unconnected)) {
            legacyNeeded = !ConnectOverVideo(info, verbose, errorText);
            if (legacyNeeded && mExitOnError && !errorText.empty()) {
                mLastError = ExitOnErrorText(info, errorText);
                return;
            }
        }
        if (mConnectionMode == eConnectionMode_FTDI ||
            (mConnectionMode == eConnectionMode_All && legacyNeeded)) {
            ConnectOverLegacy(info, verbose, legacyScanDone);
        }
        if (info.display == nullptr) {
            if (verbose) {
                Trace("Erasing display %S\n", info.monitorName.c_str());
            }
            mDisplayInfos.erase(mDisplayInfos.begin() + static_cast<long>(at));
        } else {
            ++at;
        }
    }
    mLastError.clear();
}

bool CDisplayConfigInterface::ConnectOverHid(SDisplayInfo& info_IO, bool verbose_I) {
    if (verbose_I) {
        Trace("CWinDisplayConfigInterface::Init: - trying to create a Vcp HID supported "
              "tablet...\n");
    }
    const std::string wanted = ToNarrow(info_IO.serialNumber);
    for (const std::shared_ptr<Connector>& connector : mConnectorList) {
        if (connector->ConnectorType() != eConnectorType_HID) {
            continue;
        }
        if (ChannelSerialNumber(*connector) == wanted ||
            (mSkipSerialMatch && IsVcpHIDTablet(info_IO.edidNumber))) {
            // A failed display counts as handled all the same: no other channel is tried.
            info_IO.display = CreateDisplay(info_IO.edidNumber, info_IO.monitorName,
                                            info_IO.modelNumber, connector);
            return true;
        }
    }
    return false;
}

bool CDisplayConfigInterface::ConnectOverVideo(SDisplayInfo& info_IO, bool verbose_I,
                                               std::string& errorText_IO) {
    if (verbose_I) {
        Trace("CWinDisplayConfigInterface::Init: - trying to create a DP supported tablet...\n");
    }
    std::shared_ptr<CMonitorConnectorDP> connector = mPlatform->MakeVideoConnector();
    if (connector != nullptr) {
        // A refusal shows in the session that follows.
        connector->OpenDisplayInfo(info_IO);
        info_IO.display =
            CreateDisplay(info_IO.edidNumber, info_IO.monitorName, info_IO.modelNumber, connector);
    }
    if (info_IO.display != nullptr) {
        return true;
    }
    if (verbose_I) {
        Trace("CWinDisplayConfigInterface::Init: - Failed to init with CWinI2CConnectorDP; "
              "reverting to legacy connect...\n");
    }
    errorText_IO = connector != nullptr ? connector->LastCapsError() : std::string();
    return false;
}

void CDisplayConfigInterface::ConnectOverLegacy(SDisplayInfo& info_IO, bool verbose_I,
                                                bool& legacyScanDone_IO) {
    if (verbose_I) {
        Trace("CWinDisplayConfigInterface::Init: - Process non-DP supported tablets...\n");
    }
    // The bridges are slow to scan: only when a record first needs them, and once.
    if (!legacyScanDone_IO) {
        legacyScanDone_IO = true;
        FindSerialPorts();
        Trace("CWinDisplayConfigInterface::Init - mConnectorList has %d items\n",
              static_cast<int>(mConnectorList.size()));
    }
    VRX_ASSERT(!mConnectorList.empty());
    const std::string wanted = ToNarrow(info_IO.serialNumber);
    if (verbose_I) {
        Trace("CWinDisplayConfigInterface::Init iter->S/N %s\n", wanted.c_str());
        Trace("CWinDisplayConfigInterface::Init: - mConnectorList.size: %u\n",
              static_cast<unsigned>(mConnectorList.size()));
        Trace("CWinDisplayConfigInterface::Init: - trolling for serial numbers...\n");
    }
    for (const std::shared_ptr<Connector>& connector : mConnectorList) {
        TakeKeptEdid(info_IO, *connector);
        const std::string serial = ChannelSerialNumber(*connector);
        if (verbose_I) {
            Trace("CWinDisplayConfigInterface::Init conn->S/N %s\n",
                  serial.empty() ? "WARNING: SERIAL NUMBER NOT FOUND!" : serial.c_str());
        }
        if (serial == wanted) {
            if (verbose_I) {
                Trace("CWinDisplayConfigInterface::Init S/N match - creating Display for ser# "
                      "%s, [%S]\n",
                      wanted.c_str(), info_IO.monitorName.c_str());
            }
            info_IO.display = CreateDisplay(info_IO.edidNumber, info_IO.monitorName,
                                            info_IO.modelNumber, connector);
            return;
        }
        if (mSkipSerialMatch && MatchesWithoutSerial(info_IO, *connector)) {
            info_IO.display = CreateDisplay(info_IO.edidNumber, info_IO.monitorName,
                                            info_IO.modelNumber, connector);
            return;
        }
    }
}

bool CDisplayConfigInterface::MatchesWithoutSerial(const SDisplayInfo& info_I,
                                                   Connector& connector_I) const {
    int expected = kNoConnectorType;
    if (IsInChannelGroup(EChannelGroup::eSerial, info_I.edidNumber)) {
        expected = eConnectorType_Serial;
    }
    if (expected == kNoConnectorType && IsInChannelGroup(EChannelGroup::eFtdi, info_I.edidNumber)) {
        expected = eConnectorType_FTDI;
    }
    if (IsInChannelGroup(EChannelGroup::eTi, info_I.edidNumber)) {
        expected = eConnectorType_TI;
    }
    return connector_I.ConnectorType() == expected &&
           connector_I.MonitorName() == ToNarrow(info_I.monitorName);
}

std::string CDisplayConfigInterface::ExitOnErrorText(const SDisplayInfo& info_I,
                                                     const std::string& errorText_I) {
    char number[8];
    std::snprintf(number, sizeof(number), "%02X", info_I.edidNumber);
    return std::string("Display: VRX") + number + " " + " [" + ToNarrow(info_I.modelNumber) + "]" +
           "\n    Could not connect through Display Port API\n" + "    " + errorText_I;
}

void CDisplayConfigInterface::Rediscover() {
    mCurrentDisplayInfo = &mEmptyDisplayInfo;
    mConnectorList.clear();
    mConfirmedFacts.reset();
    mDisplayInfos.clear();
    Init();
}

uint32_t CDisplayConfigInterface::LookupByEDID(const std::string& shortName_I) {
    if (shortName_I.rfind("VRX", 0) != 0) {
        if (gTraceEnabled) {
            Trace("LookupByEDID: WARNING - found NO tablet to match EDID: %s\n",
                  shortName_I.c_str());
        }
        return CEdidBuilder::kNoTablet;
    }
    const int64_t number = HexStringToInteger(shortName_I.substr(3));
    if (gTraceEnabled) {
        Trace("LookupByEDID: found tablet: %d to match EDID: %s\n", static_cast<int>(number),
              shortName_I.c_str());
    }
    return CEdidBuilder::TabletForEdid(static_cast<uint16_t>(number & 0xFFFF));
}

bool CDisplayConfigInterface::IsVcpHIDTablet(uint16_t edid_I) {
    return IsInChannelGroup(EChannelGroup::eHid, edid_I);
}

std::vector<std::wstring> CDisplayConfigInterface::DisplayNames() const {
    std::vector<std::wstring> names;
    names.reserve(mDisplayInfos.size());
    for (const SDisplayInfo& info : mDisplayInfos) {
        names.push_back(info.monitorName);
    }
    return names;
}

void CDisplayConfigInterface::SetCurrentDisplay(int index_I) {
    // clang-format off
    VRX_ASSERT((SRange{0, static_cast<int>(mDisplayInfos.size())}.Contains(index_I + 1)));
    // clang-format on
    if (index_I < 0 || index_I >= static_cast<int>(mDisplayInfos.size())) {
        mCurrentDisplayInfo = &mEmptyDisplayInfo;
        return;
    }
    mCurrentDisplayInfo = &mDisplayInfos[static_cast<size_t>(index_I)];
    // The monitor's handle follows a change of the desktop.
    VRX_ASSERT(!CurrentDisplayInfo().DeviceID().empty());
    if (mCurrentDisplayInfo->DeviceID().empty()) {
        if (gTraceEnabled) {
            Trace("CWinDisplayConfigInterface::MonitorEnumProc No monitor source\n");
        }
        return;
    }
    if (mPlatform->RefreshMonitor(*mCurrentDisplayInfo) && gTraceEnabled) {
        Trace("CWinDisplayConfigInterface::MonitorEnumProc Match!\n");
    }
}

bool CDisplayConfigInterface::IsCurrentDisplay(int index_I) const {
    // clang-format off
    VRX_ASSERT((SRange{0, static_cast<int>(mDisplayInfos.size())}.Contains(index_I + 1)));
    // clang-format on
    if (index_I < 0 || index_I >= static_cast<int>(mDisplayInfos.size())) {
        return mCurrentDisplayInfo == &mEmptyDisplayInfo;
    }
    return mCurrentDisplayInfo == &mDisplayInfos[static_cast<size_t>(index_I)];
}

std::shared_ptr<UiDisplayDelegate> CDisplayConfigInterface::CurrentDisplay() const {
    return mCurrentDisplayInfo->display;
}

std::string CDisplayConfigInterface::CurrentMonitor() const {
    return mCurrentDisplayInfo->monitorHandle;
}
