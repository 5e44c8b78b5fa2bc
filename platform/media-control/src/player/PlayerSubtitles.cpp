#include "player/Player.h"

#include "http/MediaRequests.h"

#include <algorithm>

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

void Player::addSubtitle(const sub_properties_t& properties) {
    const std::lock_guard<std::mutex> lock(m_commandMutex);
    const std::string absolute = absoluteUrl(properties.url);
    m_subtitles->add(properties, absolute.empty() ? properties.url : absolute);
    post([](Player& player) {
        if (player.m_playback) {
            player.readSubtitles();
        }
    });
}

std::vector<Hbbtv_AL_ComponentInfo> Player::listComponents(AVComponentType type) const {
    std::vector<Hbbtv_AL_ComponentInfo> infos = m_components.list(type);
    if (type == AV_COMPONENT_TYPE_SUBTITLE && !m_status.isStopped()) {
        const std::vector<Hbbtv_AL_ComponentInfo> tracks = m_subtitles->list();
        infos.insert(infos.end(), tracks.begin(), tracks.end());
        for (Hbbtv_AL_ComponentInfo& info : infos) {
            info.active = m_subtitles->selected() == info.pid ? 1 : 0; // a stream may flow without being shown
        }
    }
    return infos;
}

bool Player::selectSubtitles(std::optional<int> pid) {
    const std::vector<Hbbtv_AL_ComponentInfo> infos = listComponents(AV_COMPONENT_TYPE_SUBTITLE);
    const auto isMeant = [pid](const Hbbtv_AL_ComponentInfo& info) { return pid == info.pid; };
    if (m_status.isStopped() || (pid && std::none_of(infos.begin(), infos.end(), isMeant))) {
        return false;
    }
    const std::string stream = pid ? m_components.streamOf(AV_COMPONENT_TYPE_SUBTITLE, *pid) : "";
    if (!stream.empty()) {
        postSelection(AV_COMPONENT_TYPE_SUBTITLE, stream);
    }
    if (m_subtitles->select(pid, stream)) {
        post([](Player& player) { player.tellSubtitlesSelected(); });
    }
    return true;
}

void Player::startSubtitles(const PlaybackSettings& settings) {
    m_subtitleReaders.clear();
    m_subtitleSettings = settings;
    m_subtitles->startPlayback(settings.playback);
    readSubtitles();
}

void Player::readSubtitles() {
    for (const Subtitles::Request& request : m_subtitles->takeRequests()) {
        const auto done = [this, track = request.track](SubtitleReader::Outcome file) {
            if (m_subtitles->finishRequest(track, std::move(file))) {
                tellSubtitlesSelected();
            }
            m_videoOutput->notifyOverlayChange();
        };
        m_subtitleReaders.push_back(std::make_unique<SubtitleReader>(
            *m_thread, resolved(request.url, m_subtitleSettings.url), m_subtitleSettings.televisionUserAgent, done));
    }
}

void Player::tellSubtitlesSelected() {
    m_status.report(m_subtitleSettings.playback, eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED,
                    AV_COMPONENT_TYPE_SUBTITLE);
    m_videoOutput->notifyOverlayChange();
}

} // namespace media
