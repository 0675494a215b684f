#pragma once
// The platform a run of paneltunectl discovers displays on: the simulated one for --simulate,
// else the operating system's.

#include "cli/CliOptions.h"
#include "discovery/IDisplayPlatform.h"

#include <memory>
#include <string>

// Null, with the reason in error_O, when no platform can be made.
std::shared_ptr<IDisplayPlatform> MakeCliPlatform(const SCliOptions& options_I,
                                                  std::string& error_O);
