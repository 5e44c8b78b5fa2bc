/**
 * What the television's window offers a page's author: menu, keys, panels, inspector.
 */
#ifndef DESK_H
#define DESK_H

#include "remote/DeskKeys.h"

#include <QAction>
#include <QHash>
#include <QObject>
#include <QUrl>
#include <QWebInspector>
#include <memory>

namespace tv {

class AddressLine;
class NetworkFaults;
class ScreenNotice;
class Timeline;
class TvPage;
class Compositor;
class TvWindow;
struct CommandLine;
struct RemoteKey;

/** The parts of the television that the desk works on; all outlive it. */
struct DeskParts {
    TvWindow& window;
    TvPage& page;
    Compositor& screen;
    NetworkFaults& faults;
    Timeline& timeline;
};

class Desk : public QObject {
    Q_OBJECT
public:
    /** @param startUs the program's start, CLOCK_MONOTONIC in microseconds */
    Desk(const DeskParts& parts, const CommandLine& commandLine, int64_t startUs);

    /** Shows what the command line asks for. The window is there. */
    void open(const CommandLine& commandLine);

    /** Does what a key of the desk does. */
    void trigger(DeskAction action);

    /** Lets a person correct an address that cannot be opened. @param reason a sentence for the user */
    void refuseAddress(const QString& address, const QString& reason);

signals:
    /** A button of the remote control on the screen. */
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);
    /** A person wants another page. */
    void addressEntered(const QString& address);
    /** A person wants the television to start with an empty profile. */
    void firstStartWanted();

private:
    void add(DeskAction action, const std::function<void()>& act);
    void addPanel(DeskAction action, QWidget* panel, bool atTheLeft);
    void addMenu();
    void addNotices();
    void reload();
    void takeScreenshot() const;
    void toggleInspector();
    void reportInjected(const QString& text, bool done) const;
    void complain(const QString& what) const;

    DeskParts m_parts;
    ScreenNotice* m_notice;
    AddressLine* m_address;
    QHash<int, QAction*> m_actions; ///< by DeskAction
    QAction* m_faults;
    QUrl m_failedUrl; ///< of the page opened last, when it did not come
    std::unique_ptr<QWebInspector> m_inspector;
};

} // namespace tv

#endif
