#include "app/CommandLineOptions.h"

#include "base/Seconds.h"
#include "remote/KeyHelp.h"

#include <QStringList>

namespace tv {

namespace {

constexpr int helpColumn = 27;
constexpr int lineWidth = 100;

const char* const introduction = R"(Usage: tv-browser [options] URL|FILE|FOLDER
Opens a page as an HbbTV television would. Local files are served over HTTP, to this machine only.
)";

const char* const conclusion = R"(
Environment variables:
  AVCONTROL_LOG_CONSOLE=off|error|warning|all      the plug-in's log on the console
  AVCONTROL_LOG_FILE=PATH                          the plug-in's log in a file
  AVCONTROL_LOG_FILE_LEVEL=off|error|warning|all   how much the file gets
  AVCONTROL_AUDIO_SINK=ELEMENT                     the GStreamer element that plays the audio

Exit codes: 0 success, 1 failure (page, plug-in or verdict), 2 wrong usage.
)";

Result<void, QString> readNothing(const QString& /*value*/, CommandLine& /*line*/) {
    return {};
}

Result<void, QString> readMount(const QString& value, CommandLine& line) {
    const QString name = value.section(QLatin1Char('='), 0, 0);
    const QString folder = value.section(QLatin1Char('='), 1);
    if (name.isEmpty() || folder.isEmpty()) {
        return Failure{QStringLiteral("not of the form NAME=FOLDER")};
    }
    line.mounts.append({name, folder});
    return {};
}

Result<void, QString> readKeys(const QString& value, CommandLine& line) {
    const auto keys = parseKeySequence(value);
    if (!keys) {
        return Failure{QStringLiteral("\"%1\" is neither a key, KEY:SECONDS, nor wait:SECONDS, with 0 to 1000000 "
                                      "seconds; see --keys help")
                           .arg(keys.reason())};
    }
    line.keys = *keys;
    return {};
}

Result<void, QString> readFault(const QString& value, CommandLine& line) {
    const auto rule = parseFaultRule(value);
    if (!rule) {
        return Failure{QStringLiteral("\"%1\" is not a fault, or not of the form PATTERN=FAULTS; see docs/faults.md")
                           .arg(rule.reason())};
    }
    line.faults.append(*rule);
    return {};
}

Result<void, QString> readReports(const QString& value, CommandLine& line) {
    const auto reports = parseInjectedReports(value);
    if (!reports) {
        return Failure{QStringLiteral("\"%1\" is not SECONDS:REPORT; see --inject help").arg(reports.reason())};
    }
    line.reports = *reports;
    return {};
}

Result<void, QString> readSeconds(const QString& value, std::optional<double>& seconds) {
    seconds = parseSeconds(value);
    if (!seconds) {
        return Failure{QStringLiteral("not a number of seconds from 0 to 1000000")};
    }
    return {};
}

Result<void, QString> readScreenshotAfter(const QString& value, CommandLine& line) {
    return readSeconds(value, line.screenshotAfter);
}

Result<void, QString> readExitAfter(const QString& value, CommandLine& line) {
    return readSeconds(value, line.exitAfter);
}

Result<void, QString> readNoSpatialNavigation(const QString& /*value*/, CommandLine& line) {
    line.spatialNavigation = false;
    return {};
}

QString injectionHelp() {
    QString text;
    for (const InjectedReport& report : injectableReports()) {
        text += QStringLiteral("%1 %2\n").arg(report.name, -16).arg(report.text);
    }
    return text;
}

constexpr std::array<CommandLineOption, commandLineOptionCount> options = {{
    {"Run a page", "headless", nullptr,
     "run without a window; needs no display, and is the default where there is none", &CommandLine::headless},
    {nullptr, "mount", "NAME=FOLDER", "serve FOLDER under /NAME/ too; may be repeated", readMount, nullptr, true},
    {nullptr, "keys", "LIST",
     "press keys once the page is loaded: RIGHT,ENTER,wait:2,DOWN:1.5,F9 waits for two seconds after ENTER and holds "
     "DOWN; --keys help lists the keys",
     readKeys, keyHelpText},
    {nullptr, "screenshot", "FILE",
     "save the screen as a PNG file; without a window the program then ends, unless --exit-after or --verdict "
     "is given",
     &CommandLine::screenshotFile},
    {nullptr, "after", "SECONDS", "take the screenshot that long after the start (5, or at the verdict)",
     readScreenshotAfter},
    {nullptr, "exit-after", "SECONDS", "end the program that long after the start", readExitAfter},
    {nullptr, "verdict", nullptr,
     "end the program when document.title is PASS (exit code 0) or starts with FAIL (1), or with 1 at "
     "--exit-after (60)",
     &CommandLine::verdict},
    {"Look into it", "trace", nullptr, "print everything that happens: calls, events, player, requests, keys",
     &CommandLine::trace},
    {nullptr, "timeline", "FILE", "write the same for programs, as JSON lines; see docs/timeline.md",
     &CommandLine::timelineFile},
    {nullptr, "panel", nullptr, "show the same beside the screen (F9)", &CommandLine::panel},
    {nullptr, "inspect", nullptr, "open the engine's inspector (F12)", &CommandLine::inspect},
    {"Break things", "fault", "PATTERN=FAULTS",
     "break the requests whose address matches the pattern: *.m4s=delay:3000,throttle:50000; plain HTTP only; "
     "may be repeated; see docs/faults.md",
     readFault, nullptr, true},
    {nullptr, "inject", "LIST",
     "make the player send reports, in seconds after the page is loaded: 5:buffering,8:error=3; --inject help "
     "lists the reports",
     readReports, injectionHelp},
    {"Set up the television", "profile", "FOLDER",
     "keep cookies and storage in FOLDER; without it they end with the program. A file user-agent in FOLDER "
     "holds the user agent",
     &CommandLine::profileFolder},
    {nullptr, "first-start", nullptr, "remove the profile's cookies and storage first (while it runs: Shift+F7)",
     &CommandLine::firstStart},
    {nullptr, "user-agent", "TEXT", "set the user agent of page and media requests", &CommandLine::userAgent},
    {nullptr, "trust", "FILE", "also accept the certificate of your test server (PEM)", &CommandLine::trustFile},
    {nullptr, "no-spatial-navigation", nullptr, "do not let the arrow keys move the focus", readNoSpatialNavigation},
    {nullptr, "plugin-path", "FOLDER", "load npavcontrol.so from FOLDER instead of the program's own folder",
     &CommandLine::pluginFolder},
    {"Help", "help", nullptr, "print this text", readNothing},
    {nullptr, "version", nullptr, "print the version", readNothing},
}};

/** @return an option's lines of the help, its text wrapped */
QString helpOf(const CommandLineOption& option) {
    QString line = QStringLiteral("  --") + QLatin1String(option.name);
    if (option.value) {
        line += QLatin1Char(' ') + QLatin1String(option.value);
    }
    line = line.leftJustified(helpColumn - 1);
    QString help;
    for (const QString& word : QString::fromLatin1(option.help).split(QLatin1Char(' '))) {
        if (line.size() + 1 + word.size() > lineWidth) {
            help += line + QLatin1Char('\n');
            line = QString(helpColumn - 1, QLatin1Char(' '));
        }
        line += QLatin1Char(' ') + word;
    }
    return help + line + QLatin1Char('\n');
}

} // namespace

const std::array<CommandLineOption, commandLineOptionCount>& commandLineOptions() {
    return options;
}

QString commandLineHelp() {
    QString text = QString::fromLatin1(introduction);
    for (const CommandLineOption& option : options) {
        if (option.group) {
            text += QStringLiteral("\n%1:\n").arg(QLatin1String(option.group));
        }
        text += helpOf(option);
    }
    return text + QString::fromLatin1(conclusion);
}

} // namespace tv
