#pragma once
// The commands that talk to displays: discovery on a platform, then one command on the display
// that --display selects.

#include "cli/CliContext.h"
#include "discovery/DisplayFacts.h"
#include "discovery/IDisplayPlatform.h"

#include <memory>

// Discovery keeps and trusts the displays' lasting facts in factsStore_I, when there is one.
int RunDisplayCommand(const SCliContext& context_I, std::shared_ptr<IDisplayPlatform> platform_I,
                      std::shared_ptr<IDisplayFactsStore> factsStore_I);
