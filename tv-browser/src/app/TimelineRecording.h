/** Who records what happens, and for whom. */
#ifndef TIMELINERECORDING_H
#define TIMELINERECORDING_H

#include "base/Result.h"
#include "timeline/Timeline.h"

#include <QObject>
#include <QString>
#include <cstdint>
#include <memory>

namespace tv {

class TimelineFile;
class TvPage;
struct CommandLine;
struct RemoteKey;

/**
 * The timeline, when the command line or a window wants it: completed with what the page and the remote control do,
 * and passed on to the trace and to a file.
 */
class TimelineRecording : public QObject {
    Q_OBJECT
public:
    /** @param startUs the program's start, CLOCK_MONOTONIC in microseconds */
    TimelineRecording(const CommandLine& commandLine, int64_t startUs);
    ~TimelineRecording() override;

    /** @return why the file cannot be written; success, too, when none is wanted */
    Result<void, QString> checkFile() const;

    /** Records what the page does. @param page need not outlive this object */
    void follow(TvPage& page);

    /** Records a key that was pressed. @param isReceived whether the page gets it */
    void addKey(const RemoteKey& key, bool isReceived);

    /** @return null when nobody wants the timeline; never null with a window */
    Timeline* timeline() { return m_timeline.get(); }

private:
    std::unique_ptr<TimelineFile> m_file;
    std::unique_ptr<Timeline> m_timeline;
};

} // namespace tv

#endif
