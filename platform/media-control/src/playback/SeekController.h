/**
 * Moves a pipeline: where to, at which rate, and whether it plays.
 *
 *                      +----------- state change that takes time -----------+
 *                      v                                                    |
 *     start() --> PREROLLING --------------- ASYNC_DONE -----------------> SETTLED --> ENDED
 *                      |                                                    | ^
 *                      | seek                                          seek | | ASYNC_DONE, or abandonSeek()
 *                      v                                                    v |
 *                  SEEK_QUEUED -------------- the marker ---------------> SEEKING
 *
 * GStreamer takes one step at a time: a seek that is sent while another one is under way replaces it or is lost. So a
 * seek is sent from SETTLED only; those requested earlier wait, merged into one. Sending one begins with a pause, which
 * may itself take time (PREROLLING) or even need the seek to be completed. Then the seek is sent all the same
 * (SEEK_QUEUED): an ASYNC_DONE that was on its way before is the pause's, one after the marker is the seek's.
 *
 * ENDED is entered from everywhere: at the end of the media and at a failure. Nothing leads out of it.
 */
#ifndef MEDIA_CONTROL_SEEKCONTROLLER_H
#define MEDIA_CONTROL_SEEKCONTROLLER_H

#include "playback/MediaPipeline.h"
#include "playback/PlayerStatus.h"

#include <cstdint>
#include <optional>

namespace media {

/**
 * Keeps what is requested until the pipeline is ready for it, and knows what the pipeline is doing. The owner passes
 * on what the pipeline's bus reports, and then takes the next step: issueSeek(), else setTarget().
 *
 * Rates are whole numbers: 1 is normal speed, negative ones go backwards, 0 is never one. Thread: the player's.
 */
class SeekController {
public:
    /** @param status gets the position that is being sought, until the pipeline has its own */
    SeekController(PlayerStatus& status, PlaybackId playback, const MediaPipeline& pipeline);

    /** Starts the pipeline, towards its first frame. */
    void start();

    /**
     * Requests a seek. It joins one that waits: the last position and the last rate count.
     * @param position  none: the present one, to go on at another rate or to refresh the pipeline
     * @param isCommand the page is to get a report when it is done
     */
    void requestSeek(std::optional<int64_t> position, int rate, bool isCommand);

    /** Sends the requested seek; the phase must be SETTLED. @return true when the pipeline is busy now */
    bool issueSeek();

    /** Lets the pipeline play or pause; the phase must be SETTLED. */
    void setTarget(GstState target);

    /** Makes the next seek possible while one hangs: a flushing seek is safe then. */
    void abandonSeek() { m_phase = Phase::SETTLED; }

    void end() { m_phase = Phase::ENDED; }

    // What the bus reports

    /** @return true when the pipeline has completed what it was doing; false for a report from before the seek */
    bool onAsyncDone();
    void onMarker();
    void onStateChanged(GstState state);

    bool isSettled() const { return m_phase == Phase::SETTLED; }
    bool hasEnded() const { return m_phase == Phase::ENDED; }
    bool isSeeking() const { return m_phase == Phase::SEEKING || m_phase == Phase::SEEK_QUEUED; }

    /** @return true when a seek waits for the pipeline to settle */
    bool hasRequest() const { return m_request.has_value(); }

    /** @return true while the pipeline plays and is meant to */
    bool isPlaying() const { return m_isPlaying && m_target == GST_STATE_PLAYING; }

    /** @return the rate in force */
    int rate() const { return m_rate; }

    /** @return the rate that the pipeline is at or seeks to */
    int nextRate() const { return isSeeking() ? m_seek.rate : m_rate; }

    /** @return the rate that will be in force when all that is requested is done */
    int finalRate() const { return m_request ? m_request->rate : nextRate(); }

    /** @return true once after each seek that the page requested */
    bool takeCommandDone();

private:
    enum class Phase { PREROLLING, SETTLED, SEEK_QUEUED, SEEKING, ENDED };

    struct Seek {
        std::optional<int64_t> position; // milliseconds; none: the present one
        int rate;
        bool isCommand;
    };

    Seek takeRequest();
    void postMarker();

    PlayerStatus& m_status;
    const PlaybackId m_playback;
    const MediaPipeline& m_pipeline;
    Phase m_phase = Phase::PREROLLING;
    GstState m_target = GST_STATE_PAUSED;
    std::optional<Seek> m_request; // waits
    Seek m_seek = {};              // sent, while isSeeking()
    int m_rate = 1;                // in force
    bool m_isCommandDone = false;  // not reported yet
    bool m_isPlaying = false;      // the pipeline's own word
    bool m_playedSinceSeek = false;
};

} // namespace media

#endif
