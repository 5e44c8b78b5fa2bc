#include "FileAnswer.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <map>
#include <memory>

namespace fs = std::filesystem;

namespace {

constexpr size_t chunkBytes = 64 * size_t{1024};
constexpr int throttleStepMs = 50;
constexpr int stallStepMs = 100;

/**
 * Makes the request's ranges fit the file, which the library leaves to its caller.
 * @return false when they ask for what is not there
 */
bool fitRanges(httplib::Ranges& ranges, ssize_t size) {
    if (ranges.size() > 1) {
        ranges.clear(); // A server may answer with the whole file.
    }
    for (httplib::Range& range : ranges) {
        if (range.first >= size || (range.first < 0 && (range.second == 0 || size == 0))) {
            return false;
        }
        if (range.first >= 0) {
            range.second = std::min(range.second, size - 1);
        }
    }
    return true;
}

/** Sends a file's bytes, up to the fault that it has. */
class Content {
public:
    Content(const fs::path& file, ServerFault fault, ServerPause pause)
        : m_stream(file, std::ios::binary), m_fault(std::move(fault)), m_pause(std::move(pause)) {}

    bool isOpen() const { return m_stream.is_open(); }

    /** @return false when the connection is to end */
    bool send(size_t offset, size_t length, httplib::DataSink& sink) {
        if (m_fault.cut && offset >= *m_fault.cut) {
            return false;
        }
        if (m_fault.stall && offset >= *m_fault.stall) {
            return m_pause(stallStepMs) && sink.is_writable();
        }
        uint64_t count = std::min<uint64_t>(length, m_chunk.size());
        for (const auto& end : {m_fault.cut, m_fault.stall}) {
            count = end ? std::min(count, *end - offset) : count;
        }
        if (m_fault.bytesPerSecond > 0) {
            count = std::clamp<uint64_t>(m_fault.bytesPerSecond * throttleStepMs / 1000, 1, count);
        }
        m_stream.clear();
        m_stream.seekg(static_cast<std::streamoff>(offset));
        m_stream.read(m_chunk.data(), static_cast<std::streamsize>(count));
        const auto read = static_cast<size_t>(m_stream.gcount());
        if (read == 0 || !sink.write(m_chunk.data(), read)) {
            return false;
        }
        return m_fault.bytesPerSecond == 0 || m_pause(static_cast<int>(read * 1000 / m_fault.bytesPerSecond));
    }

private:
    std::ifstream m_stream;
    const ServerFault m_fault;
    const ServerPause m_pause;
    std::array<char, chunkBytes> m_chunk{};
};

} // namespace

void answerWithFile(const httplib::Request& request, httplib::Response& response, const fs::path& file,
                    const ServerFault& fault, const ServerPause& pause) {
    const auto content = std::make_shared<Content>(file, fault, pause);
    std::error_code error;
    const auto size = static_cast<ssize_t>(fs::file_size(file, error));
    if (error || !content->isOpen()) {
        response.status = 403;
        return;
    }
    // The library hands out its own, changeable request as const and reads the ranges again after the handler.
    auto& ranges = const_cast<httplib::Request&>(request).ranges;
    if (fault.ignoreRanges) {
        ranges.clear();
        response.set_header("Accept-Ranges", "none");
    }
    if (!fitRanges(ranges, size)) {
        ranges.clear();
        response.status = 416;
        response.set_header("Content-Range", "bytes */" + std::to_string(size));
        return;
    }
    response.set_header("Cache-Control", "no-cache");
    const std::string type = fault.type.empty() ? mimeType(file) : fault.type;
    if (size == 0) {
        response.set_content(std::string(), type);
        return;
    }
    response.set_content_provider(static_cast<size_t>(size), type,
                                  [content](size_t offset, size_t length, httplib::DataSink& sink) {
                                      return content->send(offset, length, sink);
                                  });
}

const char* mimeType(const fs::path& file) {
    static const std::map<std::string, const char*> types = {
        {".html", "text/html"},
        {".htm", "text/html"},
        {".xhtml", "application/xhtml+xml"},
        {".xht", "application/xhtml+xml"},
        {".cehtml", "application/ce-html+xml"},
        {".hbbtv", "application/vnd.hbbtv.xhtml+xml"},
        {".js", "application/javascript"},
        {".css", "text/css"},
        {".json", "application/json"},
        {".xml", "application/xml"},
        {".txt", "text/plain"},
        {".png", "image/png"},
        {".jpg", "image/jpeg"},
        {".jpeg", "image/jpeg"},
        {".gif", "image/gif"},
        {".svg", "image/svg+xml"},
        {".woff", "font/woff"},
        {".ttf", "font/ttf"},
        {".mp4", "video/mp4"},
        {".m4s", "video/iso.segment"},
        {".ts", "video/mp2t"},
        {".mp3", "audio/mpeg"},
        {".m4a", "audio/mp4"},
        {".aac", "audio/aac"},
        {".m3u8", "application/vnd.apple.mpegurl"},
        {".mpd", "application/dash+xml"},
        {".vtt", "text/vtt"},
        {".srt", "application/x-subrip"},
        {".ttml", "application/ttml+xml"},
    };
    std::string extension = file.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const auto found = types.find(extension);
    return found != types.end() ? found->second : "application/octet-stream";
}
