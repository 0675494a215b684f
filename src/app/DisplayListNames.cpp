#include "app/DisplayListNames.h"

#include <algorithm>

QStringList DisplayListNames(const std::vector<SDisplayInfo>& displays_I) {
    QStringList names;
    for (const SDisplayInfo& display : displays_I) {
        const auto twins =
            std::count_if(displays_I.begin(), displays_I.end(), [&](const SDisplayInfo& other) {
                return other.monitorName == display.monitorName;
            });
        QString name = QString::fromStdWString(display.monitorName);
        if (twins > 1 && !display.serialNumber.empty()) {
            name += QStringLiteral(" (") + QString::fromStdWString(display.serialNumber) +
                    QLatin1Char(')');
        }
        names << name;
    }
    return names;
}
