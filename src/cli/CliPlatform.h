#pragma once
// The platform a run of paneltunectl discovers displays on: the simulated one for --simulate,
// else the operating system's; and the store of the displays' facts.

#include "cli/CliOptions.h"
#include "discovery/DisplayFacts.h"
#include "discovery/IDisplayPlatform.h"

#include <memory>
#include <string>

// Where a run keeps the displays' lasting facts: the user's cache folder, a folder of its own
// for simulated displays; null when the build has no file store.
std::shared_ptr<IDisplayFactsStore> MakeCliFactsStore(const SCliOptions& options_I);

// Null, with the reason in error_O, when no platform can be made.
std::shared_ptr<IDisplayPlatform> MakeCliPlatform(const SCliOptions& options_I,
                                                  std::string& error_O);
