#include "cli/ProfileCommands.h"

#include "cli/CJsonWriter.h"
#include "cli/CliPlatform.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "model/UiDisplayDelegate.h"
#include "profiles/CProfileStore.h"
#include "profiles/ProfileApply.h"

#include <ostream>

namespace {

std::string Joined(const std::vector<std::string>& names_I) {
    std::string text;
    for (const std::string& name : names_I) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

void WriteSkips(CJsonWriter& json_I, const char* key_I, const std::vector<SProfileSkip>& skips_I) {
    json_I.Key(key_I).BeginArray();
    for (const SProfileSkip& skip : skips_I) {
        json_I.BeginObject().Key("setting").String(skip.key);
        json_I.Key("reason").String(skip.reason).EndObject();
    }
    json_I.EndArray();
}

void WriteNames(CJsonWriter& json_I, const char* key_I, const std::vector<std::string>& names_I) {
    json_I.Key(key_I).BeginArray();
    for (const std::string& name : names_I) {
        json_I.String(name);
    }
    json_I.EndArray();
}

class CProfileCommand {
public:
    CProfileCommand(const SCliContext& context_I, const ProfilePlatformSource& platform_I)
        : mContext(context_I), mOptions(context_I.options), mPlatform(platform_I),
          mStore(CProfileStore::DefaultDirectory()) {}

    int Run() {
        const std::string& action = mOptions.operands[0];
        const bool takesName = action != "list";
        if (action != "list" && action != "save" && action != "apply" && action != "delete") {
            return mContext.Fail(eCliExit_Usage, "profile: unknown action '" + action +
                                                     "' (save, apply, list or delete)");
        }
        if (takesName != (mOptions.operands.size() == 2)) {
            return mContext.Fail(eCliExit_Usage, takesName ? "profile " + action + " needs NAME"
                                                           : "profile list takes no NAME");
        }
        if (mStore.Folder().empty()) {
            return mContext.Fail(eCliExit_NotOffered,
                                 "no folder for profiles: neither XDG_CONFIG_HOME nor HOME is set");
        }
        if (action == "list") {
            return List();
        }
        if (action == "delete") {
            return Delete(mOptions.operands[1]);
        }
        const int selected = Select();
        if (selected != eCliExit_Done) {
            return selected;
        }
        return action == "save" ? Save(mOptions.operands[1]) : Apply(mOptions.operands[1]);
    }

private:
    int Select() {
        std::string error;
        std::shared_ptr<IDisplayPlatform> platform = mPlatform(error);
        if (!platform) {
            return mContext.Fail(mOptions.simulate ? eCliExit_Usage : eCliExit_NotOffered, error);
        }
        SDisplayConfigOptions config = MakeDisplayConfigOptions(mOptions);
        config.factsStore = MakeCliFactsStore(mOptions);
        mConfig = std::make_unique<CDisplayConfigInterface>(config, std::move(platform));
        const size_t count = mConfig->DisplayInfos().size();
        if (count == 0) {
            return mContext.Fail(eCliExit_NotOffered,
                                 mConfig->LastError().empty()
                                     ? "no display found"
                                     : "no display found: " + mConfig->LastError());
        }
        mConfig->SetCurrentDisplay(mOptions.display);
        mDisplay = mConfig->CurrentDisplay();
        if (!mDisplay) {
            return mContext.Fail(eCliExit_NotOffered, "no display " +
                                                          std::to_string(mOptions.display) +
                                                          " (found " + std::to_string(count) + ")");
        }
        const SDisplayInfo& info = mConfig->CurrentDisplayInfo();
        mOwner = {ToNarrow(info.modelNumber), ToNarrow(info.serialNumber)};
        return eCliExit_Done;
    }

    int Save(const std::string& name_I) {
        SProfile existing;
        std::string error;
        if (mStore.Load(name_I, existing, error) && existing.owner != mOwner) {
            return mContext.Fail(eCliExit_NotOffered,
                                 "profile '" + name_I + "' belongs to a " + existing.owner.model +
                                     " (serial " + existing.owner.serial +
                                     "); delete it first or choose another name");
        }
        const SProfile profile = CaptureProfile(*mDisplay, name_I, mOwner);
        if (!mStore.Save(profile, error)) {
            return mContext.Fail(eCliExit_Usage, error);
        }
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("profile").String(name_I).Key("display").Number(
                mOptions.display);
            json.Key("settings").Number(static_cast<int64_t>(profile.settings.size()));
            json.EndObject();
            mContext.out << json.Text();
        } else {
            mContext.out << "saved profile '" << name_I << "' with " << profile.settings.size()
                         << " settings\n";
        }
        return eCliExit_Done;
    }

    int Apply(const std::string& name_I) {
        SProfile profile;
        std::string error;
        if (!mStore.Load(name_I, profile, error)) {
            return mContext.Fail(eCliExit_NotOffered, error);
        }
        const std::string mismatch = ProfileMismatch(profile, mOwner);
        if (!mismatch.empty()) {
            return mContext.Fail(eCliExit_NotOffered, mismatch);
        }
        const SProfileApplied applied = ApplyProfile(*mDisplay, profile, mOptions.save);
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("profile").String(name_I).Key("display").Number(
                mOptions.display);
            WriteNames(json, "changed", applied.changed);
            WriteNames(json, "unchanged", applied.unchanged);
            WriteSkips(json, "skipped", applied.skipped);
            WriteSkips(json, "failed", applied.failed);
            json.Key("saved").Bool(applied.saved).EndObject();
            mContext.out << json.Text();
        } else {
            mContext.out << "applied profile '" << name_I
                         << "': " << (applied.changed.empty() ? "nothing" : Joined(applied.changed))
                         << " changed, " << applied.unchanged.size() << " unchanged"
                         << (applied.saved ? ", saved" : "") << "\n";
            if (!applied.skipped.empty()) {
                mContext.out << "skipped: " << SkipsText(applied.skipped) << "\n";
            }
        }
        if (!applied.Ok()) {
            return mContext.Fail(eCliExit_Communication,
                                 "profile '" + name_I + "': " + SkipsText(applied.failed));
        }
        return eCliExit_Done;
    }

    int List() {
        CJsonWriter json;
        json.BeginObject().Key("profiles").BeginArray();
        std::string text;
        for (const std::string& name : mStore.Names()) {
            SProfile profile;
            std::string error;
            const bool valid = mStore.Load(name, profile, error);
            json.BeginObject().Key("name").String(name).Key("valid").Bool(valid);
            if (valid) {
                json.Key("model").String(profile.owner.model);
                json.Key("serial").String(profile.owner.serial);
                text += name + "\t" + profile.owner.model + "\t" + profile.owner.serial + "\n";
            } else {
                text += name + "\tdamaged\n";
            }
            json.EndObject();
        }
        json.EndArray().EndObject();
        mContext.out << (mOptions.json ? json.Text() : text);
        return eCliExit_Done;
    }

    int Delete(const std::string& name_I) {
        std::string error;
        if (!mStore.Remove(name_I, error)) {
            return mContext.Fail(eCliExit_NotOffered, error);
        }
        if (mOptions.json) {
            CJsonWriter json;
            json.BeginObject().Key("profile").String(name_I).Key("deleted").Bool(true).EndObject();
            mContext.out << json.Text();
        } else {
            mContext.out << "deleted profile '" << name_I << "'\n";
        }
        return eCliExit_Done;
    }

    const SCliContext& mContext;
    const SCliOptions& mOptions;
    const ProfilePlatformSource& mPlatform;
    CProfileStore mStore;
    std::unique_ptr<CDisplayConfigInterface> mConfig;
    std::shared_ptr<UiDisplayDelegate> mDisplay;
    SProfileOwner mOwner;
};

} // namespace

int RunProfileCommand(const SCliContext& context_I, const ProfilePlatformSource& platform_I) {
    return CProfileCommand(context_I, platform_I).Run();
}
