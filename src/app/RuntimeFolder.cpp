#include "app/RuntimeFolder.h"

#include <QDir>
#include <QStandardPaths>

QString RuntimeFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

QString InstanceSocketPath(const QString& name_I) {
    const QString folder = RuntimeFolder();
    return folder.isEmpty() ? name_I : QDir(folder).filePath(name_I);
}
