/**
 * What goes wrong between the page, its media and their servers: the one of this program and, by plain HTTP, all
 * others.
 */
#ifndef NETWORKFAULTS_H
#define NETWORKFAULTS_H

#include "server/FaultProxy.h"
#include "server/LoopbackServer.h"

#include <string>
#include <vector>

namespace tv {

class EngineNetwork;

class NetworkFaults {
public:
    /** To be made before the first media. @param server,network outlive this object */
    NetworkFaults(LoopbackServer& server, EngineNetwork& network);
    ~NetworkFaults();

    NetworkFaults(const NetworkFaults&) = delete;
    NetworkFaults& operator=(const NetworkFaults&) = delete;

    /** @param authority of the server's addresses, "127.0.0.1:8080": it knows its faults itself */
    void serverStarted(const std::string& authority);

    /**
     * Sets all rules: the first that fits an address counts. While there are any, other servers are asked through a
     * proxy.
     * @return false when no port is free for it: other servers then have no faults
     */
    bool set(const std::vector<ServerFaultRule>& rules);

private:
    LoopbackServer& m_server;
    EngineNetwork& m_network;
    std::string m_serverAuthority;
    FaultProxy m_proxy;
    int m_proxyPort = 0;
};

} // namespace tv

#endif
