// What each user action sends to the display, frame by frame, compared with a record taken before
// the display calls moved off the GUI thread. Moving work between threads must not change what
// reaches the wire. PANELTUNE_RECORD_TRAFFIC=<file> writes a new record instead of comparing.

#include "DialogHarness.h"

#include <QFile>
#include <QTextStream>
#include <QtTest/QTest>

#include <functional>
#include <map>

namespace {

struct SAction {
    const char* name;
    std::function<void(DialogTest&)> run;
};

QString Hex(const std::vector<uint8_t>& frame_I) {
    return QByteArray(reinterpret_cast<const char*>(frame_I.data()),
                      static_cast<qsizetype>(frame_I.size()))
        .toHex();
}

// "name: frame frame ..." per line.
std::map<QString, QString> ReadRecord(const QString& path_I) {
    std::map<QString, QString> record;
    QFile file(path_I);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return record;
    }
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QString line = in.readLine();
        const qsizetype colon = line.indexOf(QLatin1Char(':'));
        if (colon > 0) {
            record[line.left(colon)] = line.mid(colon + 1).trimmed();
        }
    }
    return record;
}

class ActionTrafficTest : public DialogTest {
public:
    using DialogTest::Choose;
    using DialogTest::Enter;
    using DialogTest::Find;
    using DialogTest::Settle;
    CTestMainDialog& Main() { return Dialog(); }
};

void Press(DialogTest& test_I, const char* button_I) {
    static_cast<ActionTrafficTest&>(test_I).Find<QPushButton>(button_I)->click();
}

TEST_F(ActionTrafficTest, EveryActionSendsTheRecordedFrames) {
    const SAction actions[] = {
        {"brightness key step",
         [](DialogTest& t) {
             static_cast<ActionTrafficTest&>(t)
                 .Find<QSlider>("brightnessSlider")
                 ->triggerAction(QAbstractSlider::SliderSingleStepAdd);
         }},
        {"brightness drag",
         [](DialogTest& t) {
             QSlider* slider = static_cast<ActionTrafficTest&>(t).Find<QSlider>("brightnessSlider");
             slider->setSliderDown(true);
             slider->setSliderPosition(60);
             static_cast<ActionTrafficTest&>(t).Settle();
             slider->setSliderDown(false);
         }},
        {"contrast edit",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Enter("contrastEdit", "44"); }},
        {"temperature",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Choose("temperatureCombo", 0); }},
        {"colour setting",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Choose("colorSettingCombo", 1); }},
        {"colour space",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Choose("spaceCombo", 1); }},
        {"gamma",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Choose("gammaCombo", 0); }},
        {"save", [](DialogTest& t) { Press(t, "saveButton"); }},
        {"contrast edit again",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Enter("contrastEdit", "47"); }},
        {"revert", [](DialogTest& t) { Press(t, "revertButton"); }},
        {"colour reset",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Main().DoResetColor(); }},
        {"display switch",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Choose("displayCombo", 1); }},
        {"factory reset",
         [](DialogTest& t) { static_cast<ActionTrafficTest&>(t).Main().DoFactoryReset(true); }},
    };
    ASSERT_TRUE(Start("Birch@ftdi,ElmLarge@video"));
    const QString recordPath = qEnvironmentVariable("PANELTUNE_RECORD_TRAFFIC");
    const std::map<QString, QString> expected =
        ReadRecord(QStringLiteral(PANELTUNE_TEST_DATA_DIR "/ActionTraffic.txt"));
    QString written;
    for (size_t display = 0; display < 2; ++display) {
        Platform().Display(display).Scaler().RecordRequests(true);
    }
    for (const SAction& action : actions) {
        action.run(*this);
        Settle();
        QString frames;
        for (size_t display = 0; display < 2; ++display) {
            frames += QStringLiteral("[%1]").arg(display);
            for (const auto& frame : Platform().Display(display).Scaler().TakeRequests()) {
                frames += QLatin1Char(' ') + Hex(frame);
            }
            frames += QLatin1Char(' ');
        }
        frames = frames.trimmed();
        written += QString::fromLatin1(action.name) + QStringLiteral(": ") + frames + '\n';
        if (recordPath.isEmpty()) {
            const auto found = expected.find(QString::fromLatin1(action.name));
            ASSERT_NE(found, expected.end()) << action.name;
            EXPECT_EQ(frames.toStdString(), found->second.toStdString()) << action.name;
        }
    }
    if (!recordPath.isEmpty()) {
        QFile file(recordPath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Text));
        file.write(written.toUtf8());
    }
}

} // namespace
