#include "timeline/PlaybackTracker.h"

#include "media_state.h"

namespace tv {

namespace {

constexpr int64_t stallUs = 1'000'000;
constexpr int64_t lookIntervalUs = 200'000;
constexpr int firstRefusal = 400; // of the HTTP status codes

/** Pages poll. @return true when the property had that value already */
bool isRepeated(std::map<std::string, ScriptValue>& reads, const timeline::Read& read) {
    const auto [known, isNew] = reads.try_emplace(read.name, read.value);
    if (isNew) {
        return false;
    }
    const bool isSame = known->second == read.value;
    known->second = read.value;
    return isSame;
}

} // namespace

void PlaybackTracker::append(TimelineEntry entry, TimelineEntries& entries) {
    findObject(entry);
    if (entry.kind() == TimelineKind::GONE) {
        m_objectOfPlayer.remove(m_playbacks.take(entry.object).player);
    } else if (entry.object > 0) {
        Playback& playback = m_playbacks[entry.object];
        const auto* read = entry.as<timeline::Read>();
        if (read && isRepeated(playback.reads, *read)) {
            return;
        }
        follow(playback, entry);
    }
    entries.append(entry);
    const auto* report = entry.as<timeline::Report>();
    if (report && report->event == eMEDIA_CALLBACK_ERROR) {
        entries.append(errorAfter(entry, *report));
    }
}

/** A player does not know its object: it belongs to the object made last when it is opened. */
void PlaybackTracker::findObject(TimelineEntry& entry) {
    if (entry.kind() == TimelineKind::CREATED) {
        m_newestObject = entry.object;
        return;
    }
    const auto* command = entry.as<timeline::Command>();
    if (command && command->function == MEDIA_FUNCTION_OPEN) {
        m_objectOfPlayer[entry.player] = m_newestObject;
        m_playbacks[m_newestObject].player = entry.player;
    }
    if (entry.object == 0 && entry.player >= 0) {
        entry.object = m_objectOfPlayer.value(entry.player);
    }
}

void PlaybackTracker::follow(Playback& playback, const TimelineEntry& entry) {
    if (const auto* state = entry.as<timeline::State>()) {
        playback.state = state->state;
        playback.positionMs = -1;
        playback.isStalled = false;
    } else if (const auto* command = entry.as<timeline::Command>()) {
        if (command->function == MEDIA_FUNCTION_SET_SOURCE) {
            playback.url = command->url;
        }
    } else if (const auto* request = entry.as<timeline::Request>()) {
        if (request->status >= firstRefusal) {
            playback.url = request->url;
        }
    }
}

TimelineEntry PlaybackTracker::errorAfter(const TimelineEntry& entry, const timeline::Report& report) const {
    TimelineEntry error = entry;
    error.details = timeline::Error{report.code, report.cause, m_playbacks.value(entry.object).url};
    return error;
}

void PlaybackTracker::appendStalls(int64_t nowUs, TimelineEntries& entries) {
    if (nowUs - m_lookedUs < lookIntervalUs) {
        return;
    }
    m_lookedUs = nowUs;
    for (auto it = m_playbacks.begin(); it != m_playbacks.end(); ++it) {
        if (const auto stall = newStall(*it, nowUs)) {
            TimelineEntry entry;
            entry.timeUs = nowUs;
            entry.object = it.key();
            entry.player = it->player;
            entry.details = *stall;
            entries.append(entry);
        }
    }
}

std::optional<timeline::Stall> PlaybackTracker::newStall(Playback& playback, int64_t nowUs) {
    MediaState player{};
    if (playback.state != PlayState::PLAYING || !mediaStateRead(playback.player, &player) || player.speed == 0) {
        playback.positionMs = -1;
        return std::nullopt;
    }
    const int positionMs = static_cast<int>(player.positionMs);
    if (positionMs != playback.positionMs) {
        playback.positionMs = positionMs;
        playback.positionUs = nowUs;
        playback.isStalled = false;
        return std::nullopt;
    }
    const int64_t sinceUs = nowUs - playback.positionUs;
    if (playback.isStalled || sinceUs <= stallUs) {
        return std::nullopt;
    }
    playback.isStalled = true;
    return timeline::Stall{positionMs, sinceUs};
}

} // namespace tv
