#include "server/MountedFolders.h"

#include <algorithm>

namespace tv {

namespace fs = std::filesystem;

namespace {

bool isInside(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

} // namespace

bool MountedFolders::mount(const std::string& name, const fs::path& folder) {
    std::error_code error;
    const fs::path canonical = fs::canonical(folder, error);
    if (error || !fs::is_directory(canonical, error) || name.find('/') != std::string::npos) {
        return false;
    }
    m_folders[name] = canonical;
    return true;
}

fs::path MountedFolders::fileOf(const std::string& urlPath) const {
    if (urlPath.empty() || urlPath[0] != '/' || urlPath.find('\0') != std::string::npos) {
        return {};
    }
    const size_t slash = urlPath.find('/', 1);
    const std::string first = urlPath.substr(1, slash == std::string::npos ? slash : slash - 1);
    auto folder = m_folders.find(first);
    std::string rest = slash == std::string::npos ? std::string() : urlPath.substr(slash + 1);
    if (first.empty() || folder == m_folders.end()) {
        folder = m_folders.find(std::string());
        rest = urlPath.substr(1);
    }
    if (folder == m_folders.end()) {
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
