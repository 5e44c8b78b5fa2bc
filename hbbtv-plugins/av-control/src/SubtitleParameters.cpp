// The text form of an external subtitle track: "srclang:deu laber:Deutsch src:film.vtt".
#include "Log.h"
#include "VideoPlugin.h"

#include <string.h>

/// Copies what follows `key` in `text`, up to a blank, a tab or the field's end; without the key the field stays.
template <size_t size> static void copyValue(const char* text, const char* key, char (&field)[size]) {
    const char* value = strstr(text, key);
    if (!value) {
        return;
    }
    value += strlen(key);
    size_t length = strcspn(value, " \t");
    if (length > size - 1) {
        length = size - 1;
    }
    memcpy(field, value, length);
    field[length] = '\0';
}

void VideoPlugin::getSubtitleProperties(char* pSub, sub_properties_t* pSubProperties) {
    if (!pSub || !pSubProperties) {
        LOG_ERROR("pSub or pSubProperties is NULL\n");
        return;
    }
    copyValue(pSub, "srclang:", pSubProperties->lang);
    copyValue(pSub, "laber:", pSubProperties->laber);
    copyValue(pSub, "src:", pSubProperties->url);
    LOG("pSubProperties->lang = %s\n", pSubProperties->lang);
    LOG("pSubProperties->laber = %s\n", pSubProperties->laber);
    LOG("pSubProperties->url = %s\n", pSubProperties->url);
}
