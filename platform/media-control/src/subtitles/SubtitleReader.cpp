#include "subtitles/SubtitleReader.h"

#include "gst/PlaybackError.h"
#include "http/MediaRequests.h"

#include <gst/app/gstappsink.h>
#include <gst/app/gstappsrc.h>
#include <mutex>

namespace media {

/** What has come of the file so far. A sink's thread writes it, and the player's reads it after the sink's end. */
struct SubtitleReader::Content {
    std::mutex mutex; // guards all below
    std::string bytes;
    bool isTooLong = false;
    CueList cues;
};

namespace {

// A subtitle file of a long film has some 200,000.
constexpr size_t MOST_BYTES = 4'000'000;

constexpr const char* TTML_NAMESPACE = "http://www.w3.org/ns/ttml";

ElementPtr newPipeline() {
    return ElementPtr(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
}

template <typename Content>
GstElement* newSink(const std::shared_ptr<Content>& content, GstFlowReturn (*onSample)(GstAppSink*, gpointer)) {
    GstElement* sink = gst_element_factory_make("appsink", nullptr);
    if (sink) {
        g_object_set(sink, "sync", FALSE, "async", FALSE, nullptr);
        GstAppSinkCallbacks callbacks = {};
        callbacks.new_sample = onSample;
        gst_app_sink_set_callbacks(GST_APP_SINK(sink), &callbacks, new std::shared_ptr<Content>(content),
                                   &deleteUserData<std::shared_ptr<Content>>);
    }
    return sink;
}

/** @return the name that a document's root element has before ":tt", as in EBU-TT-D; empty when it has none */
std::string rootPrefix(const std::string& document) {
    const size_t start = document.rfind("</");
    const size_t colon = document.find(':', start);
    if (start == std::string::npos || colon == std::string::npos || document.compare(colon, 4, ":tt>") != 0) {
        return {};
    }
    return document.substr(start + 2, colon - start - 2);
}

/** ttmlparse takes a document for complete only when its root element is called "tt", without a prefix. */
void removeRootPrefix(std::string& document) {
    const std::string prefix = rootPrefix(document);
    const size_t declaration = document.find(TTML_NAMESPACE); // in the root's tag
    const size_t start = prefix.empty() ? std::string::npos : document.rfind('<' + prefix + ":tt", declaration);
    if (start != std::string::npos) {
        document.erase(document.rfind("</") + 2, prefix.size() + 1);
        document.erase(start + 1, prefix.size() + 1);
    }
}

std::string encodingOf(const std::string& bytes) {
    if (bytes.find(TTML_NAMESPACE) != std::string::npos) {
        return "TTML";
    }
    constexpr size_t AFTER_BYTE_ORDER_MARK = 3;
    const size_t signature = bytes.find("WEBVTT");
    if (signature == 0 || signature == AFTER_BYTE_ORDER_MARK) {
        return "WEBVTT";
    }
    return bytes.find(" --> ") != std::string::npos ? "SUBRIP" : "";
}

} // namespace

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
    GstElement* sink = newSink<Content>(m_content, [](GstAppSink* from, gpointer data) {
        Content& content = **static_cast<std::shared_ptr<Content>*>(data);
        const SamplePtr sample(gst_app_sink_pull_sample(from));
        GstMapInfo map;
        GstBuffer* buffer = sample ? gst_sample_get_buffer(sample.get()) : nullptr;
        const std::lock_guard<std::mutex> lock(content.mutex);
        if (buffer && gst_buffer_map(buffer, &map, GST_MAP_READ)) {
            content.bytes.append(reinterpret_cast<const char*>(map.data), map.size);
            gst_buffer_unmap(buffer, &map);
        }
        content.isTooLong = content.bytes.size() > MOST_BYTES;
        return content.isTooLong ? GST_FLOW_EOS : GST_FLOW_OK;
    });
    ElementPtr pipeline = newPipeline();
    for (GstElement* element : {source, sink}) {
        if (element) {
            gst_bin_add(GST_BIN(pipeline.get()), element);
        }
    }
    if (!source || !sink || !gst_element_link(source, sink)) {
        // Later: the owner does not have this reader yet.
        m_failing.reset(g_idle_source_new());
        g_source_set_callback(
            m_failing.get(),
            [](gpointer self) {
                static_cast<SubtitleReader*>(self)->finish("the address is of no kind that GStreamer can fetch");
                return G_SOURCE_REMOVE;
            },
            this, nullptr);
        g_source_attach(m_failing.get(), m_thread.context());
        return;
    }
    prepareRequests(source, url, televisionUserAgent);
    run(std::move(pipeline));
}

void SubtitleReader::parse() {
    m_parsing = true;
    std::string bytes;
    {
        const std::lock_guard<std::mutex> lock(m_content->mutex);
        bytes = m_content->bytes;
    }
    const bool isXml = encodingOf(bytes) == "TTML";
    if (isXml) {
        removeRootPrefix(bytes);
    }
    const char* parserName = isXml ? "ttmlparse" : "subparse";
    GstElement* source = gst_element_factory_make("appsrc", nullptr);
    GstElement* parser = gst_element_factory_make(parserName, nullptr);
    GstElement* sink = newSink<Content>(m_content, [](GstAppSink* from, gpointer data) {
        Content& content = **static_cast<std::shared_ptr<Content>*>(data);
        const SamplePtr sample(gst_app_sink_pull_sample(from));
        const std::lock_guard<std::mutex> lock(content.mutex);
        if (sample) {
            content.cues.add(sample.get());
        }
        return GST_FLOW_OK;
    });
    ElementPtr pipeline = newPipeline();
    for (GstElement* element : {source, parser, sink}) {
        if (element) {
            gst_bin_add(GST_BIN(pipeline.get()), element);
        }
    }
    if (!source || !parser || !sink) {
        finish(std::string("GStreamer's ") + parserName + " is missing; run scripts/install-packages");
        return;
    }
    // subparse tells the formats of text apart by itself, but not from short files without being told that it is text.
    const CapsPtr caps(gst_caps_new_empty_simple(isXml ? "application/ttml+xml" : "application/x-subtitle"));
    g_object_set(source, "caps", caps.get(), nullptr);
    gst_element_link_many(source, parser, sink, nullptr);
    gst_app_src_push_buffer(GST_APP_SRC(source), gst_buffer_new_memdup(bytes.data(), static_cast<gsize>(bytes.size())));
    gst_app_src_end_of_stream(GST_APP_SRC(source));
    run(std::move(pipeline));
}

void SubtitleReader::run(ElementPtr pipeline) {
    m_pipeline = std::move(pipeline);
    const BusPtr bus(gst_element_get_bus(m_pipeline.get()));
    m_busWatch.reset(gst_bus_create_watch(bus.get()));
    g_source_set_callback(m_busWatch.get(), G_SOURCE_FUNC(&SubtitleReader::onBusMessage), this, nullptr);
    g_source_attach(m_busWatch.get(), m_thread.context());
    gst_element_set_state(m_pipeline.get(), GST_STATE_PLAYING);
}

/** Nothing prerolls here, so there is nothing to wait for. */
void SubtitleReader::end() {
    m_busWatch.reset();
    if (m_pipeline) {
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
        m_pipeline.reset();
    }
}

void SubtitleReader::finish(const std::string& failure) {
    end();
    SubtitleFile file;
    {
        const std::lock_guard<std::mutex> lock(m_content->mutex);
        file = {failure, encodingOf(m_content->bytes), std::move(m_content->cues)};
    }
    m_done(std::move(file));
}

/** A pipeline has come to its end: the file is there, or its cues are. */
void SubtitleReader::onEnd() {
    std::string failure;
    {
        const std::lock_guard<std::mutex> lock(m_content->mutex);
        if (m_content->isTooLong) {
            failure = "it has more than " + std::to_string(MOST_BYTES) + " bytes";
        } else if (m_content->bytes.empty()) {
            failure = "it is empty";
        } else if (m_parsing && m_content->cues.empty()) {
            failure = "it holds no text that shows at any time";
        }
    }
    if (m_parsing || !failure.empty()) {
        finish(failure);
    } else {
        end();
        parse();
    }
}

gboolean SubtitleReader::onBusMessage(GstBus* /*bus*/, GstMessage* message, gpointer data) {
    auto* self = static_cast<SubtitleReader*>(data);
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ERROR:
        self->finish(describeError(message, false).text);
        return G_SOURCE_REMOVE;
    case GST_MESSAGE_EOS:
        self->onEnd();
        return G_SOURCE_REMOVE;
    default:
        return G_SOURCE_CONTINUE;
    }
}

} // namespace media
