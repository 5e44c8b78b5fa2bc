#include "server/HttpHead.h"

#include <algorithm>
#include <array>

namespace tv {

namespace {

constexpr size_t longestHead = 64 * size_t{1024};

bool isOfConnection(const char* name) {
    static const std::array<const char*, 7> names = {
        "Connection", "Keep-Alive", "Proxy-Connection", "Proxy-Authorization", "TE", "Trailer", "Upgrade"};
    return std::any_of(names.begin(), names.end(),
                       [name](const char* each) { return g_ascii_strcasecmp(each, name) == 0; });
}

} // namespace

std::optional<HttpHead> readHead(GIOStream& from, GCancellable& end) {
    HttpHead head;
    head.headers.reset(soup_message_headers_new(SOUP_MESSAGE_HEADERS_REQUEST));
    std::array<char, 4096> chunk{};
    size_t blankLine = std::string::npos;
    while (blankLine == std::string::npos) {
        const gssize count =
            g_input_stream_read(g_io_stream_get_input_stream(&from), chunk.data(), chunk.size(), &end, nullptr);
        if (count <= 0 || head.content.size() > longestHead) {
            return std::nullopt;
        }
        head.content.append(chunk.data(), static_cast<size_t>(count));
        blankLine = head.content.find("\r\n\r\n");
    }
    const std::string text = head.content.substr(0, blankLine + 2);
    head.content.erase(0, blankLine + 4);
    head.firstLine = text.substr(0, text.find("\r\n"));
    if (!soup_headers_parse(text.data(), static_cast<int>(text.size()), head.headers.get())) {
        return std::nullopt;
    }
    return head;
}

std::string headerLines(SoupMessageHeaders* headers) {
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

std::string responseWithoutFile(int status, const std::string& header) {
    const std::string content = "HTTP " + std::to_string(status) + "\n";
    return "HTTP/1.1 " + std::to_string(status) + " " + soup_status_get_phrase(static_cast<guint>(status)) +
           "\r\nContent-Type: text/plain\r\nContent-Length: " + std::to_string(content.size()) + "\r\n" + header +
           "Connection: close\r\n\r\n" + content;
}

bool write(GIOStream& to, const char* bytes, size_t count, GCancellable& end) {
    return g_output_stream_write_all(g_io_stream_get_output_stream(&to), bytes, count, nullptr, &end, nullptr) != FALSE;
}

bool write(GIOStream& to, const std::string& text, GCancellable& end) {
    return write(to, text.data(), text.size(), end);
}

} // namespace tv
