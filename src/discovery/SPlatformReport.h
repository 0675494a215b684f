#pragma once
// What a platform looked at when it searched for displays, and what it found, in words a user
// can act on. The platform writes it; the command line shows it, so that a missing display
// comes with its likely reason.

#include <string>
#include <vector>

struct SPlatformFinding {
    // The channel the finding belongs to: "video", "hid", "serial", "ftdi" or "ti".
    std::string channel;
    // What was looked at: a module, a device node, a connector, a library.
    std::string subject;
    // What was found there, and where it stands in the way, what to do about it.
    std::string text;
    // Whether it keeps a display of the family from being found.
    bool problem = false;
};

struct SPlatformReport {
    // The platform's name, such as "Linux" or "simulated".
    std::string platform;
    bool simulated = false;
    // In the order a user should read them; within a channel the one that matters most first.
    std::vector<SPlatformFinding> findings;
};

// The one most likely reason why no display is found: the first problem of the report, else
// that no display of the family is attached.
std::string MostLikelyReason(const SPlatformReport& report_I);
