/**
 * The trace on standard output: what passes between page, plug-in objects and players, in the order in which it began.
 */
#ifndef TRACELOG_H
#define TRACELOG_H

#include "HbbTVPluginTrace.h"
#include "media_trace.h"

#include <QHash>
#include <QTimer>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

class TraceLog {
public:
    /**
     * Observes plug-in objects and players from now on. One object at a time. Thread: the engine's.
     * @param startUs moment from which the time stamps count, CLOCK_MONOTONIC in microseconds
     */
    explicit TraceLog(int64_t startUs);

    /** Prints what is still held back. */
    ~TraceLog();

    TraceLog(const TraceLog&) = delete;
    TraceLog& operator=(const TraceLog&) = delete;

    /** Adds a line of the browser itself. */
    void note(const char* kind, const std::string& text);

private:
    struct Line {
        int64_t timeUs;
        int64_t tookUs;
        std::string text;
    };

    static void onPlugin(const HbbTVPluginTraceEntry* entry, void* log);
    static void onMedia(const MediaTraceEntry* entry, void* log);
    bool isNews(const HbbTVPluginTraceEntry& entry);
    void add(int64_t timeUs, int64_t tookUs, const std::string& who, const char* kind, const std::string& text);
    void print(int64_t untilUs);

    const int64_t m_startUs;
    QTimer m_printTimer;
    QHash<int, QHash<QByteArray, QByteArray>> m_lastReads; ///< of each object: property's name, line printed last
    std::mutex m_mutex;
    std::vector<Line> m_lines; ///< guarded by the mutex
};

/** @return CLOCK_MONOTONIC in microseconds */
int64_t monotonicUs();

#endif
