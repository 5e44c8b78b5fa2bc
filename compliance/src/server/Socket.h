/** A socket at an address of this host. */
#ifndef COMPLIANCE_SOCKET_H
#define COMPLIANCE_SOCKET_H

#include <string>

namespace compliance {

/**
 * @param address IPv4 address of a network interface
 * @param port    0 for any; receives the one that it is bound to
 * @return a TCP socket, the caller's to close
 * @throws std::runtime_error when the address or port cannot be had
 */
int boundSocket(const std::string& address, int& port);

} // namespace compliance

#endif
