#include "server/HttpMessage.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <sys/socket.h>

namespace compliance {
namespace {

constexpr size_t LARGEST_HEAD = 16'384;
constexpr size_t LARGEST_BODY = 65'536;

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
    return text;
}

std::string decoded(const std::string& text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size()) {
            result += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

bool receiveMore(int connection, std::string& text) {
    char buffer[4096];
    const ssize_t count = recv(connection, buffer, sizeof buffer, 0);
    if (count > 0) {
        text.append(buffer, static_cast<size_t>(count));
    }
    return count > 0;
}

bool parseHead(const std::string& head, HttpRequest& request) {
    const size_t lineEnd = head.find("\r\n");
    const std::string line = head.substr(0, lineEnd);
    const size_t method = line.find(' ');
    const size_t target = line.rfind(' ');
    if (method == std::string::npos || target <= method || line[method + 1] != '/') {
        return false;
    }
    request.method = line.substr(0, method);
    const std::string url = line.substr(method + 1, target - method - 1);
    const size_t question = url.find('?');
    request.path = decoded(url.substr(0, question));
    request.query = question == std::string::npos ? "" : url.substr(question + 1);
    for (size_t at = lineEnd + 2; at < head.size();) {
        const size_t end = std::min(head.find("\r\n", at), head.size());
        const size_t colon = head.find(':', at);
        if (colon < end) {
            const size_t value = head.find_first_not_of(' ', colon + 1);
            request.headers[lowered(head.substr(at, colon - at))] =
                value < end ? head.substr(value, end - value) : std::string();
        }
        at = end + 2;
    }
    return true;
}

} // namespace

std::optional<HttpRequest> receiveRequest(int connection) {
    std::string text;
    size_t end = std::string::npos;
    while ((end = text.find("\r\n\r\n")) == std::string::npos) {
        if (text.size() > LARGEST_HEAD || !receiveMore(connection, text)) {
            return std::nullopt;
        }
    }
    HttpRequest request;
    if (!parseHead(text.substr(0, end), request)) {
        return std::nullopt;
    }
    const size_t length = std::strtoul(request.headers["content-length"].c_str(), nullptr, 10);
    request.body = text.substr(end + 4);
    while (request.body.size() < std::min(length, LARGEST_BODY)) {
        if (!receiveMore(connection, request.body)) {
            return std::nullopt;
        }
    }
    return request;
}

bool sendAll(int connection, const char* bytes, size_t size) {
    while (size > 0) {
        const ssize_t count = send(connection, bytes, size, MSG_NOSIGNAL);
        if (count <= 0) {
            return false;
        }
        bytes += count;
        size -= static_cast<size_t>(count);
    }
    return true;
}

bool sendText(int connection, const std::string& text) {
    return sendAll(connection, text.data(), text.size());
}

std::string responseHead(int status, const std::string& type, long length) {
    return "HTTP/1.1 " + std::to_string(status) + (status < 400 ? " OK" : " Error") + "\r\nContent-Type: " + type +
           "\r\nContent-Length: " + std::to_string(length) +
           "\r\nConnection: close\r\nAccess-Control-Allow-Origin: *\r\nCache-Control: no-store\r\n";
}

void sendResponse(int connection, const HttpResponse& response, bool withBody) {
    const std::string head = responseHead(response.status, response.type, static_cast<long>(response.body.size()));
    sendText(connection, head + "\r\n" + (withBody ? response.body : ""));
}

const char* typeOf(const std::string& file) {
    static const std::pair<const char*, const char*> types[] = {
        {".mp4", "video/mp4"},
        {".m4s", "video/iso.segment"},
        {".m4a", "audio/mp4"},
        {".mp3", "audio/mpeg"},
        {".ts", "video/mp2t"},
        {".m3u8", "application/vnd.apple.mpegurl"},
        {".mpd", "application/dash+xml"},
        {".vtt", "text/vtt; charset=utf-8"},
        {".srt", "application/x-subrip; charset=utf-8"},
        {".ttml", "application/ttml+xml"},
        {".html", "text/html; charset=utf-8"},
        {".js", "text/javascript; charset=utf-8"},
    };
    for (const auto& [extension, type] : types) {
        const std::string ending = extension;
        if (file.size() > ending.size() && file.compare(file.size() - ending.size(), ending.size(), ending) == 0) {
            return type;
        }
    }
    return "application/octet-stream";
}

std::optional<std::pair<long, long>> parseRange(const std::string& range, long size) {
    const std::string unit = "bytes=";
    if (range.compare(0, unit.size(), unit) != 0 || range.find(',') != std::string::npos) {
        return std::pair(0L, size - 1);
    }
    const std::string text = range.substr(unit.size());
    char* rest = nullptr;
    if (text[0] == '-') {
        const long count = std::strtol(text.c_str() + 1, nullptr, 10);
        return std::pair(std::max(0L, size - count), size - 1);
    }
    const long first = std::strtol(text.c_str(), &rest, 10);
    const long last = *rest == '-' && rest[1] ? std::strtol(rest + 1, nullptr, 10) : size - 1;
    if (first < 0 || first >= size || last < first) {
        return std::nullopt;
    }
    return std::pair(first, std::min(last, size - 1));
}

} // namespace compliance
