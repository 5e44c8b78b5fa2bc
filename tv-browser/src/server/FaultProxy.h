/** An HTTP proxy (RFC 9110, 3.7) on the loopback interface: passes on other servers' responses, correct or faulty. */
#ifndef FAULTPROXY_H
#define FAULTPROXY_H

#include "server/ServerFault.h"

#include <memory>
#include <vector>

namespace tv {

/** Gives the requests for other servers the faults of its rules. */
class FaultProxy {
public:
    FaultProxy();

    /** Cuts connections that are still open, and returns when no thread of the proxy runs any more. */
    ~FaultProxy();

    FaultProxy(const FaultProxy&) = delete;
    FaultProxy& operator=(const FaultProxy&) = delete;

    /**
     * Listens on a free port of 127.0.0.1 and responds to GET and HEAD requests for http addresses, each on a thread
     * and with a connection of its own. Call once.
     * @return the port, or 0 when no port is free
     */
    int start();

    /** Sets the faults of requests that begin from now on. Thread: any. */
    void setFaults(std::vector<ServerFaultRule> rules);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace tv

#endif
