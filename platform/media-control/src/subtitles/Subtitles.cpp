#include "subtitles/Subtitles.h"

#include "trace/MediaLog.h"
#include "trace/MediaTrace.h"
#include "tracks/ComponentText.h"

#include <algorithm>
#include <cctype>

namespace media {
namespace {

/** No field says that subtitles are for the hard of hearing, but a label may, by the two abbreviations in use. */
bool isForHardOfHearing(std::string label) {
    std::transform(label.begin(), label.end(), label.begin(), [](unsigned char c) { return std::toupper(c); });
    for (size_t start = 0; start < label.size();) {
        const auto isNoLetter = [](unsigned char c) { return !std::isalpha(c); };
        const auto end = static_cast<size_t>(
            std::find_if(label.begin() + static_cast<std::ptrdiff_t>(start), label.end(), isNoLetter) - label.begin());
        const std::string word = label.substr(start, end - start);
        if (word == "SDH" || word == "HOH") {
            return true;
        }
        start = end + 1;
    }
    return false;
}

} // namespace

void Subtitles::add(const sub_properties_t& properties, const std::string& url) {
    const support::Lock lock(m_mutex);
    Hbbtv_AL_ComponentInfo info = {};
    info.type = AV_COMPONENT_TYPE_SUBTITLE;
    info.componentTag = -1;
    info.pid = m_nextPid++;
    info.hearingImpaired = isForHardOfHearing(properties.laber) ? 1 : 0;
    copyText(info.language, languageCode(properties.lang));
    m_tracks.push_back({url, info, State::UNREAD, {}});
}

void Subtitles::startMedia() {
    const support::Lock lock(m_mutex);
    clearSelection();
    for (Track& track : m_tracks) {
        track.info.pid = m_nextPid++;
    }
}

void Subtitles::startPlayback(PlaybackId playback) {
    const support::Lock lock(m_mutex);
    m_playback = playback;
    m_streamCues.clear();
    if (!m_selectedStream.empty()) {
        clearSelection();
    }
    for (Track& track : m_tracks) {
        if (track.state == State::BROKEN || track.state == State::REQUESTED) {
            track.state = State::UNREAD;
        }
    }
}

std::vector<Subtitles::Request> Subtitles::takeRequests() {
    const support::Lock lock(m_mutex);
    std::vector<Request> requests;
    for (size_t i = 0; i < m_tracks.size(); ++i) {
        if (m_tracks[i].state == State::UNREAD) {
            m_tracks[i].state = State::REQUESTED;
            requests.push_back({i, m_tracks[i].url});
        }
    }
    return requests;
}

bool Subtitles::finishRequest(size_t number, SubtitleReader::Outcome file) {
    const support::Lock lock(m_mutex);
    Track& track = m_tracks[number];
    if (file) {
        track.state = State::READ;
        track.cues = std::move(file->cues);
        copyText(track.info.encoding, file->encoding);
        return false;
    }
    track.state = State::BROKEN;
    const std::string text = "subtitles " + track.url + " cannot be shown: " + file.reason();
    traceNote(m_player, text);
    MEDIA_LOG_ERROR("player " + std::to_string(m_player) + " " + text);
    if (m_selected != track.info.pid) {
        return false;
    }
    clearSelection();
    return true;
}

void Subtitles::addStreamCue(PlaybackId playback, const std::string& stream, GstSample* sample) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_streamCues[stream].add(sample);
    }
}

std::vector<Hbbtv_AL_ComponentInfo> Subtitles::list() const {
    const support::Lock lock(m_mutex);
    std::vector<Hbbtv_AL_ComponentInfo> infos;
    for (const Track& track : m_tracks) {
        if (track.state != State::BROKEN) {
            infos.push_back(track.info);
        }
    }
    return infos;
}

bool Subtitles::select(std::optional<int> pid, const std::string& stream) {
    const support::Lock lock(m_mutex);
    const bool isOther = m_selected != pid;
    m_selected = pid;
    m_selectedStream = stream;
    return isOther;
}

std::optional<int> Subtitles::selected() const {
    const support::Lock lock(m_mutex);
    return m_selected;
}

void Subtitles::clearSelection() {
    m_selected.reset();
    m_selectedStream.clear();
}

std::string Subtitles::textAt(int64_t ms) const {
    const support::Lock lock(m_mutex);
    const auto stream = m_streamCues.find(m_selectedStream);
    if (stream != m_streamCues.end()) {
        return stream->second.textAt(ms);
    }
    for (const Track& track : m_tracks) {
        if (m_selected == track.info.pid) {
            return track.cues.textAt(ms);
        }
    }
    return {};
}

std::optional<int> preferredSubtitles(const std::vector<Hbbtv_AL_ComponentInfo>& infos) {
    if (infos.empty()) {
        return std::nullopt;
    }
    const std::string wanted = languageCode(g_get_language_names()[0]); // "de_DE.UTF-8", "de_DE", "C"
    const auto found =
        std::find_if(infos.begin(), infos.end(), [&](const auto& info) { return wanted == info.language; });
    return found == infos.end() ? infos.front().pid : found->pid;
}

} // namespace media
