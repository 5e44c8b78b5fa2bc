/** Reads a subtitle file: fetches it, finds out what it is by its content, and lets GStreamer's parser read it. */
#ifndef MEDIA_CONTROL_SUBTITLEREADER_H
#define MEDIA_CONTROL_SUBTITLEREADER_H

#include "gst/GstPointer.h"
#include "gst/PlayerThread.h"
#include "subtitles/CueList.h"

#include <functional>
#include <memory>
#include <string>

namespace media {

struct SubtitleFile {
    std::string failure;  /**< why there are no cues, for people; empty when there are */
    std::string encoding; /**< "TTML", "WEBVTT", "SUBRIP", else empty */
    CueList cues;
};

/** Everything here runs on the player's thread. */
class SubtitleReader {
public:
    using Done = std::function<void(SubtitleFile)>;

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
    struct Content;

    void fetch(const std::string& url, bool televisionUserAgent);
    void parse();
    void run(ElementPtr pipeline);
    void end();
    void finish(const std::string& failure);
    void onEnd();
    static gboolean onBusMessage(GstBus* bus, GstMessage* message, gpointer self);

    PlayerThread& m_thread;
    const Done m_done;
    const std::shared_ptr<Content> m_content; // shared with the sinks, whose threads fill it
    bool m_parsing = false;
    ElementPtr m_pipeline;
    SourcePtr m_busWatch;
    SourcePtr m_failing; // tells of what failed in the constructor
};

} // namespace media

#endif
