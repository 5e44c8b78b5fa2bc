#include "PipelineEnd.h"

namespace media {
namespace {

// A server that is silent keeps its pipeline from ever prerolling; by then it is past the dangerous moments.
constexpr guint PREROLL_LIMIT_MS = 2000;

class UnsettledEnd {
public:
    UnsettledEnd(PlayerThread& thread, ElementPtr pipeline) : m_thread(thread), m_pipeline(std::move(pipeline)) {
        const BusPtr bus(gst_element_get_bus(m_pipeline.get()));
        m_watch.reset(gst_bus_create_watch(bus.get()));
        g_source_set_callback(m_watch.get(), G_SOURCE_FUNC(&UnsettledEnd::onMessage), this, nullptr);
        g_source_attach(m_watch.get(), m_thread.context());
        m_timer.reset(g_timeout_source_new(PREROLL_LIMIT_MS));
        g_source_set_callback(m_timer.get(), &UnsettledEnd::onTimer, this, nullptr);
        g_source_attach(m_timer.get(), m_thread.context());
        gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
    }

    ~UnsettledEnd() {
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
        m_thread.release();
    }

    UnsettledEnd(const UnsettledEnd&) = delete;
    UnsettledEnd& operator=(const UnsettledEnd&) = delete;

private:
    static gboolean onMessage(GstBus* /*bus*/, GstMessage* message, gpointer data) {
        const GstMessageType type = GST_MESSAGE_TYPE(message);
        if (type != GST_MESSAGE_ASYNC_DONE && type != GST_MESSAGE_ERROR && type != GST_MESSAGE_EOS) {
            return G_SOURCE_CONTINUE;
        }
        delete static_cast<UnsettledEnd*>(data);
        return G_SOURCE_REMOVE;
    }

    static gboolean onTimer(gpointer data) {
        delete static_cast<UnsettledEnd*>(data);
        return G_SOURCE_REMOVE;
    }

    PlayerThread& m_thread;
    const ElementPtr m_pipeline;
    SourcePtr m_watch;
    SourcePtr m_timer;
};

} // namespace

void endPipeline(PlayerThread& thread, ElementPtr pipeline, bool settled) {
    if (settled) {
        gst_element_set_state(pipeline.get(), GST_STATE_NULL);
        return;
    }
    thread.hold();
    // Later: the caller may be in the pipeline's bus watch, and a bus takes another only when that is gone.
    thread.post([&thread, handedOver = pipeline.release()] {
        new UnsettledEnd(thread, ElementPtr(handedOver)); // deletes itself when it is done
    });
}

} // namespace media
