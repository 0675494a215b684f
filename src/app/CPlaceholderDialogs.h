#pragma once
// Stand-ins for the advanced and colour dialogs until they exist: each opens a small window that
// says so, with the life cycle the main dialog expects of the real ones.

#include "app/ISecondaryDialogs.h"

#include <QPointer>

class QDialog;

class CPlaceholderDialogs final : public ISecondaryDialogs {
public:
    ~CPlaceholderDialogs() override;

    bool RunColorDialog(QWidget* owner_I) override;
    bool ColorDialogOpen() const override { return mColorOpen; }
    void CloseColorDialog(bool restore_I) override;

    bool AdvancedExists() const override { return !mAdvanced.isNull(); }
    bool AdvancedVisible() const override;
    void OpenAdvanced(QWidget* owner_I) override;
    void ShowAdvanced(bool snapshot_I) override;
    void HideAdvanced() override;
    void RefreshAdvanced() override {}
    void CloseAdvanced() override;

    void Place(const QRect& mainRect_I) override { mMainRect = mainRect_I; }

    static SecondaryDialogsFactory Factory();

private:
    QPointer<QDialog> mAdvanced;
    QPointer<QDialog> mColor;
    bool mColorOpen = false;
    QRect mMainRect;
};
