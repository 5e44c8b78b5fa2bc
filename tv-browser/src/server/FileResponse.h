/** A web server's response with a file, correct or with a fault. */
#ifndef FILERESPONSE_H
#define FILERESPONSE_H

#include "server/FaultyContent.h"

#include <filesystem>
#include <httplib.h>

namespace tv {

/**
 * Responds to a GET or HEAD request with a file's content, or with the requested range of it.
 * @param stop ends the waits while the content is sent, after this function too; must outlive the response
 */
void respondWithFile(const httplib::Request& request, httplib::Response& response, const std::filesystem::path& file,
                     const ServerFault& fault, StopSignal& stop);

} // namespace tv

#endif
