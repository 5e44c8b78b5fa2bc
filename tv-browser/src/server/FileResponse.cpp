#include "server/FileResponse.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <memory>

namespace tv {

namespace fs = std::filesystem;

namespace {

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

FaultyContent::Read readerOf(const std::shared_ptr<std::ifstream>& stream) {
    return [stream](uint64_t offset, char* to, size_t size) {
        stream->clear();
        stream->seekg(static_cast<std::streamoff>(offset));
        stream->read(to, static_cast<std::streamsize>(size));
        return static_cast<size_t>(stream->gcount());
    };
}

} // namespace

void answerWithFile(const httplib::Request& request, httplib::Response& response, const fs::path& file,
                    const ServerFault& fault, const ServerPause& pause) {
    const auto stream = std::make_shared<std::ifstream>(file, std::ios::binary);
    std::error_code error;
    const auto size = static_cast<ssize_t>(fs::file_size(file, error));
    if (error || !stream->is_open()) {
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
    const auto content = std::make_shared<FaultyContent>(readerOf(stream), fault, pause);
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

} // namespace tv
