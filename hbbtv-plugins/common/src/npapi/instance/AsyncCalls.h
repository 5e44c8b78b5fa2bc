/**
 * Calls that wait for their turn on the plug-in thread.
 *
 * Engines forget the calls of an instance that they destroy, and the data of those calls with them. This queue keeps
 * every call until it has run: the engine only wakes it up.
 */
#ifndef ASYNCCALLS_H
#define ASYNCCALLS_H

#include "npapi/npapi.h"

/** From now on calls for the instance are accepted. Plug-in thread. */
void openAsyncCalls(NPP instance);

/** Ends the instance's part: runs what still waits for it. Plug-in thread, after the plug-in has been deleted. */
void closeAsyncCalls(NPP instance);

/** Runs what is left of instances that have gone. Plug-in thread. */
void drainAsyncCalls();

/** As NPN_PluginThreadAsyncCall. Any thread; the instance may have gone: the call is then run by drainAsyncCalls. */
void queueAsyncCall(NPP instance, void (*func)(void*), void* userData);

/**
 * While script is in an operation of a plug-in. What the operation itself queues then comes before what other threads
 * queue meanwhile: a player's answer to a command must not overtake what the object tells of the command.
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
