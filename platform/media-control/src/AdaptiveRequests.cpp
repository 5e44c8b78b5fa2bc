#include "AdaptiveRequests.h"

#include "GstPointer.h"
#include "MediaTrace.h"

#include <algorithm>
#include <libsoup/soup.h>
#include <mutex>
#include <vector>

namespace media {
namespace {

constexpr const char* OF_A_SOURCE = "media-control-of-a-source";

struct Media {
    const AdaptiveRequests* key;
    PlayerThread* thread;
    int player;
    std::string url;
};

struct Registry {
    std::mutex mutex; // guards all below
    std::vector<Media> media;
};

Registry& registry() {
    // Never destroyed: GStreamer's threads may still run while the process ends.
    static Registry& instance = *new Registry;
    return instance;
}

/** @return the address in the HTTP library's own spelling; as it is when that cannot read it */
std::string spelled(const std::string& url) {
    GUri* uri = g_uri_parse(url.c_str(), static_cast<GUriFlags>(SOUP_HTTP_URI_FLAGS), nullptr);
    if (!uri) {
        return url;
    }
    const TextPtr text(g_uri_to_string(uri));
    g_uri_unref(uri);
    return text.get();
}

size_t likeness(const std::string& a, const std::string& b) {
    const auto end = a.begin() + static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    return static_cast<size_t>(std::mismatch(a.begin(), end, b.begin()).first - a.begin());
}

std::string describe(SoupMessage* message, const std::string& url) {
    const char* range = soup_message_headers_get_one(soup_message_get_request_headers(message), "Range");
    return "GET " + url + (range ? std::string(" ") + range : "");
}

int64_t bytesOf(SoupMessage* message) {
    SoupMessageHeaders* headers = soup_message_get_response_headers(message);
    return soup_message_headers_get_encoding(headers) == SOUP_ENCODING_CONTENT_LENGTH
               ? soup_message_headers_get_content_length(headers)
               : -1;
}

/** Every answer of the process's HTTP library passes here, on the thread that has it. */
gboolean onAnswer(GSignalInvocationHint*, guint, const GValue* values, gpointer) {
    auto* message = static_cast<SoupMessage*>(g_value_get_object(values));
    // A source's message stays the same one when the server sends it to another address.
    if (g_object_get_data(G_OBJECT(message), OF_A_SOURCE)) {
        return TRUE;
    }
    const TextPtr text(g_uri_to_string(soup_message_get_uri(message)));
    const std::string url = text.get();
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (std::any_of(all.media.begin(), all.media.end(), [&url](const Media& media) { return media.url == url; })) {
        g_object_set_data(G_OBJECT(message), OF_A_SOURCE, message);
        return TRUE;
    }
    // Of equals the last: it was started last.
    const auto found = std::max_element(all.media.rbegin(), all.media.rend(), [&url](const Media& a, const Media& b) {
        return likeness(a.url, url) < likeness(b.url, url);
    });
    if (found != all.media.rend()) {
        // Later: a command that waits for this thread may hold back all traces.
        found->thread->post([player = found->player, request = describe(message, url),
                             status = static_cast<int>(soup_message_get_status(message)),
                             bytes = bytesOf(message)] { traceAnswer(player, request, status, bytes); });
    }
    return TRUE;
}

void listenOnce() {
    static const gulong hook = [] {
        g_type_class_ref(SOUP_TYPE_MESSAGE);
        return g_signal_add_emission_hook(g_signal_lookup("got-headers", SOUP_TYPE_MESSAGE), 0, onAnswer, nullptr,
                                          nullptr);
    }();
    static_cast<void>(hook);
}

} // namespace

AdaptiveRequests::AdaptiveRequests(PlayerThread& thread, int player, const std::string& url) {
    listenOnce();
    const Media media = {this, &thread, player, spelled(url)};
    const std::lock_guard<std::mutex> lock(registry().mutex);
    registry().media.push_back(media);
}

AdaptiveRequests::~AdaptiveRequests() {
    std::vector<Media>& media = registry().media;
    const std::lock_guard<std::mutex> lock(registry().mutex);
    media.erase(std::remove_if(media.begin(), media.end(), [this](const Media& entry) { return entry.key == this; }),
                media.end());
}

} // namespace media
