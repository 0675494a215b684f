#pragma once
// The three captionless, topmost windows of the start and the end: the wait note shown while a
// task runs, the note that no compatible display was found, and the error note. Each is centred
// on the primary screen's work area and shows the wait cursor.

#include <QDialog>
#include <QString>

#include <memory>

std::unique_ptr<QDialog> MakeWaitWindow(const QString& text_I, QWidget* owner_I);
// The first line is bold; OK sits in the lower right corner.
std::unique_ptr<QDialog> MakeNotSupportedWindow(const QString& firstLine_I,
                                                const QString& secondLine_I, const QString& ok_I);
std::unique_ptr<QDialog> MakeErrorWindow(const QString& text_I, const QString& ok_I);
// x = work left + work width / 2 - width / 2, the same for y.
void CentreOnPrimaryScreen(QWidget& window_I);
