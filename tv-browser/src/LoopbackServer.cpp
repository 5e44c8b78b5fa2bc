#include "LoopbackServer.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <httplib.h>
#include <map>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr size_t poolThreads = 64;
constexpr time_t keepAliveSeconds = 1;
// A paused film does not read for as long as it likes.
constexpr time_t writeTimeoutSeconds = 24 * time_t{3600};
constexpr size_t chunkBytes = 64 * size_t{1024};

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

bool isInside(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

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

void sendFile(const httplib::Request& request, httplib::Response& response, const fs::path& file) {
    auto stream = std::make_shared<std::ifstream>(file, std::ios::binary);
    std::error_code error;
    const auto size = static_cast<ssize_t>(fs::file_size(file, error));
    if (error || !*stream) {
        response.status = 403;
        return;
    }
    // The library hands out its own, changeable request as const and reads the ranges again after the handler.
    auto& ranges = const_cast<httplib::Request&>(request).ranges;
    if (!fitRanges(ranges, size)) {
        ranges.clear();
        response.status = 416;
        response.set_header("Content-Range", "bytes */" + std::to_string(size));
        return;
    }
    response.set_header("Cache-Control", "no-cache");
    if (size == 0) {
        response.set_content(std::string(), mimeType(file));
        return;
    }
    response.set_content_provider(static_cast<size_t>(size), mimeType(file),
                                  [stream](size_t offset, size_t length, httplib::DataSink& sink) {
                                      std::vector<char> chunk(std::min(length, chunkBytes));
                                      stream->clear();
                                      stream->seekg(static_cast<std::streamoff>(offset));
                                      stream->read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
                                      const auto count = static_cast<size_t>(stream->gcount());
                                      return count > 0 && sink.write(chunk.data(), count);
                                  });
}

/** Ends this process's connections on a local port: the library would wait for those whose reader is paused. */
void cutConnections(int port) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd", error)) {
        const int descriptor = std::atoi(entry.path().filename().c_str());
        sockaddr_in address{};
        socklen_t length = sizeof address;
        if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length) == 0 &&
            address.sin_family == AF_INET && ntohs(address.sin_port) == port) {
            shutdown(descriptor, SHUT_RDWR);
        }
    }
}

} // namespace

struct LoopbackServer::Private {
    std::map<std::string, fs::path> folders;
    httplib::Server server;
    std::thread thread;
    int port = 0;

    void answer(const httplib::Request& request, httplib::Response& response, const LoopbackServer& owner) const;
};

void LoopbackServer::Private::answer(const httplib::Request& request, httplib::Response& response,
                                     const LoopbackServer& owner) const {
    const fs::path file = owner.fileOf(request.path);
    std::error_code error;
    if (request.get_header_value("Host") != "127.0.0.1:" + std::to_string(port)) {
        response.status = 403; // A foreign page whose name was made to resolve to this machine.
    } else if (file.empty()) {
        response.status = 404;
    } else if (fs::is_directory(file, error)) {
        // Without the slash the page's relative addresses would start one folder too high.
        response.set_redirect(request.target.substr(0, request.target.find('?')) + "/");
    } else {
        sendFile(request, response, file);
    }
}

LoopbackServer::LoopbackServer() : d(std::make_unique<Private>()) {}

LoopbackServer::~LoopbackServer() {
    if (d->thread.joinable()) {
        d->server.stop();
        cutConnections(d->port);
        d->thread.join();
    }
}

bool LoopbackServer::mount(const std::string& name, const fs::path& folder) {
    std::error_code error;
    const fs::path canonical = fs::canonical(folder, error);
    if (error || !fs::is_directory(canonical, error) || name.find('/') != std::string::npos) {
        return false;
    }
    d->folders[name] = canonical;
    return true;
}

int LoopbackServer::start() {
    d->server.new_task_queue = [] { return new httplib::ThreadPool(poolThreads); };
    d->server.set_keep_alive_timeout(keepAliveSeconds);
    d->server.set_write_timeout(writeTimeoutSeconds);
    d->server.Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
        d->answer(request, response, *this);
    });
    d->port = d->server.bind_to_any_port("127.0.0.1");
    if (d->port <= 0) {
        return 0;
    }
    d->thread = std::thread([this] { d->server.listen_after_bind(); });
    while (!d->server.is_running()) {
        std::this_thread::yield(); // Before that, stop() would have no effect.
    }
    return d->port;
}

fs::path LoopbackServer::fileOf(const std::string& urlPath) const {
    if (urlPath.empty() || urlPath[0] != '/' || urlPath.find('\0') != std::string::npos) {
        return {};
    }
    const size_t slash = urlPath.find('/', 1);
    const std::string first = urlPath.substr(1, slash == std::string::npos ? slash : slash - 1);
    auto folder = d->folders.find(first);
    std::string rest = slash == std::string::npos ? std::string() : urlPath.substr(slash + 1);
    if (first.empty() || folder == d->folders.end()) {
        folder = d->folders.find(std::string());
        rest = urlPath.substr(1);
    }
    if (folder == d->folders.end()) {
        return {};
    }
    std::error_code error;
    fs::path path = fs::canonical(folder->second / fs::path("./" + rest), error);
    if (error || !isInside(path, folder->second)) {
        return {};
    }
    if (urlPath.back() == '/') {
        path = fs::canonical(path / "index.html", error);
        if (error || !isInside(path, folder->second)) {
            return {};
        }
    }
    return fs::is_regular_file(path, error) || fs::is_directory(path, error) ? path : fs::path();
}
