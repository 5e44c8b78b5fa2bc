/** One playback of a player, from its start to its end. */
#ifndef MEDIA_CONTROL_PLAYBACK_H
#define MEDIA_CONTROL_PLAYBACK_H

#include "gst/PlaybackError.h"
#include "http/HttpObserver.h"
#include "playback/MediaPipeline.h"
#include "playback/PageReporter.h"
#include "playback/PlaybackContext.h"
#include "playback/SeekController.h"
#include "playback/TrackSwitcher.h"

#include <memory>
#include <string>

namespace media {

/**
 * Plays one media item once; each start of a player makes a new one.
 *
 * It owns the pipeline's life and listens to its bus. What a command wants is noted at once; update() then takes the
 * next step towards it whenever the pipeline has done the last one:
 *
 *     select tracks (TrackSwitcher) -> seek (SeekController) -> play or pause -> report to the page (PageReporter)
 *
 * At the end of the media and at a failure the playback ends and ignores further commands. Thread: the player's.
 */
class Playback {
public:
    /** Starts to connect. */
    Playback(const PlaybackContext& context, PlaybackSettings settings);

    /** Ends the pipeline. */
    ~Playback();

    Playback(const Playback&) = delete;
    Playback& operator=(const Playback&) = delete;

    void resume();
    void pause();
    void seek(int64_t ms);
    void setSpeed(int speed);

    /** The window has another size. */
    void fitWindow();

    /** @param stream the id of the stream to switch to, empty for none of that type */
    void select(AVComponentType type, const std::string& stream);

    /** @return the speed last reported to the page */
    int reportedSpeed() const { return m_reporter.reportedSpeed(); }

private:
    /** What the page wants; a speed of 0 is a pause that is reported as a speed. */
    enum class Wanted { PLAYING, PAUSED, PAUSED_BY_SPEED };

    bool isPaused() const { return m_wanted != Wanted::PLAYING; }
    void update();
    void refresh();
    void reportState();
    void onWatchdog();
    void onMessage(GstMessage* message);
    void onError(GstMessage* message);
    void onAsyncDone();
    void onStateChanged(GstMessage* message);
    void onBuffering(GstMessage* message);
    void onElementMessage(GstMessage* message);
    void onEndOfStream();
    void readMedia();
    void fail(PlaybackErrorCode code, const std::string& cause);
    void release();

    const PlaybackContext m_context;
    const PlaybackSettings m_settings;
    const std::shared_ptr<LastActivity> m_lastActivity;
    PageReporter m_reporter; // before the pipeline: CONNECTING is reported before anything connects
    const HttpObserver m_httpObserver;
    MediaPipeline m_pipeline;
    SeekController m_seeks;
    TrackSwitcher m_tracks;
    Wanted m_wanted;
    int m_bufferPercent = 100; // below 100 the pipeline waits for data
    SourcePtr m_busWatch;
    SourcePtr m_watchdog;
};

} // namespace media

#endif
