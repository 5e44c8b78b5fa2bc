/** Serves local folders over HTTP on the loopback interface, so that local pages behave as they do on a server. */
#ifndef LOOPBACKSERVER_H
#define LOOPBACKSERVER_H

#include "server/ServerFault.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tv {

/**
 * A web server of this machine only. The address of every file takes `?fault=...` (see parseServerFault); that of an
 * HLS playlist also takes `?live`, which makes it the playlist of a live stream that began with the server.
 */
class LoopbackServer {
public:
    LoopbackServer();

    /** Cuts connections that are still open, and returns when no thread of the server runs any more. */
    ~LoopbackServer();

    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    /** Adds a folder: see MountedFolders::mount. Call before start(). */
    bool mount(const std::string& name, const std::filesystem::path& folder);

    /**
     * Listens on a port of 127.0.0.1 and serves GET and HEAD requests, with Range, on threads of its own. Call once.
     * @param wantedPort taken when it is free; 0 for any
     * @return the port, or 0 when no port is free
     */
    int start(int wantedPort = 0);

    /** Sets the faults of requests whose query names none: the first rule that matches applies. Thread: any. */
    void setFaults(std::vector<ServerFaultRule> rules);

    /** @return the file behind an address path: see MountedFolders::fileOf */
    std::filesystem::path fileOf(const std::string& urlPath) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace tv

#endif
