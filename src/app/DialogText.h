#pragma once
// The localised text of a string id in the run's language, as a widget shows it.

#include "discovery/SDisplayConfigOptions.h"

#include <QString>

#include <cstdint>

QString DialogText(const SDisplayConfigOptions& options_I, uint32_t stringId_I);
