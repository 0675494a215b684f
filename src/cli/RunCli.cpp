#include "cli/RunCli.h"

#include "cli/CliContext.h"
#include "cli/CliOptions.h"
#include "cli/CliPlatform.h"
#include "cli/DisplayCommands.h"
#include "cli/OfflineCommands.h"
#include "cli/SettingsTable.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "foundation/TraceSink.h"

#include <cstdio>
#include <ostream>

namespace {

// Where trace lines go during a run; the sink is a plain function, so it finds the stream here.
std::ostream* gTraceStream = nullptr;

void TraceToStream(const char* text_I, size_t length_I) {
    if (gTraceStream) {
        gTraceStream->write(text_I, static_cast<std::streamsize>(length_I));
        gTraceStream->flush();
    }
}

// The trace switch and sink of one run, put back at its end.
class CRunTrace {
public:
    CRunTrace(bool debug_I, std::ostream& err_I)
        : mTraceWas(gTraceEnabled),
          mSinkWas(SetDebugOutputSink(debug_I ? &TraceToStream : &DropCliTrace)) {
        if (debug_I) {
            gTraceStream = &err_I;
            gTraceEnabled = true;
        }
    }
    ~CRunTrace() {
        SetDebugOutputSink(mSinkWas);
        gTraceStream = nullptr;
        gTraceEnabled = mTraceWas;
    }
    CRunTrace(const CRunTrace&) = delete;
    CRunTrace& operator=(const CRunTrace&) = delete;

private:
    bool mTraceWas;
    DebugOutputSink mSinkWas;
};

int RunCommand(const SCliContext& context_I, const CliPlatformFactory& factory_I) {
    if (!FindCliCommand(context_I.options.command)->needsPlatform) {
        return context_I.options.command == ECliCommand::eEdid ? RunEdid(context_I)
                                                               : RunParseCaps(context_I);
    }
    std::string error;
    std::shared_ptr<IDisplayPlatform> platform =
        factory_I ? factory_I(context_I.options, error) : MakeCliPlatform(context_I.options, error);
    if (!platform) {
        return context_I.Fail(context_I.options.simulate ? eCliExit_Usage : eCliExit_NotOffered,
                              error);
    }
    return RunDisplayCommand(context_I, std::move(platform), MakeCliFactsStore(context_I.options));
}

} // namespace

void DropCliTrace(const char*, size_t) {}

int RunCli(const std::vector<std::string>& args_I, std::istream& in_IO, std::ostream& out_IO,
           std::ostream& err_IO, const CliPlatformFactory& factory_I) {
    const SCliParse parse = ParseCliArguments(args_I);
    const SCliContext context{parse.options, in_IO, out_IO, err_IO};
    if (!parse.error.empty()) {
        context.Fail(eCliExit_Usage, parse.error + " (try 'paneltunectl --help')");
        return eCliExit_Usage;
    }
    const SCliOptions& options = parse.options;
    if (options.version) {
        out_IO << "paneltunectl " << PANELTUNE_VERSION << "\n";
        return eCliExit_Done;
    }
    if (options.help) {
        const SCliCommandInfo* command = FindCliCommand(options.command);
        out_IO << (command ? CliCommandHelpText(*command) : CliUsageText());
        if (options.command == ECliCommand::eGet || options.command == ECliCommand::eSet) {
            out_IO << SettingsHelpText();
        }
        return eCliExit_Done;
    }

    CRunTrace trace(options.debug, err_IO);
    const int64_t startNs = MonotonicNs();
    const uint64_t sleptBeforeMs = TotalRequestedSleepMs();
    const int exit = RunCommand(context, factory_I);
    if (options.timing || options.debug) {
        const double wallMs = static_cast<double>(MonotonicNs() - startNs) / 1e6;
        const double waitsMs = static_cast<double>(TotalRequestedSleepMs() - sleptBeforeMs);
        char line[160];
        std::snprintf(line, sizeof line,
                      "paneltunectl: timing: wall %.1f ms, protocol waits %.1f ms, beyond the "
                      "waits %.1f ms (%.1f%% of wall)\n",
                      wallMs, waitsMs, wallMs - waitsMs,
                      wallMs > 0 ? 100.0 * (wallMs - waitsMs) / wallMs : 0.0);
        err_IO << line;
    }
    return exit;
}
