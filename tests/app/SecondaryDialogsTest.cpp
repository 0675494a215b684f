// The advanced and colour dialogs as the main dialog opens them: which rows each family shows,
// where they stand, when the too-dark question comes. What each action writes, Cancel's restores
// included, is pinned by the action-traffic record.

#include "app/CAdvancedDialog.h"

#include "DialogHarness.h"

#include <QMessageBox>
#include <QtTest/QTest>

#include <array>

namespace {

using EModal = CMainDialog::EModal;

constexpr uint8_t kBrightness = 0x10;
constexpr uint8_t kGainRed = 0x16;
constexpr uint8_t kGainGreen = 0x18;
constexpr uint8_t kGainBlue = 0x1A;
constexpr uint8_t kSharpness = 0x87;

class SecondaryDialogsTest : public DialogTest {
protected:
    std::array<int, 3> Gains() {
        return {ScalerValue(0, kGainRed), ScalerValue(0, kGainGreen), ScalerValue(0, kGainBlue)};
    }
    // The labels of the rows that take part in the stacking, from the top: the visible ones
    // and the firmware row, which keeps its place when it is hidden.
    static std::vector<QLabel*> StackedRowLabels(QDialog& advanced_I) {
        std::vector<QLabel*> labels;
        for (QLabel* label : advanced_I.findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
            const QString name = label->objectName();
            if (name.endsWith("Label") && (!label->isHidden() || name == "firmwareLabel")) {
                labels.push_back(label);
            }
        }
        std::sort(labels.begin(), labels.end(),
                  [](QLabel* a_I, QLabel* b_I) { return a_I->y() < b_I->y(); });
        return labels;
    }
};

// Hidden rows leave no gap, and the advanced dialog stands beside the main dialog on its lower
// edge, or left of it where the right side has no room. The colour dialog shows the attribute and
// CMYK rows where the model has them.
TEST_F(SecondaryDialogsTest, AdvancedRowsFollowTheFamilyAndCloseUp) {
    struct SFamily {
        const char* description;
        bool sharpness, dynamicContrast, fanSpeed, conditioning;
        int aspectRows;
        bool colourAttribute, cmyk;
    };
    const SFamily families[] = {
        {"ElmLarge@video", true, true, true, false, 3, true, true},
        {"Birch@ftdi", true, true, false, true, 3, true, true},
        {"Aspen@serial", false, false, false, false, 3, false, false},
        {"FirSmall@ftdi", false, false, false, false, 2, false, false},
        {"ElmSmall@ftdi", true, true, false, true, 3, true, true},
    };
    for (const SFamily& family : families) {
        SCOPED_TRACE(family.description);
        mDialog.reset();
        ASSERT_TRUE(Start(family.description));
        QDialog& advanced = OpenAdvanced();
        EXPECT_EQ(Find<QSlider>("sharpness", &advanced)->isVisible(), family.sharpness);
        EXPECT_EQ(Find<QWidget>("dynamicContrast", &advanced)->isVisible(), family.dynamicContrast);
        EXPECT_EQ(Find<QComboBox>("fanSpeed", &advanced)->isVisible(), family.fanSpeed);
        EXPECT_EQ(Find<QPushButton>("start", &advanced)->isVisible(), family.conditioning);
        QComboBox* aspect = Find<QComboBox>("aspectRatio", &advanced);
        EXPECT_EQ(aspect->count(), family.aspectRows);
        const std::vector<QLabel*> labels = StackedRowLabels(advanced);
        ASSERT_GE(labels.size(), 2u);
        EXPECT_EQ(labels.front()->y(), 10);
        for (size_t i = 1; i < labels.size(); ++i) {
            EXPECT_EQ(labels[i]->y(), labels[i - 1]->geometry().bottom() + 1 + 10)
                << labels[i]->text().toStdString();
        }
        QPushButton* ok = Find<QPushButton>("ok", &advanced);
        EXPECT_EQ(ok->y(), labels.back()->geometry().bottom() + 1 + 10);
        EXPECT_EQ(advanced.height(), ok->geometry().bottom() + 1 + 20);
        EXPECT_EQ(advanced.geometry().bottom(), Dialog().geometry().bottom());
        EXPECT_EQ(advanced.geometry().left(), Dialog().geometry().right() + 1 + 20);
        RunColorDialog([&](QDialog& color) {
            EXPECT_EQ(Find<QComboBox>("attribute", &color)->isVisible(), family.colourAttribute);
            EXPECT_EQ(Find<QLineEdit>("blackEdit", &color)->isVisible(), family.cmyk);
            EXPECT_EQ(color.geometry().left(), Dialog().geometry().right() + 1 + 20);
        });
    }

    // Aspect and 1:1 both stand for 1; the display's 1 selects the later row.
    mDialog.reset();
    ASSERT_TRUE(Start("Aspen@serial"));
    QDialog& advanced = OpenAdvanced();
    ASSERT_TRUE(Current().SetAspectRatio(eAspectRatio_Aspect));
    Dialog().SecondaryDialogs()->RefreshAdvanced();
    EXPECT_EQ(Find<QComboBox>("aspectRatio", &advanced)->currentIndex(), 2);
    EXPECT_EQ(Find<QComboBox>("aspectRatio", &advanced)->itemText(2), "1:1");
    const QRect work = Owner().WorkArea();
    const QRect main(work.right() - 300, 300, 300, 400);
    Dialog().SecondaryDialogs()->Place(main);
    EXPECT_EQ(advanced.geometry().right() + 1 + 20, main.left());
}

// The step keys work from any window while the advanced dialog exists; a step goes out on the
// next tick of the second, and hiding stops the tick before it writes.
TEST_F(SecondaryDialogsTest, SharpnessGoesOutOnlyOnTheTick) {
    ASSERT_TRUE(Start("ElmLarge@video"));
    auto timer = std::make_unique<CManualTickTimer>();
    CManualTickTimer& tick = *timer;
    CAdvancedDialog advanced(mOptions, Dialog().DisplayConfigIF(), &Owner(), std::move(timer));
    advanced.ShowAdvanced(true);
    QSlider* slider = Find<QSlider>("sharpness", &advanced);
    const int before = ScalerValue(0, kSharpness);
    ASSERT_TRUE(tick.IsActive());
    EXPECT_EQ(tick.interval, 1000);
    QWidget other;
    other.show();
    other.activateWindow();
    QCoreApplication::processEvents();
    QTest::keyClick(&other, Qt::Key_Up);
    EXPECT_EQ(slider->value(), before + 1);
    EXPECT_EQ(ScalerValue(0, kSharpness), before);

    Find<QPushButton>("ok", &advanced)->click();
    EXPECT_FALSE(tick.IsActive());
    tick.Fire();
    Settle();
    EXPECT_EQ(ScalerValue(0, kSharpness), before);
    // A step of the next showing goes out on its first tick, and only once.
    advanced.ShowAdvanced(true);
    QTest::keyClick(&other, Qt::Key_Up);
    tick.Fire();
    Settle();
    EXPECT_EQ(ScalerValue(0, kSharpness), slider->value());
    Platform().Display(0).Scaler().RecordRequests(true);
    tick.Fire();
    Settle();
    EXPECT_TRUE(Platform().Display(0).Scaler().TakeRequests().empty());
}

TEST_F(SecondaryDialogsTest, AFailedWriteInTheAdvancedDialogEndsTheProgram) {
    ASSERT_TRUE(Start("ElmLarge@video"));
    QDialog& advanced = OpenAdvanced();
    Platform().Display(0).Faults().Arm({ESimFault::eUnplug, 0, 0, -1});
    Choose("aspectRatio", 0, &advanced);
    Settle();
    EXPECT_TRUE(Dialog().Ended());
    EXPECT_EQ(Dialog().Result(), 0);
    EXPECT_EQ(Dialog().Count(EModal::eCommunicationError), 1u);
    EXPECT_FALSE(advanced.isVisible());
}

// Cancelled, the reset writes nothing.
TEST_F(SecondaryDialogsTest, FactoryResetDisablesTheAdvancedDialogWhileItAsks) {
    ASSERT_TRUE(Start("ElmLarge@video"));
    Enter("brightnessEdit", QStringLiteral("31"));
    QDialog& advanced = OpenAdvanced();
    Dialog().mAnswers[EModal::eFactoryResetQuestion] = QMessageBox::Cancel;
    bool disabled = false;
    Dialog().mOnWindow = [&] {
        disabled = !Find<QComboBox>("aspectRatio", &advanced)->isEnabled() &&
                   !Find<QPushButton>("ok", &advanced)->isEnabled() &&
                   !Find<QPushButton>("factoryReset", &advanced)->isEnabled();
    };
    Find<QPushButton>("factoryReset", &advanced)->click();
    Settle();
    EXPECT_EQ(Dialog().Count(EModal::eFactoryResetQuestion), 1u);
    EXPECT_TRUE(disabled);
    EXPECT_EQ(ScalerValue(0, kBrightness), 31);
    EXPECT_TRUE(Find<QComboBox>("aspectRatio", &advanced)->isEnabled());
    EXPECT_TRUE(Find<QPushButton>("ok", &advanced)->isEnabled());
}

TEST_F(SecondaryDialogsTest, ConditioningRevertsFirstAndClosesTheDialogs) {
    ASSERT_TRUE(Start("ElmSmall@ftdi"));
    const int brightness = ScalerValue(0, kBrightness);
    Enter("brightnessEdit", QString::number(brightness - 1));
    QDialog& advanced = OpenAdvanced();
    Find<QPushButton>("start", &advanced)->click();
    Settle();
    EXPECT_EQ(Platform().Display(0).Scaler().Counters().conditionings, 1);
    EXPECT_EQ(ScalerValue(0, kBrightness), brightness);
    EXPECT_FALSE(advanced.isVisible());
}

// Refused, the display keeps its colour and the edit shows its value again. Black itself is not
// asked about.
TEST_F(SecondaryDialogsTest, TooDarkColoursAskFirst) {
    struct SCase {
        const char* description;
        std::vector<std::pair<const char*, const char*>> typed;
        bool asks;
    };
    const SCase cases[] = {
        {"Birch@ftdi", {{"blackEdit", "0.599"}}, false},
        {"Birch@ftdi", {{"blackEdit", "0.600"}}, true},
        {"Birch@ftdi", {{"hexEdit", "000000"}}, false},
        {"Aspen@serial", {{"redEdit", "25"}, {"greenEdit", "25"}}, false},
        {"Aspen@serial", {{"redEdit", "25"}, {"greenEdit", "25"}, {"blueEdit", "25"}}, true},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.description << " " << c.typed.back().first << " "
                                        << c.typed.back().second);
        mDialog.reset();
        ASSERT_TRUE(Start(c.description));
        Dialog().mAnswers[EModal::eDarkQuestion] = QMessageBox::No;
        RunColorDialog([&](QDialog& color) {
            for (size_t i = 0; i + 1 < c.typed.size(); ++i) {
                Enter(c.typed[i].first, c.typed[i].second, &color);
            }
            const std::array<int, 3> before = Gains();
            QLineEdit* last = Find<QLineEdit>(c.typed.back().first, &color);
            const QString shown = last->text();
            Enter(c.typed.back().first, c.typed.back().second, &color);
            EXPECT_EQ(Dialog().Count(EModal::eDarkQuestion), c.asks ? 1u : 0u);
            EXPECT_EQ(Gains() == before, c.asks);
            EXPECT_EQ(last->text(), c.asks ? shown : QString::fromLatin1(c.typed.back().second));
        });
    }
}

// A percent display takes what the user types in 0..255, scaled, and shows it as typed.
TEST_F(SecondaryDialogsTest, PercentDisplayStoresScaledAndShowsWhatWasTyped) {
    ASSERT_TRUE(Start("Aspen@serial"));
    Dialog().mAnswers[EModal::eDarkQuestion] = QMessageBox::Yes;
    RunColorDialog([&](QDialog& color) {
        QSlider* red = Find<QSlider>("redSlider", &color);
        ASSERT_EQ(red->maximum(), 100);
        Enter("redEdit", "1", &color);
        EXPECT_EQ(ScalerValue(0, kGainRed), 0);
        EXPECT_EQ(Find<QLineEdit>("redEdit", &color)->text(), "1");
        Enter("redEdit", "400", &color);
        EXPECT_EQ(ScalerValue(0, kGainRed), 100);
        EXPECT_EQ(Find<QLineEdit>("redEdit", &color)->text(), "255");
    });
}

// A drag changes the working colour and the linked notations; the display gets it on release.
// Commits during the too-dark question are dropped.
TEST_F(SecondaryDialogsTest, DragCommitsOnReleaseAndNotDuringTheQuestion) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    Dialog().mAnswers[EModal::eDarkQuestion] = QMessageBox::No;
    RunColorDialog([&](QDialog& color) {
        QSlider* green = Find<QSlider>("greenSlider", &color);
        const int before = ScalerValue(0, kGainGreen);
        green->setSliderDown(true);
        green->setSliderPosition(100);
        Settle();
        EXPECT_EQ(Find<QLineEdit>("greenEdit", &color)->text(), "100");
        EXPECT_EQ(ScalerValue(0, kGainGreen), before);
        green->setSliderDown(false);
        Settle();
        EXPECT_EQ(ScalerValue(0, kGainGreen), 100);

        QSlider* black = Find<QSlider>("blackSlider", &color);
        QSlider* red = Find<QSlider>("redSlider", &color);
        const std::array<int, 3> applied = Gains();
        Dialog().mOnWindow = [&] { Drag(red, {40}); };
        Drag(black, {700});
        EXPECT_EQ(Dialog().Count(EModal::eDarkQuestion), 1u);
        EXPECT_EQ(Gains(), applied);
        EXPECT_EQ(black->value(), 0);
        Dialog().mOnWindow = nullptr;
        Drag(red, {200});
        EXPECT_EQ(ScalerValue(0, kGainRed), 200);
    });
}

} // namespace
