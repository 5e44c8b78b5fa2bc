#include "playback/PipelineShutdown.h"

#include "gst/ElementSearch.h"
#include "gst/EventSource.h"

namespace media {
namespace {

using std::chrono::milliseconds;

// A silent server keeps its pipeline from ever prerolling; by then it is past the dangerous moments.
constexpr milliseconds PREROLL_LIMIT(2000);

// By then the segments that are being loaded have arrived, unless the server is slow.
constexpr milliseconds DOWNLOAD_LIMIT(1000);

/**
 * Makes adaptive demuxers load nothing beyond the present segment. One that is shut down in the middle of a download
 * never gives its connection back: cancelling needs its own thread, which the shutdown ends first.
 */
void endDownloads(const std::vector<ElementPtr>& demuxers) {
    constexpr guint64 NOTHING_MORE = 1;
    for (const ElementPtr& demuxer : demuxers) {
        g_object_set(demuxer.get(), "max-buffering-time", NOTHING_MORE, "high-watermark-time", NOTHING_MORE, nullptr);
    }
}

/**
 * A pipeline on its way to its end, in up to two waits of the player's thread. It owns itself and keeps the thread.
 *
 *     waitForPreroll --ASYNC_DONE, ERROR, EOS or PREROLL_LIMIT--> waitForDownloads --DOWNLOAD_LIMIT--> NULL, deleted
 */
class EndingPipeline {
public:
    EndingPipeline(PlayerThread& thread, ElementPtr pipeline) : m_thread(thread), m_pipeline(std::move(pipeline)) {}

    ~EndingPipeline() {
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
        m_thread.release(); // last: it may be what the thread waited for to end
    }

    EndingPipeline(const EndingPipeline&) = delete;
    EndingPipeline& operator=(const EndingPipeline&) = delete;

    void waitForPreroll() {
        m_watch = watchBus(m_thread, m_pipeline.get(), [this](GstMessage* message) { onMessage(message); });
        m_timer = callAfter(m_thread, PREROLL_LIMIT, [this] { waitForDownloads(); });
        gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
    }

    void waitForDownloads() {
        m_watch.reset();
        gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
        const auto demuxers = findAdaptiveDemuxers(m_pipeline.get());
        endDownloads(demuxers);
        m_timer = callAfter(m_thread, demuxers.empty() ? milliseconds(0) : DOWNLOAD_LIMIT, [this] { delete this; });
    }

private:
    void onMessage(GstMessage* message) {
        const GstMessageType type = GST_MESSAGE_TYPE(message);
        if (type == GST_MESSAGE_ASYNC_DONE || type == GST_MESSAGE_ERROR || type == GST_MESSAGE_EOS) {
            waitForDownloads();
        }
    }

    PlayerThread& m_thread;
    const ElementPtr m_pipeline;
    SourcePtr m_watch;
    SourcePtr m_timer;
};

} // namespace

void endPipeline(PlayerThread& thread, ElementPtr pipeline, bool settled) {
    if (settled && findAdaptiveDemuxers(pipeline.get()).empty()) {
        gst_element_set_state(pipeline.get(), GST_STATE_NULL);
        return;
    }
    thread.hold();
    // Later: the caller may be in the pipeline's bus watch, and a bus takes another only when that is gone.
    thread.post([&thread, settled, handedOver = pipeline.release()] {
        auto* ending = new EndingPipeline(thread, ElementPtr(handedOver));
        if (settled) {
            ending->waitForDownloads();
        } else {
            ending->waitForPreroll();
        }
    });
}

} // namespace media
