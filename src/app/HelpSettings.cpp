#include "app/HelpSettings.h"

#include <QSettings>

SHelpSettings LoadHelpSettings() {
    SHelpSettings settings;
    QSettings store("Vorex", "OSD");
    store.beginGroup("Help");
    settings.serverRoot = store.value("ServerRoot", QString::fromStdString(settings.serverRoot))
                              .toString()
                              .toStdString();
    settings.trackingSource =
        store.value("TrackingSource", QString::fromStdString(settings.trackingSource))
            .toString()
            .toStdString();
    store.endGroup();
    return settings;
}
