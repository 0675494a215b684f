#pragma once
// What the dialog tests share: an offscreen application, a main dialog that records what the
// dialogs ask of it, and simulated displays found by discovery under a virtual clock.

#include "app/IDialogOwner.h"
#include "app/TickTimer.h"
#include "discovery/CDisplayConfigInterface.h"
#include "discovery/SDisplayConfigOptions.h"
#include "foundation/VirtualClock.h"
#include "platform/sim/CSimulatedPlatform.h"

#include <QRect>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QWidget;
class UiDisplayDelegate;

// The one application of the test process, on the offscreen platform unless the caller chose
// another.
void EnsureTestApplication();

class CRecordingOwner final : public IDialogOwner {
public:
    void SettleDisplay() override {}
    void UpdateControls() override { ++updateControls; }
    void UpdateSaveRevert() override { ++updateSaveRevert; }
    void ShowCommunicationError(bool exit_I) override { communicationErrors.push_back(exit_I); }
    void DoFactoryReset(bool skipConfirmation_I) override {
        factoryResets.push_back(skipConfirmation_I);
        if (onFactoryReset) {
            onFactoryReset();
        }
    }
    void CloseAllDialogs() override { ++closeAllDialogs; }
    bool ConfirmTooDark(QWidget*) override {
        ++darkQuestions;
        if (onDarkQuestion) {
            onDarkQuestion();
        }
        return darkAnswer;
    }
    QRect MainDialogRect() const override { return mainRect; }
    QRect WorkArea() const override { return workArea; }
    QRect VirtualScreen() const override { return virtualScreen; }

    int updateControls = 0;
    int updateSaveRevert = 0;
    std::vector<bool> communicationErrors;
    std::vector<bool> factoryResets;
    std::function<void()> onFactoryReset;
    int closeAllDialogs = 0;
    int darkQuestions = 0;
    bool darkAnswer = false;
    // Runs while the question is open, as events do in its own loop.
    std::function<void()> onDarkQuestion;
    QRect mainRect{100, 300, 420, 560};
    QRect workArea{0, 0, 1920, 1040};
    QRect virtualScreen{0, 0, 1920, 1080};
};

// A tick that fires only when the test says so.
class CManualTickTimer final : public ITickTimer {
public:
    void SetCallback(std::function<void()> tick_I) override { mTick = std::move(tick_I); }
    void Start(int intervalMs_I) override {
        mActive = true;
        interval = intervalMs_I;
    }
    void Stop() override { mActive = false; }
    bool IsActive() const override { return mActive; }
    // One tick, as the running timer would give it.
    void Fire() {
        if (mActive && mTick) {
            mTick();
        }
    }

    int interval = 0;

private:
    bool mActive = false;
    std::function<void()> mTick;
};

// Simulated displays of a description, discovered, with display 0 selected.
class CDialogRig {
public:
    explicit CDialogRig(std::string_view description_I, const std::string& language_I = "en");

    CSimDisplay& Sim() { return mPlatform->Display(0); }
    UiDisplayDelegate& Display();
    CDisplayConfigInterface* Config() { return mConfig.get(); }
    const SDisplayConfigOptions& Options() const { return mOptions; }
    // The display's current value of a code; -1 when it has none.
    int Current(uint8_t code_I);

private:
    CScopedVirtualClock mClock;
    SDisplayConfigOptions mOptions;
    std::shared_ptr<CSimulatedPlatform> mPlatform;
    std::unique_ptr<CDisplayConfigInterface> mConfig;
};
