/** What the television does by itself, as the command line says. */
#ifndef AUTOMATION_H
#define AUTOMATION_H

#include "remote/KeyRepeat.h"

#include <QObject>
#include <cstdint>
#include <memory>

namespace tv {

class Compositor;
class Desk;
class ScreenProbe;
class TvPage;
struct CommandLine;
struct RemoteKey;

/**
 * Presses keys, injects player reports and takes the screenshot when they are due, watches for the page's verdict, and
 * ends the program with the exit code that follows from all that.
 */
class Automation : public QObject {
    Q_OBJECT
public:
    /**
     * @param commandLine,page,screen outlive this object
     * @param desk    of the window, outlives this object; null without a window
     * @param startUs the program's start, CLOCK_MONOTONIC in microseconds
     */
    Automation(const CommandLine& commandLine, TvPage& page, Compositor& screen, Desk* desk, int64_t startUs);
    ~Automation() override;

    /** Starts the timers of what is due at a time since the program's start. */
    void start();

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

private:
    void pageLoaded();
    void loadFailed();
    void titleChanged(const QString& title);
    void pressNextKey();
    void takeScreenshot();
    void timeUp();
    void after(double seconds, void (Automation::*action)());

    const CommandLine& m_commandLine;
    TvPage& m_page;
    Compositor& m_screen;
    Desk* const m_desk;
    const int64_t m_startUs;
    std::unique_ptr<ScreenProbe> m_probe; ///< of pages that give a verdict
    KeyRepeat m_heldKey;
    int m_nextKey = 0;
    bool m_wasLoaded = false; ///< the first page was there
};

} // namespace tv

#endif
