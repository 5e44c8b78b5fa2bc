#include "npapi/instance/AsyncCalls.h"

#include "FrameworkLog.h"
#include "HbbTVThreadSafety.h"
#include "npapi/engine/BrowserFunctions.h"

#include <mutex>
#include <new>
#include <thread>

namespace {

struct Call {
    NPP instance;
    void (*func)(void*); ///< null in a spare that is free
    void* userData;
    Call* next;
};

/// Calls in the order in which they came.
class CallList {
public:
    void append(Call* call) {
        call->next = nullptr;
        *m_end = call;
        m_end = &call->next;
    }

    /// @return the oldest call that `wanted` accepts, now the caller's; null when there is none
    template <class Predicate> Call* take(Predicate wanted) {
        Call** link = &m_first;
        while (*link && !wanted(**link)) {
            link = &(*link)->next;
        }
        Call* const taken = *link;
        if (taken) {
            *link = taken->next;
            m_end = taken->next ? m_end : link;
        }
        return taken;
    }

private:
    Call* m_first = nullptr;
    Call** m_end = &m_first;
};

const auto anyCall = [](const Call&) { return true; };

class HBBTV_CAPABILITY QueueMutex {
public:
    void lock() HBBTV_ACQUIRE() { m_mutex.lock(); }
    void unlock() HBBTV_RELEASE() { m_mutex.unlock(); }

private:
    std::mutex m_mutex;
};

class HBBTV_SCOPED_LOCK QueueLock {
public:
    explicit QueueLock(QueueMutex& mutex) HBBTV_ACQUIRE(mutex) : m_mutex(mutex) { m_mutex.lock(); }
    ~QueueLock() HBBTV_RELEASE() { m_mutex.unlock(); }

    QueueLock(const QueueLock&) = delete;
    QueueLock& operator=(const QueueLock&) = delete;

private:
    QueueMutex& m_mutex;
};

} // namespace

/// One for the process.
struct AsyncCallQueue {
    QueueMutex mutex;
    AsyncCalls* open HBBTV_GUARDED_BY(mutex) = nullptr;
    CallList waiting HBBTV_GUARDED_BY(mutex);
    CallList held HBBTV_GUARDED_BY(mutex); ///< of other threads, until the plug-in thread is out of all operations
    int operations HBBTV_GUARDED_BY(mutex) = 0;
    std::thread::id pluginThread HBBTV_GUARDED_BY(mutex);
    Call spares[32] HBBTV_GUARDED_BY(mutex) = {}; ///< for the moments without memory

    AsyncCalls** find(NPP instance) HBBTV_REQUIRES(mutex) {
        AsyncCalls** link = &open;
        while (*link && (*link)->m_instance != instance) {
            link = &(*link)->m_next;
        }
        return link;
    }

    bool isOpen(NPP instance) HBBTV_REQUIRES(mutex) { return *find(instance) != nullptr; }

    Call* make(const Call& content) HBBTV_REQUIRES(mutex) {
        if (Call* made = new (std::nothrow) Call(content)) {
            return made;
        }
        for (Call& spare : spares) {
            if (!spare.func) {
                spare = content;
                return &spare;
            }
        }
        return nullptr;
    }

    void free(Call* call) HBBTV_REQUIRES(mutex) {
        if (call >= spares && call < spares + sizeof spares / sizeof *spares) {
            call->func = nullptr;
        } else {
            delete call;
        }
    }

    /// Under the lock, so that the instance is not destroyed between the question and the engine's own look-up.
    void addWaiting(Call* call) HBBTV_REQUIRES(mutex) {
        waiting.append(call);
        if (isOpen(call->instance)) {
            browserFunctions().pluginthreadasynccall(call->instance, wakeUp, call->instance);
        }
    }

    static void wakeUp(void* instance);
};

namespace {

// Made at the first use and kept: a player's thread may still be in here when the process ends.
AsyncCallQueue& queue() {
    alignas(AsyncCallQueue) static char memory[sizeof(AsyncCallQueue)];
    static AsyncCallQueue* const theQueue = new (memory) AsyncCallQueue;
    return *theQueue;
}

/// Runs the oldest waiting call that `wanted` accepts, without the lock. @return false when there is none
template <class Predicate> bool runOne(Predicate wanted) {
    AsyncCallQueue& q = queue();
    Call call;
    {
        const QueueLock lock(q.mutex);
        Call* const taken = q.waiting.take(wanted);
        if (!taken) {
            return false;
        }
        call = *taken;
        q.free(taken);
    }
    call.func(call.userData);
    return true;
}

/// Runs the waiting calls that `wanted` accepts, and those that they queue.
template <class Predicate> void runAll(Predicate wanted) {
    bool ran = true;
    while (ran) {
        ran = runOne(wanted);
    }
}

} // namespace

/// The engine's turn for one call of the instance: each wake-up runs one, so that other work gets its turn between.
void AsyncCallQueue::wakeUp(void* instance) {
    const NPP npp = static_cast<NPP>(instance);
    if (!runOne([npp](const Call& call) { return call.instance == npp; })) {
        return;
    }
    AsyncCallQueue& q = queue();
    void (*ran)(NPP) = nullptr;
    {
        const QueueLock lock(q.mutex);
        if (const AsyncCalls* const calls = *q.find(npp)) {
            ran = calls->m_ran; // else the call has ended its instance
        }
    }
    if (ran) {
        ran(npp);
    }
}

AsyncCalls::AsyncCalls(NPP instance, void (*ran)(NPP)) : m_instance(instance), m_ran(ran), m_next(nullptr) {
    drainAsyncCalls();
    AsyncCallQueue& q = queue();
    const QueueLock lock(q.mutex);
    m_next = q.open;
    q.open = this;
}

AsyncCalls::~AsyncCalls() {
    const auto isOwn = [this](const Call& call) { return call.instance == m_instance; };
    AsyncCallQueue& q = queue();
    {
        const QueueLock lock(q.mutex);
        *q.find(m_instance) = m_next;
        while (Call* const own = q.held.take(isOwn)) {
            q.waiting.append(own);
        }
    }
    runAll(isOwn);
}

void drainAsyncCalls() {
    AsyncCallQueue& q = queue();
    // runAll holds the lock while it asks, which clang does not see.
    runAll([&q](const Call& call) HBBTV_UNCHECKED { return !q.isOpen(call.instance); });
}

void queueAsyncCall(NPP instance, void (*func)(void*), void* userData) {
    AsyncCallQueue& q = queue();
    const QueueLock lock(q.mutex);
    Call* const call = q.make({instance, func, userData, nullptr});
    if (!call) {
        // The engine's own list is what is left: it forgets the call if the instance goes first.
        FRAMEWORK_LOG_ERROR("No memory to keep a call of the plug-in thread: it may overtake others\n");
        if (q.isOpen(instance)) {
            browserFunctions().pluginthreadasynccall(instance, func, userData);
        }
    } else if (q.operations > 0 && std::this_thread::get_id() != q.pluginThread) {
        q.held.append(call);
    } else {
        q.addWaiting(call);
    }
}

OperationScope::OperationScope() {
    AsyncCallQueue& q = queue();
    const QueueLock lock(q.mutex);
    q.pluginThread = std::this_thread::get_id();
    ++q.operations;
}

OperationScope::~OperationScope() {
    AsyncCallQueue& q = queue();
    const QueueLock lock(q.mutex);
    if (--q.operations > 0) {
        return;
    }
    while (Call* const call = q.held.take(anyCall)) {
        q.addWaiting(call);
    }
}
