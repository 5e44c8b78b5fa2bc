/**
 * A small web server that can misbehave on request: it serves folders with ranges, and below some paths it is silent,
 * slow, wrong or breaks off. Each connection carries one request, so that nothing of a test outlives it.
 *
 *   /silent/NAME         takes the request and sends nothing until release()
 *   /stall/PERCENT/PATH  sends the file's first PERCENT and then nothing until release()
 *   /cut/PERCENT/PATH    announces the file, sends its first PERCENT and closes the connection
 *   /slow/BYTES/PATH     sends BYTES a second
 *   /status/CODE/NAME    answers with that status code and no file
 */
#ifndef COMPLIANCE_HTTPSERVER_H
#define COMPLIANCE_HTTPSERVER_H

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace compliance {

struct HttpRequest {
    std::string method;
    std::string path;                           // decoded, without the query
    std::string query;                          // what follows the question mark
    std::map<std::string, std::string> headers; // names in small letters
    std::string body;
};

struct HttpResponse {
    int status = 200;
    std::string type = "text/plain; charset=utf-8";
    std::string body;
};

class HttpServer {
public:
    /** Answers a request that is no file. @return false to leave it to the files. Called on any thread. */
    using Handler = std::function<bool(const HttpRequest&, HttpResponse&)>;

    /**
     * @param address of the network interface, as 127.0.0.1
     * @param port 0 for any
     * @throws std::runtime_error when the address or port cannot be had
     */
    explicit HttpServer(const std::string& address, int port = 0);
    ~HttpServer();

    /** Serves the files of a folder below a path, for example "/media/". To be called before the first request. */
    void mount(const std::string& path, const std::string& folder);
    void setHandler(Handler handler);

    /** @param path as "/media/film.mp4" */
    std::string url(const std::string& path) const;

    /** Ends the silence of every connection that is held, and holds none from now on. */
    void release();

    /** @return how many connections are held silent now */
    int held() const;

    /** @return how many connections are open now */
    int connections() const;

    /** @return the requests so far, without bodies */
    std::vector<HttpRequest> requests() const;

    /** @return an address of this host at which nobody listens */
    std::string refusedUrl() const;

private:
    /** How the bytes of a file are sent. */
    struct Manner {
        enum { WHOLE, STALL, CUT, SLOW } kind = WHOLE;
        long amount = 0; // percent, or bytes a second
    };

    void accept();
    void serve(int connection);
    void answer(int connection, HttpRequest& request);
    bool answerSpecially(int connection, HttpRequest& request, Manner& manner);
    void sendFile(int connection, const HttpRequest& request, const std::string& file, const Manner& manner);
    void sendBytes(int connection, int file, long first, long last, long size, const Manner& manner);
    void hold(int connection);
    std::string fileFor(const std::string& path) const;

    const std::string m_address;
    int m_port = 0;
    int m_listener = -1;
    std::vector<std::pair<std::string, std::string>> m_mounts;
    Handler m_handler;
    std::thread m_thread;

    mutable std::mutex m_mutex; // guards all below
    std::condition_variable m_changed;
    bool m_released = false;
    bool m_ending = false;
    int m_held = 0;
    std::set<int> m_connections;
    std::vector<HttpRequest> m_requests;
};

} // namespace compliance

#endif
