#include "app/PlatformChoice.h"

#include "platform/linux/CDisplayFactsFiles.h"
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

std::shared_ptr<IDisplayFactsStore> MakeFactsStore(const SCommandLine& commandLine_I) {
    std::filesystem::path folder = CDisplayFactsFiles::UserFolder();
    if (commandLine_I.simulate && !folder.empty()) {
        folder /= "simulated";
    }
    return std::make_shared<CDisplayFactsFiles>(folder);
}
