// What script writes to the object. The plug-in itself loads a queued URL in the same way.
#include "Internals.h"
#include "Log.h"
#include "OperationMemory.h"
#include "ScriptNames.h"
#include "Slots.h"

#include <stdio.h>
#include <string.h>
#include <utility>

static constexpr uint32_t SHORTEST_TEXT = 5;   /**< of `data` and `id` */
static constexpr uint32_t INVALID_FROM = 2048; /**< length of a `data` or `id` that no television would take */

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

bool isLoadableAddress(const NPVariant& value) {
    return hasValidLength(value) && NPVARIANT_TO_STRING(value).UTF8Length <= LONGEST_URL;
}

static bool fits(int index, uint32_t length, uint32_t limit) {
    if (length > limit) {
        LOG_ERROR("%s refused: %u bytes, at most %u are taken\n", psProperties[index], length, limit);
    }
    return length <= limit;
}

static Outcome stopMedia(VideoPlugin& plugin, Notifications* notifications) {
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    plugin.SetSpeed(0.0);
    return enterState(plugin, MP_STOPPED, notifications);
}

/// Passes a stored `data` or `id` on as parameter. When that is refused, the slot gets its former value back.
/// @param text   characters in the slot
/// @param former released
static bool passOn(VideoPlugin& plugin, int index, const NPUTF8* text, NPVariant former, ParameterMemory* memory) {
    const Outcome outcome = setParamOf(plugin, psProperties[index], memory);
    if (outcome == Outcome::Refused) {
        NPVariant* const slot = &plugin.m_pNpVarProperties[index];
        // What script wrote meanwhile stays.
        if (NPVARIANT_IS_STRING(*slot) && NPVARIANT_TO_STRING(*slot).UTF8Characters == text) {
            std::swap(*slot, former);
        }
    }
    releaseHeldValue(former);
    return outcome != Outcome::Refused;
}

static bool loadData(VideoPlugin& plugin, int state, DataMemory* memory) {
    NPVariant* const slot = &plugin.m_pNpVarProperties[data];
    const NPVariant former = *slot;
    *slot = memory->releaseCopy();
    const NPUTF8* const text = NPVARIANT_TO_STRING(*slot).UTF8Characters;
    if (state != MP_STOPPED && stopMedia(plugin, &memory->notifications) == Outcome::Gone) {
        releaseHeldValue(former);
        return true;
    }
    return passOn(plugin, data, text, former, &memory->parameter);
}

/// @param memory of the caller; null when the write is to take its own
static bool writeData(VideoPlugin& plugin, const NPVariant& value, int state, DataMemory* memory) {
    LOG("data\n");
    if (hasValidLength(value) && !fits(data, NPVARIANT_TO_STRING(value).UTF8Length, LONGEST_URL)) {
        return false;
    }
    DataMemory own;
    if (!memory) {
        memory = &own;
        if (!own.take(plugin, value)) {
            return false;
        }
    }
    if (isLoadableAddress(value)) {
        return loadData(plugin, state, memory);
    }
    if (moveToSlot(plugin, &plugin.m_pNpVarProperties[data], memory->releaseCopy()) == Outcome::Gone) {
        return true;
    }
    plugin.m_bUrlIsQueued = false;
    plugin.m_bRepeateUntilStop = false;
    plugin.m_bRepeateUtilNum = false;
    if (!NPVARIANT_IS_STRING(value)) {
        return true;
    }
    LOG_ERROR("Set property data failed invalid URL len: %d\n",
              static_cast<int>(NPVARIANT_TO_STRING(value).UTF8Length));
    return false;
}

static bool writeId(VideoPlugin& plugin, const NPVariant& value) {
    if (!hasValidLength(value)) {
        static_cast<void>(storeInSlot(plugin, &plugin.m_pNpVarProperties[id], value));
        LOG_ERROR("Set property id failed!!\n");
        return false;
    }
    const NPString& text = NPVARIANT_TO_STRING(value);
    ParameterMemory memory;
    NPVariant copy;
    if (!fits(id, text.UTF8Length, LONGEST_URL) || !memory.take(PARAM_ID, text.UTF8Characters, text.UTF8Length) ||
        !HbbTVBaseClass::copyVariant(value, &copy)) {
        return false;
    }
    NPVariant* const slot = &plugin.m_pNpVarProperties[id];
    const NPVariant former = *slot;
    *slot = copy;
    return passOn(plugin, id, NPVARIANT_TO_STRING(copy).UTF8Characters, former, &memory);
}

/// Mirrors a written `width` or `height` onto the element's attribute. The page may react to it.
static Outcome setElementAttribute(VideoPlugin& plugin, const char* name, const NPVariant& value) {
    const InstanceGuard guard(&plugin);
    const NPP instance = *plugin.getNPP();
    NPObject* element = nullptr;
    if (NPN_GetValue(instance, NPNVPluginElementNPObject, &element) != NPERR_NO_ERROR || !element) {
        LOG_ERROR("The browser gives no element: its attribute %s is not set\n", name);
        return guard.outcome();
    }
    const NPVariant arguments[2] = {stringVariant(name), value};
    NPVariant result = voidVariant();
    if (guard.alive() &&
        NPN_Invoke(instance, element, NPN_GetStringIdentifier("setAttribute"), arguments, 2, &result)) {
        releaseAnswer(&result);
    }
    NPN_ReleaseObject(element);
    return guard.outcome();
}

static bool writeSize(VideoPlugin& plugin, int index, const NPVariant& value) {
    if (index == width) {
        LOG("width\n");
    } else {
        LOG("height\n");
    }
    const SizeText size = sizeText(value);
    if (!fits(index, size.length, LONGEST_SIZE_TEXT)) {
        return true;
    }
    ParameterMemory memory;
    if (size.exists && !memory.take(index == width ? PARAM_WIDTH : PARAM_HEIGHT, size.text, size.length)) {
        return false;
    }
    const Outcome stored = storeInSlot(plugin, &plugin.m_pNpVarProperties[index], value);
    if (stored != Outcome::Done) {
        return stored == Outcome::Gone;
    }
    if (setElementAttribute(plugin, psProperties[index], value) == Outcome::Done && size.exists) {
        static_cast<void>(setParamOf(plugin, psProperties[index], &memory));
    }
    return true;
}

static bool writeFullScreen(VideoPlugin& plugin, const NPVariant& value) {
    LOG("fullScreen\n");
    bool switched = false;
    const Outcome outcome = guarded(plugin, [&] { switched = readTruth(plugin.SetFullScreen(value)); });
    if (outcome == Outcome::Done) {
        const NPVariant& isFullScreen = plugin.m_pNpVarProperties[fullScreen];
        const bool isTrue = NPVARIANT_IS_BOOLEAN(isFullScreen) && NPVARIANT_TO_BOOLEAN(isFullScreen);
        const AccessRight right = isTrue ? R : RW;
        parProperties[width] = right;
        parProperties[height] = right;
    }
    return switched;
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
    DataMemory* const memory = memoryOfData(value);
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
        return writeData(*this, *value, state, memory);
    case id:
        return writeId(*this, *value);
    case width:
    case height:
        return writeSize(*this, index, *value);
    default:
        break;
    }
    const Outcome stored = storeInSlot(*this, &m_pNpVarProperties[index], *value);
    if (stored != Outcome::Done) {
        return stored == Outcome::Gone;
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
