/** The status of a player, and its reports to the callback. */
#ifndef MEDIA_CONTROL_PLAYERSTATUS_H
#define MEDIA_CONTROL_PLAYERSTATUS_H

#include "GuardedMutex.h"
#include "gst/GstPointer.h"
#include "gst/PlaybackId.h"
#include "media_state.h"

#include <optional>
#include <string>

namespace media {

/**
 * What a player knows without waiting for its thread, and the gate that its reports pass.
 *
 * Each start begins a playback, Stop ends it. What comes late from a former playback is dropped here, so that nothing
 * of it is reported once Stop has returned.
 */
class PlayerStatus {
public:
    explicit PlayerStatus(int player) : m_player(player) {}
    PlayerStatus(const PlayerStatus&) = delete;
    PlayerStatus& operator=(const PlayerStatus&) = delete;

    int player() const { return m_player; }

    // For the adaptation layer's functions. Thread: any.

    void setCallback(Hbbtv_AL_MediaPlayerCallback callback, void* userData);

    /** Forgets position and duration: there is new media, not started yet. */
    void forgetMedia();

    /** @return the id of the new playback */
    PlaybackId startPlayback();

    /** Ends the playback, whatever it does. @return the id that the report of the stop carries, NONE when nothing
     * played */
    PlaybackId stopPlayback();

    bool isStopped() const;

    /** @return true from a start to the end of the media, an error, or Stop */
    bool isRunning() const;

    /** @return true from the end of the media to the next command */
    bool hasFinished() const;

    bool canSeekTo(int ms) const;

    int64_t position();
    int duration() const;
    int speed() const;

    /** @return everything that mediaStateRead() reports, of one moment */
    MediaState read();

    // For the present playback, which names itself; what another one says is ignored. Thread: the player's.

    bool isCurrent(PlaybackId playback) const;

    /** Reports `ms` as the position until followPipeline(): the media is not there yet. */
    void holdPosition(PlaybackId playback, int64_t ms);

    /** Reports the pipeline's position from now on. */
    void followPipeline(PlaybackId playback, GstElement* pipeline);

    /** Sets which time of the pipeline is position 0. A playback starts with 0. */
    void setOrigin(PlaybackId playback, int64_t ms);

    /** @param durationMs 0 when unknown */
    void setMedia(PlaybackId playback, int durationMs, bool seekable);
    void setSpeed(PlaybackId playback, int speed);
    void setBufferLevel(PlaybackId playback, int percent);

    /** The playback has failed: no position comes any more. */
    void failPlayback(PlaybackId playback);

    /** The media has come to its end: the position is the duration. */
    void finishPlayback(PlaybackId playback);

    /** @return the id of the present playback, or the one of its stop, or NONE */
    PlaybackId playback() const;

    /** Calls the callback. @param cause for the trace only, may be empty */
    void report(PlaybackId playback, eMEDIA_CALLBACK_EVENT event, int code = 0, const std::string& cause = {});

private:
    void leave(PlaybackId playback, MediaStatePhase phase) REQUIRES(m_mutex);
    int64_t clamped(int64_t ms) const REQUIRES(m_mutex);

    const int m_player;
    mutable support::Mutex m_mutex; // never held during a callback, nor during a query of a pipeline
    Hbbtv_AL_MediaPlayerCallback m_callback GUARDED_BY(m_mutex) = nullptr;
    void* m_userData GUARDED_BY(m_mutex) = nullptr;
    MediaStatePhase m_phase GUARDED_BY(m_mutex) = MEDIA_STATE_STOPPED;
    PlaybackId m_playback GUARDED_BY(m_mutex) = PlaybackId::NONE;
    ElementPtr m_pipeline GUARDED_BY(m_mutex); // null while the position is held
    int64_t m_position GUARDED_BY(m_mutex) = -1;
    int64_t m_origin GUARDED_BY(m_mutex) = 0;
    int m_duration GUARDED_BY(m_mutex) = -1;
    bool m_seekable GUARDED_BY(m_mutex) = true;
    int m_speed GUARDED_BY(m_mutex) = 0;
    int m_bufferPercent GUARDED_BY(m_mutex) = 100;
};

} // namespace media

#endif
