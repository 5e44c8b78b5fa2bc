#include "app/Television.h"

#include "app/PageTarget.h"
#include "base/Print.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tv {

Television::Television(const CommandLine& commandLine, int64_t startUs)
    : m_commandLine(commandLine), m_recording(commandLine, startUs),
      m_profile(commandLine.profileFolder, commandLine.userAgent), m_page(m_profile),
      m_faults(m_site.server(), m_page.network()), m_screen(m_page) {
    m_recording.follow(m_page);
    m_page.console().setAddressNames([this](const QUrl& url) { return m_site.nameOf(url); });
    connect(&m_page, &TvPage::applicationEnded, this,
            [] { printError(QStringLiteral("the application ended itself with destroyApplication()")); });
    connect(&m_page, &TvPage::loadFailed, this, &printError);
    if (!commandLine.headless) {
        m_window = std::make_unique<TvWindow>(m_screen);
        connect(m_window.get(), &TvWindow::remoteKey, this, &Television::sendKey);
        const DeskParts parts{*m_window, m_page, m_screen, m_faults, *m_recording.timeline()};
        m_desk = std::make_unique<Desk>(parts, DeskOptions{startUs, commandLine.spatialNavigation, commandLine.panel,
                                                           commandLine.inspect, commandLine.faults});
        connect(m_desk.get(), &Desk::remoteKey, this, &Television::sendKey);
        connect(m_desk.get(), &Desk::addressEntered, this, &Television::openAddress);
        connect(m_desk.get(), &Desk::firstStartWanted, this, [this] { restart(m_commandLine.target, true); });
    }
    m_automation = std::make_unique<Automation>(commandLine, m_page, m_screen, m_desk.get(), startUs);
    connect(m_automation.get(), &Automation::remoteKey, this, &Television::sendKey);
    m_page.setSpatialNavigation(commandLine.spatialNavigation);
}

Television::~Television() {
    m_page.disconnect(this); // Its signals would find the television half destroyed.
}

int Television::run(const QString& pluginModule) {
    const auto plugin = checkPlugin(pluginModule);
    if (!plugin) {
        printError(plugin.reason());
        return 1;
    }
    const auto file = m_recording.checkFile();
    if (!file) {
        printError(QStringLiteral("--timeline %1: the file cannot be written: %2")
                       .arg(m_commandLine.timelineFile, file.reason()));
        return 1;
    }
    const auto url = m_site.open(m_commandLine.target, m_commandLine.mounts, m_profile);
    if (!url) {
        printError(url.reason());
        return 1;
    }
    setFaults(*url);
    if (m_commandLine.headless && (m_commandLine.panel || m_commandLine.inspect)) {
        printError(QStringLiteral("--panel and --inspect have no effect without a window"));
    }
    if (m_window) {
        m_window->show();
        m_desk->open();
    }
    m_automation->start();
    m_page.open(*url);
    return QCoreApplication::exec();
}

Result<void, QString> Television::checkPlugin(const QString& pluginModule) {
    const QString found = m_page.mediaPluginFile();
    if (found.isEmpty()) {
        return Failure{QStringLiteral("the engine did not accept the plug-in %1").arg(pluginModule)};
    }
    if (found != QFileInfo(pluginModule).fileName()) {
        return Failure{QStringLiteral("the engine would use the plug-in %1 for video/mp4 instead of %2; remove it from "
                                      "its plug-in folder")
                           .arg(found, pluginModule)};
    }
    return {};
}

void Television::setFaults(const QUrl& page) {
    m_faults.serverStarted(m_site.authority().toStdString());
    const auto applied = m_faults.set(m_commandLine.faults);
    if (!applied) {
        printError(QStringLiteral("--fault: %1").arg(applied.reason()));
    } else if (!m_commandLine.faults.isEmpty() && page.scheme() == QLatin1String("https")) {
        printError(QStringLiteral("--fault does not affect https, and this page is loaded over https"));
    }
}

/** Opens another page, as the user entered it. */
void Television::openAddress(const QString& address) {
    const QUrl url = QUrl::fromUserInput(address);
    if (isPageAddress(url) && !QFileInfo::exists(address)) {
        m_page.open(url);
        return;
    }
    const auto target = checkPageTarget(address);
    if (target) {
        restart(address, false); // Its folder has to be served.
        return;
    }
    printError(target.reason());
    m_desk->rejectAddress(address, target.reason());
}

void Television::restart(const QString& target, bool isFirstStart) {
    m_restart = {target, isFirstStart};
    QCoreApplication::exit(0);
}

void Television::sendKey(const RemoteKey& key, bool pressed, bool isRepeat) {
    if (pressed) {
        m_recording.addKey(key, m_page.receives(key));
    }
    m_page.sendKey(key, pressed, isRepeat);
}

} // namespace tv
