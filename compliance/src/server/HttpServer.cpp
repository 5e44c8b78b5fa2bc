#include "server/HttpServer.h"

#include "server/HttpMessage.h"
#include "server/Socket.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace compliance {
namespace {

constexpr int WAITING_CONNECTIONS = 64;
constexpr long CHUNK = 65'536;
constexpr int POLL_MS = 50;

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

/** Takes "/KEYWORD/NUMBER" off the front of a path. @return false when it begins otherwise */
bool takePrefix(std::string& path, const std::string& keyword, long& number) {
    const std::string prefix = '/' + keyword + '/';
    if (!startsWith(path, prefix)) {
        return false;
    }
    const size_t end = path.find('/', prefix.size());
    if (end == std::string::npos) {
        return false;
    }
    number = std::strtol(path.c_str() + prefix.size(), nullptr, 10);
    path.erase(0, end);
    return true;
}

} // namespace

HttpServer::HttpServer(const std::string& address, int port) : m_address(address), m_port(port) {
    m_listener = boundSocket(address, m_port);
    listen(m_listener, WAITING_CONNECTIONS);
    m_thread = std::thread([this] { accept(); });
}

HttpServer::~HttpServer() {
    release();
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_ending = true;
        for (const int connection : m_connections) {
            shutdown(connection, SHUT_RDWR);
        }
    }
    m_thread.join();
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_connections.empty(); });
    lock.unlock();
    close(m_listener);
}

void HttpServer::mount(const std::string& path, const std::string& folder) {
    m_mounts.emplace_back(path, folder);
}

void HttpServer::setHandler(Handler handler) {
    m_handler = std::move(handler);
}

std::string HttpServer::url(const std::string& path) const {
    return "http://" + m_address + ":" + std::to_string(m_port) + path;
}

void HttpServer::release() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_released = true;
    m_changed.notify_all();
}

int HttpServer::held() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_held;
}

int HttpServer::connections() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_connections.size());
}

std::vector<HttpRequest> HttpServer::requests() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_requests;
}

std::string HttpServer::refusedUrl() const {
    int port = 0;
    close(boundSocket(m_address, port)); // free a moment ago, and nobody is given it so soon again
    return "http://" + m_address + ":" + std::to_string(port) + "/film.mp4";
}

void HttpServer::accept() {
    for (;;) {
        pollfd waiting = {m_listener, POLLIN, 0};
        const int ready = poll(&waiting, 1, POLL_MS);
        const int connection = ready > 0 ? ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC) : -1;
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_ending) {
            if (connection >= 0) {
                close(connection);
            }
            return;
        }
        if (connection >= 0) {
            m_connections.insert(connection);
            std::thread([this, connection] { serve(connection); }).detach();
        }
    }
}

void HttpServer::serve(int connection) {
    if (auto request = receiveRequest(connection)) {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_requests.push_back(*request);
            m_requests.back().body.clear();
        }
        answer(connection, *request);
        shutdown(connection, SHUT_WR);
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    close(connection);
    m_connections.erase(connection);
    m_changed.notify_all(); // under the lock: the server may be gone right after
}

void HttpServer::answer(int connection, HttpRequest& request) {
    HttpResponse response;
    Manner manner;
    if (m_handler && m_handler(request, response)) {
        sendResponse(connection, response, request.method != "HEAD");
        return;
    }
    if (answerSpecially(connection, request, manner)) {
        return;
    }
    const std::string file = fileFor(request.path);
    if (file.empty()) {
        sendResponse(connection, {404, "text/plain", "not found\n"}, request.method != "HEAD");
        return;
    }
    sendFile(connection, request, file, manner);
}

/** @return true when that was all; else `manner` says how the file of the path that is left is sent */
bool HttpServer::answerSpecially(int connection, HttpRequest& request, Manner& manner) {
    if (startsWith(request.path, "/silent/")) {
        hold(connection);
        return true;
    }
    long status = 0;
    if (takePrefix(request.path, "status", status)) {
        sendResponse(connection, {static_cast<int>(status), "text/plain", "as requested\n"}, request.method != "HEAD");
        return true;
    }
    if (takePrefix(request.path, "stall", manner.amount)) {
        manner.kind = Manner::STALL;
    } else if (takePrefix(request.path, "cut", manner.amount)) {
        manner.kind = Manner::CUT;
    } else if (takePrefix(request.path, "slow", manner.amount)) {
        manner.kind = Manner::SLOW;
    }
    return false;
}

std::string HttpServer::fileFor(const std::string& path) const {
    if (path.find("..") != std::string::npos) {
        return "";
    }
    for (const auto& [prefix, folder] : m_mounts) {
        const std::string file = startsWith(path, prefix) ? folder + '/' + path.substr(prefix.size()) : "";
        struct stat info = {};
        if (!file.empty() && stat(file.c_str(), &info) == 0 && S_ISREG(info.st_mode)) {
            return file;
        }
    }
    return "";
}

void HttpServer::sendFile(int connection, const HttpRequest& request, const std::string& file, const Manner& manner) {
    const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    const long size = opened < 0 ? 0 : static_cast<long>(lseek(opened, 0, SEEK_END));
    const auto header = request.headers.find("range");
    const bool isRange = header != request.headers.end();
    const auto range = parseRange(isRange ? header->second : "", size);
    if (opened < 0 || !range) {
        sendText(connection,
                 responseHead(416, "text/plain", 0) + "Content-Range: bytes */" + std::to_string(size) + "\r\n\r\n");
    } else {
        std::string head = responseHead(isRange ? 206 : 200, typeOf(file), range->second - range->first + 1);
        head += "Accept-Ranges: bytes\r\n";
        if (isRange) {
            head += "Content-Range: bytes " + std::to_string(range->first) + '-' + std::to_string(range->second) + '/' +
                    std::to_string(size) + "\r\n";
        }
        if (sendText(connection, head + "\r\n") && request.method != "HEAD") {
            sendBytes(connection, opened, range->first, range->second, size, manner);
        }
    }
    if (opened >= 0) {
        close(opened);
    }
}

void HttpServer::sendBytes(int connection, int file, long first, long last, long size, const Manner& manner) {
    const bool isPart = manner.kind == Manner::STALL || manner.kind == Manner::CUT;
    const long end = isPart ? std::min(last + 1, size * manner.amount / 100) : last + 1;
    const long chunk = manner.kind == Manner::SLOW ? std::max(1L, manner.amount / (1000 / POLL_MS)) : CHUNK;
    std::string buffer(static_cast<size_t>(std::min(chunk, CHUNK)), '\0');
    for (long at = first; at < end;) {
        const size_t wanted = std::min(buffer.size(), static_cast<size_t>(end - at));
        const ssize_t count = pread(file, buffer.data(), wanted, at);
        if (count <= 0 || !sendAll(connection, buffer.data(), static_cast<size_t>(count))) {
            return;
        }
        at += count;
        if (manner.kind == Manner::SLOW) {
            std::this_thread::sleep_for(std::chrono::milliseconds(POLL_MS));
        }
    }
    if (manner.kind == Manner::STALL && end <= last) {
        hold(connection);
    }
}

/** Sends nothing until release(), or until the client closes. */
void HttpServer::hold(int connection) {
    std::unique_lock<std::mutex> lock(m_mutex);
    ++m_held;
    while (!m_released && !m_ending) {
        m_changed.wait_for(lock, std::chrono::milliseconds(POLL_MS));
        char byte = 0;
        if (recv(connection, &byte, 1, MSG_DONTWAIT | MSG_PEEK) == 0) {
            break;
        }
    }
    --m_held;
}

} // namespace compliance
