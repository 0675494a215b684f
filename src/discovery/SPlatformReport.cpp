#include "discovery/SPlatformReport.h"

std::string MostLikelyReason(const SPlatformReport& report_I) {
    for (const SPlatformFinding& finding : report_I.findings) {
        if (finding.problem) {
            return finding.subject + ": " + finding.text;
        }
    }
    return report_I.simulated ? "the simulation holds no display"
                              : "no display of the family is attached to any channel";
}
