/** Texts of a component's record, for tracks and for subtitle files alike. */
#ifndef MEDIA_CONTROL_COMPONENTTEXT_H
#define MEDIA_CONTROL_COMPONENTTEXT_H

#include <string>

namespace media {

/** Fills a field that is all zero; what does not fit is cut off. */
template <size_t SIZE> void copyText(char (&to)[SIZE], const std::string& from) {
    from.copy(to, SIZE - 1);
}

/** @param text a language as people write it: "de", "ger", "deu", "en-GB" @return its ISO 639-2 code, "und" for none */
std::string languageCode(std::string text);

} // namespace media

#endif
