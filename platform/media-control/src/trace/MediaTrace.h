/** Tells the observer of media_trace.h what the players are asked and what they answer. Threads: any. */
#ifndef MEDIA_CONTROL_MEDIATRACE_H
#define MEDIA_CONTROL_MEDIATRACE_H

#include "media_trace.h"

#include <mutex>
#include <string>

namespace media {

/** While it lives, what other threads trace waits: a command stands before the reports that it causes. */
class TraceOrder {
public:
    TraceOrder();

private:
    std::lock_guard<std::recursive_mutex> m_lock;
};

void traceCommand(int player, const std::string& text, int result);
void traceReport(int player, const std::string& text);
void traceNote(int player, const std::string& text);
void traceAnswer(int player, const std::string& request, int status, int64_t bytes);
void traceBuffering(int player, int percent);

} // namespace media

#endif
