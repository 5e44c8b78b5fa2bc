// The element's attributes and parameters: stored as text and applied. Several property writes end here too.
#include "Internals.h"
#include "Log.h"
#include "OperationMemory.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVPluginHelpers.h"

#include <limits.h>
#include <stdlib.h>
#include <string.h>

// Where the search for the end of the page's folder begins: behind "http://".
static constexpr size_t PAGE_PATH_SEARCH_START = 7;

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

bool isRelativeAddress(const char* address) {
    return *address && !strstr(address, "http");
}

/// Copies between two buffers of LONGEST_PARAMETER + 1 bytes.
static void copyParameter(const char* from, char* to) {
    memcpy(to, from, strlen(from) + 1);
}

static Outcome applyText(VideoPlugin& plugin, int property, const char* value, ParameterMemory* memory) {
    return moveToSlot(plugin, &plugin.m_pNpVarProperties[property], memory->releaseSlotText(value));
}

/// Makes a relative address absolute, against the folder of the page.
/// @param url holds the relative address in LONGEST_PARAMETER + 1 bytes, and receives the absolute one
/// @param resolved says whether `url` was changed; a page without a usable address leaves it as it is
/// @return Refused when the absolute address is too long
static Outcome resolveAgainstPage(VideoPlugin& plugin, char* url, bool* resolved) {
    *resolved = false;
    char pageUrl[LONGEST_PARAMETER + 1] = "";
    LOG("Detected relative URL\n");
    if (guarded(plugin, [&] { GetPageUrl(plugin.getNPP(), pageUrl, sizeof pageUrl); }) == Outcome::Gone) {
        return Outcome::Gone;
    }
    LOG("Host uri %s\n", pageUrl);
    if (!strstr(pageUrl, "http")) {
        LOG("Host URI doesn't contains http://!! That is weird!!\n");
        return Outcome::Done;
    }
    const char* const lastSlash =
        strlen(pageUrl) > PAGE_PATH_SEARCH_START ? strrchr(pageUrl + PAGE_PATH_SEARCH_START, '/') : nullptr;
    if (!lastSlash) {
        LOG("There is no / character in the host URI!! Handle this case!!\n");
        return Outcome::Done;
    }
    const size_t folderLength = static_cast<size_t>(lastSlash - pageUrl) + 1;
    const size_t length = folderLength + strlen(url);
    if (length > LONGEST_PARAMETER) {
        LOG_ERROR("data refused: its absolute address has %u bytes, at most %u are taken\n",
                  static_cast<unsigned>(length), LONGEST_PARAMETER);
        return Outcome::Refused;
    }
    memmove(url + folderLength, url, strlen(url) + 1);
    memcpy(url, pageUrl, folderLength);
    *resolved = true;
    return Outcome::Done;
}

/// @return Refused when the address cannot be made absolute
static Outcome applyData(VideoPlugin& plugin, ParameterMemory* memory) {
    // A copy: while the page is asked for its address, script may write another one.
    char url[LONGEST_PARAMETER + 1];
    copyParameter(plugin.m_ppsParamValues[PARAM_DATA], url);
    bool slotTakesUrl = true;
    if (isRelativeAddress(url)) {
        const Outcome resolved = resolveAgainstPage(plugin, url, &slotTakesUrl);
        if (resolved != Outcome::Done) {
            return resolved;
        }
        if (slotTakesUrl) {
            copyParameter(url, plugin.m_ppsParamValues[PARAM_DATA]);
            LOG("PARAM (%s) = %s\n\n", psParamNames[PARAM_DATA], url);
        }
    }
    if (slotTakesUrl && applyText(plugin, data, url, memory) == Outcome::Gone) {
        return Outcome::Gone;
    }
    plugin.SetInput();
    return Outcome::Done;
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

static Outcome applyWidth(VideoPlugin& plugin, const char* value, ParameterMemory* memory) {
    const int pixels = parseInt(value);
    if (applyText(plugin, width, value, memory) == Outcome::Gone) {
        return Outcome::Gone;
    }
    const int state = currentPlayState(plugin);
    LOG("width.PlayState:[%d]\n\n", state);
    if (state == MP_PLAYING) {
        plugin.m_nW = static_cast<uint32_t>(pixels);
    }
    return Outcome::Done;
}

static Outcome applyHeight(VideoPlugin& plugin, const char* value, ParameterMemory* memory) {
    const int pixels = parseInt(value);
    if (applyText(plugin, height, value, memory) == Outcome::Gone) {
        return Outcome::Gone;
    }
    const int state = currentPlayState(plugin);
    LOG("height.PlayState:[%d]\n\n", state);
    if (state != MP_PLAYING) {
        return Outcome::Done;
    }
    const Outcome placed =
        guarded(plugin, [&] { plugin.SetupPlayer(plugin.m_nX, plugin.m_nY, static_cast<int>(plugin.m_nW), pixels); });
    if (placed == Outcome::Done) {
        plugin.m_nH = static_cast<uint32_t>(pixels);
    }
    return placed;
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

static Outcome apply(VideoPlugin& plugin, int index, char* value, ParameterMemory* memory) {
    switch (index) {
    case PARAM_DATA:
        return applyData(plugin, memory);
    case PARAM_TYPE:
        applyType(plugin, value);
        return Outcome::Done;
    case PARAM_WIDTH:
        return applyWidth(plugin, value, memory);
    case PARAM_HEIGHT:
        return applyHeight(plugin, value, memory);
    case PARAM_CACHE:
        return applyText(plugin, cache, value, memory);
    case PARAM_LOOP:
        applyLoop(plugin, value);
        return Outcome::Done;
    default:
        if (isSubtitleParam(index)) {
            addSubtitle(plugin, value);
        }
        return Outcome::Done;
    }
}

/// Stores a value and applies it. @return Refused: the former value is then in force again
static Outcome storeAndApply(VideoPlugin& plugin, int index, ParameterMemory* memory) {
    char* const value = memory->releaseValue();
    char* former = plugin.m_ppsParamValues[index];
    plugin.m_ppsParamValues[index] = value;
    LOG("PARAM (%s) = %s\n\n", psParamNames[index], value);
    const Outcome outcome = apply(plugin, index, value, memory);
    // What script stored meanwhile stays.
    if (outcome == Outcome::Refused && plugin.m_ppsParamValues[index] == value) {
        plugin.m_ppsParamValues[index] = former;
        former = value;
    }
    if (former) {
        NPN_MemFree(former);
    }
    return outcome;
}

bool VideoPlugin::setParam(char* sParamName, char* sParamValue) {
    ParameterMemory* memory = memoryOfParam(sParamValue);
    LOG("qmr-->setParam (%s) = %s\n\n", sParamName, sParamValue ? sParamValue : "(null)");
    if (!sParamValue || !m_ppsParamValues || !m_pNpVarProperties) {
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
    ParameterMemory own;
    if (!memory) {
        memory = &own;
        if (!own.take(index, sParamValue, length)) {
            return false;
        }
    }
    return storeAndApply(*this, index, memory) != Outcome::Refused;
}
