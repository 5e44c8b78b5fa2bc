/** Which file an address path of the local server stands for. */
#ifndef MOUNTEDFOLDERS_H
#define MOUNTEDFOLDERS_H

#include <filesystem>
#include <map>
#include <string>

namespace tv {

/** The folders that a server serves. Files outside them are not found, not through `..` nor through symbolic links. */
class MountedFolders {
public:
    /**
     * Adds a folder, or replaces the one of that name.
     * @param name first part of the address path; empty for the folder that takes all other paths
     * @return false when `name` contains a slash or `folder` is not an existing folder
     */
    bool mount(const std::string& name, const std::filesystem::path& folder);

    /** @return the file or folder behind an address path (percent signs already decoded); empty when there is none */
    std::filesystem::path fileOf(const std::string& urlPath) const;

private:
    std::map<std::string, std::filesystem::path> m_folders; ///< canonical paths, by name
};

} // namespace tv

#endif
