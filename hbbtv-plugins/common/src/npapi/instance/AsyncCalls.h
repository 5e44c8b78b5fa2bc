/** Calls that wait for their turn on the plug-in thread. */
#ifndef ASYNCCALLS_H
#define ASYNCCALLS_H

#include "npapi/npapi.h"

/**
 * The calls of one instance, from its making to its end. Engines forget the calls of an instance that they destroy, and
 * the data of those calls with them: so every call is kept here until it has run, and the engine only wakes it up.
 * Plug-in thread, but for queueAsyncCall.
 */
class AsyncCalls {
public:
    /** From now on calls for the instance are accepted. @param ran called after each call that the engine woke up */
    AsyncCalls(NPP instance, void (*ran)(NPP instance));

    /** Runs what still waits for the instance. The plug-in has been deleted before. */
    ~AsyncCalls();
    AsyncCalls(const AsyncCalls&) = delete;
    AsyncCalls& operator=(const AsyncCalls&) = delete;

private:
    friend struct AsyncCallQueue;
    NPP m_instance;
    void (*m_ran)(NPP);
    AsyncCalls* m_next;
};

/** Runs what is left of instances that have gone. Plug-in thread. */
void drainAsyncCalls();

/** As NPN_PluginThreadAsyncCall. Any thread; the instance may have gone: the call is then run by drainAsyncCalls. */
void queueAsyncCall(NPP instance, void (*func)(void*), void* userData);

/**
 * While script is in an operation of a plug-in. What the operation itself queues then comes before what other threads
 * queue meanwhile: a player's answer to a command must not overtake what the object reports of the command.
 * Plug-in thread.
 */
class OperationScope {
public:
    OperationScope();
    ~OperationScope();
    OperationScope(const OperationScope&) = delete;
    OperationScope& operator=(const OperationScope&) = delete;
};

#endif
