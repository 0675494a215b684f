#pragma once
// One display as the program knows it: its channel, the capabilities its scaler announced, and
// one option per VCP feature. Values are read once and then served from memory; a written value
// shows at once, SaveSettings makes it the one to go back to, RevertSettings takes all changes
// back. One thread at a time uses a display; it has no lock.

#include "ddc/Connector.h"
#include "ddc/VcpCodes.h"
#include "foundation/FileVersion.h"
#include "model/CapabilitiesParser.h"
#include "model/ModelTable.h"
#include "model/SVCPResult.h"
#include "model/VCPCodeInfoTable.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

// What an operation of the session failed at and why, in words a user can act on.
struct SDisplayFailure {
    std::string what; // "reading VCP code 0x10"
    std::string why;  // "the display did not answer"
    bool Empty() const { return what.empty(); }
    std::string Text() const { return what + ": " + why; }
};

class CDisplay {
public:
    // The EDID number (never 0) says which model this is, and so how Gamma reads.
    CDisplay(std::shared_ptr<Connector> connector_I, uint16_t edidNumber_I);
    virtual ~CDisplay();
    CDisplay(const CDisplay&) = delete;
    CDisplay& operator=(const CDisplay&) = delete;

    // Commits every changed value and asks the scaler to store its settings.
    virtual bool SaveSettings();
    // Writes every changed option back to its committed value; false when one of them did not
    // go back, with its cause in GetLastFailure.
    virtual bool RevertSettings();
    // Forgets what the display said, so that each option is read afresh at its next use; Display
    // Presets keep their state unless includePresets_I.
    virtual void ResetOptions(bool includePresets_I);

    // Builds the model from the capability string. An empty capabilities_I asks the connector;
    // a non-empty one stands for what a connector would have delivered.
    bool Initialize(const std::string& capabilities_I);
    // Drops the model and closes the channel.
    void Reset();

    SVCPResult GetVCPValue(vcpCode vcpCode_I, bool refresh_I);
    // True also when nothing had to go on the wire: a never-read option, the present value, or a
    // value the option refuses.
    bool SetVCPValue(vcpCode vcpCode_I, int32_t value_I);
    bool SetVCPValueVerify(vcpCode vcpCode_I, int32_t value_I, int32_t retries_I);
    bool RevertVCPValue(vcpCode vcpCode_I);
    void ForgetVCPValue(vcpCode vcpCode_I);
    bool IsAnyOptionModified() const;
    // The display's name: what the dialogs end their communication message with.
    std::string GetLastErrorText() const;
    // The last failure of a read, write, save, revert or Initialize, beside their bool results;
    // an operation that succeeds leaves it as it was.
    const SDisplayFailure& GetLastFailure() const { return mLastFailure; }
    void ClearLastFailure() { mLastFailure = {}; }
    std::string DumpState() const;

    bool IsCedarGenOne() const;
    bool IsCedarGenTwo() const;
    bool IsCedarFamily() const;
    bool IsElmLargeFamily() const;
    bool IsElmHuge() const;
    bool IsElmFamily() const;
    bool IsBirchFamily() const;
    bool IsAlderFamily() const;
    bool IsFirFamily() const;
    bool IsFirTwoFamily() const;
    bool IsHazelOrFirTwo() const;
    // Whether this display is one of the given tablets.
    bool IsOneOf(std::initializer_list<uint32_t> tabletIds_I) const;
    // The model table's row of this display.
    const SModelRow& Model() const;

    const std::shared_ptr<Connector>& GetConnector() const { return mConnector; }
    const CapabilitiesMap& GetCapabilitiesMap() const { return mCapabilitiesMap; }
    const std::string& GetCapabilitiesString() const { return mCapabilitiesString; }
    const VCPOptionsMap& GetOptions() const { return mVCPOptionsMap; }
    const std::vector<int32_t>& GetCommands() const { return mCommandsVector; }
    const std::string& GetProtocol() const { return mProtocol; }
    const std::string& GetType() const { return mType; }
    const std::string& GetModelNumber() const { return mModelNumber; }
    void SetModelNumber(const std::string& modelNumber_I) { mModelNumber = modelNumber_I; }
    uint16_t GetEDIDNumber() const { return mEDIDNumber; }
    const FileVersion& GetMCCSVersion() const { return mMCCSVersion; }
    const FileVersion& GetFWVersion() const { return mFWVersion; }
    const std::string& GetMonitorName() const { return mMonitorName; }

protected:
    std::shared_ptr<Connector> mConnector;
    CapabilitiesMap mCapabilitiesMap;
    std::string mCapabilitiesString;
    VCPOptionsMap mVCPOptionsMap;
    std::vector<int32_t> mCommandsVector;
    VCPCodeInfoMap mCodeInfo;
    std::string mProtocol;
    std::string mType;
    std::string mModelNumber;
    uint16_t mEDIDNumber;
    FileVersion mMCCSVersion;
    FileVersion mFWVersion;
    std::string mMonitorName;

    // Keeps the cause of a failed exchange of an option, or of another operation.
    void NoteFailure(const std::string& what_I, const std::string& why_I);
    void NoteOptionFailure(const char* action_I, const VCPOptionBase& option_I);

private:
    SDisplayFailure mLastFailure;
    bool IsIn(ModelGroups groups_I) const;
    void InitializeCodeInfo();
    // The model repairs of options that some firmware announces wrongly.
    void RepairOptionsForModel();
    // After a failed write: a pause, and one more write.
    void RetryFailedWrite(const std::shared_ptr<VCPOptionBase>& option_I);

    // One Get VCP Feature exchange; the outcome, failures included, is left in the option.
    void ReadVCPValue_(std::shared_ptr<VCPOptionBase> option_I);
    // One Set VCP Feature exchange of the option's present value, with the display's settle
    // time; the outcome is the option's error text.
    void WriteVCPValue_(std::shared_ptr<VCPOptionBase> option_I);
};
