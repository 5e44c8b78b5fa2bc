#include "TraceLog.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <iterator>

namespace {

/** How long a line is held back, for lines of other threads and of calls that began before it. */
constexpr int64_t holdUs = 20'000;
constexpr int printIntervalMs = 20;

const char* kindName(HbbTVPluginTraceKind kind) {
    switch (kind) {
    case HBBTV_TRACE_CREATED:
        return "created";
    case HBBTV_TRACE_DESTROYED:
        return "gone";
    case HBBTV_TRACE_PARAM:
        return "param";
    case HBBTV_TRACE_CALL:
        return "call";
    case HBBTV_TRACE_READ:
        return "read";
    case HBBTV_TRACE_WRITE:
        return "write";
    case HBBTV_TRACE_EVENT:
        return "event";
    case HBBTV_TRACE_ERROR:
        return "error";
    }
    return "";
}

const char* kindName(MediaTraceKind kind) {
    switch (kind) {
    case MEDIA_TRACE_COMMAND:
        return "command";
    case MEDIA_TRACE_REPORT:
        return "report";
    case MEDIA_TRACE_NOTE:
        return "note";
    case MEDIA_TRACE_REQUEST:
        return "request";
    case MEDIA_TRACE_BUFFERING:
        return "buffer";
    }
    return "";
}

} // namespace

int64_t monotonicUs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1000;
}

TraceLog::TraceLog(int64_t startUs) : m_startUs(startUs) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    m_printTimer.setInterval(printIntervalMs);
    QObject::connect(&m_printTimer, &QTimer::timeout, &m_printTimer, [this] { print(monotonicUs() - holdUs); });
    m_printTimer.start();
    hbbtvPluginTraceSetCallback(&TraceLog::onPlugin, this);
    mediaTraceSetCallback(&TraceLog::onMedia, this);
}

TraceLog::~TraceLog() {
    hbbtvPluginTraceSetCallback(nullptr, nullptr);
    mediaTraceSetCallback(nullptr, nullptr);
    print(INT64_MAX);
}

void TraceLog::note(const char* kind, const std::string& text) {
    add(monotonicUs(), 0, "browser", kind, text);
}

void TraceLog::onPlugin(const HbbTVPluginTraceEntry* entry, void* log) {
    auto* self = static_cast<TraceLog*>(log);
    if (self->isNews(*entry)) {
        self->add(entry->timeUs, entry->tookUs, "object " + std::to_string(entry->instance), kindName(entry->kind),
                  entry->text);
    }
}

void TraceLog::onMedia(const MediaTraceEntry* entry, void* log) {
    std::string text = entry->text;
    if (entry->kind == MEDIA_TRACE_COMMAND || entry->kind == MEDIA_TRACE_REQUEST) {
        text += " -> " + std::to_string(entry->result);
    }
    static_cast<TraceLog*>(log)->add(entry->timeUs, 0, "player " + std::to_string(entry->player), kindName(entry->kind),
                                     text);
}

/** Pages read all the time: only times are worth a line, and only new ones. */
bool TraceLog::isNews(const HbbTVPluginTraceEntry& entry) {
    if (entry.kind != HBBTV_TRACE_READ) {
        return true;
    }
    const QByteArray text(entry.text);
    for (const char* property : {"playPosition", "playTime"}) {
        if (text.startsWith(QByteArray(property) + ' ')) {
            QByteArray& last = m_lastReads[entry.instance][property];
            const bool isNew = last != text;
            last = text;
            return isNew;
        }
    }
    return false;
}

void TraceLog::add(int64_t timeUs, int64_t tookUs, const std::string& who, const char* kind, const std::string& text) {
    char head[64];
    std::snprintf(head, sizeof head, "%8.3f %-9s %-8s", static_cast<double>(timeUs - m_startUs) / 1e6, who.c_str(),
                  kind);
    Line line{timeUs, tookUs, head + text};
    std::replace(line.text.begin(), line.text.end(), '\n', ' ');
    line.text.erase(line.text.find_last_not_of(' ') + 1);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_lines.push_back(std::move(line));
}

void TraceLog::print(int64_t untilUs) {
    std::vector<Line> ready;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto later = std::stable_partition(m_lines.begin(), m_lines.end(),
                                                 [untilUs](const Line& line) { return line.timeUs <= untilUs; });
        ready.assign(std::make_move_iterator(m_lines.begin()), std::make_move_iterator(later));
        m_lines.erase(m_lines.begin(), later);
    }
    // Of two that began together, the longer one is the call that the other was made in.
    std::stable_sort(ready.begin(), ready.end(), [](const Line& a, const Line& b) {
        return a.timeUs != b.timeUs ? a.timeUs < b.timeUs : a.tookUs > b.tookUs;
    });
    for (const Line& line : ready) {
        std::puts(line.text.c_str());
    }
}
