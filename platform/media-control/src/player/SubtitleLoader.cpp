#include "player/SubtitleLoader.h"

#include <string>

namespace media {
namespace {

/** @return the address, made absolute with the media's when it was written relative to a page that nobody knows */
std::string resolved(const std::string& url, const std::string& media) {
    if (gst_uri_is_valid(url.c_str())) {
        return url;
    }
    const TextPtr absolute(g_uri_resolve_relative(media.c_str(), url.c_str(), G_URI_FLAGS_ENCODED, nullptr));
    return absolute ? absolute.get() : url;
}

} // namespace

void SubtitleLoader::start(const PlaybackSettings& settings) {
    m_readers.clear(); // before Subtitles forgets what they read: none of them reports any more
    m_settings = settings;
    m_context.subtitles->startPlayback(settings.playback);
    readAdded();
}

void SubtitleLoader::readAdded() {
    for (const Subtitles::Request& request : m_context.subtitles->takeRequests()) {
        const auto done = [this, track = request.track](SubtitleReader::Outcome file) {
            if (m_context.subtitles->finishRequest(track, std::move(file))) {
                reportSelection();
            }
            m_context.videoOutput->notifyOverlayChange();
        };
        m_readers.push_back(std::make_unique<SubtitleReader>(m_context.thread, resolved(request.url, m_settings.url),
                                                             m_settings.televisionUserAgent, done));
    }
}

void SubtitleLoader::reportSelection() {
    m_context.status.report(m_settings.playback, eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED,
                            AV_COMPONENT_TYPE_SUBTITLE);
    m_context.videoOutput->notifyOverlayChange();
}

} // namespace media
