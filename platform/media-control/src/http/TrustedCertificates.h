/** Which web servers are believed beside those that the system believes. */
#ifndef MEDIA_CONTROL_TRUSTEDCERTIFICATES_H
#define MEDIA_CONTROL_TRUSTEDCERTIFICATES_H

#include <string>

namespace media {

/**
 * Adds the certificates of a PEM file to those that TLS connections of this process trust.
 * @return empty, or why the file cannot be used. Thread: any.
 */
std::string trustCertificates(const std::string& pemFile);

} // namespace media

#endif
