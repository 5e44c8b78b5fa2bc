/** One request that came to an HTTP proxy, and its answer. */
#ifndef PROXYEXCHANGE_H
#define PROXYEXCHANGE_H

#include "server/FaultyContent.h"

#include <functional>
#include <gio/gio.h>
#include <string>
#include <vector>

namespace tv {

/** @return the fault of an address that goes by these names: its path, and the whole of it without its query */
using FaultForNames = std::function<ServerFault(const std::vector<std::string>& names)>;

/**
 * Reads a request from a client, sends it on and answers with what comes, up to its faults. Whatever ends early is left
 * at that: the connection is then to be closed.
 * @param end ends reading and writing @param pause is called while the answer is held back
 */
void answerProxyRequest(GIOStream& client, const FaultForNames& faultFor, const ServerPause& pause, GCancellable& end);

} // namespace tv

#endif
