#pragma once
// The names the display list shows: the model's name, and for displays that share a name their
// serial numbers too, so that twins can be told apart.

#include "discovery/SDisplayInfo.h"

#include <QStringList>

#include <vector>

QStringList DisplayListNames(const std::vector<SDisplayInfo>& displays_I);
