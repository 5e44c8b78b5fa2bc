#include "app/CommandLine.h"

#include "desk/KeyboardHelp.h"
#include "faults/FaultRule.h"

#include <QCommandLineParser>
#include <QtMath>

namespace tv {

namespace {

const char* const usage = R"(Usage: tv-browser [options] URL|FILE|FOLDER
Opens a page as an HbbTV television would. Files are served over HTTP on this machine only.

  --headless               no window, no display needed (also without DISPLAY)
  --mount NAME=FOLDER      serve FOLDER under /NAME/ too; may be repeated
  --keys LIST              press keys once the page is there: RIGHT,ENTER,wait:2,DOWN:1.5 (held),F9;
                           --keys help prints their names and those of the keyboard
  --screenshot FILE        write the picture as PNG; without a window the program then ends, unless
                           it has --exit-after or --verdict
  --after SECONDS          when, since the start (5, or at the verdict)
  --exit-after SECONDS     end then, since the start
  --verdict                end when document.title is PASS (exit code 0) or starts with FAIL (1), or
                           with 1 at --exit-after (60)

  --trace                  print all that happens: calls, events, player, requests, keys
  --timeline FILE          write the same for programs, as JSON lines: docs/timeline.md
  --panel                  show the same beside the picture (F9)
  --inspect                open the engine's inspector (F12)
  --fault PATTERN=FAULTS   addresses that fit go wrong, as *.m4s=delay:3000,throttle:50000; not by
                           https; may be repeated: docs/faults.md
  --inject LIST            player reports, seconds after the page is there: 5:buffering,8:error=3;
                           --inject help prints their names

  --profile FOLDER         keep cookies and storage there; else they end with the program. Its file
                           user-agent, when there is one, holds the user agent
  --first-start            forget its cookies and storage before (while it runs: Shift+F7)
  --user-agent TEXT        of page and media requests
  --trust FILE             accept a test server's own certificate too (PEM)
  --no-spatial-navigation  the arrow keys do not move the focus by themselves
  --plugin-path FOLDER     folder of npavcontrol.so (../lib/npapi beside the program)
  --help, --version        print this, or the version

Environment: AVCONTROL_LOG_CONSOLE=off|error|warning|all, the plug-in's log on the console;
AVCONTROL_LOG_FILE=PATH and AVCONTROL_LOG_FILE_LEVEL, in a file; AVCONTROL_AUDIO_SINK, the GStreamer
element for the sound.
Exit codes: 0 done, 1 failed (page, plug-in, verdict), 2 wrong use.
)";

constexpr double defaultScreenshotSeconds = 5;
constexpr double verdictLimitSeconds = 60;

CommandLineResult refusal(const QString& text) {
    return {std::nullopt, QStringLiteral("tv-browser: %1\nTry tv-browser --help.\n").arg(text), 2};
}

/** Reads an option's seconds. @return false when there is a value that is no number of seconds */
bool readSeconds(const QCommandLineParser& parser, const QString& option, std::optional<double>& seconds) {
    if (!parser.isSet(option)) {
        return true;
    }
    bool isNumber = false;
    const double value = parser.value(option).toDouble(&isNumber);
    if (!isNumber || !qIsFinite(value) || value < 0 || value > 1e6) {
        return false;
    }
    seconds = value;
    return true;
}

void addOptions(QCommandLineParser& parser) {
    for (const char* name : {"headless", "trace", "verdict", "first-start", "no-spatial-navigation", "panel", "inspect",
                             "help", "version"}) {
        parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
    }
    for (const char* name : {"mount", "keys", "screenshot", "after", "exit-after", "plugin-path", "profile",
                             "user-agent", "trust", "timeline", "fault", "inject"}) {
        parser.addOption(QCommandLineOption(QString::fromLatin1(name), QString(), QStringLiteral("value")));
    }
}

QString injectionHelp() {
    QString text;
    for (const InjectedReport& report : injectableReports()) {
        text += QStringLiteral("%1 %2\n").arg(report.name, -16).arg(report.text);
    }
    return text;
}

QString badSeconds(const QCommandLineParser& parser, const QString& option) {
    return QStringLiteral("--%1 %2: not a number of seconds from 0 to 1000000").arg(option, parser.value(option));
}

} // namespace

CommandLineResult parseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments)) {
        return refusal(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        return {std::nullopt, QLatin1String(usage), 0};
    }
    if (parser.value(QStringLiteral("keys")) == QLatin1String("help")) {
        return {std::nullopt, QLatin1String(keyboardHelpText()), 0};
    }
    if (parser.value(QStringLiteral("inject")) == QLatin1String("help")) {
        return {std::nullopt, injectionHelp(), 0};
    }
    if (parser.isSet(QStringLiteral("version"))) {
        return {std::nullopt, QStringLiteral("tv-browser " TV_BROWSER_VERSION "\n"), 0};
    }

    CommandLine line;
    if (parser.positionalArguments().size() != 1) {
        return refusal(
            QStringLiteral("give one page, file or folder to open, not %1").arg(parser.positionalArguments().size()));
    }
    line.target = parser.positionalArguments().constFirst();
    line.headless = parser.isSet(QStringLiteral("headless"));
    line.inspect = parser.isSet(QStringLiteral("inspect"));
    line.panel = parser.isSet(QStringLiteral("panel"));
    line.trace = parser.isSet(QStringLiteral("trace"));
    line.verdict = parser.isSet(QStringLiteral("verdict"));
    line.pluginFolder = parser.value(QStringLiteral("plugin-path"));
    line.profileFolder = parser.value(QStringLiteral("profile"));
    line.firstStart = parser.isSet(QStringLiteral("first-start"));
    line.spatialNavigation = !parser.isSet(QStringLiteral("no-spatial-navigation"));
    line.userAgent = parser.value(QStringLiteral("user-agent"));
    line.trustFile = parser.value(QStringLiteral("trust"));
    line.timelineFile = parser.value(QStringLiteral("timeline"));
    line.screenshotFile = parser.value(QStringLiteral("screenshot"));

    for (const QString& mount : parser.values(QStringLiteral("mount"))) {
        const QString name = mount.section(QLatin1Char('='), 0, 0);
        const QString folder = mount.section(QLatin1Char('='), 1);
        if (name.isEmpty() || folder.isEmpty()) {
            return refusal(QStringLiteral("--mount %1: not of the form NAME=FOLDER").arg(mount));
        }
        line.mounts.append({name, folder});
    }

    for (const QString& rule : parser.values(QStringLiteral("fault"))) {
        QString wrong;
        if (!parseFaultRule(rule, wrong)) {
            return refusal(
                QStringLiteral("--fault %1: \"%2\" is not of the form PATTERN=FAULTS; docs/faults.md has them")
                    .arg(rule, wrong));
        }
        line.faults.append(rule);
    }
    if (parser.isSet(QStringLiteral("inject"))) {
        QString wrong;
        const auto reports = parseInjectedReports(parser.value(QStringLiteral("inject")), wrong);
        if (!reports) {
            return refusal(QStringLiteral("--inject: \"%1\" is not SECONDS:REPORT; see --inject help").arg(wrong));
        }
        line.reports = *reports;
    }

    const QString keysOption = QStringLiteral("keys");
    if (parser.isSet(keysOption)) {
        QString wrong;
        const auto steps = parseRemoteKeySteps(parser.value(keysOption), wrong);
        if (!steps) {
            return refusal(
                QStringLiteral(
                    "--keys: \"%1\" is neither a key, KEY:SECONDS, nor wait:SECONDS, with 0 to 1000000 seconds; see "
                    "--keys help")
                    .arg(wrong));
        }
        line.keys = *steps;
    }

    const QString afterOption = QStringLiteral("after");
    const QString exitOption = QStringLiteral("exit-after");
    if (!readSeconds(parser, afterOption, line.screenshotAfter)) {
        return refusal(badSeconds(parser, afterOption));
    }
    if (line.screenshotAfter && line.screenshotFile.isEmpty()) {
        return refusal(QStringLiteral("--after says when --screenshot is taken; give --screenshot FILE too"));
    }
    if (!line.screenshotAfter && !line.verdict) {
        line.screenshotAfter = defaultScreenshotSeconds;
    }
    if (!readSeconds(parser, exitOption, line.exitAfter)) {
        return refusal(badSeconds(parser, exitOption));
    }
    if (line.verdict && !line.exitAfter) {
        line.exitAfter = verdictLimitSeconds;
    }
    if (line.exitAfter && !line.screenshotFile.isEmpty() && line.screenshotAfter &&
        *line.exitAfter <= *line.screenshotAfter) {
        return refusal(QStringLiteral("--exit-after %1 comes before the screenshot at %2 seconds")
                           .arg(*line.exitAfter)
                           .arg(*line.screenshotAfter));
    }
    return {line, QString(), 0};
}

int targetIndex(const QStringList& arguments) {
    for (int count = 2; count < arguments.size(); ++count) {
        QCommandLineParser parser;
        addOptions(parser);
        parser.parse(arguments.mid(0, count));
        if (!parser.positionalArguments().isEmpty()) {
            return count - 1;
        }
    }
    return arguments.size() - 1;
}

} // namespace tv
