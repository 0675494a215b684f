#pragma once
// The options of a run, built once from the command line and copied by each holder.

#include "discovery/DisplayFacts.h"
#include "resources/LanguageProvider.h"

#include <cstdint>
#include <memory>

// Which channel types discovery may use.
enum SConnectionMode : int32_t {
    eConnectionMode_HID = 0,
    eConnectionMode_Video = 1,
    eConnectionMode_FTDI = 2,
    eConnectionMode_All = 3,
};

struct SDisplayConfigOptions {
    LanguageProvider language{"userUI"};
    // Pair monitor and channel by model group and name instead of serial number.
    bool skipSerialMatch = false;
    // Stop discovery at the first display whose video channel fails with a reason.
    bool exitOnError = false;
    SConnectionMode connectionMode = eConnectionMode_All;
    // Whether the OSD language of the models that take it follows `language` at start: the
    // desktop program's way. Without it nothing is written to a display during discovery.
    bool setOsdLanguage = true;
    // The facts kept between runs; none without a store. refreshFacts reads every display in
    // full and keeps what it said.
    std::shared_ptr<IDisplayFactsStore> factsStore;
    bool refreshFacts = false;
};
