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

/** Layout that a question brings about may create objects: that is the page's doing. */
bool isOwnQuestion(const HbbTVPluginTraceEntry& entry) {
    return TraceSuppression::runs() && (entry.kind == HBBTV_TRACE_READ || entry.kind == HBBTV_TRACE_CALL);
}

} // namespace

Timeline::Timeline(int64_t startUs) : m_startUs(startUs) {
    m_timer.setInterval(releaseIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, [this] { release(monotonicUs() - holdUs); });
    m_timer.start();
    hbbtvPluginTraceSetCallback(
        [](const HbbTVPluginTraceEntry* entry, void* self) {
            if (!isOwnQuestion(*entry)) {
                static_cast<Timeline*>(self)->add(observedEntry(*entry));
            }
        },
        this);
    mediaTraceSetCallback(
        [](const MediaTraceEntry* entry, void* self) { static_cast<Timeline*>(self)->add(observedEntry(*entry)); },
        this);
}

Timeline::~Timeline() {
    hbbtvPluginTraceSetCallback(nullptr, nullptr);
    mediaTraceSetCallback(nullptr, nullptr);
    release(std::numeric_limits<int64_t>::max());
}

void Timeline::add(TimelineEntry::Kind kind, const QString& text, const QJsonObject& fields) {
    TimelineEntry entry;
    entry.kind = kind;
    entry.timeUs = monotonicUs();
    entry.text = text;
    entry.fields = fields;
    add(std::move(entry));
}

void Timeline::add(TimelineEntry entry) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_waiting.append(std::move(entry));
}

void Timeline::release(int64_t untilUs) {
    TimelineEntries ready;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto later =
            std::stable_partition(m_waiting.begin(), m_waiting.end(),
                                  [untilUs](const TimelineEntry& entry) { return entry.timeUs <= untilUs; });
        std::move(m_waiting.begin(), later, std::back_inserter(ready));
        m_waiting.erase(m_waiting.begin(), later);
    }
    // Of two that began together, the longer one is the call that the other was made in.
    std::stable_sort(ready.begin(), ready.end(), [](const TimelineEntry& a, const TimelineEntry& b) {
        return a.timeUs != b.timeUs ? a.timeUs < b.timeUs : a.tookUs > b.tookUs;
    });
    TimelineEntries told;
    for (TimelineEntry& entry : ready) {
        m_stories.tell(std::move(entry), told);
    }
    m_stories.lookForStalls(std::min(untilUs, monotonicUs()), told);
    for (TimelineEntry& entry : told) {
        entry.timeUs -= m_startUs;
    }
    if (!told.isEmpty()) {
        emit grown(told);
    }
}

} // namespace tv
