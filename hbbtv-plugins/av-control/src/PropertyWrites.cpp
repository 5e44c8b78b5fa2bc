// What script writes to the object. The plug-in itself loads a queued URL by the same road.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include <stdio.h>
#include <string.h>

static constexpr uint32_t SHORTEST_TEXT = 5;   /**< of `data` and `id` */
static constexpr uint32_t INVALID_FROM = 2048; /**< length of a `data` or `id` that no television would take */

static char properthBuffer[LONGEST_URL + 1];

/// The text form of a `width` or `height`: a String as it is, a number as its whole part, nothing for other types.
struct SizeText {
    bool exists;
    uint32_t length;
    char text[LONGEST_SIZE_TEXT + 1]; ///< empty when `length` does not fit
};

static SizeText sizeText(const NPVariant& value) {
    SizeText size = {false, 0, ""};
    char digits[16];
    const char* characters = digits;
    int number = 0;
    if (NPVARIANT_IS_STRING(value)) {
        size.length = NPVARIANT_TO_STRING(value).UTF8Length;
        characters = NPVARIANT_TO_STRING(value).UTF8Characters;
    } else if (readInt(value, &number)) {
        size.length = static_cast<uint32_t>(snprintf(digits, sizeof digits, "%d", number));
    } else {
        return size;
    }
    size.exists = true;
    if (size.length > 0 && size.length <= LONGEST_SIZE_TEXT) {
        memcpy(size.text, characters, size.length);
        size.text[size.length] = '\0';
    }
    return size;
}

static bool isText(const NPVariant& value, const char* text) {
    return NPVARIANT_IS_STRING(value) && NPVARIANT_TO_STRING(value).UTF8Length == strlen(text) &&
           !memcmp(NPVARIANT_TO_STRING(value).UTF8Characters, text, strlen(text));
}

static bool hasValidLength(const NPVariant& value) {
    return NPVARIANT_IS_STRING(value) && NPVARIANT_TO_STRING(value).UTF8Length >= SHORTEST_TEXT &&
           NPVARIANT_TO_STRING(value).UTF8Length < INVALID_FROM;
}

static bool fits(int index, uint32_t length, uint32_t limit) {
    if (length > limit) {
        LOG_ERROR("%s refused: %u bytes, at most %u are taken\n", psProperties[index], length, limit);
    }
    return length <= limit;
}

static bool setParamOf(VideoPlugin& plugin, int index, char* text) {
    // The operation's parameter is not const, but it changes nothing.
    return plugin.setParam(const_cast<char*>(psProperties[index]), text);
}

static void stopMedia(VideoPlugin& plugin) {
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    plugin.SetSpeed(0.0);
    plugin.SetPlayState(MP_STOPPED);
    AVControlPlayStateChange(&plugin, MP_STOPPED);
}

/// Stores a `data` or `id` of valid length and passes it on as parameter; when that is refused, the slot gets its
/// former value back.
static bool writeParameter(VideoPlugin& plugin, int index, const NPVariant& value, int state) {
    if (!fits(index, NPVARIANT_TO_STRING(value).UTF8Length, LONGEST_URL)) {
        return false;
    }
    NPVariant* slot = &plugin.m_pNpVarProperties[index];
    NPVariant copy;
    if (!HbbTVBaseClass::copyVariant(value, &copy)) {
        return false;
    }
    const NPVariant former = *slot;
    *slot = copy;
    memcpy(properthBuffer, NPVARIANT_TO_STRING(copy).UTF8Characters, NPVARIANT_TO_STRING(copy).UTF8Length);
    properthBuffer[NPVARIANT_TO_STRING(copy).UTF8Length] = '\0';
    if (index == data && state != MP_STOPPED) {
        stopMedia(plugin);
    }
    if (setParamOf(plugin, index, properthBuffer)) {
        releaseHeldValue(former);
        return true;
    }
    releaseHeldValue(*slot);
    *slot = former;
    return false;
}

static bool writeData(VideoPlugin& plugin, const NPVariant& value, int state) {
    LOG("data\n");
    if (hasValidLength(value)) {
        return writeParameter(plugin, data, value, state);
    }
    const bool stored = storeInSlot(&plugin.m_pNpVarProperties[data], value);
    plugin.m_bUrlIsQueued = false;
    plugin.m_bRepeateUntilStop = false;
    plugin.m_bRepeateUtilNum = false;
    if (!NPVARIANT_IS_STRING(value)) {
        return stored;
    }
    LOG_ERROR("Set property data failed invalid URL len: %d\n",
              static_cast<int>(NPVARIANT_TO_STRING(value).UTF8Length));
    return false;
}

static bool writeId(VideoPlugin& plugin, const NPVariant& value, int state) {
    if (hasValidLength(value)) {
        return writeParameter(plugin, id, value, state);
    }
    storeInSlot(&plugin.m_pNpVarProperties[id], value);
    LOG_ERROR("Set property id failed!!\n");
    return false;
}

/// Mirrors a written `width` or `height` onto the element's attribute. The page may react to it.
static void setElementAttribute(NPP instance, const char* name, const NPVariant& value) {
    NPObject* element = nullptr;
    if (NPN_GetValue(instance, NPNVPluginElementNPObject, &element) != NPERR_NO_ERROR || !element) {
        LOG_ERROR("The browser gives no element: its attribute %s is not set\n", name);
        return;
    }
    const NPVariant arguments[2] = {stringVariant(name), value};
    NPVariant result = voidVariant();
    if (NPN_Invoke(instance, element, NPN_GetStringIdentifier("setAttribute"), arguments, 2, &result)) {
        NPN_ReleaseVariantValue(&result);
    }
    NPN_ReleaseObject(element);
}

static bool writeSize(VideoPlugin& plugin, int index, const NPVariant& value) {
    if (index == width) {
        LOG("width\n");
    } else {
        LOG("height\n");
    }
    SizeText size = sizeText(value);
    if (!fits(index, size.length, LONGEST_SIZE_TEXT) || !storeInSlot(&plugin.m_pNpVarProperties[index], value)) {
        return true;
    }
    const InstanceGuard guard(&plugin);
    setElementAttribute(*plugin.getNPP(), psProperties[index], value);
    if (size.exists && guard.alive()) {
        setParamOf(plugin, index, size.text);
    }
    return true;
}

static bool writeFullScreen(VideoPlugin& plugin, const NPVariant& value) {
    LOG("fullScreen\n");
    const InstanceGuard guard(&plugin);
    const NPVariant result = plugin.SetFullScreen(value);
    if (guard.alive()) {
        const NPVariant& isFullScreen = plugin.m_pNpVarProperties[fullScreen];
        const bool isTrue = NPVARIANT_IS_BOOLEAN(isFullScreen) && NPVARIANT_TO_BOOLEAN(isFullScreen);
        const AccessRight right = isTrue ? R : RW;
        parProperties[width] = right;
        parProperties[height] = right;
    }
    return readTruth(result);
}

static void writeLoop(VideoPlugin& plugin, const NPVariant& value) {
    LOG("loop\n");
    int repeats = 0;
    if (readInt(value, &repeats)) {
        plugin.m_nRepeateNum = repeats;
        plugin.m_bRepeateUtilNum = true;
    } else if (isText(value, "infinite")) {
        plugin.m_bRepeateUntilStop = true;
    } else if (NPVARIANT_IS_STRING(value)) {
        LOG("Wrong value for loop parm!\n");
    }
}

/// What is logged when script stores a text or a function in a handler property.
static constexpr struct HandlerLines {
    int index;
    const char* isString;
    const char* isFunction;
} handlerLines[] = {
    {onPlayStateChange, "[%s:%d]:onPlayStateChange is string\n\n", "[%s:%d]:onPlayStateChange is handler set\n\n"},
    {onPlayPositionChanged, "[%s:%d]:Function is string\n\n", "[%s:%d]:onPlayPositionChanged JS handler set\n\n"},
    {onDRMRightsError, "[%s:%d]:\n onDRMRightsError is string\n\n", "[%s:%d]:\n onDRMRightsError is handler set\n\n"},
    {onSelectedComponentChange, "[%s:%d]:onSelectedComponentChange is string\n\n",
     "[%s:%d]:onSelectedComponentChange is handler set\n\n"},
    {onSelectedComponentChanged, "[%s:%d]:onSelectedComponentChanged is string\n\n",
     "[%s:%d]:onSelectedComponentChanged is handler set\n\n"}};

static void logHandler(int index, NPVariantType type) {
    for (const HandlerLines& lines : handlerLines) {
        if (lines.index != index) {
            continue;
        }
        if (type == NPVariantType_String) {
            LOG_FORMAT(lines.isString);
        } else if (type == NPVariantType_Object) {
            LOG_FORMAT(lines.isFunction);
        }
    }
}

bool VideoPlugin::setProperty(NPIdentifier name, const NPVariant* value) {
    const int state = currentPlayState(*this);
    const int index = HbbTVBaseClass::findIdentifier(piProperties, PROPERTY_COUNT, name);
    if (index < 0 || !m_pNpVarProperties) {
        return false;
    }
    if (parProperties[index] < RW) {
        return true;
    }
    switch (index) {
    case data:
        return writeData(*this, *value, state);
    case id:
        return writeId(*this, *value, state);
    case width:
    case height:
        return writeSize(*this, index, *value);
    default:
        break;
    }
    if (!storeInSlot(&m_pNpVarProperties[index], *value)) {
        return false;
    }
    switch (index) {
    case playState:
        LOG("playState\n");
        return true;
    case fullScreen:
        return writeFullScreen(*this, *value);
    case loop:
        writeLoop(*this, *value);
        return true;
    default:
        logHandler(index, value->type);
        return true;
    }
}
