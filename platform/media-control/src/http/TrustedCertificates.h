/** Web servers that are trusted beside those that the system trusts. */
#ifndef MEDIA_CONTROL_TRUSTEDCERTIFICATES_H
#define MEDIA_CONTROL_TRUSTEDCERTIFICATES_H

#include "Result.h"

#include <string>

namespace media {

/**
 * Adds the certificates of a PEM file to those that TLS connections of this process trust.
 * @return for people: why the file cannot be used. Thread: any.
 */
support::Result<void, std::string> trustCertificates(const std::string& pemFile);

} // namespace media

#endif
