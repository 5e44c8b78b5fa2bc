// Marks that broadcasters set and no encoder of ours does.
#include "TransportMarks.h"

#include <gst/mpegts/mpegts.h>
#include <gtest/gtest.h>
#include <vector>

namespace {

GstMpegtsPMTStream* stream(guint16 pid, const std::vector<GstMpegtsDescriptor*>& descriptors) {
    GstMpegtsPMTStream* made = gst_mpegts_pmt_stream_new();
    made->pid = pid;
    for (GstMpegtsDescriptor* descriptor : descriptors) {
        g_ptr_array_add(made->descriptors, descriptor);
    }
    return made;
}

GstMpegtsDescriptor* descriptor(guint8 tag, const std::vector<guint8>& content) {
    return gst_mpegts_descriptor_from_custom(tag, content.data(), content.size());
}

/** A DVB supplementary audio descriptor, which says neither mix type nor language. */
GstMpegtsDescriptor* supplement(const std::vector<guint8>& classification) {
    return gst_mpegts_descriptor_from_custom_with_extension(0x7f, 0x06, classification.data(), classification.size());
}

} // namespace

TEST(TransportMarks, AreReadFromTheProgramMap) {
    gst_init(nullptr, nullptr);
    gst_mpegts_initialize();
    GstMpegtsPMT* map = gst_mpegts_pmt_new();
    for (GstMpegtsPMTStream* made :
         {stream(0x100, {descriptor(0x52, {7})}), stream(0x101, {supplement({1 << 2}), descriptor(0x52, {255})}),
          stream(0x1f02, {supplement({2 << 2})}), stream(0x103, {supplement({}), descriptor(0x0a, {'d', 'e', 'u'})}),
          stream(0x104, {descriptor(0x0a, {'d', 'e', 'u', 3}), descriptor(0x52, {})})}) {
        g_ptr_array_add(map->streams, made);
    }
    GstMpegtsSection* section = gst_mpegts_section_from_pmt(map, 0x20);
    GstMessage* message = gst_message_new_mpegts_section(nullptr, section);
    std::string read;
    for (const auto& [end, marks] : media::readTransportMarks(message)) {
        read += end + ":" + std::to_string(marks.componentTag) + (marks.audioDescription ? "+ " : " ");
    }
    EXPECT_EQ("/00000100:7 /00000101:255+ /00000103:-1 /00000104:-1+ /00001f02:-1 ", read);
    gst_message_unref(message);
    gst_mpegts_section_unref(section);
}
