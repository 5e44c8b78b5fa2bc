/** What a request to an HTTP proxy asks for. */
#ifndef PROXYTARGET_H
#define PROXYTARGET_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tv {

struct ProxyTarget {
    std::string method;
    std::string server; ///< "http://host:port"
    std::string rest;   ///< path and query
    std::string host;
    uint16_t port = 0;
};

/** @return nothing for a request that this proxy does not pass on: it takes GET and HEAD of http addresses */
std::optional<ProxyTarget> parseProxyTarget(const std::string& requestLine);

/** @return what fault rules can match: the path, and the whole address without its query */
std::vector<std::string> namesOf(const ProxyTarget& target);

/** @return the target's address, with a parameter that keeps the next request free of faults */
std::string addressWithoutFault(const ProxyTarget& target);

/** Removes the parameter that addressWithoutFault() has added. @return false when there was none */
bool takeNoFaultParameter(ProxyTarget& target);

} // namespace tv

#endif
