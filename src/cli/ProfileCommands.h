#pragma once
// paneltunectl profile: save the selected display's settings under a name, apply, list and
// delete profiles (profiles/). Listing and deleting need no display.

#include "cli/CliContext.h"
#include "discovery/IDisplayPlatform.h"

#include <functional>
#include <memory>
#include <string>

// Makes the platform when the action needs a display; null, with the reason in error_O, when
// none can be made.
using ProfilePlatformSource = std::function<std::shared_ptr<IDisplayPlatform>(std::string&)>;

int RunProfileCommand(const SCliContext& context_I, const ProfilePlatformSource& platform_I);
