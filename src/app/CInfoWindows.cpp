#include "app/CInfoWindows.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

// Distance of the OK button from the window's edges.
constexpr int kCornerMargin = 20;
// The emphasised first line of the not-supported note, in pixels.
constexpr int kHeadlinePixels = 20;
constexpr int kTextWidth = 360;

std::unique_ptr<QDialog> MakeFrame(QWidget* owner_I) {
    auto window = std::make_unique<QDialog>(owner_I);
    window->setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    window->setCursor(Qt::WaitCursor);
    return window;
}

QLabel* MakeLine(const QString& text_I) {
    auto* label = new QLabel(text_I);
    label->setWordWrap(true);
    label->setFixedWidth(kTextWidth);
    return label;
}

QHBoxLayout* MakeOkRow(QDialog& window_I, const QString& ok_I) {
    auto* ok = new QPushButton(ok_I);
    ok->setObjectName(QStringLiteral("okButton"));
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &window_I, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(ok);
    return row;
}

void Finish(QDialog& window_I, QVBoxLayout* layout_I) {
    layout_I->setSizeConstraint(QLayout::SetFixedSize);
    window_I.adjustSize();
    CentreOnPrimaryScreen(window_I);
}

} // namespace

void CentreOnPrimaryScreen(QWidget& window_I) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return;
    }
    const QRect work = screen->availableGeometry();
    const QSize size = window_I.size();
    window_I.move(work.left() + work.width() / 2 - size.width() / 2,
                  work.top() + work.height() / 2 - size.height() / 2);
}

std::unique_ptr<QDialog> MakeWaitWindow(const QString& text_I, QWidget* owner_I) {
    std::unique_ptr<QDialog> window = MakeFrame(owner_I);
    window->setObjectName(QStringLiteral("waitWindow"));
    auto* layout = new QVBoxLayout(window.get());
    layout->setContentsMargins(kCornerMargin, kCornerMargin, kCornerMargin, kCornerMargin);
    layout->addWidget(MakeLine(text_I));
    Finish(*window, layout);
    return window;
}

std::unique_ptr<QDialog> MakeNotSupportedWindow(const QString& firstLine_I,
                                                const QString& secondLine_I, const QString& ok_I) {
    std::unique_ptr<QDialog> window = MakeFrame(nullptr);
    window->setObjectName(QStringLiteral("notSupportedWindow"));
    auto* layout = new QVBoxLayout(window.get());
    layout->setContentsMargins(kCornerMargin, kCornerMargin, kCornerMargin, kCornerMargin);
    QLabel* headline = MakeLine(firstLine_I);
    QFont font = headline->font();
    font.setPixelSize(kHeadlinePixels);
    font.setBold(true);
    headline->setFont(font);
    layout->addWidget(headline);
    layout->addWidget(MakeLine(secondLine_I));
    layout->addSpacing(kCornerMargin);
    layout->addLayout(MakeOkRow(*window, ok_I));
    Finish(*window, layout);
    return window;
}

std::unique_ptr<QDialog> MakeErrorWindow(const QString& text_I, const QString& ok_I) {
    std::unique_ptr<QDialog> window = MakeFrame(nullptr);
    window->setObjectName(QStringLiteral("errorWindow"));
    auto* layout = new QVBoxLayout(window.get());
    layout->setContentsMargins(kCornerMargin, kCornerMargin, kCornerMargin, kCornerMargin);
    QLabel* message = MakeLine(text_I);
    message->setObjectName(QStringLiteral("messageLine"));
    layout->addWidget(message);
    layout->addSpacing(kCornerMargin);
    layout->addLayout(MakeOkRow(*window, ok_I));
    Finish(*window, layout);
    return window;
}
