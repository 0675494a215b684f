#pragma once
// The commands that talk to displays: discovery on a platform, then one command on the display
// that --display selects.

#include "cli/CliContext.h"
#include "discovery/IDisplayPlatform.h"

#include <memory>

int RunDisplayCommand(const SCliContext& context_I, std::shared_ptr<IDisplayPlatform> platform_I);
