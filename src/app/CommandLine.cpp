#include "app/CommandLine.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"

#include <algorithm>
#include <array>
#include <cctype>

const wchar_t* const kHelpTitle = L"PanelTune Options";

namespace {

// /language, /exitOnError and /refresh stay out of the box on purpose; /simulate is for
// developers; /tray is told by the manual page, so the box stays as users know it.
constexpr std::array<const wchar_t*, 6> kHelpLines{
    L"/hidPort - use only a HID channel",
    L"/displayPort - use only a video display channel",
    L"/ftdiPort - use only an FTDI display channel",
    L"/skipSerialMatch - skip match monitor/channel serial numbers",
    L"/debug - send trace lines to debug output (slows down app)",
    L"/help - show options",
};

bool Found(const std::wstring& commandLine_I, const wchar_t* pattern_I) {
    return !SearchCommandLine(commandLine_I, pattern_I).empty();
}

// Exactly one blank between the option and its value.
void SearchLanguage(const std::wstring& commandLine_I, SDisplayConfigOptions& options_IO) {
    const std::wsmatch match = SearchCommandLine(commandLine_I, L"/language (\\w+)");
    if (match.empty()) {
        return;
    }
    std::string tag = match.size() > 1 ? ToNarrow(match[1].str()) : std::string();
    std::transform(tag.begin(), tag.end(), tag.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const LanguageProvider chosen(tag);
    if (!chosen.mKnown) {
        return;
    }
    options_IO.language.mLanguage = chosen.mLanguage;
    options_IO.language.mLangTable = chosen.mLangTable;
    options_IO.language.mDefaultLanguage = chosen.mDefaultLanguage;
    options_IO.language.mKnown = chosen.mKnown;
}

// Video, then HID, then FTDI: the first found wins and the later ones are not searched.
SConnectionMode SearchConnectionMode(const std::wstring& commandLine_I) {
    if (Found(commandLine_I, L"/displayPort")) {
        return eConnectionMode_Video;
    }
    if (Found(commandLine_I, L"/hidPort")) {
        return eConnectionMode_HID;
    }
    if (Found(commandLine_I, L"/ftdiPort")) {
        return eConnectionMode_FTDI;
    }
    return eConnectionMode_All;
}

} // namespace

std::wsmatch SearchCommandLine(const std::wstring& commandLine_I, const std::wstring& pattern_I) {
    const std::wregex expression(pattern_I,
                                 std::regex_constants::ECMAScript | std::regex_constants::icase);
    std::wsmatch match;
    std::regex_search(commandLine_I, match, expression);
    return match;
}

SCommandLine ParseCommandLine(const std::wstring& commandLine_I) {
    SCommandLine result;
    SearchLanguage(commandLine_I, result.options);
    result.options.skipSerialMatch = Found(commandLine_I, L"/skipSerialMatch");
    result.options.exitOnError = Found(commandLine_I, L"/exitOnError");
    // Reads the displays in full instead of trusting their kept facts.
    result.options.refreshFacts = Found(commandLine_I, L"/refresh");
    result.options.connectionMode = SearchConnectionMode(commandLine_I);
    if (Found(commandLine_I, L"/debug")) {
        gTraceEnabled = true;
    }
    // A description never starts with a slash, so a following option is not taken for one.
    const std::wsmatch simulate =
        SearchCommandLine(commandLine_I, L"/simulate(?: +([^/\\s]\\S*))?");
    if (!simulate.empty()) {
        result.simulate = true;
        result.simulation = ToNarrow(simulate[1].str());
    }
    result.tray = Found(commandLine_I, L"(?:/|--)tray");
    result.help = Found(commandLine_I, L"/help");
    return result;
}

std::wstring JoinArguments(const std::vector<std::string>& arguments_I) {
    std::wstring line;
    for (const std::string& argument : arguments_I) {
        if (!line.empty()) {
            line += L' ';
        }
        line += ToWide(argument);
    }
    return line;
}

std::wstring HelpText() {
    std::wstring text;
    for (const wchar_t* line : kHelpLines) {
        if (!text.empty()) {
            text += L'\n';
        }
        text += line;
    }
    return text;
}
