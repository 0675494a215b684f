#include "app/CPlaceholderDialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QDialog* MakeNote(QWidget* owner_I, const QString& title_I) {
    auto* note = new QDialog(owner_I);
    note->setWindowTitle(title_I);
    note->setWindowFlag(Qt::WindowStaysOnTopHint);
    auto* layout = new QVBoxLayout(note);
    layout->addWidget(
        new QLabel(QStringLiteral("%1 are not available in this build.").arg(title_I)));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, note, &QDialog::reject);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    return note;
}

} // namespace

CPlaceholderDialogs::~CPlaceholderDialogs() {
    delete mAdvanced.data();
}

bool CPlaceholderDialogs::RunColorDialog(QWidget* owner_I) {
    mColor = MakeNote(owner_I, QStringLiteral("Color settings"));
    mColorOpen = true;
    mColor->exec();
    mColorOpen = false;
    delete mColor.data();
    return false;
}

void CPlaceholderDialogs::CloseColorDialog(bool) {
    if (mColor) {
        mColor->reject();
    }
}

bool CPlaceholderDialogs::AdvancedVisible() const {
    return mAdvanced && mAdvanced->isVisible();
}

void CPlaceholderDialogs::OpenAdvanced(QWidget* owner_I) {
    if (!mAdvanced) {
        mAdvanced = MakeNote(owner_I, QStringLiteral("Advanced settings"));
        mAdvanced->move(mMainRect.right() + 10, mMainRect.top());
    }
    if (!mAdvanced->isVisible()) {
        ShowAdvanced(true);
    }
    mAdvanced->activateWindow();
}

void CPlaceholderDialogs::ShowAdvanced(bool) {
    if (mAdvanced) {
        mAdvanced->show();
    }
}

void CPlaceholderDialogs::HideAdvanced() {
    if (mAdvanced) {
        mAdvanced->hide();
    }
}

void CPlaceholderDialogs::CloseAdvanced() {
    if (mAdvanced) {
        mAdvanced->hide();
    }
}

SecondaryDialogsFactory CPlaceholderDialogs::Factory() {
    return [](const SDisplayConfigOptions&, CDisplayConfigInterface&, CMainDialog&) {
        return std::make_unique<CPlaceholderDialogs>();
    };
}
