/**
 * Serves local folders over HTTP on the loopback interface, so that a local page and its media behave as on a server.
 */
#ifndef LOOPBACKSERVER_H
#define LOOPBACKSERVER_H

#include "server/ServerFault.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tv {

/**
 * Any file's address takes `?fault=...` (see parseServerFault), and that of an HLS playlist `?live`, which makes
 * it the list of a live stream that began with the server.
 */
class LoopbackServer {
public:
    LoopbackServer();

    /** Cuts connections that are still open and returns when no thread of the server runs any more. */
    ~LoopbackServer();

    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    /**
     * Adds a folder. Files outside it are never served, not through `..` and not through symbolic links.
     * @param name   first part of the address path, without slashes; empty for the folder that takes all other paths
     * @param folder an existing folder
     * @return false when `name` contains a slash or `folder` is not a folder. Call before start().
     */
    bool mount(const std::string& name, const std::filesystem::path& folder);

    /**
     * Listens on a free port of 127.0.0.1 and serves from threads of its own: GET and HEAD, with Range.
     * @param wantedPort taken when it is free; 0 for any
     * @return the port, or 0 when there is none to be had. To be called once.
     */
    int start(int wantedPort = 0);

    /** Sets the faults of requests that name none in their query: the first rule that fits counts. Thread: any. */
    void setFaults(std::vector<ServerFaultRule> rules);

    /** @return the file behind an address path (percent signs already decoded), or empty when there is none. */
    std::filesystem::path fileOf(const std::string& urlPath) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace tv

#endif
