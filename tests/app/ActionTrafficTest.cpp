// What each user action of the three dialogs sends to the display, frame by frame, compared with a
// record taken before the display calls moved off the GUI thread. Moving work between threads must
// not change what reaches the wire. PANELTUNE_RECORD_TRAFFIC=<file> writes a new record instead of
// comparing.

#include "DialogHarness.h"

#include <QFile>
#include <QRadioButton>
#include <QTextStream>
#include <QtTest/QTest>

#include <functional>
#include <map>

namespace {

struct SAction {
    const char* name;
    std::function<void()> run;
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

TEST_F(DialogTest, EveryActionSendsTheRecordedFrames) {
    const auto press = [this](const char* button) { Find<QPushButton>(button)->click(); };
    QSlider* brightness = nullptr;
    QDialog* advanced = nullptr;
    // Clicks the radio button of a pair that is not checked.
    const auto toggle = [&](const char* pair) {
        for (QRadioButton* button : Find<QWidget>(pair, advanced)->findChildren<QRadioButton*>()) {
            if (!button->isChecked()) {
                button->click();
                return;
            }
        }
    };
    const auto next = [&](const char* combo) {
        QComboBox* box = Find<QComboBox>(combo, advanced);
        Choose(combo, (box->currentIndex() + 1) % box->count(), advanced);
    };
    const auto colour = [&](const char* edit, const char* text, int attribute, const char* end) {
        RunColorDialog([&](QDialog& color) {
            Choose("attribute", attribute, &color);
            Enter(edit, text, &color);
            Find<QPushButton>(end, &color)->click();
        });
    };
    const SAction actions[] = {
        {"brightness key step",
         [&] { brightness->triggerAction(QAbstractSlider::SliderSingleStepAdd); }},
        {"brightness drag", [&] { Drag(brightness, {60}); }},
        {"contrast edit", [&] { Enter("contrastEdit", "44"); }},
        {"temperature", [&] { Choose("temperatureCombo", 0); }},
        {"colour setting", [&] { Choose("colorSettingCombo", 1); }},
        {"colour space", [&] { Choose("spaceCombo", 1); }},
        {"gamma", [&] { Choose("gammaCombo", 0); }},
        {"save", [&] { press("saveButton"); }},
        {"contrast edit again", [&] { Enter("contrastEdit", "47"); }},
        {"revert", [&] { press("revertButton"); }},
        {"colour reset", [&] { Dialog().DoResetColor(); }},
        {"colour dialog cancel", [&] { colour("redEdit", "7", eColorMod_Offset, "cancel"); }},
        {"colour dialog ok", [&] { colour("blueEdit", "77", eColorMod_Gain, "ok"); }},
        {"advanced open", [&] { advanced = &OpenAdvanced(); }},
        {"aspect ratio", [&] { next("aspectRatio"); }},
        {"display switch", [&] { Choose("displayCombo", 1); }},
        {"dynamic contrast", [&] { toggle("dynamicContrast"); }},
        {"fan speed", [&] { next("fanSpeed"); }},
        {"auto power down", [&] { toggle("autoPowerDown"); }},
        {"advanced cancel", [&] { Find<QPushButton>("cancel", advanced)->click(); }},
        {"factory reset", [&] { Dialog().DoFactoryReset(true); }},
    };
    ASSERT_TRUE(Start("Birch@ftdi,ElmLarge@video"));
    brightness = Find<QSlider>("brightnessSlider");
    const QString recordPath = qEnvironmentVariable("PANELTUNE_RECORD_TRAFFIC");
    const std::map<QString, QString> expected =
        ReadRecord(QStringLiteral(PANELTUNE_TEST_DATA_DIR "/ActionTraffic.txt"));
    QString written;
    for (size_t display = 0; display < 2; ++display) {
        Platform().Display(display).Scaler().RecordRequests(true);
    }
    for (const SAction& action : actions) {
        action.run();
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
