// Puts a simulated ElmLarge on an emulated video-cable bus (/dev/i2c-5 behind the DRM connector
// card0-DP-1) and runs one command in that world, so that programs started by the command find
// the display as they would find a real one. Run under umockdev-wrapper:
//   umockdev-wrapper build/bench/display_rig COMMAND [ARGUMENT]...
// The display runs on the real clock. At the end the scaler's counters go to standard error.

#include "UmockdevRig.h"

#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <cstdio>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

int main(int argc, char** argv) {
    CSimDisplay display(*FindSimModel("ElmLarge"), "VRX1060000042",
                        SimChannelBit(ESimChannel::eVideo));
    CUmockdevRig rig;
    if (argc < 2 || !CUmockdevRig::InMockEnvironment()) {
        std::fprintf(stderr, "usage: umockdev-wrapper display_rig COMMAND [ARGUMENT]...\n");
        return 2;
    }
    rig.AddConnector("card0-DP-1", display.Edid(), "connected", 5);
    rig.AttachI2C(5, display.I2C());

    pid_t child = 0;
    if (posix_spawnp(&child, argv[1], nullptr, nullptr, argv + 1, environ) != 0) {
        std::perror(argv[1]);
        return 2;
    }
    int status = 0;
    waitpid(child, &status, 0);
    const CSimScaler::SCounters& counters = display.Scaler().Counters();
    std::fprintf(stderr, "display_rig: the scaler saw %d frames, %d of them Set VCP Feature\n",
                 counters.requests, counters.featureWrites);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
