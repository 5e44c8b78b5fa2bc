#include "trace/MediaTrace.h"

#include "MediaControlExport.h"

#include <atomic>
#include <chrono>

namespace media {
namespace {

std::recursive_mutex observerMutex; // guards the two below; a command traces notes of its own
MediaTraceCallback observer = nullptr;
void* observerData = nullptr;
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
    const std::lock_guard<std::recursive_mutex> lock(observerMutex);
    // With the lock: a report that waited for its command also bears a later time than the command.
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    entry.timeUs = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    if (observer) {
        observer(&entry, observerData);
    }
}

} // namespace

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

MEDIA_EXPORT void mediaTraceSetCallback(MediaTraceCallback callback, void* userData) {
    const std::lock_guard<std::recursive_mutex> lock(media::observerMutex);
    media::observer = callback;
    media::observerData = userData;
    media::hasObserver = callback != nullptr;
}
