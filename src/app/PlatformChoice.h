#pragma once
// Which platform the displays come from: the system's own, or simulated displays for /simulate.

#include "app/CommandLine.h"
#include "discovery/IDisplayPlatform.h"

#include <memory>
#include <string>

// Null with message_O set when a simulation description is bad.
std::shared_ptr<IDisplayPlatform> MakePlatform(const SCommandLine& commandLine_I,
                                               std::string& message_O);
