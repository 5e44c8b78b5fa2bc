/** The kit's media on this host: a folder, or a copy of what a server has. */
#ifndef COMPLIANCE_MEDIAFOLDER_H
#define COMPLIANCE_MEDIAFOLDER_H

#include <string>
#include <vector>

namespace compliance {

/** What was copied is removed with the object. */
class MediaFolder {
public:
    /**
     * @param place folder that make-compliance-media has made, or its address at a server (http, no https)
     * @throws std::runtime_error when something is missing there
     */
    explicit MediaFolder(const std::string& place);
    ~MediaFolder();
    MediaFolder(const MediaFolder&) = delete;
    MediaFolder& operator=(const MediaFolder&) = delete;

    const std::string& path() const { return m_path; }

private:
    void copyFrom(const std::string& address);
    void removeCopy();

    std::string m_path;
    bool m_isCopy = false;
    std::vector<std::string> m_copied; // files and folders, in the order in which they were made
};

} // namespace compliance

#endif
