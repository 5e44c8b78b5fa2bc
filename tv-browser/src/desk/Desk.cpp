#include "desk/Desk.h"

#include "app/CommandLine.h"
#include "base/Print.h"
#include "desk/AddressLine.h"
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
#include <QMenu>
#include <QWebFrame>

namespace tv {

namespace {

constexpr QSize inspectorSize(1100, 600);

const char* const menuStyle = "QMenu { background: #1d2026; color: #e4e7ec; border: 1px solid #3a3f47; padding: 4px; }"
                              "QMenu::item { padding: 5px 26px 5px 14px; }"
                              "QMenu::item:selected { background: #3f5f8f; }"
                              "QMenu::separator { height: 1px; background: #3a3f47; margin: 4px; }";

} // namespace

Desk::Desk(const DeskParts& parts, const CommandLine& commandLine, int64_t startUs)
    : m_parts(parts), m_notice(new ScreenNotice(&parts.window.picture())),
      m_address(new AddressLine(&parts.window.picture())) {
    TvWindow& window = m_parts.window;
    addNotices();
    auto* help = new KeyboardHelp(&window);
    add(DeskAction::HELP, [help] { help->toggle(); });

    auto* remote = new RemotePanel(commandLine.spatialNavigation);
    connect(remote, &RemotePanel::remoteKey, this, &Desk::remoteKey);
    connect(remote, &RemotePanel::spatialNavigationSwitched, &m_parts.page, &TvPage::setSpatialNavigation);
    addPanel(DeskAction::REMOTE_CONTROL, remote, true);

    auto* timeline = new TimelinePanel(startUs);
    connect(&m_parts.timeline, &Timeline::grown, timeline, &TimelinePanel::append);
    addPanel(DeskAction::TIMELINE, timeline, false);

    connect(m_address, &AddressLine::entered, this, &Desk::addressEntered);
    add(DeskAction::ADDRESS, [this] { m_address->toggle(m_parts.page.mainFrame()->url().toString()); });

    add(DeskAction::RELOAD, [this] { reload(); });
    add(DeskAction::BACK, [this] { m_parts.page.triggerAction(QWebPage::Back); });
    add(DeskAction::FORWARD, [this] { m_parts.page.triggerAction(QWebPage::Forward); });
    add(DeskAction::FIRST_START, [this] { emit firstStartWanted(); });
    add(DeskAction::SCREENSHOT, [this] { takeScreenshot(); });
    add(DeskAction::FULL_SCREEN, [&window] { window.toggleFullScreen(); });
    add(DeskAction::INSPECTOR, [this] { toggleInspector(); });

    auto* faults = new FaultPanel(m_parts.faults, commandLine.faults);
    window.addPanel(faults, TvWindow::Side::LEFT);
    m_faults = new QAction(QStringLiteral("Server faults"), this);
    connect(m_faults, &QAction::triggered, faults, [&window, faults] {
        window.showPanel(*faults, !faults->isVisibleTo(&window));
        faults->setFocus();
    });
    addMenu();
}

void Desk::open(const CommandLine& commandLine) {
    if (commandLine.panel) {
        trigger(DeskAction::TIMELINE);
    }
    if (commandLine.inspect) {
        trigger(DeskAction::INSPECTOR);
    }
}

void Desk::trigger(DeskAction action) {
    m_actions.value(static_cast<int>(action))->trigger();
}

void Desk::refuseAddress(const QString& address, const QString& reason) {
    m_address->toggle(address);
    m_notice->tell(reason, QStringLiteral("Correct it, or press Escape."));
}

/** Says over the picture what would be seen in the timeline or on the terminal only. */
void Desk::addNotices() {
    connect(&m_parts.timeline, &Timeline::grown, m_notice, &ScreenNotice::append);
    connect(&m_parts.page, &TvPage::loaded, m_notice, [this] {
        m_failedUrl.clear();
        m_notice->clearPage();
    });
    connect(&m_parts.page, &TvPage::loadFailed, m_notice, [this](const QString& reason) {
        m_failedUrl = m_parts.page.mainFrame()->requestedUrl();
        m_notice->tell(reason, QStringLiteral("F7 tries again, Ctrl+L opens another page."));
    });
    connect(&m_parts.page, &TvPage::applicationEnded, m_notice, [this] {
        m_notice->tell(QStringLiteral("The application has ended itself with destroyApplication()."),
                       QStringLiteral("Alt+Left goes back to it, Ctrl+L opens another page."));
    });
}

void Desk::add(DeskAction action, const std::function<void()>& act) {
    for (const DeskKey& key : deskKeys) {
        if (key.action == action) {
            auto* made = new QAction(QString::fromLatin1(key.title), this);
            made->setShortcut(QKeySequence::fromString(QLatin1String(key.shortcut)));
            made->setAutoRepeat(false);
            connect(made, &QAction::triggered, this, act);
            m_parts.window.addAction(made);
            m_actions.insert(static_cast<int>(action), made);
        }
    }
}

void Desk::addPanel(DeskAction action, QWidget* panel, bool atTheLeft) {
    TvWindow& window = m_parts.window;
    window.addPanel(panel, atTheLeft ? TvWindow::Side::LEFT : TvWindow::Side::RIGHT);
    add(action, [&window, panel] { window.showPanel(*panel, !panel->isVisibleTo(&window)); });
}

void Desk::addMenu() {
    auto* menu = new QMenu(&m_parts.window);
    menu->setStyleSheet(QString::fromLatin1(menuStyle));
    for (const DeskKey& key : deskKeys) {
        if (key.action != DeskAction::MENU) {
            menu->addAction(m_actions.value(static_cast<int>(key.action)));
        }
    }
    menu->addSeparator();
    menu->addAction(m_faults);
    QMenu* reports = menu->addMenu(QStringLiteral("Player reports"));
    reports->setStyleSheet(menu->styleSheet());
    for (const InjectedReport& report : injectableReports()) {
        connect(reports->addAction(report.text), &QAction::triggered, this,
                [this, report] { reportInjected(report.text, inject(report)); });
    }
    // The first entry is chosen, so that the keyboard alone is enough.
    add(DeskAction::MENU, [this, menu] {
        menu->popup(m_parts.window.mapToGlobal(QPoint(20, 20)));
        menu->setActiveAction(menu->actions().constFirst());
    });
}

/** A page that did not come is asked for once more; the engine would load the one before. */
void Desk::reload() {
    if (m_failedUrl.isEmpty()) {
        m_parts.page.triggerAction(QWebPage::Reload);
    } else {
        m_parts.page.open(m_failedUrl);
    }
}

/** Into the working folder, under a name that is not there yet. */
void Desk::takeScreenshot() const {
    const QString stem = QDateTime::currentDateTime().toString(QStringLiteral("'tv'-yyyyMMdd-HHmmss"));
    QString name = stem + QStringLiteral(".png");
    for (int i = 2; QFileInfo::exists(name); ++i) {
        name = QStringLiteral("%1-%2.png").arg(stem).arg(i);
    }
    if (m_parts.screen.image().save(name, "PNG")) {
        printOutput(QFileInfo(name).absoluteFilePath());
        m_notice->tell(QStringLiteral("Screenshot: %1").arg(QFileInfo(name).absoluteFilePath()));
    } else {
        complain(QStringLiteral("the screenshot cannot be written to %1; start in a folder that can be")
                     .arg(QFileInfo(name).absoluteFilePath()));
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

void Desk::reportInjected(const QString& text, bool done) const {
    if (!done) {
        complain(QStringLiteral("no player to report \"%1\": the page has no A/V Control object").arg(text));
    }
}

void Desk::complain(const QString& what) const {
    printError(what);
    m_notice->tell(what);
}

} // namespace tv
