#include "app/CAdvancedDialog.h"

#include "DialogTestSupport.h"
#include "foundation/Trace.h"
#include "foundation/TraceCapture.h"
#include "model/UiDisplayDelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr uint8_t kSharpnessCode = 0x87;
constexpr uint8_t kAspectCode = 0xE2;
constexpr uint8_t kDynamicContrastCode = 0xE8;
constexpr uint8_t kFanCode = 0xF3;
constexpr uint8_t kAutoPowerDownCode = 0xEE;

class CAdvancedDialogTest : public ::testing::Test {
protected:
    // Writes are seen in the lines the display session traces.
    void SetUp() override { gTraceEnabled = true; }

    void Open(std::string_view description_I) {
        EnsureTestApplication();
        mRig = std::make_unique<CDialogRig>(description_I);
        auto timer = std::make_unique<CManualTickTimer>();
        mTimer = timer.get();
        mDialog = std::make_unique<CAdvancedDialog>(mRig->Options(), mRig->Config(), &mOwner,
                                                    std::move(timer));
        mDialog->ShowAdvanced(true);
    }

    template <typename T>
    T* Find(const char* name_I) {
        T* widget = mDialog->findChild<T*>(name_I);
        EXPECT_NE(widget, nullptr) << name_I;
        return widget;
    }

    // Chooses a combo row as the user does.
    void Choose(const char* combo_I, int row_I) {
        QComboBox* combo = Find<QComboBox>(combo_I);
        combo->setCurrentIndex(row_I);
        emit combo->activated(row_I);
    }

    void Click(const char* pair_I, const char* button_I) {
        QRadioButton* button = Find<QWidget>(pair_I)->findChild<QRadioButton*>(button_I);
        ASSERT_NE(button, nullptr);
        button->click();
    }

    // The labels of the rows that take part in the stacking, from the top: the visible ones
    // and the firmware row, which keeps its place when it is hidden.
    std::vector<QLabel*> StackedRowLabels() {
        std::vector<QLabel*> labels;
        for (QLabel* label : mDialog->findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
            const QString name = label->objectName();
            if (name.endsWith("Label") && (!label->isHidden() || name == "firmwareLabel")) {
                labels.push_back(label);
            }
        }
        std::sort(labels.begin(), labels.end(),
                  [](QLabel* a_I, QLabel* b_I) { return a_I->y() < b_I->y(); });
        return labels;
    }

    CRecordingOwner mOwner;
    std::unique_ptr<CDialogRig> mRig;
    CManualTickTimer* mTimer = nullptr;
    std::unique_ptr<CAdvancedDialog> mDialog;
};

TEST_F(CAdvancedDialogTest, RowsCloseUpAndTheHeightFollowsThem) {
    struct SFamily {
        const char* description;
        bool sharpness;
        bool dynamicContrast;
        bool fanSpeed;
    };
    const SFamily families[] = {
        {"ElmLarge@video", true, true, true},
        {"Birch@ftdi", true, true, false},
        {"Aspen@serial", false, false, false},
        {"FirSmall@ftdi", false, false, false},
    };
    std::vector<std::pair<size_t, int>> rowsAndHeights;
    for (const SFamily& family : families) {
        SCOPED_TRACE(family.description);
        Open(family.description);
        EXPECT_EQ(Find<QSlider>("sharpness")->isVisible(), family.sharpness);
        EXPECT_EQ(Find<QWidget>("dynamicContrast")->isVisible(), family.dynamicContrast);
        EXPECT_EQ(Find<QComboBox>("fanSpeed")->isVisible(), family.fanSpeed);
        const std::vector<QLabel*> labels = StackedRowLabels();
        ASSERT_GE(labels.size(), 2u);
        EXPECT_EQ(labels.front()->y(), 10);
        // Hidden rows leave no gap: each row starts 10 below the one above.
        for (size_t i = 1; i < labels.size(); ++i) {
            EXPECT_EQ(labels[i]->y(), labels[i - 1]->geometry().bottom() + 1 + 10)
                << labels[i]->text().toStdString();
        }
        QPushButton* ok = Find<QPushButton>("ok");
        EXPECT_EQ(ok->y(), labels.back()->geometry().bottom() + 1 + 10);
        EXPECT_EQ(mDialog->height(), ok->geometry().bottom() + 1 + 20);
        rowsAndHeights.emplace_back(labels.size(), mDialog->height());
        mDialog->Close();
    }
    EXPECT_GT(rowsAndHeights[0].first, rowsAndHeights[1].first);
    EXPECT_GT(rowsAndHeights[0].second, rowsAndHeights[1].second);
    EXPECT_GT(rowsAndHeights[1].second, rowsAndHeights[2].second);
}

TEST_F(CAdvancedDialogTest, AspectRowsKeepTheSharedValueOfOneToOne) {
    Open("Aspen@serial");
    QComboBox* aspect = Find<QComboBox>("aspectRatio");
    ASSERT_EQ(aspect->count(), 3);
    EXPECT_EQ(aspect->itemText(2), "1:1");
    // Aspect and 1:1 both stand for 1; the display's 1 selects the later row.
    ASSERT_TRUE(mRig->Display().SetAspectRatio(eAspectRatio_Aspect));
    mDialog->Refresh(false);
    EXPECT_EQ(aspect->currentIndex(), 2);
    mDialog->Close();

    Open("FirSmall@ftdi");
    aspect = Find<QComboBox>("aspectRatio");
    ASSERT_EQ(aspect->count(), 2);
    EXPECT_EQ(aspect->itemText(1), "1:1");
}

TEST_F(CAdvancedDialogTest, SharpnessGoesOutOnlyOnTheTick) {
    Open("ElmLarge@video");
    const int before = mRig->Current(kSharpnessCode);
    ASSERT_GE(before, 0);
    ASSERT_TRUE(mTimer->IsActive());
    EXPECT_EQ(mTimer->interval, 1000);

    mDialog->OnSharpnessKey(eSharpnessKey_Up);
    EXPECT_EQ(Find<QSlider>("sharpness")->value(), before + 1);
    EXPECT_EQ(mRig->Current(kSharpnessCode), before);
    // OK within the second: hiding stops the timer before it writes.
    Find<QPushButton>("ok")->click();
    EXPECT_FALSE(mDialog->isVisible());
    EXPECT_FALSE(mTimer->IsActive());
    {
        CTraceCapture trace;
        mTimer->Fire();
        EXPECT_FALSE(trace.Contains("SetVCPValue"));
    }
    EXPECT_EQ(mRig->Current(kSharpnessCode), before);

    // The flag outlives the hiding: the next showing's first tick sends what the slider holds.
    mDialog->ShowAdvanced(true);
    ASSERT_TRUE(mTimer->IsActive());
    {
        CTraceCapture trace;
        mTimer->Fire();
        EXPECT_TRUE(trace.Contains("SetVCPValue: vcp: 0x87, val: 0x" +
                                   std::to_string(Find<QSlider>("sharpness")->value())));
    }
    // Once sent, a tick has nothing to send.
    CTraceCapture trace;
    mTimer->Fire();
    EXPECT_FALSE(trace.Contains("SetVCPValue"));
    EXPECT_TRUE(mOwner.communicationErrors.empty());
}

TEST_F(CAdvancedDialogTest, StepKeysReachTheSliderFromAnotherWindowWhileTheWindowExists) {
    Open("ElmLarge@video");
    QSlider* slider = Find<QSlider>("sharpness");
    const int start = slider->value();
    QWidget other;
    other.show();
    other.activateWindow();
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), &other);
    QTest::keyClick(&other, Qt::Key_Up);
    EXPECT_EQ(slider->value(), start + 1);
    mDialog->ShowAdvanced(false);
    QTest::keyClick(&other, Qt::Key_End);
    EXPECT_EQ(slider->value(), slider->maximum());
    mDialog->ShowAdvanced(true);
    mDialog->Close();
    other.activateWindow();
    QCoreApplication::processEvents();
    QTest::keyClick(&other, Qt::Key_Home);
    EXPECT_NE(slider->value(), slider->minimum());
}

TEST_F(CAdvancedDialogTest, CancelRestoresTheShownValuesAndKeepsFanAndPowerDown) {
    Open("ElmLarge@video");
    const int aspect = mRig->Current(kAspectCode);
    const int sharpness = mRig->Current(kSharpnessCode);
    const int contrast = mRig->Current(kDynamicContrastCode);
    const int fan = mRig->Current(kFanCode);
    const int powerDown = mRig->Current(kAutoPowerDownCode);

    QComboBox* aspectCombo = Find<QComboBox>("aspectRatio");
    Choose("aspectRatio", (aspectCombo->currentIndex() + 1) % aspectCombo->count());
    const int newAspect = mRig->Current(kAspectCode);
    EXPECT_NE(newAspect, aspect);
    mDialog->OnSharpnessKey(sharpness > 0 ? eSharpnessKey_Down : eSharpnessKey_Up);
    mTimer->Fire();
    EXPECT_NE(mRig->Current(kSharpnessCode), sharpness);
    Click("dynamicContrast", contrast != 0 ? "off" : "on");
    EXPECT_NE(mRig->Current(kDynamicContrastCode), contrast);
    Choose("fanSpeed", fan != 0 ? 0 : 1);
    Click("autoPowerDown", powerDown != 0 ? "off" : "on");
    const int newFan = mRig->Current(kFanCode);
    const int newPowerDown = mRig->Current(kAutoPowerDownCode);
    EXPECT_NE(newFan, fan);
    EXPECT_NE(newPowerDown, powerDown);
    EXPECT_GE(mOwner.updateControls, 1);
    EXPECT_GE(mOwner.updateSaveRevert, 2);

    // A second refresh without a snapshot keeps the values of the showing.
    mDialog->Refresh(false);
    Find<QPushButton>("cancel")->click();
    EXPECT_FALSE(mDialog->isVisible());
    EXPECT_EQ(mRig->Current(kAspectCode), aspect);
    EXPECT_EQ(mRig->Current(kSharpnessCode), sharpness);
    EXPECT_EQ(mRig->Current(kDynamicContrastCode), contrast);
    EXPECT_EQ(mRig->Current(kFanCode), newFan);
    EXPECT_EQ(mRig->Current(kAutoPowerDownCode), newPowerDown);
    EXPECT_TRUE(mOwner.communicationErrors.empty());
    EXPECT_EQ(Find<QComboBox>("aspectRatio")->count(), 0);
}

TEST_F(CAdvancedDialogTest, AFailedWriteEndsTheProgram) {
    Open("ElmLarge@video");
    mRig->Sim().Faults().Arm({ESimFault::eUnplug, 0, 0, -1});
    Choose("aspectRatio", 0);
    EXPECT_EQ(mOwner.communicationErrors, std::vector<bool>{true});
    mDialog->OnSharpnessKey(eSharpnessKey_Home);
    mTimer->Fire();
    EXPECT_EQ(mOwner.communicationErrors, (std::vector<bool>{true, true}));
    // Cancel stops at the first failed restore and leaves the rest to the ending program.
    Find<QPushButton>("cancel")->click();
    EXPECT_EQ(mOwner.communicationErrors.size(), 3u);
    EXPECT_TRUE(mDialog->isVisible());
}

TEST_F(CAdvancedDialogTest, FactoryResetDisablesEveryControlWhileItRuns) {
    Open("ElmLarge@video");
    bool disabledDuringReset = false;
    mOwner.onFactoryReset = [this, &disabledDuringReset] {
        disabledDuringReset = !Find<QComboBox>("aspectRatio")->isEnabled() &&
                              !Find<QSlider>("sharpness")->isEnabled() &&
                              !Find<QPushButton>("ok")->isEnabled() &&
                              !Find<QPushButton>("cancel")->isEnabled() &&
                              !Find<QPushButton>("factoryReset")->isEnabled() &&
                              Find<QComboBox>("aspectRatio")->isVisible();
    };
    Find<QPushButton>("factoryReset")->click();
    EXPECT_EQ(mOwner.factoryResets, std::vector<bool>{false});
    EXPECT_TRUE(disabledDuringReset);
    EXPECT_TRUE(Find<QComboBox>("aspectRatio")->isEnabled());
    EXPECT_TRUE(Find<QPushButton>("ok")->isEnabled());
}

TEST_F(CAdvancedDialogTest, ConditioningRevertsStartsAndEndsTheProgram) {
    Open("ElmSmall@ftdi");
    QPushButton* start = Find<QPushButton>("start");
    ASSERT_TRUE(start->isVisible());
    const int brightness = mRig->Current(0x10);
    ASSERT_TRUE(mRig->Display().SetBrightness(brightness - 1));
    start->click();
    EXPECT_EQ(mRig->Sim().Scaler().Counters().conditionings, 1);
    EXPECT_EQ(mOwner.closeAllDialogs, 1);
    // The unsaved brightness went back first.
    EXPECT_EQ(mRig->Current(0x10), brightness);

    mRig->Sim().Faults().Arm({ESimFault::eUnplug, 0, 0, -1});
    start->click();
    EXPECT_EQ(mOwner.communicationErrors, std::vector<bool>{true});
    EXPECT_EQ(mOwner.closeAllDialogs, 1);
}

TEST_F(CAdvancedDialogTest, PlacedBesideTheMainDialogOrFlippedAtTheEdge) {
    CTraceCapture trace;
    Open("Birch@ftdi");
    EXPECT_TRUE(trace.Contains("OnShowWindow - timer started...\n"));
    const QRect main = mOwner.mainRect;
    EXPECT_EQ(mDialog->geometry().x(), main.x() + main.width() + 20);
    EXPECT_EQ(mDialog->geometry().y() + mDialog->height(), main.y() + main.height());

    mOwner.mainRect.moveLeft(1920 - main.width());
    mDialog->Refresh(false);
    EXPECT_EQ(mDialog->geometry().x(), mOwner.mainRect.x() - 20 - mDialog->width());
    EXPECT_EQ(mDialog->geometry().y() + mDialog->height(), main.y() + main.height());
    mDialog->ShowAdvanced(false);
    EXPECT_TRUE(trace.Contains("OnShowWindow - timer stopped\n"));
}

} // namespace
