/** The television, switched on. */
#ifndef TELEVISION_H
#define TELEVISION_H

#include "app/Automation.h"
#include "app/CommandLine.h"
#include "app/LocalSite.h"
#include "app/TimelineRecording.h"
#include "desk/Desk.h"
#include "desk/TvWindow.h"
#include "faults/NetworkFaults.h"
#include "page/Profile.h"
#include "page/TvPage.h"
#include "screen/Compositor.h"

#include <QObject>
#include <cstdint>
#include <memory>

namespace tv {

/** Puts the parts of the television together, opens the page, and runs until the user or the command line ends it. */
class Television : public QObject {
    Q_OBJECT
public:
    /**
     * @param commandLine outlives this object
     * @param startUs     the program's start, CLOCK_MONOTONIC in microseconds
     */
    Television(const CommandLine& commandLine, int64_t startUs);
    ~Television() override;

    /**
     * Opens the page, and returns when the television is switched off.
     * @param pluginModule path of the plug-in module that the engine is expected to use
     * @return the program's exit code
     */
    int run(const QString& pluginModule);

    /** How the program continues after run(). */
    struct Restart {
        QString target;            ///< empty: the program ends
        bool isFirstStart = false; ///< with an empty profile
    };
    const Restart& wantedRestart() const { return m_restart; }

private:
    Result<void, QString> checkPlugin(const QString& pluginModule);
    void setFaults(const QUrl& page);
    void openAddress(const QString& address);
    void restart(const QString& target, bool isFirstStart);
    void sendKey(const RemoteKey& key, bool pressed, bool isRepeat);

    const CommandLine& m_commandLine;
    // The recording and the site outlive the page: it still says things while it goes, and its players are readers.
    TimelineRecording m_recording;
    LocalSite m_site;
    Profile m_profile;
    TvPage m_page;
    NetworkFaults m_faults;
    Compositor m_screen;
    std::unique_ptr<TvWindow> m_window; ///< null when headless
    std::unique_ptr<Desk> m_desk;       ///< of the window
    std::unique_ptr<Automation> m_automation;
    Restart m_restart;
};

} // namespace tv

#endif
