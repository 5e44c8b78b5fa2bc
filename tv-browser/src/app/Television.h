/**
 * The television switched on: one page from its opening to the end that the command line names.
 */
#ifndef TELEVISION_H
#define TELEVISION_H

#include "app/CommandLine.h"
#include "desk/Desk.h"
#include "desk/TvWindow.h"
#include "faults/NetworkFaults.h"
#include "page/Profile.h"
#include "page/TvPage.h"
#include "remote/KeyRepeat.h"
#include "screen/Compositor.h"
#include "screen/ScreenProbe.h"
#include "server/LoopbackServer.h"
#include "timeline/Timeline.h"
#include "timeline/TimelineFile.h"

#include <QObject>
#include <cstdint>
#include <memory>

namespace tv {

class Television : public QObject {
    Q_OBJECT
public:
    /**
     * @param commandLine what to do; outlives this object
     * @param startUs     when the program started, CLOCK_MONOTONIC in microseconds
     */
    Television(const CommandLine& commandLine, int64_t startUs);
    ~Television() override;

    /**
     * Opens the page, and runs until the end.
     * @param pluginModule path of the plug-in module that the engine is expected to use
     * @return the program's exit code
     */
    int run(const QString& pluginModule);

    /** What the program is to go on with. */
    struct Restart {
        QString target;            ///< empty: the program ends
        bool isFirstStart = false; ///< with an empty profile
    };
    const Restart& wantedRestart() const { return m_restart; }

private:
    void keepTimeline();
    bool serve(QUrl& url);
    void setFaults(const QUrl& url);
    QString addressName(const QUrl& url) const;
    void pageLoaded();
    void pageFailed(const QString& reason);
    void openAddress(const QString& address);
    void restart(const QString& target, bool isFirstStart);
    void titleChanged(const QString& title);
    void pressNextKey();
    void sendKey(const RemoteKey& key, bool pressed, bool isRepeat);
    void takeScreenshot();
    void timeUp();
    void after(double seconds, void (Television::*action)());

    const CommandLine& m_commandLine;
    const int64_t m_startUs;
    std::unique_ptr<TimelineFile> m_timelineFile;
    std::unique_ptr<Timeline> m_timeline; ///< null when nobody looks at it
    LoopbackServer m_server;              // Outlives the page: its players are readers.
    QString m_serverAddress;              // A page that goes while it loads still names its address.
    Profile m_profile;
    TvPage m_page;
    NetworkFaults m_faults;
    Compositor m_screen;
    std::unique_ptr<ScreenProbe> m_probe;
    std::unique_ptr<TvWindow> m_window;
    std::unique_ptr<Desk> m_desk; ///< of the window
    KeyRepeat m_heldKey;          ///< of the command line's keys
    Restart m_restart;
    int m_nextKey = 0;
    bool m_wasLoaded = false;
};

} // namespace tv

#endif
