#include "app/PlatformChoice.h"

#include "platform/linux/CLinuxPlatform.h"
#include "platform/sim/CSimulatedPlatform.h"

std::shared_ptr<IDisplayPlatform> MakePlatform(const SCommandLine& commandLine_I,
                                               std::string& message_O) {
    if (!commandLine_I.simulate) {
        return std::make_shared<CLinuxPlatform>();
    }
    const std::string description = commandLine_I.simulation.empty()
                                        ? std::string(CSimulatedPlatform::kDefaultDescription)
                                        : commandLine_I.simulation;
    return CSimulatedPlatform::FromDescription(description, message_O);
}
