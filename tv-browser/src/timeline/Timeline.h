/**
 * Everything that happens, in the order in which it began.
 */
#ifndef TIMELINE_H
#define TIMELINE_H

#include "GuardedMutex.h"
#include "timeline/PlaybackTracker.h"
#include "timeline/TimelineEntry.h"

#include <QObject>
#include <QTimer>

namespace tv {

/**
 * Observes plug-in objects and players while it lives, and puts their entries and those that are added to it in order.
 * One object at a time. Thread: the engine's, where not said otherwise.
 */
class Timeline : public QObject {
    Q_OBJECT
public:
    /** @param startUs moment from which the times count, CLOCK_MONOTONIC in microseconds */
    explicit Timeline(int64_t startUs);

    /** Emits what is still held back. */
    ~Timeline() override;

    /** Adds what neither plug-in objects nor players report, as happening now. Thread: any. */
    void add(timeline::Details details);

signals:
    /** What is new, in order; each entry comes once. */
    void grown(const TimelineEntries& entries);

private:
    void hold(TimelineEntry entry);
    void release(int64_t untilUs);
    TimelineEntries takeHeld(int64_t untilUs);

    const int64_t m_startUs;
    QTimer m_timer;
    PlaybackTracker m_tracker;
    support::Mutex m_mutex;
    TimelineEntries m_held GUARDED_BY(m_mutex);
};

} // namespace tv

#endif
