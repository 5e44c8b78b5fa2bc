#include "app/CommandLine.h"
#include "app/HeadlessMessages.h"
#include "app/Television.h"
#include "app/Watchdog.h"
#include "base/MonotonicTime.h"
#include "base/Print.h"
#include "media_requests.h"
#include "page/Profile.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <unistd.h>
#include <vector>

using namespace tv;

namespace {

/** @return the folder of the running program, found before Qt has an application that knows */
QString programFolder() {
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
}

/** @return where the plug-in module is, seen from a build folder or from an installed program */
QString defaultPluginFolder() {
    const QString built = programFolder() + QStringLiteral("/../lib/npapi");
    return QFileInfo::exists(built) ? built : programFolder() + QStringLiteral("/" TV_BROWSER_PLUGIN_FOLDER);
}

/** @return why the module cannot be loaded, or an empty text when it can. It stays loaded. */
QString loadProblem(const QString& module) {
    if (!QFileInfo::exists(module)) {
        return QStringLiteral("the plug-in %1 does not exist; build it, or name its folder with --plugin-path")
            .arg(module);
    }
    if (!dlopen(QFile::encodeName(module).constData(), RTLD_LAZY | RTLD_LOCAL)) {
        return QStringLiteral("the plug-in cannot be loaded: %1").arg(QString::fromLocal8Bit(dlerror()));
    }
    return {};
}

/** Decides between a window and none, before Qt does. */
void choosePlatform(CommandLine& commandLine) {
    const bool hasDisplay = !qEnvironmentVariableIsEmpty("DISPLAY") ||
                            !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
                            !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (commandLine.headless || !hasDisplay) {
        commandLine.headless = true;
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qunsetenv("DISPLAY"); // The offscreen platform would connect to it for OpenGL.
        dropMissingDesktopMessages();
    } else if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "wayland"); // Qt would try X first, and end there.
    }
}

/** Prepares the profile and the trusted certificates. @return why that cannot be done; empty when it is */
QString applySettings(const CommandLine& commandLine) {
    if (!commandLine.trustFile.isEmpty()) {
        const QList<QSslCertificate> certificates = QSslCertificate::fromPath(commandLine.trustFile);
        if (certificates.isEmpty()) {
            return QStringLiteral("--trust %1: no certificate in PEM form there").arg(commandLine.trustFile);
        }
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates(configuration.caCertificates() + certificates);
        QSslConfiguration::setDefaultConfiguration(configuration);
        mediaRequestsTrustCertificate(QFile::encodeName(commandLine.trustFile).constData());
    }
    if (!commandLine.profileFolder.isEmpty()) {
        if (!QDir().mkpath(commandLine.profileFolder)) {
            return QStringLiteral("--profile %1: the folder cannot be made").arg(commandLine.profileFolder);
        }
        if (commandLine.firstStart) {
            Profile::clearFolder(commandLine.profileFolder);
        }
    }
    return {};
}

/** Becomes the program anew, without pressing keys again. @return the exit code, when that is not possible */
int startAnew(QStringList arguments, const Television::Restart& restart) {
    const QString firstStart = QStringLiteral("--first-start");
    arguments.replace(targetIndex(arguments), restart.target);
    arguments.removeAll(firstStart);
    if (restart.isFirstStart) {
        arguments.append(firstStart);
    }
    arguments += {QStringLiteral("--keys"), QStringLiteral("wait:0")}; // the last one counts
    std::vector<QByteArray> texts;
    std::vector<char*> pointers;
    texts.reserve(static_cast<size_t>(arguments.size()));
    for (const QString& argument : arguments) {
        texts.push_back(argument.toLocal8Bit());
        pointers.push_back(texts.back().data());
    }
    pointers.push_back(nullptr);
    execv("/proc/self/exe", pointers.data());
    printError(QStringLiteral("cannot start anew: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return 1;
}

} // namespace

int main(int argc, char* argv[]) {
    const int64_t startUs = monotonicUs();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    CommandLineResult result = parseCommandLine(arguments);
    if (!result.commandLine) {
        std::fputs(qUtf8Printable(result.text), result.exitCode == 0 ? stdout : stderr);
        return result.exitCode;
    }
    CommandLine& commandLine = *result.commandLine;

    choosePlatform(commandLine);
    const QString pluginFolder =
        QDir(commandLine.pluginFolder.isEmpty() ? defaultPluginFolder() : commandLine.pluginFolder).absolutePath();
    const QString pluginModule = pluginFolder + QStringLiteral("/npavcontrol.so");
    const Watchdog watchdog(commandLine.exitAfter);
    const QString problem = loadProblem(pluginModule);
    if (!problem.isEmpty()) {
        printError(problem);
        return 1;
    }
    qputenv("QTWEBKIT_PLUGIN_PATH", QFile::encodeName(pluginFolder));

    int engineArgc = 1;
    QApplication application(engineArgc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tv-browser"));
    const QString settingsProblem = applySettings(commandLine);
    if (!settingsProblem.isEmpty()) {
        printError(settingsProblem);
        return 1;
    }
    Television::Restart restart;
    int exitCode = 0;
    {
        Television television(commandLine, startUs);
        exitCode = television.run(pluginModule);
        restart = television.wantedRestart();
    }
    if (restart.target.isEmpty()) {
        return exitCode;
    }
    return startAnew(arguments, restart);
}
