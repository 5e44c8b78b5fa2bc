/**
 * What the timeline knows of each object and its player: it completes entries, and tells errors and stalls in words.
 */
#ifndef PLAYBACKTRACKER_H
#define PLAYBACKTRACKER_H

#include "timeline/TimelineEntry.h"

#include <QHash>

namespace tv {

class PlaybackTracker {
public:
    /** Appends an entry, completed, and what follows from it. Reads that tell nothing new are left out. */
    void tell(TimelineEntry entry, TimelineEntries& told);

    /** Appends an entry for each object that plays, and whose position stands still for more than a second. */
    void lookForStalls(int64_t nowUs, TimelineEntries& told);

private:
    struct Story {
        int player = -1;
        int state = 0;
        QString url;                   ///< of the player's media; of the request that a server has refused last
        QHash<QString, QString> reads; ///< by property, the last value
        int position = -1;             ///< that the player told last, milliseconds
        int64_t positionUs = 0;        ///< since when
        bool stalls = false;
    };

    TimelineEntry errorOf(const TimelineEntry& report) const;

    QHash<int, Story> m_stories; ///< by object
    QHash<int, int> m_objectOfPlayer;
    int m_newest = 0; ///< object: the next player that opens is its
    int64_t m_lookedUs = 0;
};

} // namespace tv

#endif
