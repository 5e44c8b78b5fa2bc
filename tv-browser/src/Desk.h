/**
 * What the television's window offers a page's author: menu, keys, panels, inspector.
 */
#ifndef DESK_H
#define DESK_H

#include "DeskKeys.h"

#include <QAction>
#include <QHash>
#include <QObject>
#include <QWebInspector>
#include <memory>

class LoopbackServer;
class Timeline;
class TvPage;
class TvScreen;
class TvWindow;
struct CommandLine;
struct RemoteKey;

/** The parts of the television that the desk works on; all outlive it. */
struct DeskParts {
    TvWindow& window;
    TvPage& page;
    TvScreen& screen;
    LoopbackServer& server;
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
    void takeScreenshot() const;
    void toggleInspector();
    void reportInjected(const QString& text, bool done) const;

    DeskParts m_parts;
    QHash<int, QAction*> m_actions; ///< by DeskAction
    QAction* m_faults;
    std::unique_ptr<QWebInspector> m_inspector;
};

#endif
