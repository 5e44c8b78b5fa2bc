#include "desk/Desk.h"

#include "base/Print.h"
#include "desk/AddressLine.h"
#include "desk/DeskMenu.h"
#include "desk/FaultPanel.h"
#include "desk/KeyboardHelp.h"
#include "desk/RemotePanel.h"
#include "desk/ScreenNotice.h"
#include "desk/ScreenView.h"
#include "desk/TvWindow.h"
#include "faults/InjectedReport.h"
#include "page/TvPage.h"
#include "screen/Compositor.h"
#include "timeline/Timeline.h"
#include "timeline/panel/TimelinePanel.h"

#include <QDateTime>
#include <QFileInfo>
#include <QWebFrame>

namespace tv {

namespace {

constexpr QSize inspectorSize(1100, 600);

} // namespace

Desk::Desk(const DeskParts& parts, const DeskOptions& options)
    : m_parts(parts), m_options(options), m_notice(new ScreenNotice(&parts.window.screenView())),
      m_address(new AddressLine(&parts.window.screenView())),
      m_faults(new QAction(QStringLiteral("Network faults"), this)) {
    TvWindow& window = m_parts.window;
    addNotices();
    addPanels();
    auto* help = new KeyboardHelp(&window);
    add(DeskAction::HELP, [help] { help->toggle(); });
    connect(m_address, &AddressLine::entered, this, &Desk::addressEntered);
    add(DeskAction::ADDRESS, [this] { m_address->toggle(m_parts.page.mainFrame()->url().toString()); });
    add(DeskAction::RELOAD, [this] { reload(); });
    add(DeskAction::BACK, [this] { m_parts.page.triggerAction(QWebPage::Back); });
    add(DeskAction::FORWARD, [this] { m_parts.page.triggerAction(QWebPage::Forward); });
    add(DeskAction::FIRST_START, [this] { emit firstStartWanted(); });
    add(DeskAction::SCREENSHOT, [this] { takeScreenshot(); });
    add(DeskAction::FULL_SCREEN, [&window] { window.toggleFullScreen(); });
    add(DeskAction::INSPECTOR, [this] { toggleInspector(); });
    addMenu();
}

void Desk::open() {
    if (m_options.showTimeline) {
        trigger(DeskAction::TIMELINE);
    }
    if (m_options.showInspector) {
        trigger(DeskAction::INSPECTOR);
    }
}

void Desk::trigger(DeskAction action) {
    m_actions.value(static_cast<int>(action))->trigger();
}

void Desk::rejectAddress(const QString& address, const QString& reason) {
    m_address->toggle(address);
    m_notice->notify(reason, QStringLiteral("Correct the address or press Escape."));
}

/** Shows on the screen what would otherwise be in the timeline or on the terminal only. */
void Desk::addNotices() {
    connect(&m_parts.timeline, &Timeline::grown, m_notice, &ScreenNotice::showProblems);
    connect(&m_parts.page, &TvPage::loaded, m_notice, [this] {
        m_failedUrl.clear();
        m_notice->clearPage();
    });
    connect(&m_parts.page, &TvPage::loadFailed, m_notice, [this](const QString& reason) {
        m_failedUrl = m_parts.page.mainFrame()->requestedUrl();
        m_notice->notify(reason, QStringLiteral("Press F7 to try again or Ctrl+L to open another page."));
    });
    connect(&m_parts.page, &TvPage::applicationEnded, m_notice, [this] {
        m_notice->notify(QStringLiteral("The application ended itself with destroyApplication()."),
                         QStringLiteral("Press Alt+Left to go back to it or Ctrl+L to open another page."));
    });
}

void Desk::addPanels() {
    auto* remote = new RemotePanel(m_options.spatialNavigation);
    connect(remote, &RemotePanel::remoteKey, this, &Desk::remoteKey);
    connect(remote, &RemotePanel::spatialNavigationSwitched, &m_parts.page, &TvPage::setSpatialNavigation);
    addPanel(DeskAction::REMOTE_CONTROL, remote, true);

    auto* timeline = new TimelinePanel(m_options.startUs);
    connect(&m_parts.timeline, &Timeline::grown, timeline, &TimelinePanel::append);
    addPanel(DeskAction::TIMELINE, timeline, false);

    TvWindow& window = m_parts.window;
    auto* faults = new FaultPanel(m_parts.faults, m_options.faults);
    window.addPanel(faults, TvWindow::Side::LEFT);
    connect(m_faults, &QAction::triggered, faults, [&window, faults] {
        window.showPanel(*faults, !faults->isVisibleTo(&window));
        faults->setFocus();
    });
}

void Desk::add(DeskAction action, const std::function<void()>& act) {
    for (const DeskKey& key : deskKeys) {
        if (key.action == action) {
            auto* created = new QAction(QString::fromLatin1(key.title), this);
            created->setShortcut(QKeySequence::fromString(QLatin1String(key.shortcut)));
            created->setAutoRepeat(false);
            connect(created, &QAction::triggered, this, act);
            m_parts.window.addAction(created);
            m_actions.insert(static_cast<int>(action), created);
        }
    }
}

void Desk::addPanel(DeskAction action, QWidget* panel, bool atTheLeft) {
    TvWindow& window = m_parts.window;
    window.addPanel(panel, atTheLeft ? TvWindow::Side::LEFT : TvWindow::Side::RIGHT);
    add(action, [&window, panel] { window.showPanel(*panel, !panel->isVisibleTo(&window)); });
}

void Desk::addMenu() {
    QList<QAction*> actions;
    for (const DeskKey& key : deskKeys) {
        if (key.action != DeskAction::MENU) {
            actions.append(m_actions.value(static_cast<int>(key.action)));
        }
    }
    auto* menu = new DeskMenu(actions, m_faults, &m_parts.window);
    connect(menu, &DeskMenu::reportChosen, this, &Desk::injectReport);
    add(DeskAction::MENU, [menu] { menu->open(); });
}

/** A page that did not come is requested once more; the engine would reload the one before. */
void Desk::reload() {
    if (m_failedUrl.isEmpty()) {
        m_parts.page.triggerAction(QWebPage::Reload);
    } else {
        m_parts.page.open(m_failedUrl);
    }
}

/** Into the working folder, under a name that no file has yet. */
void Desk::takeScreenshot() const {
    const QString stem = QDateTime::currentDateTime().toString(QStringLiteral("'tv'-yyyyMMdd-HHmmss"));
    QString name = stem + QStringLiteral(".png");
    for (int i = 2; QFileInfo::exists(name); ++i) {
        name = QStringLiteral("%1-%2.png").arg(stem).arg(i);
    }
    const QString path = QFileInfo(name).absoluteFilePath();
    if (m_parts.screen.image().save(name, "PNG")) {
        printOutput(path);
        m_notice->notify(QStringLiteral("Screenshot: %1").arg(path));
    } else {
        reportProblem(
            QStringLiteral(
                "the screenshot cannot be written to %1; start the television in a folder that you can write to")
                .arg(path));
    }
}

void Desk::toggleInspector() {
    if (!m_inspector) {
        m_inspector = std::make_unique<QWebInspector>();
        m_inspector->setWindowTitle(QStringLiteral("HbbTV inspector"));
        m_inspector->resize(inspectorSize);
        m_inspector->setPage(&m_parts.page);
        m_inspector->addAction(m_actions.value(static_cast<int>(DeskAction::INSPECTOR)));
    }
    m_inspector->setVisible(!m_inspector->isVisible());
}

void Desk::injectReport(const InjectedReport& report) const {
    if (!inject(report)) {
        reportProblem(QStringLiteral("cannot inject \"%1\": the page has no A/V Control object").arg(report.text));
    }
}

void Desk::reportProblem(const QString& text) const {
    printError(text);
    m_notice->notify(text);
}

} // namespace tv
