#include "app/Television.h"

#include "app/PageTarget.h"
#include "base/MonotonicTime.h"
#include "base/Print.h"
#include "faults/FaultRule.h"
#include "faults/InjectedReport.h"
#include "timeline/TimelinePrinter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <QWebFrame>
#include <algorithm>

namespace tv {

namespace {

constexpr double keyGapSeconds = 0.1;

int toMilliseconds(double seconds) {
    return static_cast<int>(seconds * 1000);
}

} // namespace

Television::Television(const CommandLine& commandLine, int64_t startUs)
    : m_commandLine(commandLine), m_startUs(startUs), m_profile(commandLine.profileFolder, commandLine.userAgent),
      m_page(m_profile), m_faults(m_server, m_page.network()), m_screen(m_page) {
    keepTimeline();
    m_page.setAddressNames([this](const QUrl& url) { return addressName(url); });
    connect(&m_page, &TvPage::loaded, this, &Television::pageLoaded);
    connect(&m_page, &TvPage::applicationEnded, this,
            [] { printError(QStringLiteral("the application has ended itself with destroyApplication()")); });
    connect(&m_page, &TvPage::loadFailed, this, &Television::pageFailed);
    if (commandLine.verdict) {
        m_probe = std::make_unique<ScreenProbe>(m_screen, *m_page.mainFrame());
        connect(m_page.mainFrame(), &QWebFrame::titleChanged, this, &Television::titleChanged);
    }
    if (!commandLine.headless) {
        m_window = std::make_unique<TvWindow>(m_screen);
        connect(m_window.get(), &TvWindow::remoteKey, this, &Television::sendKey);
        m_desk =
            std::make_unique<Desk>(DeskParts{*m_window, m_page, m_screen, m_faults, *m_timeline}, commandLine, startUs);
        connect(m_desk.get(), &Desk::remoteKey, this, &Television::sendKey);
        connect(m_desk.get(), &Desk::addressEntered, this, &Television::openAddress);
        connect(m_desk.get(), &Desk::firstStartWanted, this, [this] { restart(m_commandLine.target, true); });
    }
    connect(&m_heldKey, &KeyRepeat::remoteKey, this, &Television::sendKey);
    m_page.setSpatialNavigation(commandLine.spatialNavigation);
}

Television::~Television() {
    m_page.disconnect(this); // While the page goes, it still says things.
}

int Television::run(const QString& pluginModule) {
    const QString found = m_page.mediaPluginFile();
    if (found != QFileInfo(pluginModule).fileName()) {
        printError(
            found.isEmpty()
                ? QStringLiteral("the engine did not accept the plug-in %1").arg(pluginModule)
                : QStringLiteral("the engine would use the plug-in %1 for video/mp4 instead of %2; remove it from "
                                 "its plug-in folder")
                      .arg(found, pluginModule));
        return 1;
    }
    if (m_timelineFile && !m_timelineFile->problem().isEmpty()) {
        printError(QStringLiteral("--timeline %1: the file cannot be written: %2")
                       .arg(m_commandLine.timelineFile, m_timelineFile->problem()));
        return 1;
    }
    QUrl url;
    if (!serve(url)) {
        return 1;
    }
    setFaults(url);
    if (m_commandLine.headless && (m_commandLine.panel || m_commandLine.inspect)) {
        printError(QStringLiteral("--panel and --inspect have no effect without a window"));
    }
    if (m_window) {
        m_window->show();
        m_desk->open(m_commandLine);
    }
    if (!m_commandLine.screenshotFile.isEmpty() && m_commandLine.screenshotAfter) {
        after(*m_commandLine.screenshotAfter, &Television::takeScreenshot);
    }
    if (m_commandLine.exitAfter) {
        after(*m_commandLine.exitAfter, &Television::timeUp);
    }
    m_page.open(url);
    return QCoreApplication::exec();
}

/** Writes down what happens, for those who want to see it. */
void Television::keepTimeline() {
    if (m_commandLine.headless && !m_commandLine.trace && m_commandLine.timelineFile.isEmpty()) {
        return;
    }
    m_timeline = std::make_unique<Timeline>(m_startUs);
    connect(&m_page, &TvPage::consoleMessage, this,
            [this](bool isScriptError, const QString& level, const QString& message, int line, const QString& file) {
                const timeline::SourceLine where{file, line};
                if (isScriptError) {
                    m_timeline->add(timeline::ScriptError{message, where});
                } else {
                    m_timeline->add(timeline::Console{level, message, where});
                }
            });
    if (m_commandLine.trace) {
        connect(m_timeline.get(), &Timeline::grown, &printTrace);
    }
    if (!m_commandLine.timelineFile.isEmpty()) {
        m_timelineFile = std::make_unique<TimelineFile>(m_commandLine.timelineFile);
        connect(m_timeline.get(), &Timeline::grown, this,
                [this](const TimelineEntries& entries) { m_timelineFile->write(entries); });
    }
}

/** Finds the address to open, and starts the server for what is local. */
bool Television::serve(QUrl& url) {
    const QFileInfo target(m_commandLine.target);
    url = QUrl(m_commandLine.target);
    const bool isAddress = isPageAddress(url);
    const QString problem = pageTargetProblem(m_commandLine.target);
    if (!problem.isEmpty()) {
        printError(problem);
        return false;
    }
    for (const auto& [name, folder] : m_commandLine.mounts) {
        if (!m_server.mount(name.toStdString(), folder.toLocal8Bit().toStdString())) {
            printError(QStringLiteral("--mount %1=%2: the name must not contain a slash, and the folder must exist")
                           .arg(name, folder));
            return false;
        }
    }
    if (isAddress && m_commandLine.mounts.isEmpty()) {
        return true;
    }
    if (!isAddress) {
        const QString folder = target.isDir() ? target.filePath() : target.path();
        m_server.mount(std::string(), folder.toLocal8Bit().toStdString());
    }
    const int wantedPort = m_profile.localPort();
    const int port = m_server.start(wantedPort);
    if (port == 0) {
        printError(QStringLiteral("no free port on 127.0.0.1 to serve local files"));
        return false;
    }
    if (wantedPort == 0) {
        m_profile.setLocalPort(port);
    } else if (port != wantedPort) {
        printError(
            QStringLiteral("the profile's port %1 is in use, perhaps by another tv-browser with that profile: local "
                           "pages do not find their localStorage this time")
                .arg(wantedPort));
    }
    m_serverAddress = QStringLiteral("http://127.0.0.1:%1").arg(port);
    m_faults.serverStarted("127.0.0.1:" + std::to_string(port));
    if (!isAddress) {
        url = QUrl(m_serverAddress);
        url.setPath(QLatin1Char('/') + (target.isDir() ? QString() : target.fileName()), QUrl::DecodedMode);
    }
    return true;
}

void Television::setFaults(const QUrl& url) {
    std::vector<ServerFaultRule> rules;
    for (const QString& rule : m_commandLine.faults) {
        QString wrong;
        rules.push_back(*parseFaultRule(rule, wrong)); // The command line has looked at it.
    }
    if (!m_faults.set(rules)) {
        printError(QStringLiteral("--fault: no port is free on 127.0.0.1, so that only local files go wrong"));
    } else if (!rules.empty() && url.scheme() == QLatin1String("https")) {
        printError(QStringLiteral("--fault: what is asked for by https does not go wrong, as this page"));
    }
}

/** @return the file behind an address of the own server, which an author can open in an editor; else the address */
QString Television::addressName(const QUrl& url) const {
    if (!m_serverAddress.isEmpty() && url.toString().startsWith(m_serverAddress + QLatin1Char('/'))) {
        const std::filesystem::path file = m_server.fileOf(url.path(QUrl::FullyDecoded).toStdString());
        if (!file.empty()) {
            return QString::fromLocal8Bit(file.c_str());
        }
    }
    return url.toString();
}

void Television::pageLoaded() {
    if (m_timeline) {
        m_timeline->add(timeline::Page{m_page.mainFrame()->url().toString(), {}});
    }
    if (!m_wasLoaded) {
        m_wasLoaded = true;
        pressNextKey();
        for (const InjectedReport& report : m_commandLine.reports) {
            QTimer::singleShot(toMilliseconds(report.seconds), this, [report] {
                if (!inject(report)) {
                    printError(QStringLiteral("--inject %1: the page has no A/V Control object").arg(report.name));
                }
            });
        }
    }
}

/** Another page, as a person enters it. */
void Television::openAddress(const QString& address) {
    const QUrl url = QUrl::fromUserInput(address);
    if (isPageAddress(url) && !QFileInfo::exists(address)) {
        m_page.open(url);
        return;
    }
    const QString problem = pageTargetProblem(address);
    if (problem.isEmpty()) {
        restart(address, false); // Its folder has to be served.
        return;
    }
    printError(problem);
    m_desk->refuseAddress(address, problem);
}

void Television::restart(const QString& target, bool isFirstStart) {
    m_restart = {target, isFirstStart};
    QCoreApplication::exit(0);
}

void Television::pageFailed(const QString& reason) {
    printError(reason);
    if (m_timeline) {
        m_timeline->add(timeline::Page{m_page.mainFrame()->requestedUrl().toString(), reason});
    }
    if (!m_wasLoaded && !m_window) {
        QCoreApplication::exit(1);
    }
}

void Television::titleChanged(const QString& title) {
    const bool failed = title.startsWith(QLatin1String("FAIL"));
    if (!failed && title != QLatin1String("PASS")) {
        return;
    }
    if (failed) {
        printError(QStringLiteral("the page's verdict: %1").arg(title));
    }
    // Later: the page is in the middle of its script, and what it has just changed is not painted yet.
    QTimer::singleShot(0, this, [this, failed] {
        if (!m_commandLine.screenshotFile.isEmpty() && !m_commandLine.screenshotAfter) {
            takeScreenshot();
        }
        QCoreApplication::exit(failed ? 1 : 0);
    });
}

void Television::pressNextKey() {
    if (m_nextKey >= m_commandLine.keys.size()) {
        return;
    }
    const RemoteKeyStep& step = m_commandLine.keys[m_nextKey++];
    if (step.deskKey) {
        if (m_desk) {
            m_desk->trigger(step.deskKey->action);
        } else {
            printError(QStringLiteral("--keys %1: that key is the window's, and there is none")
                           .arg(QLatin1String(step.deskKey->shortcut)));
        }
        QTimer::singleShot(toMilliseconds(keyGapSeconds), this, &Television::pressNextKey);
        return;
    }
    if (!step.key) {
        QTimer::singleShot(toMilliseconds(step.seconds), this, &Television::pressNextKey);
        return;
    }
    m_heldKey.press(*step.key);
    QTimer::singleShot(toMilliseconds(step.seconds), &m_heldKey, &KeyRepeat::release);
    QTimer::singleShot(toMilliseconds(step.seconds + keyGapSeconds), this, &Television::pressNextKey);
}

void Television::sendKey(const RemoteKey& key, bool pressed, bool isRepeat) {
    if (m_timeline && pressed) {
        m_timeline->add(timeline::Key{QString::fromLatin1(key.name), m_page.receives(key)});
    }
    m_page.sendKey(key, pressed, isRepeat);
}

void Television::takeScreenshot() {
    if (!m_screen.image().save(m_commandLine.screenshotFile, "PNG")) {
        printError(QStringLiteral("the screenshot cannot be written to %1").arg(m_commandLine.screenshotFile));
        QCoreApplication::exit(1);
        return;
    }
    printOutput(m_commandLine.screenshotFile);
    if (!m_window && !m_commandLine.exitAfter) {
        QCoreApplication::exit(0);
    }
}

void Television::timeUp() {
    if (m_commandLine.verdict) {
        printError(QStringLiteral("no verdict of the page after %1 seconds; its title is \"%2\"")
                       .arg(*m_commandLine.exitAfter)
                       .arg(m_page.mainFrame()->title()));
    } else if (!m_wasLoaded) {
        printError(QStringLiteral("the page was not loaded after %1 seconds").arg(*m_commandLine.exitAfter));
    }
    QCoreApplication::exit(m_commandLine.verdict || !m_wasLoaded ? 1 : 0);
}

/** Runs an action at a time since the program's start. */
void Television::after(double seconds, void (Television::*action)()) {
    const double past = static_cast<double>(monotonicUs() - m_startUs) / 1e6;
    QTimer::singleShot(toMilliseconds(std::max(0.0, seconds - past)), Qt::PreciseTimer, this, action);
}

} // namespace tv
