#include "subtitles/SubtitleReader.h"

#include "GuardedMutex.h"
#include "gst/AppSink.h"
#include "gst/EventSource.h"
#include "gst/PlaybackError.h"
#include "http/MediaRequests.h"
#include "subtitles/SubtitleFormat.h"

#include <gst/app/gstappsrc.h>
#include <initializer_list>
#include <utility>

namespace media {
namespace {

using support::Failure;

// The subtitles of a long film are about 200,000 bytes.
constexpr size_t MOST_BYTES = 4'000'000;

/** @return a pipeline of the elements in a row, which it owns; null when one is null or two do not go together */
ElementPtr pipelineOf(std::initializer_list<GstElement*> elements) {
    ElementPtr pipeline(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    bool isComplete = true;
    for (GstElement* element : elements) {
        isComplete = isComplete && element;
        if (element) {
            gst_bin_add(GST_BIN(pipeline.get()), element); // also when it is of no use: the pipeline frees it
        }
    }
    for (auto each = elements.begin(); isComplete && each + 1 != elements.end(); ++each) {
        isComplete = gst_element_link(each[0], each[1]);
    }
    return isComplete ? std::move(pipeline) : nullptr;
}

} // namespace

/** What has come of the file so far. Threads: any. */
class SubtitleReader::Content {
public:
    /** Adds bytes of the file. @return GST_FLOW_EOS when there are too many */
    GstFlowReturn addBytes(GstSample* sample) {
        const support::Lock lock(m_mutex);
        GstBuffer* buffer = gst_sample_get_buffer(sample);
        GstMapInfo map;
        if (buffer && gst_buffer_map(buffer, &map, GST_MAP_READ)) {
            m_bytes.append(reinterpret_cast<const char*>(map.data), map.size);
            gst_buffer_unmap(buffer, &map);
        }
        return m_bytes.size() > MOST_BYTES ? GST_FLOW_EOS : GST_FLOW_OK;
    }

    GstFlowReturn addCue(GstSample* sample) {
        const support::Lock lock(m_mutex);
        m_cues.add(sample);
        return GST_FLOW_OK;
    }

    /** @return the file as it was fetched, or why it is of no use */
    support::Result<std::string, std::string> file() const {
        const support::Lock lock(m_mutex);
        if (m_bytes.size() > MOST_BYTES) {
            return Failure{"it has more than " + std::to_string(MOST_BYTES) + " bytes"};
        }
        if (m_bytes.empty()) {
            return Failure{std::string("it is empty")};
        }
        return m_bytes;
    }

    /** Hands the parsed file over, or says why it is of no use. */
    Outcome take() {
        const support::Lock lock(m_mutex);
        if (m_cues.empty()) {
            return Failure{std::string("it holds no text that shows at any time")};
        }
        return SubtitleFile{subtitleEncoding(m_bytes), std::move(m_cues)};
    }

private:
    mutable support::Mutex m_mutex;
    std::string m_bytes GUARDED_BY(m_mutex);
    CueList m_cues GUARDED_BY(m_mutex);
};

SubtitleReader::SubtitleReader(PlayerThread& thread, const std::string& url, bool televisionUserAgent, Done done)
    : m_thread(thread), m_done(std::move(done)), m_content(std::make_shared<Content>()) {
    fetch(url, televisionUserAgent);
}

SubtitleReader::~SubtitleReader() {
    end();
}

void SubtitleReader::fetch(const std::string& url, bool televisionUserAgent) {
    GError* reason = nullptr;
    GstElement* source = gst_element_make_from_uri(GST_URI_SRC, url.c_str(), nullptr, &reason);
    const ErrorPtr error(reason);
    ElementPtr pipeline = pipelineOf({source, makeAppSink([content = m_content](GstElement*, SamplePtr sample) {
                                          return content->addBytes(sample.get());
                                      })});
    if (!pipeline) {
        // Later: the owner does not have this reader yet.
        m_failing = callAfter(m_thread, std::chrono::milliseconds(0),
                              [this] { fail("the address is of no kind that GStreamer can fetch"); });
        return;
    }
    prepareRequests(source, url, televisionUserAgent);
    run(std::move(pipeline));
}

void SubtitleReader::parse() {
    const support::Result<std::string, std::string> file = m_content->file();
    if (!file) {
        fail(file.reason());
        return;
    }
    m_isParsing = true;
    const bool isXml = subtitleEncoding(*file) == "TTML";
    const std::string bytes = isXml ? withoutRootPrefix(*file) : *file;
    const std::string parser = isXml ? "ttmlparse" : "subparse";
    GstElement* source = gst_element_factory_make("appsrc", nullptr);
    ElementPtr pipeline = pipelineOf(
        {source, gst_element_factory_make(parser.c_str(), nullptr),
         makeAppSink([content = m_content](GstElement*, SamplePtr sample) { return content->addCue(sample.get()); })});
    if (!pipeline) {
        fail("GStreamer's " + parser + " is missing; run scripts/install-packages");
        return;
    }
    // subparse recognises the formats of text by itself, but takes a short file for text only when its caps say so.
    const CapsPtr caps(gst_caps_new_empty_simple(isXml ? "application/ttml+xml" : "application/x-subtitle"));
    g_object_set(source, "caps", caps.get(), nullptr);
    gst_app_src_push_buffer(GST_APP_SRC(source), gst_buffer_new_memdup(bytes.data(), static_cast<gsize>(bytes.size())));
    gst_app_src_end_of_stream(GST_APP_SRC(source));
    run(std::move(pipeline));
}

void SubtitleReader::run(ElementPtr pipeline) {
    m_pipeline = std::move(pipeline);
    m_busWatch = watchBus(m_thread, m_pipeline.get(), [this](GstMessage* message) { onMessage(message); });
    gst_element_set_state(m_pipeline.get(), GST_STATE_PLAYING);
}

/** Nothing prerolls here, so that the pipeline can be shut down at any moment. */
void SubtitleReader::end() {
    m_busWatch.reset();
    if (m_pipeline) {
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
        m_pipeline.reset();
    }
}

void SubtitleReader::fail(const std::string& cause) {
    end();
    m_done(Failure{cause});
}

void SubtitleReader::onMessage(GstMessage* message) {
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR) {
        fail(describeError(message, false).cause);
    } else if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS) {
        onEndOfStream();
    }
}

void SubtitleReader::onEndOfStream() {
    end(); // before the content is taken: no streaming thread adds to it any more
    if (m_isParsing) {
        m_done(m_content->take());
    } else {
        parse();
    }
}

} // namespace media
