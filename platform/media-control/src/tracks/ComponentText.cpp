#include "tracks/ComponentText.h"

#include <algorithm>
#include <cctype>
#include <gst/tag/tag.h>

namespace media {

std::string languageCode(std::string text) {
    const auto isNoLetter = [](unsigned char c) { return !std::isalpha(c); };
    text.erase(std::find_if(text.begin(), text.end(), isNoLetter), text.end());
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    // For an empty text GStreamer returns the first language that it knows.
    const gchar* code = text.size() < 2 ? nullptr : gst_tag_get_language_code_iso_639_2T(text.c_str());
    return code ? code : "und";
}

} // namespace media
