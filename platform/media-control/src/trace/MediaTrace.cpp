#include "trace/MediaTrace.h"

#include <atomic>
#include <chrono>

namespace media {
namespace {

using support::RecursiveLock;

support::RecursiveMutex observerMutex; // recursive: a command that holds it by TraceOrder traces notes of its own
MediaTraceCallback observer GUARDED_BY(observerMutex) = nullptr;
void* observerData GUARDED_BY(observerMutex) = nullptr;
std::atomic<bool> hasObserver{false};

MediaTraceEntry entryOf(MediaTraceKind kind, int player) {
    MediaTraceEntry entry{};
    entry.kind = kind;
    entry.player = player;
    return entry;
}

void trace(MediaTraceEntry& entry) {
    if (!isTraced()) {
        return;
    }
    const RecursiveLock lock(observerMutex);
    // With the lock: a report that waited for its command also bears a later time than the command.
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    entry.timeUs = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    if (observer) {
        observer(&entry, observerData);
    }
}

} // namespace

void setTraceObserver(MediaTraceCallback callback, void* userData) {
    const RecursiveLock lock(observerMutex);
    observer = callback;
    observerData = userData;
    hasObserver = callback != nullptr;
}

TraceOrder::TraceOrder() : m_lock(observerMutex) {}

bool isTraced() {
    return hasObserver;
}

void traceCommand(int player, const MediaTraceCommand& command) {
    MediaTraceEntry entry = entryOf(MEDIA_TRACE_COMMAND, player);
    entry.command = command;
    trace(entry);
}

void traceReport(int player, const MediaTraceReport& report) {
    MediaTraceEntry entry = entryOf(MEDIA_TRACE_REPORT, player);
    entry.report = report;
    trace(entry);
}

void traceRequest(int player, const MediaTraceRequest& request) {
    MediaTraceEntry entry = entryOf(MEDIA_TRACE_REQUEST, player);
    entry.request = request;
    trace(entry);
}

void traceBuffering(int player, int percent) {
    MediaTraceEntry entry = entryOf(MEDIA_TRACE_BUFFERING, player);
    entry.buffering = {percent};
    trace(entry);
}

void traceNote(int player, const std::string& text) {
    MediaTraceEntry entry = entryOf(MEDIA_TRACE_NOTE, player);
    entry.note = {text.c_str()};
    trace(entry);
}

} // namespace media
