#include "server/LoopbackServer.h"

#include "GuardedMutex.h"
#include "server/FileResponse.h"
#include "server/LiveList.h"
#include "server/MimeType.h"
#include "server/MountedFolders.h"
#include "server/StopSignal.h"

#include <chrono>
#include <fstream>
#include <httplib.h>
#include <sstream>
#include <thread>

namespace tv {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

namespace {

const char* const loopback = "127.0.0.1";
constexpr size_t poolThreads = 64;
constexpr time_t keepAliveSeconds = 1;
// A paused player may stop reading for any length of time.
constexpr time_t writeTimeoutSeconds = 24 * time_t{3600};

/** @return the address with faults that do not redirect, so that the next request gets the file */
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

void configure(httplib::Server& server) {
    server.new_task_queue = [] { return new httplib::ThreadPool(poolThreads); };
    server.set_keep_alive_timeout(keepAliveSeconds);
    server.set_tcp_nodelay(true);
    server.set_write_timeout(writeTimeoutSeconds);
    // The engine would hide an error without content from the page's script.
    server.set_error_handler([](const httplib::Request& /*request*/, httplib::Response& response) {
        if (response.body.empty()) {
            response.set_content("HTTP " + std::to_string(response.status) + "\n", "text/plain");
        }
    });
    // The library's own options would let two programs share a port.
    server.set_socket_options([](socket_t socket) {
        const int on = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    });
}

} // namespace

struct LoopbackServer::Private {
    MountedFolders folders;
    StopSignal stop; // Outlives the server, whose threads wait for it.
    httplib::Server server;
    std::thread thread;
    int port = 0;
    const Clock::time_point start = Clock::now(); // of live streams, too
    support::Mutex mutex;
    std::vector<ServerFaultRule> faultRules GUARDED_BY(mutex);

    std::string authority() const { return std::string(loopback) + ":" + std::to_string(port); }
    Result<ServerFault, std::string> faultOf(const httplib::Request& request);
    void respond(const httplib::Request& request, httplib::Response& response);
    void respond(const httplib::Request& request, httplib::Response& response, const fs::path& file,
                 const ServerFault& fault);
};

/** @return the fault of a request; or why the one that it names does not exist */
Result<ServerFault, std::string> LoopbackServer::Private::faultOf(const httplib::Request& request) {
    if (!request.has_param("fault")) {
        const support::Lock lock(mutex);
        return faultFor(faultRules, {request.path, "http://" + authority() + request.path});
    }
    auto fault = parseServerFault(request.get_param_value("fault"));
    if (!fault) {
        return Failure{"\"" + fault.reason() + "\" is not a fault. Faults are " + serverFaultForms() + ".\n"};
    }
    return fault;
}

void LoopbackServer::Private::respond(const httplib::Request& request, httplib::Response& response,
                                      const fs::path& file, const ServerFault& fault) {
    if (!stop.pause(fault.silent ? longestSilenceMs : fault.delayMs)) {
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
        respondWithFile(request, response, file, fault, stop);
    }
}

void LoopbackServer::Private::respond(const httplib::Request& request, httplib::Response& response) {
    const fs::path file = folders.fileOf(request.path);
    std::error_code error;
    if (request.get_header_value("Host") != authority()) {
        response.status = 403; // A foreign page whose name was made to resolve to this machine.
    } else if (file.empty()) {
        response.status = 404;
    } else if (fs::is_directory(file, error)) {
        // Without the slash, the page's relative addresses would start one folder too high.
        response.set_redirect(request.target.substr(0, request.target.find('?')) + "/");
    } else if (const auto fault = faultOf(request)) {
        respond(request, response, file, *fault);
    } else {
        response.status = 400;
        response.set_content(fault.reason(), "text/plain");
    }
}

LoopbackServer::LoopbackServer() : d(std::make_unique<Private>()) {}

LoopbackServer::~LoopbackServer() {
    if (d->thread.joinable()) {
        d->stop.stop();
        d->server.stop();
        cutConnections(d->port);
        d->thread.join();
    }
}

bool LoopbackServer::mount(const std::string& name, const fs::path& folder) {
    return d->folders.mount(name, folder);
}

fs::path LoopbackServer::fileOf(const std::string& urlPath) const {
    return d->folders.fileOf(urlPath);
}

void LoopbackServer::setFaults(std::vector<ServerFaultRule> rules) {
    const support::Lock lock(d->mutex);
    d->faultRules = std::move(rules);
}

int LoopbackServer::start(int wantedPort) {
    configure(d->server);
    d->server.Get(
        ".*", [this](const httplib::Request& request, httplib::Response& response) { d->respond(request, response); });
    if (wantedPort != 0 && d->server.bind_to_port(loopback, wantedPort)) {
        d->port = wantedPort;
    } else {
        d->port = d->server.bind_to_any_port(loopback);
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

} // namespace tv
