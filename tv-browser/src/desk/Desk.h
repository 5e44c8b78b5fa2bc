/** What the television's window offers a page's author. */
#ifndef DESK_H
#define DESK_H

#include "faults/FaultRule.h"
#include "remote/DeskKeys.h"

#include <QAction>
#include <QHash>
#include <QList>
#include <QObject>
#include <QUrl>
#include <QWebInspector>
#include <cstdint>
#include <functional>
#include <memory>

namespace tv {

class AddressLine;
class Compositor;
class NetworkFaults;
class ScreenNotice;
class Timeline;
class TvPage;
class TvWindow;
struct InjectedReport;
struct RemoteKey;

/** The parts of the television that the desk works on; all outlive it. */
struct DeskParts {
    TvWindow& window;
    TvPage& page;
    Compositor& screen;
    NetworkFaults& faults;
    Timeline& timeline;
};

/** How the desk is at the start. */
struct DeskOptions {
    int64_t startUs = 0;           ///< the program's start, CLOCK_MONOTONIC in microseconds
    bool spatialNavigation = true; ///< the arrow keys move the focus
    bool showTimeline = false;
    bool showInspector = false;
    QList<FaultRule> faults; ///< in force already
};

/** Menu, keys, panels, notices and inspector of the television's window. */
class Desk : public QObject {
    Q_OBJECT
public:
    Desk(const DeskParts& parts, const DeskOptions& options);

    /** Shows the panels that the options ask for. Call it when the window is shown. */
    void open();

    /** Does what a key of the desk does. */
    void trigger(DeskAction action);

    /** Lets the user correct an address that cannot be opened. @param reason a sentence for the user */
    void rejectAddress(const QString& address, const QString& reason);

signals:
    /** The user presses or releases a button of the remote control on the screen. */
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);
    /** The user wants another page. */
    void addressEntered(const QString& address);
    /** The user wants the television to start with an empty profile. */
    void firstStartWanted();

private:
    void addPanels();
    void addNotices();
    void addMenu();
    void add(DeskAction action, const std::function<void()>& act);
    void addPanel(DeskAction action, QWidget* panel, bool atTheLeft);
    void reload();
    void takeScreenshot() const;
    void toggleInspector();
    void injectReport(const InjectedReport& report) const;
    void reportProblem(const QString& text) const;

    DeskParts m_parts;
    const DeskOptions m_options;
    ScreenNotice* m_notice;
    AddressLine* m_address;
    QHash<int, QAction*> m_actions; ///< by DeskAction
    QAction* m_faults;              ///< shows the panel
    QUrl m_failedUrl;               ///< of the page opened last, when it did not come
    std::unique_ptr<QWebInspector> m_inspector;
};

} // namespace tv

#endif
