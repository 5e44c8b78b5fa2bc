#include "server/ProxyTarget.h"

#include <algorithm>
#include <gio/gio.h>
#include <memory>

namespace tv {

namespace {

constexpr uint16_t httpPort = 80;
const char* const scheme = "http://";
const std::string noFaultParameter = "fault="; // an empty parameter, as the local server takes it

struct Free {
    void operator()(gchar* text) const { g_free(text); }
};

struct UnrefUri {
    void operator()(GUri* uri) const { g_uri_unref(uri); }
};

} // namespace

std::optional<ProxyTarget> parseProxyTarget(const std::string& requestLine) {
    const size_t begin = requestLine.find(' ') + 1;
    const std::string address = requestLine.substr(begin, requestLine.rfind(' ') - begin);
    ProxyTarget target;
    target.method = requestLine.substr(0, begin - 1);
    const std::unique_ptr<GUri, UnrefUri> uri(g_uri_parse(address.c_str(), G_URI_FLAGS_ENCODED, nullptr));
    if (!uri || !g_uri_get_host(uri.get()) || address.rfind(scheme, 0) != 0 ||
        (target.method != "GET" && target.method != "HEAD")) {
        return std::nullopt;
    }
    const size_t endOfServer =
        std::min(address.find_first_of("/?", std::char_traits<char>::length(scheme)), address.size());
    target.server = address.substr(0, endOfServer);
    target.rest = address.substr(endOfServer);
    target.host = g_uri_get_host(uri.get());
    const int port = g_uri_get_port(uri.get());
    target.port = port > 0 ? static_cast<uint16_t>(port) : httpPort;
    if (target.rest.empty() || target.rest[0] != '/') {
        target.rest.insert(0, 1, '/');
    }
    return target;
}

std::vector<std::string> namesOf(const ProxyTarget& target) {
    const std::string path = target.rest.substr(0, target.rest.find('?'));
    const std::unique_ptr<gchar, Free> unescaped(g_uri_unescape_string(path.c_str(), nullptr));
    const std::string readable = unescaped ? unescaped.get() : path;
    return {readable, target.server + readable};
}

std::string addressWithoutFault(const ProxyTarget& target) {
    const bool hasQuery = target.rest.find('?') != std::string::npos;
    return target.server + target.rest + (hasQuery ? "&" : "?") + noFaultParameter;
}

bool takeNoFaultParameter(ProxyTarget& target) {
    std::string& rest = target.rest;
    const size_t begin = rest.size() < noFaultParameter.size() + 1 ? 0 : rest.size() - noFaultParameter.size();
    if (begin == 0 || rest.compare(begin, noFaultParameter.size(), noFaultParameter) != 0 ||
        (rest[begin - 1] != '?' && rest[begin - 1] != '&')) {
        return false;
    }
    rest.erase(begin - 1);
    return true;
}

} // namespace tv
