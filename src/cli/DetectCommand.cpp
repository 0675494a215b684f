#include "cli/DetectCommand.h"

#include "cli/CJsonWriter.h"

#include <algorithm>
#include <ostream>
#include <sstream>

int RunDetect(const SCliContext& context_I, IDisplayPlatform& platform_I) {
    const SPlatformReport report = platform_I.Describe();
    const std::string reason = MostLikelyReason(report);
    if (context_I.options.json) {
        CJsonWriter json;
        json.BeginObject().Key("platform").String(report.platform);
        json.Key("simulated").Bool(report.simulated).Key("findings").BeginArray();
        for (const SPlatformFinding& finding : report.findings) {
            json.BeginObject().Key("channel").String(finding.channel);
            json.Key("subject").String(finding.subject).Key("text").String(finding.text);
            json.Key("problem").Bool(finding.problem).EndObject();
        }
        json.EndArray().Key("likelyReason").String(reason).EndObject();
        context_I.out << json.Text();
        return eCliExit_Done;
    }
    size_t width = 0;
    for (const SPlatformFinding& finding : report.findings) {
        width = std::max(width, finding.subject.size());
    }
    std::ostringstream out;
    out << "Platform: " << report.platform
        << (report.simulated ? " (no hardware is looked at)" : "") << "\n";
    for (const SPlatformFinding& finding : report.findings) {
        std::string channel = finding.channel;
        channel.resize(7, ' ');
        std::string subject = finding.subject;
        subject.resize(width + 1, ' ');
        out << (finding.problem ? "! " : "  ") << channel << subject << finding.text << "\n";
    }
    const bool problem = std::any_of(report.findings.begin(), report.findings.end(),
                                     [](const SPlatformFinding& f) { return f.problem; });
    if (problem || report.findings.empty()) {
        out << "The most likely reason when no display is found: " << reason << "\n";
    }
    context_I.out << out.str();
    return eCliExit_Done;
}
