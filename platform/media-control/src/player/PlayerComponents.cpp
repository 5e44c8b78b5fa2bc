// The components of a player's media: which there are, and which are selected.
#include "http/MediaRequests.h"
#include "player/Player.h"

#include <algorithm>

namespace media {

void Player::addSubtitle(const sub_properties_t& properties) {
    const support::Lock lock(m_commandMutex);
    const std::string absolute = absoluteUrl(properties.url);
    m_subtitles->add(properties, absolute.empty() ? properties.url : absolute);
    post([](Player& player) {
        if (player.m_playback) {
            player.m_subtitleLoader.readAdded();
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
    const auto isWanted = [pid](const Hbbtv_AL_ComponentInfo& info) { return pid == info.pid; };
    if (m_status.isStopped() || (pid && std::none_of(infos.begin(), infos.end(), isWanted))) {
        return false;
    }
    const std::string stream = pid ? m_components.streamOf(AV_COMPONENT_TYPE_SUBTITLE, *pid) : "";
    if (!stream.empty()) {
        postSelection(AV_COMPONENT_TYPE_SUBTITLE, stream);
    }
    if (m_subtitles->select(pid, stream)) {
        post([](Player& player) { player.m_subtitleLoader.reportSelection(); });
    }
    return true;
}

bool Player::select(AVComponentType type, int pid) {
    const support::Lock lock(m_commandMutex);
    if (type == AV_COMPONENT_TYPE_SUBTITLE) {
        return selectSubtitles(pid);
    }
    const std::string stream = m_components.streamOf(type, pid);
    return !stream.empty() && postSelection(type, stream);
}

bool Player::selectDefault(AVComponentType type) {
    const support::Lock lock(m_commandMutex);
    if (type == AV_COMPONENT_TYPE_SUBTITLE) {
        const std::optional<int> pid = preferredSubtitles(listComponents(type));
        return pid && selectSubtitles(pid);
    }
    const std::string stream = m_components.defaultStream(type);
    return !stream.empty() && postSelection(type, stream);
}

bool Player::unselect(AVComponentType type, std::optional<int> pid) {
    const support::Lock lock(m_commandMutex);
    if (type == AV_COMPONENT_TYPE_SUBTITLE) {
        const std::optional<int> shown = m_subtitles->selected();
        return shown && (!pid || pid == shown) && selectSubtitles(std::nullopt);
    }
    const std::string active = m_components.active()[static_cast<size_t>(type)];
    if (active.empty() || (pid && m_components.streamOf(type, *pid) != active)) {
        return false;
    }
    return postSelection(type, {});
}

bool Player::postSelection(AVComponentType type, const std::string& stream) {
    postToPlayback([type, stream](Playback& playback) { playback.select(type, stream); });
    return true;
}

} // namespace media
