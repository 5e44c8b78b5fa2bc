/** Serves a page and its media on the loopback interface, from a process whose cost is attributed to neither player. */
#include "server/LoopbackServer.h"

#include <cstdio>
#include <unistd.h>

using namespace tv;

int main(int argc, char* argv[]) {
    LoopbackServer server;
    if (argc != 3 || !server.mount(std::string(), argv[1]) || !server.mount("media", argv[2])) {
        std::fprintf(stderr, "Usage: serve FOLDER MEDIA_FOLDER\nServes FOLDER as / and MEDIA_FOLDER as /media/, prints "
                             "the address, and runs until it is killed.\n");
        return 2;
    }
    const int port = server.start();
    if (port == 0) {
        std::fprintf(stderr, "serve: no free port on 127.0.0.1\n");
        return 1;
    }
    std::printf("http://127.0.0.1:%d\n", port);
    std::fflush(stdout);
    pause();
    return 0;
}
