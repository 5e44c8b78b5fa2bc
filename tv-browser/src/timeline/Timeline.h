/**
 * Everything that happens, in the order in which it began.
 */
#ifndef TIMELINE_H
#define TIMELINE_H

#include "timeline/PlaybackTracker.h"
#include "timeline/TimelineEntry.h"

#include <QObject>
#include <QTimer>
#include <mutex>

namespace tv {

class Timeline : public QObject {
    Q_OBJECT
public:
    /**
     * Observes plug-in objects and players from now on. One object at a time. Thread: the engine's.
     * @param startUs moment from which the times count, CLOCK_MONOTONIC in microseconds
     */
    explicit Timeline(int64_t startUs);

    /** Tells what is still held back. */
    ~Timeline() override;

    /** Adds what is no plug-in object's or player's doing, now. Thread: any. */
    void add(TimelineEntry::Kind kind, const QString& text, const QJsonObject& fields = {});

signals:
    /** What is new, in order; each entry comes once. */
    void grown(const TimelineEntries& entries);

private:
    void add(TimelineEntry entry);
    void release(int64_t untilUs);

    const int64_t m_startUs;
    QTimer m_timer;
    PlaybackTracker m_stories;
    std::mutex m_mutex;
    TimelineEntries m_waiting; ///< guarded by the mutex
};

} // namespace tv

#endif
