/** A web server's answer with a file, in order or with a fault. */
#ifndef FILERESPONSE_H
#define FILERESPONSE_H

#include "server/FaultyContent.h"

#include <filesystem>
#include <httplib.h>

namespace tv {

/**
 * Answers a GET or HEAD request with a file's content, or the range of it that is asked for.
 * @param pause is called on the server's thread, then and while the content is sent
 */
void answerWithFile(const httplib::Request& request, httplib::Response& response, const std::filesystem::path& file,
                    const ServerFault& fault, const ServerPause& pause);

/** @return the Content-Type of a file, by its extension */
const char* mimeType(const std::filesystem::path& file);

} // namespace tv

#endif
