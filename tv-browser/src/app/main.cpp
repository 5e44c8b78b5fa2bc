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

/** Loads the module, which stays loaded. @return why it cannot be loaded */
Result<void, QString> load(const QString& module) {
    if (!QFileInfo::exists(module)) {
        return Failure{QStringLiteral("the plug-in %1 does not exist; build it, or name its folder with --plugin-path")
                           .arg(module)};
    }
    if (!dlopen(QFile::encodeName(module).constData(), RTLD_LAZY | RTLD_LOCAL)) {
        return Failure{QStringLiteral("the plug-in cannot be loaded: %1").arg(QString::fromLocal8Bit(dlerror()))};
    }
    return {};
}

/** Chooses between a window and none, before Qt does. */
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

/** Makes the engine and the players accept the certificates of --trust. @return why that cannot be done */
Result<void, QString> trustCertificates(const QString& file) {
    if (file.isEmpty()) {
        return {};
    }
    const QList<QSslCertificate> certificates = QSslCertificate::fromPath(file);
    if (certificates.isEmpty()) {
        return Failure{QStringLiteral("--trust %1: the file has no certificate in PEM form").arg(file)};
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(configuration.caCertificates() + certificates);
    QSslConfiguration::setDefaultConfiguration(configuration);
    mediaRequestsTrustCertificate(QFile::encodeName(file).constData());
    return {};
}

/** @return why the folder of --profile cannot be used */
Result<void, QString> prepareProfile(const QString& folder, bool isFirstStart) {
    if (folder.isEmpty()) {
        return {};
    }
    if (!QDir().mkpath(folder)) {
        return Failure{QStringLiteral("--profile %1: the folder cannot be created").arg(folder)};
    }
    if (isFirstStart) {
        Profile::clearFolder(folder);
    }
    return {};
}

/** Replaces the program by a new run of it, without --keys. @return the exit code when that is not possible */
int startAnew(QStringList arguments, const Television::Restart& restart) {
    const QString firstStart = QStringLiteral("--first-start");
    arguments.replace(targetIndex(arguments), restart.target);
    arguments.removeAll(firstStart);
    if (restart.isFirstStart) {
        arguments.append(firstStart);
    }
    arguments += {QStringLiteral("--keys"), QStringLiteral("wait:0")}; // The last one counts.
    std::vector<QByteArray> texts;
    std::vector<char*> pointers;
    texts.reserve(static_cast<size_t>(arguments.size()));
    for (const QString& argument : arguments) {
        texts.push_back(argument.toLocal8Bit());
        pointers.push_back(texts.back().data());
    }
    pointers.push_back(nullptr);
    execv("/proc/self/exe", pointers.data());
    printError(QStringLiteral("cannot restart: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return 1;
}

} // namespace

int main(int argc, char* argv[]) {
    const int64_t startUs = monotonicUs();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    auto parsed = parseCommandLine(arguments);
    if (!parsed) {
        const CommandLineEnd& end = parsed.reason();
        std::fputs(qUtf8Printable(end.text), end.exitCode == 0 ? stdout : stderr);
        return end.exitCode;
    }
    CommandLine& commandLine = *parsed;

    choosePlatform(commandLine);
    const QString pluginFolder =
        QDir(commandLine.pluginFolder.isEmpty() ? defaultPluginFolder() : commandLine.pluginFolder).absolutePath();
    const QString pluginModule = pluginFolder + QStringLiteral("/npavcontrol.so");
    const Watchdog watchdog(commandLine.exitAfter);
    const auto loaded = load(pluginModule);
    if (!loaded) {
        printError(loaded.reason());
        return 1;
    }
    qputenv("QTWEBKIT_PLUGIN_PATH", QFile::encodeName(pluginFolder));

    int engineArgc = 1;
    QApplication application(engineArgc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tv-browser"));
    for (const auto& prepared : {trustCertificates(commandLine.trustFile),
                                 prepareProfile(commandLine.profileFolder, commandLine.firstStart)}) {
        if (!prepared) {
            printError(prepared.reason());
            return 1;
        }
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
