#include "HttpSource.h"

namespace media {
namespace {

constexpr const char* USER_AGENT = "HbbTV/1.6.1 (; desktop; media-control; " MEDIA_CONTROL_VERSION "; ; avcontrol)";

} // namespace

void setTelevisionUserAgent(GstElement* source) {
    if (g_object_class_find_property(G_OBJECT_GET_CLASS(source), "user-agent")) {
        g_object_set(source, "user-agent", USER_AGENT, nullptr);
    }
}

} // namespace media
