#include "npapi/instance/AsyncCalls.h"

#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/PluginInstance.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace {

struct Call {
    NPP instance;
    void (*func)(void*);
    void* userData;
};

struct Queue {
    std::mutex mutex;
    std::vector<NPP> open;
    std::deque<Call> waiting;
    std::deque<Call> held; // of other threads, until the plug-in thread is out of all operations
    int operations = 0;
    std::thread::id pluginThread;
};

// Made at the first use and kept: a player's thread may still be in here when the process ends.
Queue& queue() {
    static Queue* const theQueue = new Queue;
    return *theQueue;
}

void wakeUp(void* instance);

bool isOpen(const Queue& q, NPP instance) {
    return std::find(q.open.begin(), q.open.end(), instance) != q.open.end();
}

/// The caller holds the lock, so that the instance is not destroyed between the question and the engine's own look-up.
void addWaiting(Queue& q, const Call& call) {
    q.waiting.push_back(call);
    if (isOpen(q, call.instance)) {
        browserFunctions().pluginthreadasynccall(call.instance, wakeUp, call.instance);
    }
}

/// Takes the oldest waiting call that `wanted` accepts.
template <class Predicate> bool take(Predicate wanted, Call* call) {
    Queue& q = queue();
    const std::lock_guard<std::mutex> lock(q.mutex);
    const auto found = std::find_if(q.waiting.begin(), q.waiting.end(), wanted);
    if (found == q.waiting.end()) {
        return false;
    }
    *call = *found;
    q.waiting.erase(found);
    return true;
}

template <class Predicate> void runAll(Predicate wanted) {
    Call call;
    while (take(wanted, &call)) {
        call.func(call.userData);
    }
}

/// What the call has done may be another play state, of which a page need not hear.
void traceStateOf(NPP npp) {
    {
        const std::lock_guard<std::mutex> lock(queue().mutex);
        if (!isOpen(queue(), npp)) {
            return; // the call has ended its instance
        }
    }
    if (PluginInstance* instance = PluginInstance::of(npp)) {
        instance->traceState();
    }
}

/// The engine's turn for one call of the instance: each wake-up runs one, so that other work gets its turn between.
void wakeUp(void* instance) {
    Call call;
    if (take([instance](const Call& waiting) { return waiting.instance == instance; }, &call)) {
        call.func(call.userData);
        traceStateOf(call.instance);
    }
}

} // namespace

void openAsyncCalls(NPP instance) {
    drainAsyncCalls();
    Queue& q = queue();
    const std::lock_guard<std::mutex> lock(q.mutex);
    q.open.push_back(instance);
}

void closeAsyncCalls(NPP instance) {
    Queue& q = queue();
    {
        const std::lock_guard<std::mutex> lock(q.mutex);
        q.open.erase(std::remove(q.open.begin(), q.open.end(), instance), q.open.end());
        const auto others = std::stable_partition(q.held.begin(), q.held.end(),
                                                  [instance](const Call& call) { return call.instance == instance; });
        q.waiting.insert(q.waiting.end(), q.held.begin(), others);
        q.held.erase(q.held.begin(), others);
    }
    runAll([instance](const Call& waiting) { return waiting.instance == instance; });
}

void drainAsyncCalls() {
    Queue& q = queue();
    runAll([&q](const Call& waiting) { return !isOpen(q, waiting.instance); });
}

void queueAsyncCall(NPP instance, void (*func)(void*), void* userData) {
    Queue& q = queue();
    const std::lock_guard<std::mutex> lock(q.mutex);
    if (q.operations > 0 && std::this_thread::get_id() != q.pluginThread) {
        q.held.push_back({instance, func, userData});
    } else {
        addWaiting(q, {instance, func, userData});
    }
}

OperationScope::OperationScope() {
    Queue& q = queue();
    const std::lock_guard<std::mutex> lock(q.mutex);
    q.pluginThread = std::this_thread::get_id();
    ++q.operations;
}

OperationScope::~OperationScope() {
    Queue& q = queue();
    const std::lock_guard<std::mutex> lock(q.mutex);
    if (--q.operations == 0) {
        for (const Call& call : q.held) {
            addWaiting(q, call);
        }
        q.held.clear();
    }
}
