/** Breaks the network between the page, its media and their servers. */
#ifndef NETWORKFAULTS_H
#define NETWORKFAULTS_H

#include "base/Result.h"
#include "faults/FaultRule.h"
#include "server/FaultProxy.h"
#include "server/LoopbackServer.h"

#include <QList>
#include <QString>
#include <string>

namespace tv {

class EngineNetwork;

/** Applies fault rules to this program's own server and, through a proxy for plain HTTP, to all others. */
class NetworkFaults {
public:
    /** Construct it before the first player opens a media item. @param server,network outlive this object */
    NetworkFaults(LoopbackServer& server, EngineNetwork& network);
    ~NetworkFaults();

    NetworkFaults(const NetworkFaults&) = delete;
    NetworkFaults& operator=(const NetworkFaults&) = delete;

    /** @param authority of the own server, "127.0.0.1:8080": its requests do not need the proxy */
    void serverStarted(const std::string& authority);

    /**
     * Replaces all rules: the first that matches an address applies. While there are any, requests to other servers go
     * through a proxy.
     * @return why other servers have no faults: a sentence for the user, without a full stop
     */
    Result<void, QString> set(const QList<FaultRule>& rules);

private:
    LoopbackServer& m_server;
    EngineNetwork& m_network;
    std::string m_serverAuthority;
    FaultProxy m_proxy;
    int m_proxyPort = 0;
};

} // namespace tv

#endif
