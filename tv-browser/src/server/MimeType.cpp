#include "server/MimeType.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

namespace tv {

namespace fs = std::filesystem;

namespace {

const struct {
    const char* extension;
    const char* type;
} types[] = {
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

} // namespace

const char* mimeType(const fs::path& file) {
    std::string extension = file.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const auto* found = std::find_if(std::begin(types), std::end(types),
                                     [&extension](const auto& entry) { return entry.extension == extension; });
    return found != std::end(types) ? found->type : "application/octet-stream";
}

} // namespace tv
