// The element's attributes and parameters: stored as text and applied. Several property writes end here too.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVPluginHelpers.h"

#include <limits.h>
#include <stdlib.h>
#include <string.h>

// Where the search for the end of the page's folder begins: behind "http://".
static constexpr size_t PAGE_PATH_SEARCH_START = 7;

static char* newValueBuffer() {
    char* buffer = static_cast<char*>(NPN_MemAlloc(LONGEST_PARAMETER + 1));
    if (buffer) {
        memset(buffer, 0, LONGEST_PARAMETER + 1);
    }
    return buffer;
}

/// As atoi, with numbers beyond int at its limits.
static int parseInt(const char* text) {
    const long number = strtol(text, nullptr, 10);
    return number > INT_MAX ? INT_MAX : number < INT_MIN ? INT_MIN : static_cast<int>(number);
}

static bool isSubtitleParam(int index) {
    return index == PARAM_SUBTITLES || index == PARAM_CAPTIONS;
}

bool VideoPlugin::hasParam(char* sParamName) {
    for (int i = 0; i < PARAM_COUNT; ++i) {
        LOG("qmr-->hasParam (%s)\n\n", sParamName);
        if (!strcmp(sParamName, psParamNames[i])) {
            return true;
        }
    }
    return false;
}

bool VideoPlugin::getParam(char* sParamName, char* sParamValue) {
    LOG("qmr-->getParam (%s) = %s\n\n", sParamName, sParamValue ? sParamValue : "(null)");
    if (!sParamValue || !m_ppsParamValues) {
        return false;
    }
    const int index = findParam(sParamName);
    if (index < 0 || !m_ppsParamValues[index] || !m_ppsParamValues[index][0]) {
        return false;
    }
    memcpy(sParamValue, m_ppsParamValues[index], strlen(m_ppsParamValues[index]) + 1);
    return true;
}

/// Makes a relative address absolute, against the folder of the page.
/// @param url holds the relative address in LONGEST_PARAMETER + 1 bytes, and receives the absolute one
/// @param resolved receives whether `url` was changed; a page without a usable address leaves it as it is
/// @return false when the absolute address is too long
static bool resolveAgainstPage(VideoPlugin& plugin, char* url, bool* resolved) {
    *resolved = false;
    char pageUrl[LONGEST_PARAMETER + 1] = "";
    LOG("Detected relative URL\n");
    GetPageUrl(plugin.getNPP(), pageUrl, sizeof pageUrl);
    LOG("Host uri %s\n", pageUrl);
    if (!strstr(pageUrl, "http")) {
        LOG("Host URI doesn't contains http://!! That is weird!!\n");
        return true;
    }
    char* const lastSlash =
        strlen(pageUrl) > PAGE_PATH_SEARCH_START ? strrchr(pageUrl + PAGE_PATH_SEARCH_START, '/') : nullptr;
    if (!lastSlash) {
        LOG("There is no / character in the host URI!! Handle this case!!\n");
        return true;
    }
    const size_t folderLength = static_cast<size_t>(lastSlash - pageUrl) + 1;
    const size_t length = folderLength + strlen(url);
    if (length > LONGEST_PARAMETER) {
        LOG_ERROR("data refused: its absolute address has %u bytes, at most %u are taken\n",
                  static_cast<unsigned>(length), LONGEST_PARAMETER);
        return false;
    }
    memmove(url + folderLength, url, strlen(url) + 1);
    memcpy(url, pageUrl, folderLength);
    *resolved = true;
    return true;
}

/// @param value stored text of LONGEST_PARAMETER + 1 bytes, made absolute. @return false when it is refused
static bool applyData(VideoPlugin& plugin, char* value) {
    bool slotTakesValue = true;
    if (*value && !strstr(value, "http")) {
        if (!resolveAgainstPage(plugin, value, &slotTakesValue)) {
            return false;
        }
        if (slotTakesValue) {
            LOG("PARAM (%s) = %s\n\n", psParamNames[PARAM_DATA], value);
        }
    }
    if (slotTakesValue && !storeInSlot(&plugin.m_pNpVarProperties[data], stringVariant(value))) {
        return false;
    }
    plugin.SetInput();
    return true;
}

static void applyType(VideoPlugin& plugin, const char* value) {
    char typeBuffer[8] = "";
    strncpy(typeBuffer, value, 5);
    if (!strcmp(typeBuffer, "audio")) {
        LOG("TypeBuffer : %s\n\n", typeBuffer);
        plugin.m_eMediaType = AUDIO;
    } else if (!strcmp(typeBuffer, "video")) {
        LOG("TypeBuffer : %s\n\n", typeBuffer);
        plugin.m_eMediaType = VIDEO;
    } else {
        LOG("ERROR: object type is not audio or video!\n\n");
    }
}

static bool applyWidth(VideoPlugin& plugin, const char* value) {
    if (!storeInSlot(&plugin.m_pNpVarProperties[width], stringVariant(value))) {
        return false;
    }
    const int state = currentPlayState(plugin);
    LOG("width.PlayState:[%d]\n\n", state);
    if (state == MP_PLAYING) {
        plugin.m_nW = static_cast<uint32_t>(parseInt(value));
    }
    return true;
}

static bool applyHeight(VideoPlugin& plugin, const char* value) {
    if (!storeInSlot(&plugin.m_pNpVarProperties[height], stringVariant(value))) {
        return false;
    }
    const int state = currentPlayState(plugin);
    LOG("height.PlayState:[%d]\n\n", state);
    if (state == MP_PLAYING) {
        const int h = parseInt(value);
        plugin.SetupPlayer(plugin.m_nX, plugin.m_nY, static_cast<int>(plugin.m_nW), h);
        plugin.m_nH = static_cast<uint32_t>(h);
    }
    return true;
}

static void applyLoop(VideoPlugin& plugin, const char* value) {
    if (!strcmp(value, "infinite")) {
        plugin.m_bRepeateUntilStop = true;
    } else {
        plugin.m_nRepeateNum = parseInt(value);
        plugin.m_bRepeateUtilNum = true;
    }
}

static void addSubtitle(VideoPlugin& plugin, char* value) {
    sub_properties_t track;
    memset(&track, 0, sizeof track);
    VideoPlugin::getSubtitleProperties(value, &track);
    Hbbtv_AL_MediaPlayerAddSubtitle(plugin.m_hPlayer, &track);
}

/// @return false when the value could not be kept: the parameter is then refused
static bool apply(VideoPlugin& plugin, int index, char* value) {
    switch (index) {
    case PARAM_DATA:
        return applyData(plugin, value);
    case PARAM_TYPE:
        applyType(plugin, value);
        return true;
    case PARAM_WIDTH:
        return applyWidth(plugin, value);
    case PARAM_HEIGHT:
        return applyHeight(plugin, value);
    case PARAM_CACHE:
        return storeInSlot(&plugin.m_pNpVarProperties[cache], stringVariant(value));
    case PARAM_LOOP:
        applyLoop(plugin, value);
        return true;
    default:
        if (isSubtitleParam(index)) {
            addSubtitle(plugin, value);
        }
        return true;
    }
}

bool VideoPlugin::setParam(char* sParamName, char* sParamValue) {
    LOG("qmr-->setParam (%s) = %s\n\n", sParamName, sParamValue ? sParamValue : "(null)");
    if (!sParamValue || !m_ppsParamValues) {
        return false;
    }
    const int index = findParam(sParamName);
    if (index < 0) {
        return false;
    }
    const size_t length = strlen(sParamValue);
    if (length > LONGEST_PARAMETER) {
        LOG_ERROR("Parameter %s refused: %u bytes, at most %u are taken\n", sParamName, static_cast<unsigned>(length),
                  LONGEST_PARAMETER);
        return false;
    }
    char* const value = newValueBuffer();
    if (!value) {
        LOG_ERROR("No memory for parameter %s\n", sParamName);
        return false;
    }
    memcpy(value, sParamValue, length + 1);
    char* const former = m_ppsParamValues[index];
    m_ppsParamValues[index] = value;
    LOG("PARAM (%s) = %s\n\n", psParamNames[index], value);
    if (!apply(*this, index, value)) {
        m_ppsParamValues[index] = former;
        NPN_MemFree(value);
        return false;
    }
    if (former) {
        NPN_MemFree(former);
    }
    return true;
}
