/**
 * The command line of the television browser.
 */
#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include "faults/InjectedReport.h"
#include "remote/RemoteKeys.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <optional>

namespace tv {

struct CommandLine {
    QString target;                        /**< address, file or folder to open */
    QList<QPair<QString, QString>> mounts; /**< further folders to serve: name, folder */
    QString pluginFolder;                  /**< where the plug-in module is; empty for beside the program */
    QString profileFolder;                 /**< what the television remembers; empty for nothing */
    QString userAgent;                     /**< empty for the profile's own */
    QString trustFile;                     /**< certificates that https accepts too; empty for none */
    QString timelineFile;                  /**< empty for none */
    QString screenshotFile;                /**< empty for none */
    std::optional<double> screenshotAfter; /**< seconds; none: at the verdict, or after a default time without one */
    std::optional<double> exitAfter;       /**< seconds; always there with a verdict */
    QList<RemoteKeyStep> keys;             /**< to be pressed once the page is there */
    QStringList faults;                    /**< `PATTERN=FAULTS` each, good ones */
    QList<InjectedReport> reports;         /**< of the player, in seconds after the page is there */
    bool headless = false;
    bool inspect = false; /**< with the inspector from the start */
    bool spatialNavigation = true;
    bool firstStart = false; /**< the profile's cookies and storage are forgotten first */
    bool panel = false;      /**< the timeline beside the picture from the start */
    bool trace = false;
    bool verdict = false;
};

/** What came of reading the arguments: a command line to carry out, or a text for the user and an exit code. */
struct CommandLineResult {
    std::optional<CommandLine> commandLine;
    QString text;
    int exitCode = 0;
};

/** @param arguments the program's name first */
CommandLineResult parseCommandLine(const QStringList& arguments);

/** @return which of the arguments of a good command line is the target */
int targetIndex(const QStringList& arguments);

} // namespace tv

#endif
