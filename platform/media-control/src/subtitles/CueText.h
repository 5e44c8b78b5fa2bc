/** The text of a subtitle cue, from what GStreamer's parsers deliver to what media_subtitles.h promises. */
#ifndef MEDIA_CONTROL_CUETEXT_H
#define MEDIA_CONTROL_CUETEXT_H

#include <gst/gst.h>
#include <string>

namespace media {

/** What a parser's buffers hold. */
enum class CueFormat {
    MARKUP, /**< text/x-raw of subparse: the file's own tags, all else escaped */
    PLAIN,  /**< text/x-raw, format=utf8 */
    BLOCKS  /**< of ttmlparse: plain text, one memory for each stretch of one style */
};

/** @param caps of a text stream, text/x-raw */
CueFormat cueFormat(const GstCaps* caps);

/** @return lines with balanced <b>, <i> and <u>, escaped; empty when the cue shows nothing */
std::string cueText(GstBuffer* buffer, CueFormat format);

} // namespace media

#endif
