/** The subtitles of a player. */
#ifndef MEDIA_CONTROL_SUBTITLES_H
#define MEDIA_CONTROL_SUBTITLES_H

#include "GuardedMutex.h"
#include "gst/PlaybackId.h"
#include "medialib_components.h"
#include "subtitles/SubtitleReader.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace media {

/**
 * The subtitle tracks that a page has added to a player, the cues of the media's own subtitles, and which is selected.
 *
 * Tracks stay with the player until its end, whatever it plays. Each new media item makes new components of them, and
 * none is shown until a page selects one. The media's own subtitles are components of the media and last as long as a
 * playback. A track whose file cannot be read is no component; the file is tried again at the next start. Threads: any.
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

    /** The player has other media: components of the former media are refused from now on. */
    void startMedia();

    /**
     * A playback begins: files that could not be read, or were not read to their end, are to be read again. The media's
     * own subtitles come anew.
     */
    void startPlayback(PlaybackId playback);

    /** @return the tracks that are to be read and that nobody has taken yet */
    std::vector<Request> takeRequests();

    /** The file of a track has been read. @return true when the track was the selected one and is none any more */
    bool finishRequest(size_t track, SubtitleReader::Outcome file);

    /** @return the tracks, as Hbbtv_AL_MediaPlayerGetComponents but for `active` */
    std::vector<Hbbtv_AL_ComponentInfo> list() const;

    /** Adds a cue of the media's own subtitles; ignored unless its playback is the one that began last. */
    void addStreamCue(PlaybackId playback, const std::string& stream, GstSample* sample);

    /**
     * @param pid    of a track or of one of the media's own streams; none to show nothing
     * @param stream GStreamer's id of the stream, empty for a track
     * @return true when another component is selected now
     */
    bool select(std::optional<int> pid, const std::string& stream);
    std::optional<int> selected() const;

    /** @return as mediaSubtitlesAt; empty for nothing */
    std::string textAt(int64_t ms) const;

private:
    enum class State { UNREAD, REQUESTED, READ, BROKEN };

    struct Track {
        std::string url;
        Hbbtv_AL_ComponentInfo info;
        State state;
        CueList cues;
    };

    void clearSelection() REQUIRES(m_mutex);

    const int m_player;
    mutable support::Mutex m_mutex;
    std::vector<Track> m_tracks GUARDED_BY(m_mutex);
    std::optional<int> m_selected GUARDED_BY(m_mutex); // a pid
    std::string m_selectedStream GUARDED_BY(m_mutex);  // empty when it is a track's
    PlaybackId m_playback GUARDED_BY(m_mutex) = PlaybackId::NONE;
    std::map<std::string, CueList> m_streamCues GUARDED_BY(m_mutex); // by stream id
    int m_nextPid GUARDED_BY(m_mutex) = 0x10000; // only counts up; far from the pids of the media's own streams
};

/** @return the pid of the first component in the language of the user's locale, else of the first; none without any */
std::optional<int> preferredSubtitles(const std::vector<Hbbtv_AL_ComponentInfo>& infos);

} // namespace media

#endif
