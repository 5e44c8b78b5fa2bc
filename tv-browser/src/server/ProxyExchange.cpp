#include "server/ProxyExchange.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <libsoup/soup.h>
#include <limits>
#include <memory>
#include <optional>

namespace tv {

namespace {

constexpr size_t longestHead = 64 * size_t{1024};
constexpr guint silenceSeconds = 120;
constexpr int longestSilenceMs = 300 * 1000; // so that threads come back from clients that have gone
constexpr int stepMs = 100;
constexpr guint16 httpPort = 80;
const std::string scheme = "http://";
const std::string mark = "fault="; // the parameter that asks for no faults, so that the request after a redirect passes

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(SoupMessageHeaders* headers) const { soup_message_headers_unref(headers); }
};
using Client = std::unique_ptr<GSocketClient, Unref>;
using Connection = std::unique_ptr<GSocketConnection, Unref>;
using Headers = std::unique_ptr<SoupMessageHeaders, Unref>;

struct Free {
    void operator()(gchar* text) const { g_free(text); }
};
using Text = std::unique_ptr<gchar, Free>;

struct Head {
    std::string first; // line
    Headers headers;
    std::string rest; // that has come with it
};

/** Headers of one connection only (RFC 9110, 7.6.1). */
bool isOfConnection(const char* name) {
    static const std::array<const char*, 7> names = {
        "Connection", "Keep-Alive", "Proxy-Connection", "Proxy-Authorization", "TE", "Trailer", "Upgrade"};
    return std::any_of(names.begin(), names.end(),
                       [name](const char* each) { return g_ascii_strcasecmp(each, name) == 0; });
}

bool write(GIOStream& to, const char* bytes, size_t count, GCancellable& end) {
    return g_output_stream_write_all(g_io_stream_get_output_stream(&to), bytes, count, nullptr, &end, nullptr) != FALSE;
}

bool write(GIOStream& to, const std::string& text, GCancellable& end) {
    return write(to, text.data(), text.size(), end);
}

/** @return nothing when the connection ends before, or it is too long to be one */
std::optional<Head> readHead(GIOStream& from, GCancellable& end) {
    Head head{{}, Headers(soup_message_headers_new(SOUP_MESSAGE_HEADERS_REQUEST)), {}};
    std::array<char, 4096> chunk{};
    size_t blankLine = std::string::npos;
    while (blankLine == std::string::npos) {
        const gssize count =
            g_input_stream_read(g_io_stream_get_input_stream(&from), chunk.data(), chunk.size(), &end, nullptr);
        if (count <= 0 || head.rest.size() > longestHead) {
            return std::nullopt;
        }
        head.rest.append(chunk.data(), static_cast<size_t>(count));
        blankLine = head.rest.find("\r\n\r\n");
    }
    const std::string text = head.rest.substr(0, blankLine + 2);
    head.rest.erase(0, blankLine + 4);
    head.first = text.substr(0, text.find("\r\n"));
    if (!soup_headers_parse(text.data(), static_cast<int>(text.size()), head.headers.get())) {
        return std::nullopt;
    }
    return head;
}

std::string linesOf(SoupMessageHeaders* headers) {
    std::string lines;
    SoupMessageHeadersIter each;
    soup_message_headers_iter_init(&each, headers);
    const char* name = nullptr;
    const char* value = nullptr;
    while (soup_message_headers_iter_next(&each, &name, &value)) {
        if (!isOfConnection(name)) {
            lines += std::string(name) + ": " + value + "\r\n";
        }
    }
    return lines + "Connection: close\r\n\r\n";
}

/** What a request to a proxy asks for. */
struct Target {
    std::string method;
    std::string server; // "http://host:port"
    std::string rest;   // path and query
    std::string host;
    guint16 port = httpPort;
};

/** @return nothing for what this proxy does not pass on */
std::optional<Target> targetOf(const std::string& requestLine) {
    const size_t begin = requestLine.find(' ') + 1;
    const std::string address = requestLine.substr(begin, requestLine.rfind(' ') - begin);
    Target target;
    target.method = requestLine.substr(0, begin - 1);
    GUri* uri = g_uri_parse(address.c_str(), G_URI_FLAGS_ENCODED, nullptr);
    const std::unique_ptr<GUri, decltype(&g_uri_unref)> owner(
        uri, uri ? &g_uri_unref : [](GUri*) {});
    if (!uri || !g_uri_get_host(uri) || address.compare(0, scheme.size(), scheme) != 0 ||
        (target.method != "GET" && target.method != "HEAD")) {
        return std::nullopt;
    }
    const size_t endOfServer = std::min(address.find_first_of("/?", scheme.size()), address.size());
    target.server = address.substr(0, endOfServer);
    target.rest = address.substr(endOfServer);
    target.host = g_uri_get_host(uri);
    if (g_uri_get_port(uri) > 0) {
        target.port = static_cast<guint16>(g_uri_get_port(uri));
    }
    if (target.rest.empty() || target.rest[0] != '/') {
        target.rest.insert(0, 1, '/');
    }
    return target;
}

std::vector<std::string> namesOf(const Target& target) {
    const std::string path = target.rest.substr(0, target.rest.find('?'));
    const Text unescaped(g_uri_unescape_string(path.c_str(), nullptr));
    const std::string readable = unescaped ? unescaped.get() : path;
    return {readable, target.server + readable};
}

/** @return true when the mark was there and has been taken away */
bool takeMark(std::string& target) {
    const size_t place = target.size() < mark.size() + 1 ? 0 : target.size() - mark.size();
    if (place == 0 || target.compare(place, mark.size(), mark) != 0 ||
        (target[place - 1] != '?' && target[place - 1] != '&')) {
        return false;
    }
    target.erase(place - 1);
    return true;
}

std::string answerWithoutFile(int status, const std::string& header) {
    const std::string content = "HTTP " + std::to_string(status) + "\n";
    return "HTTP/1.1 " + std::to_string(status) + " " + soup_status_get_phrase(static_cast<guint>(status)) +
           "\r\nContent-Type: text/plain\r\nContent-Length: " + std::to_string(content.size()) + "\r\n" + header +
           "Connection: close\r\n\r\n" + content;
}

/** @return true while the client is there */
bool isConnected(GIOStream& client) {
    // A client that has sent its request sends nothing more: what can be read is the end.
    GSocket* socket = g_socket_connection_get_socket(G_SOCKET_CONNECTION(&client));
    return (g_socket_condition_check(socket, G_IO_IN) & (G_IO_IN | G_IO_HUP | G_IO_ERR)) == 0;
}

class Exchange {
public:
    Exchange(GIOStream& client, ServerPause pause, GCancellable& end)
        : m_client(client), m_pause(std::move(pause)), m_end(end) {}

    void answer(const FaultForNames& faultFor) {
        const std::optional<Head> request = readHead(m_client, m_end);
        std::optional<Target> target = request ? targetOf(request->first) : std::nullopt;
        if (!target) {
            write(m_client, answerWithoutFile(SOUP_STATUS_NOT_IMPLEMENTED, {}), m_end);
            return;
        }
        const ServerFault fault = takeMark(target->rest) ? ServerFault() : faultFor(namesOf(*target));
        if (fault.silent) {
            for (int ms = 0; ms < longestSilenceMs && isConnected(m_client) && m_pause(stepMs); ms += stepMs) {}
        } else if (!m_pause(fault.delayMs)) {
            return;
        } else if (fault.redirect) {
            const bool hasQuery = target->rest.find('?') != std::string::npos;
            const std::string to = target->server + target->rest + (hasQuery ? "&" : "?") + mark;
            write(m_client, answerWithoutFile(SOUP_STATUS_FOUND, "Location: " + to + "\r\n"), m_end);
        } else if (fault.status != 0) {
            write(m_client, answerWithoutFile(fault.status, {}), m_end);
        } else {
            pass(*target, *request, fault);
        }
    }

private:
    void pass(const Target& target, const Head& request, const ServerFault& fault) {
        const Client connector(g_socket_client_new());
        g_socket_client_set_enable_proxy(connector.get(), FALSE);
        g_socket_client_set_timeout(connector.get(), silenceSeconds);
        const Connection server(
            g_socket_client_connect_to_host(connector.get(), target.host.c_str(), target.port, &m_end, nullptr));
        if (!server) {
            return;
        }
        GIOStream& stream = *G_IO_STREAM(server.get());
        if (fault.ignoreRanges) {
            soup_message_headers_remove(request.headers.get(), "Range");
        }
        const std::string line = target.method + " " + target.rest + " HTTP/1.1\r\n";
        if (!write(stream, line + linesOf(request.headers.get()), m_end)) {
            return;
        }
        std::optional<Head> answer = readHead(stream, m_end);
        if (answer) {
            relay(stream, *answer, fault);
        }
    }

    void relay(GIOStream& server, Head& answer, const ServerFault& fault) {
        SoupMessageHeaders* headers = answer.headers.get();
        if (!fault.type.empty()) {
            soup_message_headers_replace(headers, "Content-Type", fault.type.c_str());
        }
        if (fault.ignoreRanges) {
            soup_message_headers_replace(headers, "Accept-Ranges", "none");
        }
        if (!write(m_client, answer.first + "\r\n" + linesOf(headers), m_end)) {
            return;
        }
        FaultyContent content(
            [&](uint64_t /*offset*/, char* to, size_t size) { return readContent(server, answer.rest, to, size); },
            fault, m_pause);
        httplib::DataSink sink;
        uint64_t sent = 0;
        sink.write = [&](const char* bytes, size_t count) {
            sent += count;
            return write(m_client, bytes, count, m_end);
        };
        sink.is_writable = [this] { return isConnected(m_client); };
        goffset first = 0;
        goffset last = 0;
        soup_message_headers_get_content_range(headers, &first, &last, nullptr);
        const char* length = soup_message_headers_get_one(headers, "Content-Length");
        const uint64_t size = length ? std::strtoull(length, nullptr, 10) : std::numeric_limits<uint64_t>::max();
        while (sent < size && content.send(static_cast<uint64_t>(first) + sent, size - sent, sink)) {}
    }

    size_t readContent(GIOStream& server, std::string& rest, char* to, size_t size) {
        if (!rest.empty()) {
            const size_t count = rest.copy(to, size);
            rest.erase(0, count);
            return count;
        }
        const gssize count = g_input_stream_read(g_io_stream_get_input_stream(&server), to, size, &m_end, nullptr);
        return count > 0 ? static_cast<size_t>(count) : 0;
    }

    GIOStream& m_client;
    const ServerPause m_pause;
    GCancellable& m_end;
};

} // namespace

void answerProxyRequest(GIOStream& client, const FaultForNames& faultFor, const ServerPause& pause, GCancellable& end) {
    Exchange(client, pause, end).answer(faultFor);
}

} // namespace tv
