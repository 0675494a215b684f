#include "app/PlatformChoice.h"

#include "foundation/Trace.h"
#include "platform/sim/CSimulatedPlatform.h"

#include <cstdio>

std::shared_ptr<IDisplayPlatform> MakePlatform(const SCommandLine& commandLine_I,
                                               std::string& message_O) {
    std::string description = commandLine_I.simulation;
    if (!commandLine_I.simulate) {
        // The system's own platform joins the program once it builds against discovery.
        std::fprintf(stderr, "paneltune: the system's displays can't be reached in this build; "
                             "showing simulated displays instead\n");
    }
    if (description.empty()) {
        description = std::string(CSimulatedPlatform::kDefaultDescription);
    }
    return CSimulatedPlatform::FromDescription(description, message_O);
}
