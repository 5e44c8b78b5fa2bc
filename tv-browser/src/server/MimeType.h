/** The Content-Type of local files. */
#ifndef MIMETYPE_H
#define MIMETYPE_H

#include <filesystem>

namespace tv {

/** @return the Content-Type of a file, by its extension in any case; `application/octet-stream` for an unknown one */
const char* mimeType(const std::filesystem::path& file);

} // namespace tv

#endif
