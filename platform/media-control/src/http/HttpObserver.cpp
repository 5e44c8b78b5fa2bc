#include "http/HttpObserver.h"

#include "GuardedMutex.h"
#include "gst/GstPointer.h"
#include "trace/MediaTrace.h"

#include <algorithm>
#include <libsoup/soup.h>
#include <optional>
#include <vector>

namespace media {
namespace {

// Data of a message: the PlaybackId of the media that it was sent for.
constexpr const char* PLAYBACK_OF_SOURCE = "media-control-playback-of-source";

/** How far the connection for a media item's own address got. */
enum class Stage { UNKNOWN, RESOLVING, CONNECTING, SECURING, REQUESTING, RESPONDING };

struct ObservedMedia {
    PlaybackId playback;
    PlayerThread* thread;
    int player;
    std::string url;
    Stage stage;
    std::string peer; // host and port that the request for the address goes to
};

struct Registry {
    support::Mutex mutex;
    std::vector<ObservedMedia> media GUARDED_BY(mutex); // in the order of their starts
};

Registry& registry() {
    // Never destroyed: GStreamer's threads may still run while the process ends.
    static Registry& instance = *new Registry;
    return instance;
}

std::string textOf(GUri* uri) {
    return TextPtr(g_uri_to_string(uri)).get();
}

/** @return the address in the HTTP library's own spelling; as it is when that cannot read it */
std::string spelled(const std::string& url) {
    GUri* uri = g_uri_parse(url.c_str(), static_cast<GUriFlags>(SOUP_HTTP_URI_FLAGS), nullptr);
    if (!uri) {
        return url;
    }
    const std::string text = textOf(uri);
    g_uri_unref(uri);
    return text;
}

/** @return how many characters two addresses have in common from their beginning */
size_t likeness(const std::string& a, const std::string& b) {
    const auto end = a.begin() + static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    return static_cast<size_t>(std::mismatch(a.begin(), end, b.begin()).first - a.begin());
}

int64_t bytesOf(SoupMessage* message) {
    SoupMessageHeaders* headers = soup_message_get_response_headers(message);
    return soup_message_headers_get_encoding(headers) == SOUP_ENCODING_CONTENT_LENGTH
               ? soup_message_headers_get_content_length(headers)
               : -1;
}

/** @return the playback for whose media the message was sent, NONE when none is known */
PlaybackId playbackOf(SoupMessage* message) {
    return static_cast<PlaybackId>(GPOINTER_TO_UINT(g_object_get_data(G_OBJECT(message), PLAYBACK_OF_SOURCE)));
}

/** @return the media whose own address the message was sent for; null for playlists, segments and the like */
ObservedMedia* ownerOf(SoupMessage* message) REQUIRES(registry().mutex) {
    std::vector<ObservedMedia>& all = registry().media;
    // By its first address: a source's message stays the same one when the server redirects it.
    const PlaybackId known = playbackOf(message);
    const bool isKnown = known != PlaybackId::NONE;
    const std::string url = isKnown ? std::string() : textOf(soup_message_get_uri(message));
    // Of several with the same address, the one started last.
    const auto found = std::find_if(all.rbegin(), all.rend(), [known, isKnown, &url](const ObservedMedia& media) {
        return isKnown ? media.playback == known : media.url == url;
    });
    if (found == all.rend()) {
        return nullptr;
    }
    g_object_set_data(G_OBJECT(message), PLAYBACK_OF_SOURCE, GUINT_TO_POINTER(found->playback));
    return &*found;
}

void traceLater(const ObservedMedia& media, SoupMessage* message, const std::string& url) {
    const char* range = soup_message_headers_get_one(soup_message_get_request_headers(message), "Range");
    // Later: a command that waits for this thread may hold back all traces.
    media.thread->post([player = media.player, url, range = range ? std::optional<std::string>(range) : std::nullopt,
                        status = static_cast<int>(soup_message_get_status(message)), bytes = bytesOf(message)] {
        traceRequest(player, {url.c_str(), nullptr, range ? range->c_str() : nullptr, status, bytes});
    });
}

/** The headers of a response are there. Called for each one of the process, on the thread that receives it. */
gboolean onResponse(GSignalInvocationHint*, guint, const GValue* values, gpointer) {
    auto* message = static_cast<SoupMessage*>(g_value_get_object(values));
    const support::Lock lock(registry().mutex);
    if (ObservedMedia* owner = ownerOf(message)) {
        owner->stage = Stage::RESPONDING;
        return TRUE;
    }
    if (!isTraced() || playbackOf(message) != PlaybackId::NONE) {
        return TRUE; // nobody looks, or it belongs to media that is over
    }
    const std::string url = textOf(soup_message_get_uri(message));
    std::vector<ObservedMedia>& all = registry().media;
    const auto found =
        std::max_element(all.rbegin(), all.rend(), [&url](const ObservedMedia& a, const ObservedMedia& b) {
            return likeness(a.url, url) < likeness(b.url, url);
        });
    if (found != all.rend()) {
        traceLater(*found, message, url);
    }
    return TRUE;
}

Stage stageAfter(GSocketClientEvent event) {
    switch (event) {
    case G_SOCKET_CLIENT_RESOLVING:
        return Stage::RESOLVING;
    case G_SOCKET_CLIENT_RESOLVED:
    case G_SOCKET_CLIENT_CONNECTING:
        return Stage::CONNECTING;
    case G_SOCKET_CLIENT_TLS_HANDSHAKING:
        return Stage::SECURING;
    default:
        return Stage::REQUESTING;
    }
}

/** As onResponse, for each step of a connection. */
gboolean onStep(GSignalInvocationHint*, guint, const GValue* values, gpointer) {
    auto* message = static_cast<SoupMessage*>(g_value_get_object(values));
    const support::Lock lock(registry().mutex);
    if (ObservedMedia* owner = ownerOf(message)) {
        GUri* uri = soup_message_get_uri(message);
        owner->stage = stageAfter(static_cast<GSocketClientEvent>(g_value_get_enum(values + 1)));
        owner->peer = std::string(g_uri_get_host(uri)) + ":" + std::to_string(g_uri_get_port(uri));
    }
    return TRUE;
}

void listenOnce() {
    static const bool listens = [] {
        g_type_class_ref(SOUP_TYPE_MESSAGE);
        const auto listen = [](const char* signal, GSignalEmissionHook hook) {
            g_signal_add_emission_hook(g_signal_lookup(signal, SOUP_TYPE_MESSAGE), 0, hook, nullptr, nullptr);
        };
        listen("got-headers", onResponse);
        listen("network-event", onStep);
        return true;
    }();
    static_cast<void>(listens);
}

} // namespace

HttpObserver::HttpObserver(PlayerThread& thread, int player, PlaybackId playback, const std::string& url)
    : m_playback(playback) {
    listenOnce();
    const ObservedMedia media = {playback, &thread, player, spelled(url), Stage::UNKNOWN, {}};
    const support::Lock lock(registry().mutex);
    registry().media.push_back(media);
}

HttpObserver::~HttpObserver() {
    const auto isOwn = [this](const ObservedMedia& entry) { return entry.playback == m_playback; };
    const support::Lock lock(registry().mutex);
    std::vector<ObservedMedia>& media = registry().media;
    media.erase(std::remove_if(media.begin(), media.end(), isOwn), media.end());
}

std::string HttpObserver::failure() const {
    const auto isOwn = [this](const ObservedMedia& entry) { return entry.playback == m_playback; };
    const support::Lock lock(registry().mutex);
    const auto own = std::find_if(registry().media.begin(), registry().media.end(), isOwn);
    const std::string& peer = own->peer;
    switch (own->stage) {
    case Stage::RESOLVING:
        return "no address is known for the host of " + peer + "; check its spelling and the network's name service";
    case Stage::CONNECTING:
        return "the connection is refused: no server answers at " + peer;
    case Stage::SECURING:
        return "no secure connection to " + peer + ": its certificate is not trusted, or it does not speak TLS";
    case Stage::REQUESTING:
        return "the server at " + peer + " closed the connection without an answer";
    case Stage::RESPONDING:
        return "the connection to " + peer + " broke off";
    case Stage::UNKNOWN:
        break;
    }
    return {};
}

} // namespace media
