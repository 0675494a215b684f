#pragma once
// Keyboard mnemonics for texts that come from translated tables: each text gets "&" before its
// first letter or digit that no earlier text of the same window has taken, so that Alt and a
// letter reach every control in any language. A text with no free character stays as it is.

#include <QString>
#include <QStringList>

QStringList WithMnemonics(const QStringList& texts_I);
