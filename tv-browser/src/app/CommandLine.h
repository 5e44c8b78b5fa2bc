/** What the command line asks of the television. */
#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include "base/Result.h"
#include "faults/FaultRule.h"
#include "faults/InjectedReport.h"
#include "remote/KeySequence.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <optional>

namespace tv {

struct CommandLine {
    QString target;                        ///< address, file or folder to open
    QList<QPair<QString, QString>> mounts; ///< further folders to serve: name, folder
    QString pluginFolder;                  ///< of the plug-in module; empty for the one beside the program
    QString profileFolder;                 ///< empty for a profile that ends with the program
    QString userAgent;                     ///< empty for the profile's own
    QString trustFile;                     ///< certificates that https accepts too; empty for none
    QString timelineFile;                  ///< empty for none
    QString screenshotFile;                ///< empty for none
    std::optional<double> screenshotAfter; ///< seconds since the start; none: at the verdict
    std::optional<double> exitAfter;       ///< seconds since the start; always there with a verdict
    QList<KeyStep> keys;                   ///< to press once the page is loaded
    QList<FaultRule> faults;
    QList<InjectedReport> reports; ///< of the player, in seconds after the page is loaded
    bool headless = false;
    bool inspect = false; ///< show the inspector from the start
    bool spatialNavigation = true;
    bool firstStart = false; ///< remove the profile's cookies and storage first
    bool panel = false;      ///< show the timeline from the start
    bool trace = false;
    bool verdict = false;
};

/** A text for the user, with which the program ends at once. */
struct CommandLineEnd {
    QString text;
    int exitCode = 0; ///< 0: the text is what the user asked for; else what is wrong
};

/** @param arguments the program's name first */
Result<CommandLine, CommandLineEnd> parseCommandLine(const QStringList& arguments);

/** @return the index of the target among the arguments of a command line that parseCommandLine() accepts */
int targetIndex(const QStringList& arguments);

} // namespace tv

#endif
