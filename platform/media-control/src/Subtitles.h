/** The subtitle tracks that a page has given to a player, and which one is shown. Threads: any. */
#ifndef MEDIA_CONTROL_SUBTITLES_H
#define MEDIA_CONTROL_SUBTITLES_H

#include "SubtitleReader.h"
#include "medialib_components.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace media {

/**
 * Tracks stay with the player until its end, whatever it plays. Each new media makes new components of them, and shows
 * none of them until a page selects one. A track whose file cannot be read is no component; the file is tried again at
 * the next start.
 */
class Subtitles {
public:
    /** A file that has to be read. */
    struct Request {
        size_t track;
        std::string url; /**< absolute, or relative to an address that is not known */
    };

    explicit Subtitles(int player) : m_player(player) {}

    /** @param url absolute, or relative to an address that is not known yet */
    void add(const sub_properties_t& properties, const std::string& url);

    /** The player has other media: components of the former are refused from now on. */
    void startMedia();

    /** A playback begins: what could not be read, or was not read to its end, is to be read again. */
    void retry();

    /** @return the tracks that nobody has been asked to read */
    std::vector<Request> takeRequests();

    /** The file of a track has been read. @return true when the track was the selected one and is none any more */
    bool finishRequest(size_t track, SubtitleFile file);

    /** As Hbbtv_AL_MediaPlayerGetComponents. */
    std::vector<Hbbtv_AL_ComponentInfo> list() const;

    /** @return true when there is such a component */
    bool has(int pid) const;

    /** @return the pid of the first track in the language of the user's locale, else of the first; none without tracks
     */
    std::optional<int> preferred() const;

    /** @param pid none to show no track @return true when another track is selected now */
    bool select(std::optional<int> pid);
    std::optional<int> selected() const;

    /** @return as mediaSubtitlesAt; empty for nothing */
    std::string textAt(int64_t ms) const;

private:
    enum class State { UNREAD, ASKED, READ, BROKEN };

    struct Track {
        std::string url;
        Hbbtv_AL_ComponentInfo info; // `active` is set in list()
        State state;
        CueList cues;
    };

    const int m_player;
    mutable std::mutex m_mutex; // guards all below
    std::vector<Track> m_tracks;
    std::optional<int> m_selected; // a pid
    int m_nextPid = 0x10000;       // only counts up; far from the pids of a media's own streams
};

} // namespace media

#endif
