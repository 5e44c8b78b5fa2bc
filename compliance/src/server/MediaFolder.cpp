#include "server/MediaFolder.h"

#include "server/HttpMessage.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <netdb.h>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace compliance {
namespace {

// Names each of the media's files, a line each; the script that makes them writes it.
constexpr const char* LIST = "media.list";

struct Address {
    std::string host;
    std::string port = "80";
    std::string path; // ends with a slash
};

Address parseAddress(const std::string& text) {
    const std::string scheme = "http://";
    Address address;
    const size_t slash = text.find('/', scheme.size());
    address.host = text.substr(scheme.size(), slash - scheme.size());
    address.path = slash == std::string::npos ? "/" : text.substr(slash);
    if (address.path.back() != '/') {
        address.path += '/';
    }
    const size_t colon = address.host.find(':');
    if (colon != std::string::npos) {
        address.port = address.host.substr(colon + 1);
        address.host.erase(colon);
    }
    return address;
}

int connectTo(const Address& address) {
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(address.host.c_str(), address.port.c_str(), &hints, &found) != 0) {
        return -1;
    }
    int made = -1;
    for (const addrinfo* at = found; at && made < 0; at = at->ai_next) {
        made = socket(at->ai_family, at->ai_socktype | SOCK_CLOEXEC, at->ai_protocol);
        if (made >= 0 && connect(made, at->ai_addr, at->ai_addrlen) != 0) {
            close(made);
            made = -1;
        }
    }
    freeaddrinfo(found);
    return made;
}

std::string fetch(const Address& address, const std::string& file) {
    const std::string where = "http://" + address.host + ':' + address.port + address.path + file;
    const int connection = connectTo(address);
    if (connection < 0) {
        throw std::runtime_error("no server answers for " + where);
    }
    sendText(connection, "GET " + address.path + file + " HTTP/1.0\r\nHost: " + address.host + "\r\n\r\n");
    std::string response;
    char buffer[16'384];
    for (ssize_t count = 0; (count = recv(connection, buffer, sizeof buffer, 0)) > 0;) {
        response.append(buffer, static_cast<size_t>(count));
    }
    close(connection);
    const size_t end = response.find("\r\n\r\n");
    if (end == std::string::npos || response.find(" 200 ") > response.find('\r')) {
        throw std::runtime_error(where + " cannot be had: " + response.substr(0, response.find('\r')));
    }
    return response.substr(end + 4);
}

std::string temporaryFolder() {
    const char* parent = std::getenv("TMPDIR");
    std::string name = std::string(parent && *parent ? parent : "/tmp") + "/avcontrol-compliance-XXXXXX";
    if (!mkdtemp(name.data())) {
        throw std::runtime_error("no folder for the media: " + name + ": " + std::strerror(errno));
    }
    return name;
}

} // namespace

MediaFolder::MediaFolder(const std::string& place) : m_path(place) {
    if (place.compare(0, 7, "http://") == 0) {
        m_isCopy = true;
        m_path = temporaryFolder();
        try {
            copyFrom(place);
        } catch (...) {
            removeCopy();
            throw;
        }
        return;
    }
    std::ifstream list(place + '/' + LIST);
    if (!list) {
        throw std::runtime_error("no media in " + place + ": run make-compliance-media " + place);
    }
    for (std::string file; std::getline(list, file);) {
        if (access((place + '/' + file).c_str(), R_OK) != 0) {
            throw std::runtime_error(place + '/' + file + " is missing: run make-compliance-media " + place);
        }
    }
}

MediaFolder::~MediaFolder() {
    removeCopy();
}

void MediaFolder::copyFrom(const std::string& address) {
    const Address parsed = parseAddress(address);
    std::istringstream list(fetch(parsed, LIST));
    for (std::string file; std::getline(list, file);) {
        if (file.empty() || file.find("..") != std::string::npos) {
            continue;
        }
        for (size_t slash = 0; (slash = file.find('/', slash + 1)) != std::string::npos;) {
            const std::string folder = m_path + '/' + file.substr(0, slash);
            if (mkdir(folder.c_str(), 0700) == 0) {
                m_copied.push_back(folder);
            }
        }
        const std::string bytes = fetch(parsed, file);
        m_copied.push_back(m_path + '/' + file);
        std::ofstream copy(m_copied.back(), std::ios::binary);
        copy << bytes;
        if (!copy.flush()) {
            throw std::runtime_error("no room for the media: " + m_copied.back() + " cannot be written");
        }
    }
}

void MediaFolder::removeCopy() {
    if (!m_isCopy) {
        return;
    }
    for (auto file = m_copied.rbegin(); file != m_copied.rend(); ++file) {
        remove(file->c_str());
    }
    rmdir(m_path.c_str());
}

} // namespace compliance
