#pragma once
// The user's runtime folder: $XDG_RUNTIME_DIR, else a private folder (mode 0700) that Qt makes
// for the user. The single-instance socket and the help's redirect pages live there, out of
// other users' reach. Empty when neither can be had.

#include <QString>

QString RuntimeFolder();

// Where the single-instance socket of a name lies: in the runtime folder, or the bare name
// (Qt's temporary folder) when there is none.
QString InstanceSocketPath(const QString& name_I);
