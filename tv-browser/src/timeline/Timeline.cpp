#include "timeline/Timeline.h"

#include "base/MonotonicTime.h"
#include "timeline/ObservedEntry.h"
#include "timeline/TraceSuppression.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace tv {

namespace {

/** How long an entry is held back, for those of other threads and for calls that began before it. */
constexpr int64_t holdUs = 20'000;
constexpr int releaseIntervalMs = 20;

/** Objects that the layout makes while the television's script runs are the page's doing, and so are their events. */
bool isOwnScript(const HbbTVPluginTraceEntry& entry) {
    return TraceSuppression::isActive() && (entry.kind == HBBTV_TRACE_READ || entry.kind == HBBTV_TRACE_CALL);
}

} // namespace

Timeline::Timeline(int64_t startUs) : m_startUs(startUs) {
    m_timer.setInterval(releaseIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, [this] { release(monotonicUs() - holdUs); });
    m_timer.start();
    hbbtvPluginTraceSetCallback(
        [](const HbbTVPluginTraceEntry* entry, void* self) {
            if (!isOwnScript(*entry)) {
                static_cast<Timeline*>(self)->hold(observedEntry(*entry));
            }
        },
        this);
    mediaTraceSetCallback(
        [](const MediaTraceEntry* entry, void* self) { static_cast<Timeline*>(self)->hold(observedEntry(*entry)); },
        this);
}

Timeline::~Timeline() {
    hbbtvPluginTraceSetCallback(nullptr, nullptr);
    mediaTraceSetCallback(nullptr, nullptr);
    release(std::numeric_limits<int64_t>::max());
}

void Timeline::add(timeline::Details details) {
    TimelineEntry entry;
    entry.timeUs = monotonicUs();
    entry.details = std::move(details);
    hold(std::move(entry));
}

void Timeline::hold(TimelineEntry entry) {
    const support::Lock lock(m_mutex);
    m_held.append(std::move(entry));
}

/** @return the entries that began no later than that, in order */
TimelineEntries Timeline::takeHeld(int64_t untilUs) {
    TimelineEntries ready;
    {
        const support::Lock lock(m_mutex);
        const auto later = std::stable_partition(
            m_held.begin(), m_held.end(), [untilUs](const TimelineEntry& entry) { return entry.timeUs <= untilUs; });
        std::move(m_held.begin(), later, std::back_inserter(ready));
        m_held.erase(m_held.begin(), later);
    }
    // Of two that began together, the longer one is the call in which the other was made.
    std::stable_sort(ready.begin(), ready.end(), [](const TimelineEntry& a, const TimelineEntry& b) {
        return a.timeUs != b.timeUs ? a.timeUs < b.timeUs : a.tookUs > b.tookUs;
    });
    return ready;
}

void Timeline::release(int64_t untilUs) {
    TimelineEntries ready = takeHeld(untilUs);
    TimelineEntries entries;
    for (TimelineEntry& entry : ready) {
        m_tracker.append(std::move(entry), entries);
    }
    m_tracker.appendStalls(std::min(untilUs, monotonicUs()), entries);
    for (TimelineEntry& entry : entries) {
        entry.timeUs -= m_startUs;
    }
    if (!entries.isEmpty()) {
        emit grown(entries);
    }
}

} // namespace tv
