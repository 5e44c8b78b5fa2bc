/** What the players' HTTP requests carry. Threads: any. */
#ifndef MEDIA_CONTROL_MEDIAREQUESTS_H
#define MEDIA_CONTROL_MEDIAREQUESTS_H

#include "media_requests.h"

#include <gst/gst.h>
#include <string>

namespace media {

/** As mediaRequestsSetUserAgent, with an empty text for null. */
void setTelevisionUserAgent(const std::string& userAgent);

/** As mediaRequestsSetCookieCallback. */
void setCookieSource(MediaRequestsCookieCallback callback, void* userData);

/** As mediaRequestsSetBaseUrl, with an empty text for null. */
void setBaseUrl(const std::string& url);

/**
 * Makes a GStreamer source send what the television sends: its user agent and the cookies for the address. A source
 * that is not for HTTP stays as it is.
 * @param televisionUserAgent false: GStreamer's own user agent
 */
void prepareRequests(GstElement* source, const std::string& url, bool televisionUserAgent);

/** @return the address made absolute with the page's (RFC 3986, 5.2); empty when it cannot be */
std::string absoluteUrl(const std::string& url);

} // namespace media

#endif
