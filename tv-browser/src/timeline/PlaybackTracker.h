/**
 * Follows each object and its player through the timeline, and adds what they do not report themselves.
 */
#ifndef PLAYBACKTRACKER_H
#define PLAYBACKTRACKER_H

#include "timeline/TimelineEntry.h"

#include <QHash>
#include <map>
#include <optional>
#include <string>

namespace tv {

/**
 * Gets each entry in order. It adds to the player's entries whose object the player belongs to, drops reads that yield
 * what they yielded before, explains errors, and notices playback that stands still.
 */
class PlaybackTracker {
public:
    /** Appends an entry, completed, and what follows from it. */
    void append(TimelineEntry entry, TimelineEntries& entries);

    /** Appends an entry for each object that is playing while its position has stood still for more than a second. */
    void appendStalls(int64_t nowUs, TimelineEntries& entries);

private:
    struct Playback {
        int player = -1;
        PlayState state = PlayState::STOPPED;
        std::string url;                          ///< of the media, or of the request that a server refused last
        std::map<std::string, ScriptValue> reads; ///< by property, the last value
        int positionMs = -1;                      ///< the player's last one; -1 while it does not matter
        int64_t positionUs = 0;                   ///< since when
        bool isStalled = false;
    };

    void findObject(TimelineEntry& entry);
    static void follow(Playback& playback, const TimelineEntry& entry);
    static std::optional<timeline::Stall> newStall(Playback& playback, int64_t nowUs);
    TimelineEntry errorAfter(const TimelineEntry& entry, const timeline::Report& report) const;

    QHash<int, Playback> m_playbacks; ///< by object
    QHash<int, int> m_objectOfPlayer;
    int m_newestObject = 0; ///< the next player to be opened is this one's
    int64_t m_lookedUs = 0; ///< for stalls
};

} // namespace tv

#endif
