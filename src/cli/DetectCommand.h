#pragma once
// paneltunectl detect: what discovery looks at on each channel of the platform and what it
// finds there, without opening a display.

#include "cli/CliContext.h"
#include "discovery/IDisplayPlatform.h"

int RunDetect(const SCliContext& context_I, IDisplayPlatform& platform_I);
