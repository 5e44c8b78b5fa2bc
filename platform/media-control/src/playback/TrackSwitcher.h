/**
 * Switches the tracks of a pipeline.
 *
 *     SETTLED --select()--> DUE --issueSelection()--> SELECTING --STREAMS_SELECTED--> SETTLED
 *                            |                            |
 *                            | nothing new is wanted      | select()
 *                            v                            v
 *                         SETTLED               SELECTING_THEN_DUE --STREAMS_SELECTED--> DUE
 *
 * A selection waits for the pipeline to settle: before that, adaptive streams lose it. It runs beside the phases of the
 * SeekController; when the pipeline has the streams, a seek to where it is makes the change seen and heard at once.
 */
#ifndef MEDIA_CONTROL_TRACKSWITCHER_H
#define MEDIA_CONTROL_TRACKSWITCHER_H

#include "playback/MediaPipeline.h"
#include "playback/PageReporter.h"
#include "playback/PlaybackContext.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace media {

/**
 * Brings the pipeline to the streams that a page wants, and the player's Components up to date.
 *
 * An unselected track is hidden or muted, and its stream flows on: GStreamer stalls when one of several streams goes
 * and comes back. Thread: the player's.
 */
class TrackSwitcher {
public:
    /** @param refresh seeks to the present position; called from the thread's loop */
    TrackSwitcher(const PlaybackContext& context, PlaybackId playback, const MediaPipeline& pipeline,
                  PageReporter& reporter, std::function<void()> refresh);

    /** @param stream the id of the stream to switch to, empty for none of that type */
    void select(AVComponentType type, const std::string& stream);

    /** Sends the selection that is due, if any; the pipeline must have settled. */
    void issueSelection(bool isPaused);

    /** No refresh comes any more. */
    void end() { m_refreshTimer.reset(); }

    // What the bus reports

    void onStreamCollection(GstMessage* message);
    void onStreamsSelected(GstMessage* message);

private:
    enum class Phase { SETTLED, DUE, SELECTING, SELECTING_THEN_DUE };

    void refreshSoon();
    void showSelection();

    const PlaybackContext m_context;
    const PlaybackId m_playback;
    const MediaPipeline& m_pipeline;
    PageReporter& m_reporter;
    const std::function<void()> m_refresh;
    Phase m_phase = Phase::SETTLED;
    StreamSelection m_streams;                       // what the pipeline plays
    std::optional<StreamSelection> m_wantedStreams;  // until the pipeline has them
    std::array<bool, COMPONENT_TYPES> m_hidden = {}; // unselected
    SourcePtr m_refreshTimer;
};

} // namespace media

#endif
