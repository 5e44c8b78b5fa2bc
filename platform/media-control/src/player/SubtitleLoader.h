/** Loads the subtitle files of a player. */
#ifndef MEDIA_CONTROL_SUBTITLELOADER_H
#define MEDIA_CONTROL_SUBTITLELOADER_H

#include "gst/PlayerThread.h"
#include "playback/PlaybackContext.h"
#include "subtitles/SubtitleReader.h"
#include "subtitles/Subtitles.h"

#include <memory>
#include <utility>
#include <vector>

namespace media {

/**
 * Reads the files that Subtitles names while a playback lasts, and reports which subtitles are selected. Thread: the
 * player's, but for the constructor.
 */
class SubtitleLoader {
public:
    explicit SubtitleLoader(PlaybackContext context) : m_context(std::move(context)) {}

    /** A playback begins: reads all files that have not been read. */
    void start(const PlaybackSettings& settings);

    /** Reads the files that were added since. */
    void readAdded();

    /** The playback is over, and reading with it. */
    void stop() { m_readers.clear(); }

    /** Reports to the page and to the compositor that other subtitles, or none, are selected. */
    void reportSelection();

private:
    const PlaybackContext m_context;
    PlaybackSettings m_settings = {}; // of the playback that the readers belong to
    std::vector<std::unique_ptr<SubtitleReader>> m_readers;
};

} // namespace media

#endif
