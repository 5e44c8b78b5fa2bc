/**
 * What the desktop media player's HTTP requests carry, and the way that they take.
 *
 * The settings are those of the process, for all its players. Unless its comment says otherwise, a setting applies to
 * the media that starts after it was made. All texts are copied. Threads: any.
 */
#ifndef MEDIA_REQUESTS_H
#define MEDIA_REQUESTS_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Sets the television's user agent. Players send it for which Hbbtv_AL_MediaPlayerSetUserAgent was called.
 * @param userAgent value of the User-Agent header in the form of ETSI TS 102 796, "HbbTV/1.6.1 (<capabilities>;
 *                  <vendor>; <model>; <software version>; <hardware version>; <family>; <reserved>)", in one line;
 *                  null or empty for the player's own
 */
void mediaRequestsSetUserAgent(const char* userAgent);

/**
 * Returns the cookies that a request carries. It may be called on any thread of a player, and must not wait for a
 * thread that may be setting the callback.
 * @param url      absolute address of the request
 * @param userData as given to mediaRequestsSetCookieCallback
 * @return value of the Cookie header (RFC 6265, 4.2), for example "a=1; b=2", in a block from malloc() that the player
 *         frees; null for none
 */
typedef char* (*MediaRequestsCookieCallback)(const char* url, void* userData);

/**
 * Sets the source of cookies; null removes it. When this function returns, no call of the former callback runs or will
 * come.
 */
void mediaRequestsSetCookieCallback(MediaRequestsCookieCallback callback, void* userData);

/**
 * Sets the address of the page. Relative addresses, which pages may write for subtitles, are resolved against it.
 * @param url absolute; null or empty for none: relative addresses are then resolved against that of the media
 */
void mediaRequestsSetBaseUrl(const char* url);

/**
 * Sends plain HTTP requests through a proxy (RFC 9110, 3.7); requests over https take the way that the system says. It
 * applies to all connections of the process that go through GLib, from the next one on. The first call must come before
 * the first media starts.
 * @param proxy  "http://host:port"; null or empty for the way that the system says
 * @param except "host:port" of a server to which requests take the way that the system says; null or empty for none
 */
void mediaRequestsSetProxy(const char* proxy, const char* except);

/**
 * Trusts https servers whose certificate is in a file, or is signed by one that is, beside those that the system
 * trusts. It applies to all connections of the process that go through GLib, for good. It must be called before the
 * first media starts.
 * @param pemFile path of a PEM file with one or more certificates
 * @return 1, or 0 when the file cannot be used; an error line then says why
 */
int mediaRequestsTrustCertificate(const char* pemFile);

#ifdef __cplusplus
}
#endif

#endif
