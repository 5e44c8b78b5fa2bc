#include "faults/NetworkFaults.h"

#include "media_requests.h"
#include "page/EngineNetwork.h"

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

bool NetworkFaults::set(const std::vector<ServerFaultRule>& rules) {
    m_server.setFaults(rules);
    m_proxy.setFaults(rules);
    if (!rules.empty() && m_proxyPort == 0) {
        m_proxyPort = m_proxy.start();
    }
    const int port = rules.empty() ? 0 : m_proxyPort;
    m_network.setProxy(port, QString::fromStdString(m_serverAuthority));
    const std::string address = "http://127.0.0.1:" + std::to_string(port);
    mediaRequestsSetProxy(port == 0 ? nullptr : address.c_str(), m_serverAuthority.c_str());
    return rules.empty() || port != 0;
}

} // namespace tv
