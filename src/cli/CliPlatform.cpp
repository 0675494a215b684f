#include "cli/CliPlatform.h"

#include "platform/sim/CSimulatedPlatform.h"

#ifdef PANELTUNE_HAVE_LINUX_PLATFORM
#include "platform/linux/CDisplayFactsFiles.h"
#include "platform/linux/CLinuxPlatform.h"
#endif

std::shared_ptr<IDisplayFactsStore> MakeCliFactsStore(const SCliOptions& options_I) {
#ifdef PANELTUNE_HAVE_LINUX_PLATFORM
    std::filesystem::path folder = CDisplayFactsFiles::UserFolder();
    if (options_I.simulate && !folder.empty()) {
        folder /= "simulated";
    }
    return std::make_shared<CDisplayFactsFiles>(folder);
#else
    (void)options_I;
    return nullptr;
#endif
}

std::shared_ptr<IDisplayPlatform> MakeCliPlatform(const SCliOptions& options_I,
                                                  std::string& error_O) {
    if (options_I.simulate) {
        const std::string description = options_I.simulateDescription.value_or(
            std::string(CSimulatedPlatform::kDefaultDescription));
        std::string error;
        auto platform = CSimulatedPlatform::FromDescription(description, error);
        if (!platform) {
            error_O = "bad simulation: " + error;
        }
        return platform;
    }
#ifdef PANELTUNE_HAVE_LINUX_PLATFORM
    return std::make_shared<CLinuxPlatform>();
#else
    error_O = "this build has no platform for real displays; try --simulate";
    return nullptr;
#endif
}
