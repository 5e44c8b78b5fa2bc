/** The proxy that the process's plain HTTP requests go through. Threads: any. */
#ifndef MEDIA_CONTROL_REQUESTPROXY_H
#define MEDIA_CONTROL_REQUESTPROXY_H

#include <string>

namespace media {

/** As mediaRequestsSetProxy, with empty texts for null. */
void setRequestProxy(const std::string& proxy, const std::string& except);

} // namespace media

#endif
