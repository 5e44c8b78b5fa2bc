/** What a subtitle file is, by its content. */
#ifndef MEDIA_CONTROL_SUBTITLEFORMAT_H
#define MEDIA_CONTROL_SUBTITLEFORMAT_H

#include <string>

namespace media {

/** @return "TTML", "WEBVTT" or "SUBRIP", the names of the A/V Control object's `encoding`; empty for anything else */
std::string subtitleEncoding(const std::string& bytes);

/**
 * Removes the namespace prefix of a TTML document's root element, as EBU-TT-D has it: GStreamer's ttmlparse takes a
 * document for complete only when its root element is called "tt". Other documents stay as they are.
 */
std::string withoutRootPrefix(std::string document);

} // namespace media

#endif
