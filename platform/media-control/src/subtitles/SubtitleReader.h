/** Reads a subtitle file. */
#ifndef MEDIA_CONTROL_SUBTITLEREADER_H
#define MEDIA_CONTROL_SUBTITLEREADER_H

#include "Result.h"
#include "gst/GstPointer.h"
#include "gst/PlayerThread.h"
#include "subtitles/CueList.h"

#include <functional>
#include <memory>
#include <string>

namespace media {

struct SubtitleFile {
    std::string encoding; /**< as subtitleEncoding() */
    CueList cues;
};

/**
 * Reads one subtitle file, first through a pipeline that fetches it, then through one whose parser suits its content.
 *
 * The reader's owner destroys it to give up reading. Everything here runs on the player's thread; the pipelines'
 * streaming threads only fill the content that they share with the reader.
 */
class SubtitleReader {
public:
    /** The file, or for people why there is none. */
    using Outcome = support::Result<SubtitleFile, std::string>;
    using Done = std::function<void(Outcome)>;

    /**
     * Starts to fetch.
     * @param url  absolute
     * @param done called once, from the thread's loop and never from here; not when the reader is destroyed before
     */
    SubtitleReader(PlayerThread& thread, const std::string& url, bool televisionUserAgent, Done done);
    ~SubtitleReader();

    SubtitleReader(const SubtitleReader&) = delete;
    SubtitleReader& operator=(const SubtitleReader&) = delete;

private:
    class Content;

    void fetch(const std::string& url, bool televisionUserAgent);
    void parse();
    void run(ElementPtr pipeline);
    void end();
    void fail(const std::string& cause);
    void onMessage(GstMessage* message);
    void onEndOfStream();

    const PlayerThread& m_thread;
    const Done m_done;
    const std::shared_ptr<Content> m_content;
    bool m_isParsing = false; // else it fetches
    ElementPtr m_pipeline;
    SourcePtr m_busWatch;
    SourcePtr m_failing; // reports later what failed in the constructor
};

} // namespace media

#endif
