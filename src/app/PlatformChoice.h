#pragma once
// Which platform the displays come from: the system's own, or simulated displays for /simulate;
// and where their facts are kept between runs.

#include "app/CommandLine.h"
#include "discovery/IDisplayPlatform.h"

#include <memory>
#include <string>

// The user's cache folder of the displays' facts; a folder of its own for simulated displays.
std::shared_ptr<IDisplayFactsStore> MakeFactsStore(const SCommandLine& commandLine_I);

// Null with message_O set when a simulation description is bad.
std::shared_ptr<IDisplayPlatform> MakePlatform(const SCommandLine& commandLine_I,
                                               std::string& message_O);
