/** Reports the players' commands, reports and requests to the observer of media_trace.h. Threads: any. */
#ifndef MEDIA_CONTROL_MEDIATRACE_H
#define MEDIA_CONTROL_MEDIATRACE_H

#include "GuardedMutex.h"
#include "media_trace.h"

#include <string>

namespace media {

/** As mediaTraceSetCallback. */
void setTraceObserver(MediaTraceCallback callback, void* userData);

/** While it lives, other threads wait before they trace: a command stands before the reports that it causes. */
class TraceOrder {
public:
    TraceOrder();

private:
    support::RecursiveLock m_lock;
};

/** @return true while an observer is set; without one, callers need not prepare what they would trace */
bool isTraced();

void traceCommand(int player, const MediaTraceCommand& command);
void traceReport(int player, const MediaTraceReport& report);
void traceRequest(int player, const MediaTraceRequest& request);
void traceBuffering(int player, int percent);
void traceNote(int player, const std::string& text);

} // namespace media

#endif
