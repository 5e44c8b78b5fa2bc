#include "faults/NetworkFaults.h"

#include "media_requests.h"
#include "page/EngineNetwork.h"

#include <vector>

namespace tv {

NetworkFaults::NetworkFaults(LoopbackServer& server, EngineNetwork& network) : m_server(server), m_network(network) {
    mediaRequestsSetProxy(nullptr, nullptr);
}

NetworkFaults::~NetworkFaults() {
    mediaRequestsSetProxy(nullptr, nullptr);
}

void NetworkFaults::serverStarted(const std::string& authority) {
    m_serverAuthority = authority;
}

Result<void, QString> NetworkFaults::set(const QList<FaultRule>& rules) {
    std::vector<ServerFaultRule> serverRules;
    for (const FaultRule& rule : rules) {
        serverRules.push_back(rule.rule);
    }
    m_server.setFaults(serverRules);
    m_proxy.setFaults(serverRules);
    if (!rules.isEmpty() && m_proxyPort == 0) {
        m_proxyPort = m_proxy.start();
    }
    const int port = rules.isEmpty() ? 0 : m_proxyPort;
    m_network.setProxy(port, QString::fromStdString(m_serverAuthority));
    const std::string address = "http://127.0.0.1:" + std::to_string(port);
    mediaRequestsSetProxy(port == 0 ? nullptr : address.c_str(), m_serverAuthority.c_str());
    if (!rules.isEmpty() && port == 0) {
        return Failure{QStringLiteral("no port is free on 127.0.0.1, so faults affect local files only")};
    }
    return {};
}

} // namespace tv
