#include "gst/PlayerThread.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <thread>

namespace media {
namespace {

using support::Lock;

support::Mutex countMutex;
support::Condition countChanged;
int threadCount GUARDED_BY(countMutex) = 0;

void countThread(int change) {
    const Lock lock(countMutex);
    threadCount += change;
    countChanged.notifyAll();
}

} // namespace

PlayerThread::PlayerThread() : m_context(g_main_context_new()) {}

PlayerThread::~PlayerThread() {
    g_main_context_unref(m_context);
}

std::shared_ptr<PlayerThread> PlayerThread::start() {
    std::shared_ptr<PlayerThread> self(new PlayerThread);
    countThread(1);
    try {
        // Detached: a player may be closed in its own callback, where waiting for its thread would be a dead-lock.
        std::thread([keep = self]() mutable {
            keep->run();
            keep.reset(); // before the count: who waits for it ends the process
            countThread(-1);
        }).detach();
    } catch (...) {
        countThread(-1);
        throw;
    }
    return self;
}

void PlayerThread::waitForAll(std::chrono::milliseconds limit) {
    const Lock lock(countMutex);
    countChanged.waitFor(countMutex, limit, []() REQUIRES(countMutex) { return threadCount == 0; });
}

void PlayerThread::post(std::function<void()> task) {
    {
        const Lock lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    g_main_context_wakeup(m_context);
}

void PlayerThread::quit() {
    post([this] { m_quit = true; });
}

void PlayerThread::run() {
    g_main_context_push_thread_default(m_context);
    runTasks();
    while (!m_quit || m_holds > 0) {
        g_main_context_iteration(m_context, TRUE);
        runTasks();
    }
    g_main_context_pop_thread_default(m_context);
#ifdef __GLIBC__
    malloc_trim(0); // else the heaps of the pipelines' many threads keep what they once needed
#endif
}

void PlayerThread::runTasks() {
    std::deque<std::function<void()>> tasks;
    {
        const Lock lock(m_mutex);
        tasks.swap(m_tasks);
    }
    for (const auto& task : tasks) {
        task();
    }
}

} // namespace media
