/** The heads of HTTP/1.1 messages on a connection: first line and headers. */
#ifndef HTTPHEAD_H
#define HTTPHEAD_H

#include <gio/gio.h>
#include <libsoup/soup.h>
#include <memory>
#include <optional>
#include <string>

namespace tv {

struct UnrefHeaders {
    void operator()(SoupMessageHeaders* headers) const { soup_message_headers_unref(headers); }
};

struct HttpHead {
    std::string firstLine;
    std::unique_ptr<SoupMessageHeaders, UnrefHeaders> headers;
    std::string content; ///< the beginning of it, which was read with the head
};

/** @return nothing when the connection ends before the head does, or when the head is malformed or too long */
std::optional<HttpHead> readHead(GIOStream& from, GCancellable& end);

/** @return the header lines to pass on, with the blank line: all but those of one connection (RFC 9110, 7.6.1) */
std::string headerLines(SoupMessageHeaders* headers);

/** @return a whole response that only says its status code. @param header further header lines, each with CRLF */
std::string responseWithoutFile(int status, const std::string& header = {});

/** @return false when the connection has ended */
bool write(GIOStream& to, const char* bytes, size_t count, GCancellable& end);
bool write(GIOStream& to, const std::string& text, GCancellable& end);

} // namespace tv

#endif
