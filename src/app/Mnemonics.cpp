#include "app/Mnemonics.h"

#include <set>

QStringList WithMnemonics(const QStringList& texts_I) {
    std::set<char32_t> taken;
    QStringList result;
    for (const QString& text : texts_I) {
        QString escaped = text;
        escaped.replace(QLatin1Char('&'), QStringLiteral("&&"));
        qsizetype chosen = -1;
        for (qsizetype i = 0; i < escaped.size() && chosen < 0; ++i) {
            const QChar c = escaped[i];
            if (c.isLetterOrNumber() && !c.isSurrogate() &&
                taken.insert(c.toCaseFolded().unicode()).second) {
                chosen = i;
            }
        }
        if (chosen >= 0) {
            escaped.insert(chosen, QLatin1Char('&'));
        }
        result << escaped;
    }
    return result;
}
