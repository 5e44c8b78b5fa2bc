#include "server/ProxyExchange.h"

#include "server/FaultyContent.h"
#include "server/HttpHead.h"
#include "server/ProxyTarget.h"

#include <limits>
#include <memory>
#include <optional>

namespace tv {

namespace {

constexpr guint serverTimeoutSeconds = 120;
constexpr int stepMs = 100;

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Client = std::unique_ptr<GSocketClient, Unref>;
using Connection = std::unique_ptr<GSocketConnection, Unref>;

/** @return true while the client is there */
bool isConnected(GIOStream& client) {
    // A client that has sent its request sends nothing more: what can be read is the end.
    GSocket* socket = g_socket_connection_get_socket(G_SOCKET_CONNECTION(&client));
    return (g_socket_condition_check(socket, G_IO_IN) & (G_IO_IN | G_IO_HUP | G_IO_ERR)) == 0;
}

Connection connectTo(const ProxyTarget& target, GCancellable& end) {
    const Client connector(g_socket_client_new());
    g_socket_client_set_enable_proxy(connector.get(), FALSE);
    g_socket_client_set_timeout(connector.get(), serverTimeoutSeconds);
    return Connection(
        g_socket_client_connect_to_host(connector.get(), target.host.c_str(), target.port, &end, nullptr));
}

class Exchange {
public:
    Exchange(GIOStream& client, StopSignal& stop, GCancellable& end) : m_client(client), m_stop(stop), m_end(end) {}

    void respond(const FaultForNames& faultFor);

private:
    void waitInSilence();
    void forward(const ProxyTarget& target, const HttpHead& request, const ServerFault& fault);
    void passOn(GIOStream& server, HttpHead& response, const ServerFault& fault);
    void sendContent(GIOStream& server, HttpHead& response, const ServerFault& fault);
    size_t readContent(GIOStream& server, std::string& begin, char* to, size_t size);

    GIOStream& m_client;
    StopSignal& m_stop;
    GCancellable& m_end;
};

void Exchange::respond(const FaultForNames& faultFor) {
    const std::optional<HttpHead> request = readHead(m_client, m_end);
    std::optional<ProxyTarget> target = request ? parseProxyTarget(request->firstLine) : std::nullopt;
    if (!target) {
        write(m_client, responseWithoutFile(SOUP_STATUS_NOT_IMPLEMENTED), m_end);
        return;
    }
    const ServerFault fault = takeNoFaultParameter(*target) ? ServerFault() : faultFor(namesOf(*target));
    if (fault.silent) {
        waitInSilence();
    } else if (!m_stop.pause(fault.delayMs)) {
        return;
    } else if (fault.redirect) {
        const std::string location = "Location: " + addressWithoutFault(*target) + "\r\n";
        write(m_client, responseWithoutFile(SOUP_STATUS_FOUND, location), m_end);
    } else if (fault.status != 0) {
        write(m_client, responseWithoutFile(fault.status), m_end);
    } else {
        forward(*target, *request, fault);
    }
}

void Exchange::waitInSilence() {
    int waitedMs = 0;
    while (waitedMs < longestSilenceMs && isConnected(m_client) && m_stop.pause(stepMs)) {
        waitedMs += stepMs;
    }
}

void Exchange::forward(const ProxyTarget& target, const HttpHead& request, const ServerFault& fault) {
    const Connection server = connectTo(target, m_end);
    if (!server) {
        return;
    }
    GIOStream& stream = *G_IO_STREAM(server.get());
    if (fault.ignoreRanges) {
        soup_message_headers_remove(request.headers.get(), "Range");
    }
    const std::string line = target.method + " " + target.rest + " HTTP/1.1\r\n";
    if (!write(stream, line + headerLines(request.headers.get()), m_end)) {
        return;
    }
    std::optional<HttpHead> response = readHead(stream, m_end);
    if (response) {
        passOn(stream, *response, fault);
    }
}

void Exchange::passOn(GIOStream& server, HttpHead& response, const ServerFault& fault) {
    SoupMessageHeaders* headers = response.headers.get();
    if (!fault.type.empty()) {
        soup_message_headers_replace(headers, "Content-Type", fault.type.c_str());
    }
    if (fault.ignoreRanges) {
        soup_message_headers_replace(headers, "Accept-Ranges", "none");
    }
    if (write(m_client, response.firstLine + "\r\n" + headerLines(headers), m_end)) {
        sendContent(server, response, fault);
    }
}

void Exchange::sendContent(GIOStream& server, HttpHead& response, const ServerFault& fault) {
    FaultyContent content(
        [&](uint64_t /*offset*/, char* to, size_t size) { return readContent(server, response.content, to, size); },
        fault, m_stop);
    httplib::DataSink sink;
    uint64_t sent = 0;
    sink.write = [&](const char* bytes, size_t count) {
        sent += count;
        return write(m_client, bytes, count, m_end);
    };
    sink.is_writable = [this] { return isConnected(m_client); };

    // A fault counts the bytes of the file, of which a response to a range request holds a part.
    goffset first = 0;
    goffset last = 0;
    soup_message_headers_get_content_range(response.headers.get(), &first, &last, nullptr);
    const char* length = soup_message_headers_get_one(response.headers.get(), "Content-Length");
    const uint64_t size = length ? std::strtoull(length, nullptr, 10) : std::numeric_limits<uint64_t>::max();
    bool goesOn = true;
    while (goesOn && sent < size) {
        goesOn = content.send(static_cast<uint64_t>(first) + sent, size - sent, sink);
    }
}

size_t Exchange::readContent(GIOStream& server, std::string& begin, char* to, size_t size) {
    if (!begin.empty()) {
        const size_t count = begin.copy(to, size);
        begin.erase(0, count);
        return count;
    }
    const gssize count = g_input_stream_read(g_io_stream_get_input_stream(&server), to, size, &m_end, nullptr);
    return count > 0 ? static_cast<size_t>(count) : 0;
}

} // namespace

void respondAsProxy(GIOStream& client, const FaultForNames& faultFor, StopSignal& stop, GCancellable& end) {
    Exchange(client, stop, end).respond(faultFor);
}

} // namespace tv
