#include "TransportMarks.h"

#include "GstPointer.h"

#include <array>
#include <cstdio>
#include <gst/mpegts/mpegts.h>
#include <memory>

namespace media {
namespace {

struct SectionUnref {
    void operator()(GstMpegtsSection* section) const { gst_mpegts_section_unref(section); }
};
using SectionPtr = std::unique_ptr<GstMpegtsSection, SectionUnref>;

constexpr int DESCRIBES_PICTURE = 1; // editorial classification of the supplementary audio descriptor (EN 300 468)

bool describesPicture(GPtrArray* descriptors) {
    const GstMpegtsDescriptor* language = gst_mpegts_find_descriptor(descriptors, GST_MTS_DESC_ISO_639_LANGUAGE);
    GstMpegtsIso639AudioType type = GST_MPEGTS_AUDIO_TYPE_UNDEFINED;
    gchar* code = nullptr;
    if (language && gst_mpegts_descriptor_parse_iso_639_language_idx(language, 0, &code, &type)) {
        const TextPtr unused(code);
        if (type == GST_MPEGTS_AUDIO_TYPE_VISUAL_IMPAIRED_COMMENTARY) {
            return true;
        }
    }
    const GstMpegtsDescriptor* supplement = gst_mpegts_find_descriptor_with_extension(
        descriptors, GST_MTS_DESC_DVB_EXTENSION, GST_MTS_DESC_EXT_DVB_SUPPLEMENTARY_AUDIO);
    // Tag, length and extension, then a bit of mix type and five of classification.
    return supplement && supplement->length >= 2 && (supplement->data[3] >> 2 & 0x1f) == DESCRIBES_PICTURE;
}

StreamMarks marksOf(const GstMpegtsPMTStream* stream) {
    StreamMarks marks;
    guint8 tag = 0;
    const GstMpegtsDescriptor* identifier =
        gst_mpegts_find_descriptor(stream->descriptors, GST_MTS_DESC_DVB_STREAM_IDENTIFIER);
    if (identifier && gst_mpegts_descriptor_parse_dvb_stream_identifier(identifier, &tag)) {
        marks.componentTag = tag;
    }
    marks.audioDescription = describesPicture(stream->descriptors);
    return marks;
}

} // namespace

TransportMarks readTransportMarks(GstMessage* message) {
    const SectionPtr section(gst_message_parse_mpegts_section(message));
    const bool isMap = section && GST_MPEGTS_SECTION_TYPE(section.get()) == GST_MPEGTS_SECTION_PMT;
    const GstMpegtsPMT* map = isMap ? gst_mpegts_section_get_pmt(section.get()) : nullptr;
    TransportMarks marks;
    for (guint i = 0; map && i < map->streams->len; ++i) {
        const auto* stream = static_cast<const GstMpegtsPMTStream*>(g_ptr_array_index(map->streams, i));
        std::array<char, 16> end = {};
        std::snprintf(end.data(), end.size(), "/%08x", stream->pid);
        marks[end.data()] = marksOf(stream);
    }
    return marks;
}

} // namespace media
