#include "playback/PipelineShutdown.h"

#include "gst/ElementSearch.h"

namespace media {
namespace {

// A server that is silent keeps its pipeline from ever prerolling; by then it is past the dangerous moments.
constexpr guint PREROLL_LIMIT_MS = 2000;

// By then the segments that are being loaded are there, unless the server is slow.
constexpr guint DOWNLOAD_LIMIT_MS = 1000;

/**
 * Makes adaptive demuxers load no more than they are at. One that is shut down in the middle of a download never gives
 * its connection back: cancelling needs its own thread, which the shutdown ends first.
 */
void endDownloads(const std::vector<ElementPtr>& demuxers) {
    constexpr guint64 NOTHING_MORE = 1;
    for (const ElementPtr& demuxer : demuxers) {
        g_object_set(demuxer.get(), "max-buffering-time", NOTHING_MORE, "high-watermark-time", NOTHING_MORE, nullptr);
    }
}

/** Leads a pipeline to its end step by step, between other things of the player's thread; deletes itself then. */
class EndingPipeline {
public:
    EndingPipeline(PlayerThread& thread, ElementPtr pipeline) : m_thread(thread), m_pipeline(std::move(pipeline)) {}

    ~EndingPipeline() {
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
        m_thread.release();
    }

    EndingPipeline(const EndingPipeline&) = delete;
    EndingPipeline& operator=(const EndingPipeline&) = delete;

    void waitForPreroll() {
        const BusPtr bus(gst_element_get_bus(m_pipeline.get()));
        m_watch.reset(gst_bus_create_watch(bus.get()));
        g_source_set_callback(m_watch.get(), G_SOURCE_FUNC(&EndingPipeline::onMessage), this, nullptr);
        g_source_attach(m_watch.get(), m_thread.context());
        startTimer(PREROLL_LIMIT_MS, &EndingPipeline::onPrerollLimit);
        gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
    }

    void waitForDownloads() {
        m_watch.reset();
        gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
        const auto demuxers = findAdaptiveDemuxers(m_pipeline.get());
        endDownloads(demuxers);
        startTimer(demuxers.empty() ? 0 : DOWNLOAD_LIMIT_MS, &EndingPipeline::onDownloadLimit);
    }

private:
    void startTimer(guint ms, GSourceFunc function) {
        m_timer.reset(g_timeout_source_new(ms));
        g_source_set_callback(m_timer.get(), function, this, nullptr);
        g_source_attach(m_timer.get(), m_thread.context());
    }

    static gboolean onMessage(GstBus* /*bus*/, GstMessage* message, gpointer self) {
        const GstMessageType type = GST_MESSAGE_TYPE(message);
        if (type != GST_MESSAGE_ASYNC_DONE && type != GST_MESSAGE_ERROR && type != GST_MESSAGE_EOS) {
            return G_SOURCE_CONTINUE;
        }
        static_cast<EndingPipeline*>(self)->waitForDownloads();
        return G_SOURCE_REMOVE;
    }

    static gboolean onPrerollLimit(gpointer self) {
        static_cast<EndingPipeline*>(self)->waitForDownloads();
        return G_SOURCE_REMOVE;
    }

    static gboolean onDownloadLimit(gpointer self) {
        delete static_cast<EndingPipeline*>(self);
        return G_SOURCE_REMOVE;
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
