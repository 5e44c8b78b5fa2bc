#include "app/CommandLine.h"

#include "app/CommandLineOptions.h"

#include <QCommandLineParser>

namespace tv {

namespace {

constexpr double defaultScreenshotSeconds = 5;
constexpr double verdictLimitSeconds = 60;

Failure<CommandLineEnd> wrongUsage(const QString& text) {
    return Failure{CommandLineEnd{QStringLiteral("tv-browser: %1\nTry tv-browser --help.\n").arg(text), 2}};
}

void addOptions(QCommandLineParser& parser) {
    for (const CommandLineOption& option : commandLineOptions()) {
        parser.addOption(QCommandLineOption(QString::fromLatin1(option.name), QString(),
                                            QString::fromLatin1(option.value ? option.value : "")));
    }
}

/** @return the text that the arguments ask for instead of a page; null when they ask for a page */
QString wantedText(const QCommandLineParser& parser) {
    if (parser.isSet(QStringLiteral("help"))) {
        return commandLineHelp();
    }
    for (const CommandLineOption& option : commandLineOptions()) {
        if (option.choices && parser.value(QString::fromLatin1(option.name)) == QLatin1String("help")) {
            return option.choices();
        }
    }
    return parser.isSet(QStringLiteral("version")) ? QStringLiteral("tv-browser " TV_BROWSER_VERSION "\n") : QString();
}

Result<void, QString> read(const CommandLineOption& option, const QString& value, CommandLine& line) {
    if (const auto* flag = std::get_if<bool CommandLine::*>(&option.target)) {
        line.** flag = true;
        return {};
    }
    if (const auto* text = std::get_if<QString CommandLine::*>(&option.target)) {
        line.** text = value;
        return {};
    }
    return std::get<OptionReader>(option.target)(value, line);
}

/** Reads the values of all options that are set. */
Result<void, QString> readOptions(const QCommandLineParser& parser, CommandLine& line) {
    for (const CommandLineOption& option : commandLineOptions()) {
        const QString name = QString::fromLatin1(option.name);
        QStringList values = parser.values(name);
        if (!option.value) {
            values = parser.isSet(name) ? QStringList(QString()) : QStringList();
        } else if (!option.isRepeatable) {
            values = values.mid(values.size() - 1);
        }
        for (const QString& value : values) {
            const auto result = read(option, value, line);
            if (!result) {
                return Failure{QStringLiteral("--%1 %2: %3").arg(name, value, result.reason())};
            }
        }
    }
    return {};
}

/** Fills in the times that follow from other options. @return why the options contradict each other */
Result<void, QString> completeTimes(CommandLine& line) {
    if (line.screenshotAfter && line.screenshotFile.isEmpty()) {
        return Failure{QStringLiteral("--after says when --screenshot is taken; give --screenshot FILE too")};
    }
    if (!line.screenshotAfter && !line.verdict) {
        line.screenshotAfter = defaultScreenshotSeconds;
    }
    if (line.verdict && !line.exitAfter) {
        line.exitAfter = verdictLimitSeconds;
    }
    if (line.exitAfter && !line.screenshotFile.isEmpty() && line.screenshotAfter &&
        *line.exitAfter <= *line.screenshotAfter) {
        return Failure{QStringLiteral("--exit-after %1 comes before the screenshot at %2 seconds")
                           .arg(*line.exitAfter)
                           .arg(*line.screenshotAfter)};
    }
    return {};
}

} // namespace

Result<CommandLine, CommandLineEnd> parseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments)) {
        return wrongUsage(parser.errorText());
    }
    const QString text = wantedText(parser);
    if (!text.isNull()) {
        return Failure{CommandLineEnd{text, 0}};
    }
    if (parser.positionalArguments().size() != 1) {
        return wrongUsage(
            QStringLiteral("give one page, file or folder to open, not %1").arg(parser.positionalArguments().size()));
    }
    CommandLine line;
    line.target = parser.positionalArguments().constFirst();
    const auto options = readOptions(parser, line);
    if (!options) {
        return wrongUsage(options.reason());
    }
    const auto times = completeTimes(line);
    if (!times) {
        return wrongUsage(times.reason());
    }
    return line;
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
