#include "trace/MediaTrace.h"

#include "MediaControlExport.h"

#include <chrono>

namespace media {
namespace {

std::recursive_mutex observerMutex; // a command traces notes of its own
MediaTraceCallback observer = nullptr;
void* observerData = nullptr;

void trace(MediaTraceKind kind, int player, const std::string& text, int result, int64_t bytes = -1) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const std::lock_guard<std::recursive_mutex> lock(observerMutex);
    if (observer) {
        const int64_t timeUs = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
        const MediaTraceEntry entry = {kind, player, timeUs, text.c_str(), result, bytes};
        observer(&entry, observerData);
    }
}

} // namespace

TraceOrder::TraceOrder() : m_lock(observerMutex) {}

void traceCommand(int player, const std::string& text, int result) {
    trace(MEDIA_TRACE_COMMAND, player, text, result);
}

void traceReport(int player, const std::string& text) {
    trace(MEDIA_TRACE_REPORT, player, text, 0);
}

void traceNote(int player, const std::string& text) {
    trace(MEDIA_TRACE_NOTE, player, text, 0);
}

void traceAnswer(int player, const std::string& request, int status, int64_t bytes) {
    trace(MEDIA_TRACE_REQUEST, player, request, status, bytes);
}

void traceBuffering(int player, int percent) {
    trace(MEDIA_TRACE_BUFFERING, player, "buffer " + std::to_string(percent) + " %", percent);
}

} // namespace media

MEDIA_EXPORT void mediaTraceSetCallback(MediaTraceCallback callback, void* userData) {
    const std::lock_guard<std::recursive_mutex> lock(media::observerMutex);
    media::observer = callback;
    media::observerData = userData;
}
