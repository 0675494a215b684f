#include "discovery/SPlatformReport.h"

std::string MostLikelyReason(const SPlatformReport& report_I) {
    for (const SPlatformFinding& finding : report_I.findings) {
        if (finding.problem) {
            return finding.subject + ": " + finding.text;
        }
    }
    if (report_I.simulated) {
        return report_I.findings.empty() ? "the simulation holds no display"
                                         : "no simulated display answered";
    }
    return "no display of the family is attached to any channel";
}
