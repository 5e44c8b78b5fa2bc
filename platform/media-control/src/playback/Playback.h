/** One playback of a player: a pipeline from its start to its end. A new start gets a new one. */
#ifndef MEDIA_CONTROL_PLAYBACK_H
#define MEDIA_CONTROL_PLAYBACK_H

#include "gst/GstPointer.h"
#include "gst/PlaybackError.h"
#include "gst/PlayerThread.h"
#include "http/HttpObserver.h"
#include "playback/PlayerStatus.h"
#include "playback/StreamSetup.h"
#include "sinks/VideoOutput.h"
#include "sinks/VideoSink.h"
#include "subtitles/Subtitles.h"
#include "tracks/Components.h"

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace media {

struct PlaybackSettings {
    PlaybackId playback;
    std::string url;
    bool televisionUserAgent;
    bool paused;   /**< hold the first picture */
    int toldSpeed; /**< the speed last reported to the page, in a former playback */
};

/** What a playback shares with its player. */
struct PlaybackContext {
    PlayerThread& thread;
    PlayerStatus& status;
    Components& components;
    std::shared_ptr<VideoOutput> videoOutput;
    std::shared_ptr<Subtitles> subtitles;
};

/** Everything here runs on the player's thread. */
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

    /** The picture has another window. */
    void fitWindow();

    /** @return the speed that a report told of last */
    int toldSpeed() const { return m_toldSpeed; }

    /** @param stream the id of the stream to switch to, empty for none of that type */
    void select(AVComponentType type, const std::string& stream);

private:
    /** A place to go to, or a rate to go at: both are seeks to GStreamer. */
    struct Request {
        std::optional<int64_t> position; // milliseconds; none: where it is
        int rate;
        bool tellPosition; // false: nobody asked, it only brings the pipeline up to date
    };

    // Playback.cpp: life cycle and messages
    bool buildPipeline();
    void onWatchdog();
    void onMessage(GstMessage* message);
    void onStateChanged(GstMessage* message);
    void onBuffering(GstMessage* message);
    void onElementMessage(GstMessage* message);
    void onEndOfStream();
    void findOrigin();
    void readMedia();
    bool isCut() const;
    void fail(PlaybackErrorCode code, const std::string& cause);
    void releasePipeline();
    void report(eMEDIA_CALLBACK_EVENT event, int code = 0, const std::string& detail = {});

    // PlaybackTransport.cpp: what the commands want, brought to the pipeline when it is ready for it
    bool acceptsCommands() const { return m_pipeline && !m_finished; }
    int comingRate() const;
    void request(std::optional<int64_t> position, int rate, bool tellPosition);
    void onSettled();
    void returnToNormalSpeed();
    void update();
    bool issueRequest();
    void tellResults();
    void tellSpeed();
    void setTarget(GstState target);
    void tellState();

    // PlaybackComponents.cpp
    void onStreamCollection(GstMessage* message);
    void onStreamsSelected(GstMessage* message);
    void issueSelection();
    void refreshSoon();
    void showSelection();

    const PlaybackContext m_context;
    const PlaybackSettings m_settings;
    const std::shared_ptr<LastActivity> m_lastActivity;
    VideoSink m_videoSink;
    ElementPtr m_audioSink;
    ElementPtr m_pipeline; // null when there is none any more
    SourcePtr m_busWatch;
    SourcePtr m_watchdog;
    SourcePtr m_refreshTimer;

    const HttpObserver m_connections;
    bool m_prerolled = false;  // the pipeline has had its first picture: it can be shut down at once
    bool m_errorSeen = false;  // so has one that failed
    bool m_finished = false;   // the end of the media was reported
    bool m_settled = false;    // no state change or seek is under way
    bool m_awaitsMark = false; // what the pipeline reports until then is older than the seek
    bool m_isPlaying = false;  // the pipeline's own word
    bool m_hasPlayed = false;  // since the last seek
    bool m_paused;             // wanted
    bool m_pausedBySpeed = false;
    int m_bufferPercent = 100;
    int m_durationMs = 0;
    int64_t m_originMs = 0; // position 0 in the pipeline's time
    GstState m_target = GST_STATE_PAUSED;

    std::optional<Request> m_request; // waits for the pipeline to settle; later ones replace it
    std::optional<Request> m_seeking; // the pipeline is at it
    bool m_tellPosition = false;
    int m_rate = 1;                  // in force
    int m_toldSpeed;                 // the last that a report told of
    std::optional<int> m_askedSpeed; // not answered yet
    enum class Told { CONNECTING, PLAYING, PAUSED, BUFFERING, SEEKING } m_told = Told::CONNECTING;

    StreamSelection m_streams;                       // what the pipeline plays
    std::array<bool, COMPONENT_TYPES> m_hidden = {}; // unselected: it plays, but is not seen or heard
    std::optional<StreamSelection> m_wantedStreams;  // until the pipeline has them
    bool m_selectionDue = false;                     // waits for the pipeline to settle
    bool m_selecting = false;                        // the pipeline is at it
};

} // namespace media

#endif
