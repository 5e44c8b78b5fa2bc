/** HTTP on a socket: one request in, one response out. */
#ifndef COMPLIANCE_HTTPMESSAGE_H
#define COMPLIANCE_HTTPMESSAGE_H

#include "server/HttpServer.h"

#include <optional>

namespace compliance {

/** @return the request, none when the client closes early or sends what is no request */
std::optional<HttpRequest> receiveRequest(int connection);

/** @return false when the client has gone */
bool sendAll(int connection, const char* bytes, size_t size);
bool sendText(int connection, const std::string& text);
void sendResponse(int connection, const HttpResponse& response, bool withBody);

/** @return status line and headers up to the empty line, which follows after headers of the caller */
std::string responseHead(int status, const std::string& type, long length);

/** @return the media type that a file's extension says */
const char* typeOf(const std::string& file);

/** @param range header value as "bytes=0-99" @return first and last byte, none when it cannot be served */
std::optional<std::pair<long, long>> parseRange(const std::string& range, long size);

} // namespace compliance

#endif
