/** One request that came to an HTTP proxy, and its response. */
#ifndef PROXYEXCHANGE_H
#define PROXYEXCHANGE_H

#include "server/ServerFault.h"
#include "server/StopSignal.h"

#include <functional>
#include <gio/gio.h>
#include <string>
#include <vector>

namespace tv {

/** @return the fault of an address that has these names: its path, and the whole of it without its query */
using FaultForNames = std::function<ServerFault(const std::vector<std::string>& names)>;

/**
 * Reads a request from a client, sends it to its server, and passes on the response up to its fault. When a connection
 * ends early it returns at once. The caller then closes the client's connection.
 * @param stop ends the waits @param end ends reading and writing
 */
void respondAsProxy(GIOStream& client, const FaultForNames& faultFor, StopSignal& stop, GCancellable& end);

} // namespace tv

#endif
