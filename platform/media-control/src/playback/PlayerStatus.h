/**
 * What a player knows without asking its thread, and the way of its reports to the callback.
 *
 * A player plays in runs: each start begins one, Stop ends it. What comes late from a former run is dropped here, so
 * that nothing of it is reported once Stop has returned.
 */
#ifndef MEDIA_CONTROL_PLAYERSTATUS_H
#define MEDIA_CONTROL_PLAYERSTATUS_H

#include "gst/GstPointer.h"
#include "media_state.h"

#include <mutex>
#include <optional>
#include <string>

namespace media {

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

    /** @return the number of the new run */
    unsigned startRun();

    /** Ends the run, whatever it does. @return the number that reports of the stop carry, 0 when nothing ran */
    unsigned stopRun();

    bool isStopped() const;

    /** @return true from a start to the end of the media, an error, or Stop */
    bool isRunning() const;

    /** @return true from the end of the media to the next command */
    bool hasFinished() const;

    bool canSeekTo(int ms) const;

    int64_t position();
    int duration() const;
    int speed() const;

    /** @return all that observers are told, of one moment */
    MediaState read();

    // For the run that plays, which names itself. Thread: the player's.

    bool isCurrent(unsigned run) const;

    /** Position is this until followPipeline: the media is not there yet. */
    void holdPosition(unsigned run, int64_t ms);

    /** Position is the pipeline's from now on. */
    void followPipeline(unsigned run, GstElement* pipeline);

    /** Position 0 is there in the pipeline's time. A run starts with 0. */
    void setOrigin(unsigned run, int64_t ms);

    /** @param durationMs 0 when unknown */
    void setMedia(unsigned run, int durationMs, bool seekable);
    void setSpeed(unsigned run, int speed);
    void setBufferLevel(unsigned run, int percent);

    /** The run has failed: no position comes any more. */
    void failRun(unsigned run);

    /** The media has come to its end: the position is the duration. */
    void finishRun(unsigned run);

    /** @return the number of the present run, or of none */
    unsigned run() const;

    /** Calls the callback. @param detail for the trace only, may be empty */
    void report(unsigned run, eMEDIA_CALLBACK_EVENT event, int code = 0, const std::string& detail = {});

private:
    void leave(unsigned run, MediaStatePhase phase);
    int64_t clamped(int64_t ms) const;

    const int m_player;
    mutable std::mutex m_mutex; // guards all below; never held during a callback
    Hbbtv_AL_MediaPlayerCallback m_callback = nullptr;
    void* m_userData = nullptr;
    MediaStatePhase m_phase = MEDIA_STATE_STOPPED;
    unsigned m_run = 0;
    ElementPtr m_pipeline; // null while the position is held
    int64_t m_position = -1;
    int64_t m_origin = 0;
    int m_duration = -1;
    bool m_seekable = true;
    int m_speed = 0;
    int m_bufferPercent = 100;
};

} // namespace media

#endif
