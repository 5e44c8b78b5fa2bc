/** A player's own thread. */
#ifndef MEDIA_CONTROL_PLAYERTHREAD_H
#define MEDIA_CONTROL_PLAYERTHREAD_H

#include "GuardedMutex.h"

#include <chrono>
#include <deque>
#include <functional>
#include <glib.h>
#include <memory>

namespace media {

/**
 * Runs tasks one after the other, and between them the GLib sources of the player's pipelines. Everything that touches
 * a pipeline runs here, but for what GStreamer's streaming threads do: they must not wait for this thread, which may be
 * waiting for them to end.
 */
class PlayerThread {
public:
    /** Starts a thread. It lives until quit(), even when nobody keeps the object. @throws std::system_error without
     * threads */
    static std::shared_ptr<PlayerThread> start();

    /** Waits until every player thread of the process has ended, at most that long. */
    static void waitForAll(std::chrono::milliseconds limit);

    ~PlayerThread();
    PlayerThread(const PlayerThread&) = delete;
    PlayerThread& operator=(const PlayerThread&) = delete;

    /** Runs a task on the thread after those posted before, or drops it when the thread has ended. Thread: any. */
    void post(std::function<void()> task);

    /** Ends the thread after the tasks posted before, and after the last release(). Thread: any. Does not wait. */
    void quit();

    /** The context for GLib sources of this thread. */
    GMainContext* context() const { return m_context; }

    /** Keeps the thread alive for something that still has to end on it. Thread: this one. */
    void hold() { ++m_holds; }
    void release() { --m_holds; }

private:
    PlayerThread();
    void run();
    void runTasks();

    GMainContext* const m_context;
    support::Mutex m_mutex;
    std::deque<std::function<void()>> m_tasks GUARDED_BY(m_mutex);

    // Only on the thread
    bool m_quit = false;
    int m_holds = 0;
};

} // namespace media

#endif
