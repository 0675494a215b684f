#include "app/CColorSettingsDialog.h"

#include "DialogTestSupport.h"
#include "foundation/Trace.h"
#include "foundation/TraceCapture.h"
#include "model/UiDisplayDelegate.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr uint8_t kGainRed = 0x16;
constexpr uint8_t kGainGreen = 0x18;
constexpr uint8_t kGainBlue = 0x1A;

// Hue, saturation, gain and offset as Cancel writes them back, in this order.
const std::vector<std::string> kAllFourTriples = {"9B", "9D", "9F", "59", "5B", "5D",
                                                  "16", "18", "1A", "E4", "E5", "E6"};

// The codes of the SetVCPValue trace lines, in order.
std::vector<std::string> WrittenCodes(const std::string& lines_I) {
    std::vector<std::string> codes;
    const std::string marker = "SetVCPValue: vcp: 0x";
    for (size_t at = lines_I.find(marker); at != std::string::npos;
         at = lines_I.find(marker, at + 1)) {
        const size_t start = at + marker.size();
        codes.push_back(lines_I.substr(start, lines_I.find(',', start) - start));
    }
    return codes;
}

class CColorSettingsDialogTest : public ::testing::Test {
protected:
    void SetUp() override { gTraceEnabled = true; }

    void Open(std::string_view description_I) {
        EnsureTestApplication();
        mRig = std::make_unique<CDialogRig>(description_I);
        // What the main dialog has done before "Set..." can be clicked.
        UiDisplayDelegate& display = mRig->Display();
        display.LoadColorMods(eColorMod_Gain);
        display.SelectColorMod(eColorMod_Gain);
        display.GetCustomRGBColorMod(false);
        mDialog = std::make_unique<CColorSettingsDialog>(mRig->Options(), mRig->Config(), &mOwner);
        mDialog->Open();
        mDialog->show();
    }

    template <typename T>
    T* Find(const char* name_I) {
        T* widget = mDialog->findChild<T*>(name_I);
        EXPECT_NE(widget, nullptr) << name_I;
        return widget;
    }

    QString Edit(const char* name_I) { return Find<QLineEdit>(name_I)->text(); }

    // Types the text over the edit's content and presses Enter.
    void Type(const char* edit_I, const QString& text_I) {
        QLineEdit* edit = Find<QLineEdit>(edit_I);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text_I);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    std::array<int, 3> Gains() {
        return {mRig->Current(kGainRed), mRig->Current(kGainGreen), mRig->Current(kGainBlue)};
    }

    CRecordingOwner mOwner;
    std::unique_ptr<CDialogRig> mRig;
    std::unique_ptr<CColorSettingsDialog> mDialog;
};

TEST_F(CColorSettingsDialogTest, HexEntryOfBlackWritesWithoutAQuestion) {
    Open("Birch@ftdi");
    ASSERT_TRUE(Find<QLineEdit>("hexEdit")->isVisible());
    Type("hexEdit", "000000");
    EXPECT_EQ(mOwner.darkQuestions, 0);
    EXPECT_EQ(Gains(), (std::array<int, 3>{0, 0, 0}));
    EXPECT_EQ(Edit("blackEdit"), "1.000");
    EXPECT_EQ(Edit("cyanEdit"), "0.000");
    EXPECT_EQ(Edit("redEdit"), "0");
    EXPECT_EQ(Find<QSlider>("blackSlider")->value(), 1000);
    EXPECT_TRUE(mOwner.communicationErrors.empty());
}

TEST_F(CColorSettingsDialogTest, BadHexSnapsBackUnscaledWithRedAlonePadded) {
    Open("Birch@ftdi");
    Type("hexEdit", "0A0501");
    EXPECT_EQ(Gains(), (std::array<int, 3>{10, 5, 1}));
    EXPECT_EQ(Edit("hexEdit"), "0A0501");
    for (const char* bad : {"12345", "0A05G1"}) {
        Type("hexEdit", bad);
        EXPECT_EQ(Edit("hexEdit"), "0A51") << bad;
        EXPECT_EQ(Gains(), (std::array<int, 3>{10, 5, 1}));
    }
}

TEST_F(CColorSettingsDialogTest, BlackFromSixHundredThousandthsAsksInGain) {
    Open("Birch@ftdi");
    const std::array<int, 3> before = Gains();
    mOwner.darkAnswer = false;
    Type("blackEdit", "0.600");
    EXPECT_EQ(mOwner.darkQuestions, 1);
    // Refused: the display keeps its colour and the edit shows it again.
    EXPECT_EQ(Gains(), before);
    EXPECT_EQ(Edit("blackEdit"), "0.000");

    Type("blackEdit", "0.599");
    EXPECT_EQ(mOwner.darkQuestions, 1);
    EXPECT_NE(Gains(), before);
    EXPECT_EQ(Edit("blackEdit"), "0.599");
    EXPECT_EQ(Find<QSlider>("redSlider")->value(), Gains()[0]);
    EXPECT_EQ(Edit("redEdit").toInt(), Gains()[0]);

    mOwner.darkAnswer = true;
    Type("blackEdit", "0.8");
    EXPECT_EQ(mOwner.darkQuestions, 2);
    EXPECT_LT(Gains()[0], 60);
    // Out of range and non-numbers: clamped and rewritten, or put back.
    Type("blackEdit", "abc");
    EXPECT_EQ(Edit("blackEdit"), "0.800");
}

TEST_F(CColorSettingsDialogTest, PercentDisplayStoresScaledAndShowsWhatWasTyped) {
    Open("Aspen@serial");
    QSlider* red = Find<QSlider>("redSlider");
    ASSERT_EQ(red->maximum(), 100);
    Type("redEdit", "0");
    Type("redEdit", "255");
    EXPECT_EQ(mRig->Current(kGainRed), 100);
    EXPECT_EQ(red->value(), 100);
    EXPECT_EQ(Edit("redEdit"), "255");
    mOwner.darkAnswer = true;
    Type("redEdit", "1");
    EXPECT_EQ(mRig->Current(kGainRed), 0);
    EXPECT_EQ(Edit("redEdit"), "1");
    // Above the maximum: clamped to it, and the edit is rewritten in the user's scale.
    Type("redEdit", "400");
    EXPECT_EQ(mRig->Current(kGainRed), 100);
    EXPECT_EQ(Edit("redEdit"), "255");
}

TEST_F(CColorSettingsDialogTest, AspenAsksWhenAllComponentsGoBelowTwenty) {
    Open("Aspen@serial");
    Type("redEdit", "25");
    Type("greenEdit", "25");
    EXPECT_EQ(mOwner.darkQuestions, 0);
    const std::array<int, 3> before = Gains();
    Type("blueEdit", "25");
    EXPECT_EQ(mOwner.darkQuestions, 1);
    EXPECT_EQ(Gains(), before);
}

TEST_F(CColorSettingsDialogTest, DragChangesOnlyTheWorkingColourUntilRelease) {
    Open("Birch@ftdi");
    QSlider* green = Find<QSlider>("greenSlider");
    const int before = mRig->Current(kGainGreen);
    green->setSliderDown(true);
    green->setSliderPosition(100);
    EXPECT_EQ(Edit("greenEdit"), "100");
    EXPECT_EQ(mRig->Display().GetWorkingColor().green, 100);
    EXPECT_EQ(mRig->Current(kGainGreen), before);
    green->setSliderDown(false);
    EXPECT_EQ(mRig->Current(kGainGreen), 100);
    EXPECT_EQ(mRig->Display().GetAppliedColor().green, 100);
    // The linked notations follow the commit.
    EXPECT_EQ(Edit("hexEdit").mid(2, 2), "64");
    // A step by key commits at once.
    green->setFocus();
    QTest::keyClick(green, Qt::Key_Right);
    EXPECT_EQ(mRig->Current(kGainGreen), 101);
}

TEST_F(CColorSettingsDialogTest, CancelRewritesTheGainTripleOnModelsWithoutAttributes) {
    Open("Aspen@serial");
    EXPECT_FALSE(Find<QComboBox>("attribute")->isVisible());
    EXPECT_TRUE(Find<QLabel>("customColorLabel")->isVisible());
    const std::array<int, 3> before = Gains();
    Type("greenEdit", "128");
    EXPECT_NE(Gains(), before);
    CTraceCapture trace;
    Find<QPushButton>("cancel")->click();
    EXPECT_EQ(Gains(), before);
    EXPECT_EQ(WrittenCodes(trace.Lines()), (std::vector<std::string>{"16", "18", "1A"}));
    EXPECT_EQ(mDialog->result(), QDialog::Rejected);
    EXPECT_FALSE(mDialog->WindowExists());
    EXPECT_EQ(mOwner.updateSaveRevert, 1);
}

TEST_F(CColorSettingsDialogTest, CancelRewritesAllFourTriplesWhereTheAttributeIsOffered) {
    Open("ElmSmall@ftdi");
    QComboBox* attribute = Find<QComboBox>("attribute");
    ASSERT_TRUE(attribute->isVisible());
    ASSERT_EQ(attribute->count(), 4);
    EXPECT_EQ(attribute->currentIndex(), eColorMod_Gain);
    const int hueRed = mRig->Current(0x9B);
    attribute->setCurrentIndex(eColorMod_Hue);
    emit attribute->activated(eColorMod_Hue);
    // Hue is in percent on this family.
    EXPECT_EQ(Find<QSlider>("redSlider")->maximum(), 100);
    Type("redEdit", "0");
    EXPECT_EQ(mRig->Current(0x9B), 0);

    CTraceCapture trace;
    Find<QPushButton>("cancel")->click();
    EXPECT_EQ(mRig->Current(0x9B), hueRed);
    EXPECT_EQ(WrittenCodes(trace.Lines()), kAllFourTriples);
    // Every triple takes its original back, so the program goes on.
    EXPECT_TRUE(mOwner.communicationErrors.empty());
    EXPECT_EQ(mDialog->result(), QDialog::Rejected);
    EXPECT_FALSE(mDialog->WindowExists());
}

TEST_F(CColorSettingsDialogTest, CancelRestoresTheOffsetOnEveryFamilyWithTheAttribute) {
    for (const char* description : {"Birch@ftdi", "ElmLarge@ftdi", "ElmHuge@ftdi"}) {
        SCOPED_TRACE(description);
        mDialog.reset();
        mRig.reset();
        mOwner.communicationErrors.clear();
        Open(description);
        QComboBox* attribute = Find<QComboBox>("attribute");
        ASSERT_TRUE(attribute->isVisible());
        const int offsetRed = mRig->Current(0xE4);
        ASSERT_GT(offsetRed, 0);
        attribute->setCurrentIndex(eColorMod_Offset);
        emit attribute->activated(eColorMod_Offset);
        Type("redEdit", "0");
        EXPECT_EQ(mRig->Current(0xE4), 0);

        CTraceCapture trace;
        Find<QPushButton>("cancel")->click();
        EXPECT_EQ(mRig->Current(0xE4), offsetRed);
        EXPECT_EQ(WrittenCodes(trace.Lines()), kAllFourTriples);
        EXPECT_TRUE(mOwner.communicationErrors.empty());
    }
}

TEST_F(CColorSettingsDialogTest, OkKeepsTheCommittedColour) {
    Open("Birch@ftdi");
    Type("blueEdit", "33");
    Find<QPushButton>("ok")->click();
    EXPECT_EQ(mRig->Current(kGainBlue), 33);
    EXPECT_EQ(mDialog->result(), QDialog::Accepted);
    EXPECT_EQ(mOwner.updateSaveRevert, 1);
    EXPECT_EQ(Find<QComboBox>("attribute")->count(), 0);
}

TEST_F(CColorSettingsDialogTest, SliderCommitsDuringTheQuestionAreDropped) {
    Open("Birch@ftdi");
    QSlider* black = Find<QSlider>("blackSlider");
    QSlider* red = Find<QSlider>("redSlider");
    const std::array<int, 3> before = Gains();
    mOwner.onDarkQuestion = [red] {
        red->setSliderDown(true);
        red->setSliderPosition(40);
        red->setSliderDown(false);
    };
    black->setSliderDown(true);
    black->setSliderPosition(700);
    black->setSliderDown(false);
    EXPECT_EQ(mOwner.darkQuestions, 1);
    // Refused: the applied colour goes back out, and the red commit inside the question was
    // dropped.
    EXPECT_EQ(Gains(), before);
    EXPECT_EQ(black->value(), 0);
    // The guard is free again afterwards.
    mOwner.onDarkQuestion = nullptr;
    red->setSliderDown(true);
    red->setSliderPosition(200);
    red->setSliderDown(false);
    EXPECT_EQ(mRig->Current(kGainRed), 200);
}

TEST_F(CColorSettingsDialogTest, MainDialogClosesTheRunWithOrWithoutRestoring) {
    Open("Aspen@serial");
    const std::array<int, 3> before = Gains();
    Type("redEdit", "9");
    mDialog->CloseColorDialog(true);
    EXPECT_EQ(Gains(), before);
    EXPECT_FALSE(mDialog->WindowExists());
    EXPECT_EQ(mDialog->result(), 0);

    mDialog->Open();
    Type("redEdit", "9");
    mDialog->CloseColorDialog(false);
    // 9 of 255 is 3 percent.
    EXPECT_EQ(mRig->Current(kGainRed), 3);
    EXPECT_EQ(mOwner.updateSaveRevert, 0);
}

TEST_F(CColorSettingsDialogTest, FactoryResetKeyReachesTheMainDialog) {
    Open("Birch@ftdi");
    mDialog->activateWindow();
    QCoreApplication::processEvents();
    QTest::keyClick(mDialog.get(), Qt::Key_R, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(mOwner.factoryResets, std::vector<bool>{true});
}

TEST_F(CColorSettingsDialogTest, FailedWriteEndsTheProgram) {
    Open("Birch@ftdi");
    mRig->Sim().Faults().Arm({ESimFault::eUnplug, 0, 0, -1});
    Type("redEdit", "12");
    EXPECT_EQ(mOwner.communicationErrors, std::vector<bool>{true});
    mDialog->CloseColorDialog(false);
    EXPECT_FALSE(mDialog->WindowExists());
    EXPECT_EQ(mOwner.communicationErrors.size(), 1u);
}

TEST_F(CColorSettingsDialogTest, ShorterWithoutCmykAndKeptInTheWorkArea) {
    Open("Birch@ftdi");
    const int fullHeight = mDialog->height();
    const QRect main = mOwner.mainRect;
    EXPECT_EQ(mDialog->geometry().x(), main.x() + main.width() + 20);
    EXPECT_EQ(mDialog->geometry().y() + mDialog->height(), main.y() + main.height());
    mDialog->CloseColorDialog(true);

    mOwner.mainRect.moveTop(900);
    Open("Aspen@serial");
    EXPECT_FALSE(Find<QLineEdit>("blackEdit")->isVisible());
    EXPECT_LT(mDialog->height(), fullHeight);
    QLineEdit* hex = Find<QLineEdit>("hexEdit");
    EXPECT_EQ(Find<QPushButton>("ok")->y(), hex->geometry().bottom() + 1 + 20);
    EXPECT_EQ(mDialog->geometry().y() + mDialog->height(), 1040);
    mDialog->CloseColorDialog(false);

    mOwner.mainRect.moveTop(-500);
    Open("Aspen@serial");
    EXPECT_EQ(mDialog->geometry().y(), 0);
}

} // namespace
