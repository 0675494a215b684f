#pragma once
// Discovery and the display list. Construction finds the family's monitors and the channels
// that may reach their scalers, pairs each monitor with a channel by the serial number both
// report, and builds and initialises a display object on each pair; monitors that no channel
// reaches are dropped. Afterwards the dialogs pick a display here and reach it only through
// this object. It sees the operating system only through IDisplayPlatform.

#include "ddc/Connector.h"
#include "discovery/IDisplayPlatform.h"
#include "discovery/SDisplayConfigOptions.h"
#include "discovery/SDisplayInfo.h"
#include "discovery/SMonitorSource.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class UiDisplayDelegate;

class CDisplayConfigInterface {
public:
    // Runs discovery.
    CDisplayConfigInterface(const SDisplayConfigOptions& options_I,
                            std::shared_ptr<IDisplayPlatform> platform_I);
    virtual ~CDisplayConfigInterface();
    CDisplayConfigInterface(const CDisplayConfigInterface&) = delete;
    CDisplayConfigInterface& operator=(const CDisplayConfigInterface&) = delete;

    void Init();
    // Forgets the selection, every display and every channel, and discovers again.
    void Rediscover();

    // A display initialised over the connector, or null.
    std::shared_ptr<UiDisplayDelegate> CreateDisplay(uint16_t edidNumber_I,
                                                     const std::wstring& monitorName_I,
                                                     const std::wstring& modelNumber_I,
                                                     std::shared_ptr<Connector> connector_I);

    // The tablet of a short name such as VRX1041, or CEdidBuilder::kNoTablet.
    static uint32_t LookupByEDID(const std::string& shortName_I);
    // Models whose scaler answers on the vendor HID channel.
    static bool IsVcpHIDTablet(uint16_t edid_I);

    // The monitor name of each display, in order; empty when nothing is supported.
    std::vector<std::wstring> DisplayNames() const;
    // An index out of range selects nothing.
    void SetCurrentDisplay(int index_I);
    bool IsCurrentDisplay(int index_I) const;
    // Null when nothing is selected.
    std::shared_ptr<UiDisplayDelegate> CurrentDisplay() const;
    // The selected monitor's handle; empty when nothing is selected.
    std::string CurrentMonitor() const;
    const SDisplayInfo& CurrentDisplayInfo() const { return *mCurrentDisplayInfo; }
    const std::vector<SDisplayInfo>& DisplayInfos() const { return mDisplayInfos; }
    const std::vector<std::shared_ptr<Connector>>& ConnectorList() const { return mConnectorList; }

    // Why /exitOnError ended discovery; empty otherwise.
    const std::string& LastError() const { return mLastError; }

private:
    // The stages of enumeration: monitors, HID channels, and the serial and bridge channels.
    void FindDisplays();
    void GetNextMonitorID(const std::vector<SMonitorSource>& monitors_I);
    void GetSerialNumAndName(const SMonitorSource& monitor_I, const std::wstring& modelNumber_I);
    int FindVcpHIDDevices();
    void FindSerialPorts();
    void GetPortNum(const std::string& portName_I);
    // The group name of the model's resources, or empty for a tablet of none.
    std::wstring ModelGroupString(const char* group_I, uint32_t tabletId_I) const;

    // The channels of one record, in the order the walk tries them; each reports whether it
    // picked a channel for the record.
    bool ConnectOverHid(SDisplayInfo& info_IO, bool verbose_I);
    bool ConnectOverVideo(SDisplayInfo& info_IO, bool verbose_I, std::string& errorText_IO);
    void ConnectOverLegacy(SDisplayInfo& info_IO, bool verbose_I, bool& legacyScanDone_IO);
    // Whether the connector may stand for the record without a serial number.
    bool MatchesWithoutSerial(const SDisplayInfo& info_I, Connector& connector_I) const;
    static std::string ExitOnErrorText(const SDisplayInfo& info_I, const std::string& errorText_I);
    // The OSD language of the models that take it from the program.
    void SetLanguage(UiDisplayDelegate& display_I) const;
    // The kept facts of the identity's display, when a firmware read on the connector confirms
    // them; none with a refresh or when they do not hold.
    std::optional<SDisplayFacts> TrustedFacts(const SDisplayFacts& identity_I,
                                              Connector& connector_I);
    // The kept facts of the identity, unchecked.
    std::optional<SDisplayFacts> KeptFacts(const SDisplayFacts& identity_I);
    // Hands a lone FTDI bridge the record's kept EDID once its firmware read confirms the
    // record's kept facts, so that pairing needs no EDID read over the bridge.
    void TakeKeptEdid(const SDisplayInfo& info_I, Connector& connector_I);
    // Stores what the display said on a full start under its identity.
    void KeepFacts(const UiDisplayDelegate& display_I, const Connector& channel_I,
                   const SDisplayFacts& identity_I);

    LanguageProvider mLanguage;
    bool mSkipSerialMatch;
    bool mExitOnError;
    SConnectionMode mConnectionMode;
    bool mSetOsdLanguage;
    std::shared_ptr<IDisplayFactsStore> mFactsStore;
    bool mRefreshFacts;
    // Facts confirmed on a channel while pairing, so that its start need not read them again.
    std::optional<std::pair<const Connector*, SDisplayFacts>> mConfirmedFacts;
    std::shared_ptr<IDisplayPlatform> mPlatform;
    std::vector<std::shared_ptr<Connector>> mConnectorList;
    std::vector<SDisplayInfo> mDisplayInfos;
    SDisplayInfo mEmptyDisplayInfo;
    SDisplayInfo* mCurrentDisplayInfo;
    std::string mLastError;
};
