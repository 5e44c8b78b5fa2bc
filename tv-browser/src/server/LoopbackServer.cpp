#include "server/LoopbackServer.h"

#include "server/FileResponse.h"
#include "server/LiveList.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <fstream>
#include <httplib.h>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>

namespace tv {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

namespace {

constexpr size_t poolThreads = 64;
constexpr time_t keepAliveSeconds = 1;
// A paused film does not read for as long as it likes.
constexpr time_t writeTimeoutSeconds = 24 * time_t{3600};
constexpr int longestSilenceMs = 300 * 1000; // so that threads come back from clients that have gone

bool isInside(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

/** @return the address with faults that do not redirect, so that the next request is answered */
std::string withoutRedirection(const httplib::Request& request) {
    std::string target = request.target;
    const size_t faults = target.find("fault=");
    const size_t word = target.find("redirect", faults);
    if (faults == std::string::npos) {
        return target + (target.find('?') == std::string::npos ? "?fault=" : "&fault=");
    }
    return word == std::string::npos ? target : target.erase(word, sizeof "redirect" - 1);
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
    const Clock::time_point start = Clock::now(); // of live streams, too
    std::mutex mutex;                             // guards all below
    std::vector<ServerFaultRule> faultRules;
    std::condition_variable stop;
    bool stopping = false;

    bool pause(int milliseconds);
    std::optional<ServerFault> faultOf(const httplib::Request& request, httplib::Response& response);
    void answer(const httplib::Request& request, httplib::Response& response, const LoopbackServer& owner);
    void answer(const httplib::Request& request, httplib::Response& response, const fs::path& file,
                const ServerFault& fault);
};

bool LoopbackServer::Private::pause(int milliseconds) {
    std::unique_lock<std::mutex> lock(mutex);
    return !stop.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return stopping; });
}

/** @return nothing when the request asks for a fault that there is not; the response then says so */
std::optional<ServerFault> LoopbackServer::Private::faultOf(const httplib::Request& request,
                                                            httplib::Response& response) {
    if (!request.has_param("fault")) {
        const std::lock_guard<std::mutex> lock(mutex);
        return faultFor(faultRules, {request.path, "http://127.0.0.1:" + std::to_string(port) + request.path});
    }
    std::string wrong;
    const std::optional<ServerFault> fault = parseServerFault(request.get_param_value("fault"), wrong);
    if (!fault) {
        response.status = 400;
        response.set_content("\"" + wrong +
                                 "\" is no fault; take delay:MS, status:CODE, type:MIME, cut:BYTE, "
                                 "stall:BYTE, throttle:BYTES_PER_SECOND, redirect, norange or silent.\n",
                             "text/plain");
    }
    return fault;
}

void LoopbackServer::Private::answer(const httplib::Request& request, httplib::Response& response, const fs::path& file,
                                     const ServerFault& fault) {
    if (!pause(fault.silent ? longestSilenceMs : fault.delayMs)) {
        return;
    }
    if (fault.redirect) {
        response.set_redirect(withoutRedirection(request));
    } else if (fault.silent || fault.status != 0) {
        response.status = fault.silent ? 503 : fault.status;
    } else if (request.has_param("live")) {
        std::ostringstream list;
        list << std::ifstream(file).rdbuf();
        const std::chrono::duration<double> elapsed = Clock::now() - start;
        response.set_header("Cache-Control", "no-cache");
        response.set_content(liveList(list.str(), elapsed.count()), mimeType(file));
    } else {
        answerWithFile(request, response, file, fault, [this](int milliseconds) { return pause(milliseconds); });
    }
}

void LoopbackServer::Private::answer(const httplib::Request& request, httplib::Response& response,
                                     const LoopbackServer& owner) {
    const fs::path file = owner.fileOf(request.path);
    std::error_code error;
    if (request.get_header_value("Host") != "127.0.0.1:" + std::to_string(port)) {
        response.status = 403; // A foreign page whose name was made to resolve to this machine.
    } else if (file.empty()) {
        response.status = 404;
    } else if (fs::is_directory(file, error)) {
        // Without the slash the page's relative addresses would start one folder too high.
        response.set_redirect(request.target.substr(0, request.target.find('?')) + "/");
    } else if (const std::optional<ServerFault> fault = faultOf(request, response)) {
        answer(request, response, file, *fault);
    }
}

LoopbackServer::LoopbackServer() : d(std::make_unique<Private>()) {}

LoopbackServer::~LoopbackServer() {
    if (d->thread.joinable()) {
        {
            const std::lock_guard<std::mutex> lock(d->mutex);
            d->stopping = true;
        }
        d->stop.notify_all();
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

void LoopbackServer::setFaults(std::vector<ServerFaultRule> rules) {
    const std::lock_guard<std::mutex> lock(d->mutex);
    d->faultRules = std::move(rules);
}

int LoopbackServer::start(int wantedPort) {
    d->server.new_task_queue = [] { return new httplib::ThreadPool(poolThreads); };
    d->server.set_keep_alive_timeout(keepAliveSeconds);
    d->server.set_tcp_nodelay(true);
    d->server.set_write_timeout(writeTimeoutSeconds);
    d->server.Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
        d->answer(request, response, *this);
    });
    // An error without content the engine would hide from the page's script.
    d->server.set_error_handler([](const httplib::Request& /*request*/, httplib::Response& response) {
        if (response.body.empty()) {
            response.set_content("HTTP " + std::to_string(response.status) + "\n", "text/plain");
        }
    });
    // The library's own options would let two programs share a port.
    d->server.set_socket_options([](socket_t socket) {
        const int on = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    });
    if (wantedPort != 0 && d->server.bind_to_port("127.0.0.1", wantedPort)) {
        d->port = wantedPort;
    } else {
        d->port = d->server.bind_to_any_port("127.0.0.1");
    }
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

} // namespace tv
