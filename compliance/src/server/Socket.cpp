#include "server/Socket.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace compliance {
namespace {

sockaddr_in socketAddress(const std::string& address, int port) {
    sockaddr_in result = {};
    result.sin_family = AF_INET;
    result.sin_port = htons(static_cast<uint16_t>(port));
    if (inet_pton(AF_INET, address.c_str(), &result.sin_addr) != 1) {
        throw std::runtime_error("\"" + address + "\" is no IPv4 address, as 127.0.0.1 is");
    }
    return result;
}

} // namespace

int boundSocket(const std::string& address, int& port) {
    sockaddr_in wanted = socketAddress(address, port);
    const int made = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(made, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    socklen_t size = sizeof wanted;
    if (made < 0 || bind(made, reinterpret_cast<sockaddr*>(&wanted), sizeof wanted) != 0 ||
        getsockname(made, reinterpret_cast<sockaddr*>(&wanted), &size) != 0) {
        const std::string reason = std::strerror(errno);
        if (made >= 0) {
            close(made);
        }
        throw std::runtime_error("no server at " + address + ":" + std::to_string(port) + ": " + reason);
    }
    port = ntohs(wanted.sin_port);
    return made;
}

} // namespace compliance
