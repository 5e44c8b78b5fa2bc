/**
 * What the desktop media player's HTTP requests carry: one setting for all players of the process.
 *
 * A setting holds for the requests of every media that is started after it. All texts are copied. Threads: any.
 */
#ifndef MEDIA_REQUESTS_H
#define MEDIA_REQUESTS_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Sets the television's user agent, which players send that Hbbtv_AL_MediaPlayerSetUserAgent was called for.
 * @param userAgent value of the User-Agent header in the form of ETSI TS 102 796, "HbbTV/1.6.1 (<capabilities>;
 *                  <vendor>; <model>; <software version>; <hardware version>; <family>; <reserved>)", one line; null
 *                  or empty for the player's own
 */
void mediaRequestsSetUserAgent(const char* userAgent);

/**
 * Says which cookies a request carries.
 * @param url      absolute address of the request
 * @param userData as given to mediaRequestsSetCookieCallback
 * @return value of the Cookie header (RFC 6265, 4.2), for example "a=1; b=2", in a block from malloc() that becomes the
 *         player's; null for none
 * Thread: any of a player's. Must not wait for a thread that may be setting the callback.
 */
typedef char* (*MediaRequestsCookieCallback)(const char* url, void* userData);

/** Sets the source of cookies; null ends it. When this function returns, no call to the former callback runs. */
void mediaRequestsSetCookieCallback(MediaRequestsCookieCallback callback, void* userData);

/**
 * Sets the address of the page, against which addresses are resolved that pages write relative: those of subtitles.
 * @param url absolute; null or empty for none: relative addresses are then refused
 */
void mediaRequestsSetBaseUrl(const char* url);

/**
 * Sends plain HTTP requests through a proxy (RFC 9110, 3.7); those by https go as the system says. Holds for all
 * connections of the process that go through GLib, from the next one on. The first call must come before the first
 * media.
 * @param proxy  "http://host:port"; null or empty for what the system says
 * @param except "host:port" of a server whose requests go as the system says; null or empty for none
 */
void mediaRequestsSetProxy(const char* proxy, const char* except);

/**
 * Makes https servers trusted whose certificate is in a file, or is signed by one of it, beside those that the system
 * trusts. Holds for all connections of the process that go through GLib, for ever. To be called before the first media.
 * @param pemFile path of a PEM file with one certificate or several
 * @return 1, or 0 when the file cannot be used, which an error line then explains
 */
int mediaRequestsTrustCertificate(const char* pemFile);

#ifdef __cplusplus
}
#endif

#endif
