// Description, construction, initialisation and destruction of an instance.
#include "InstanceGuard.h"
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "AVComponent/HbbTVComponentCollectionHolderClass.h"
#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"

#include "hbbtvMsg.h"

#include <new>

static const char MIMEDescriptionString[512] =
    "video/mpeg:mp4:Video Plugin;video/mpeg4:mp4:Video Plugin;video/mp4:mp4:Video Plugin;"
    "audio/mpeg:mp4:Audio Plugin;audio/mp4:mp4:Audio Plugin;"
    "application/dash+xml:mpd:DASH plugin;application/dash+xml:xml:DASH plugin;"
    "application/vnd.apple.mpegurl:m3u8:HLS Plugin;video/x-ms-asf:wmv:WMV";
static char PluginNameString[256] = "Video Player";
static char PluginDescriptionString[256] = "Video Player";

static constexpr int32_t NO_PLAYER = -1;

const char* VideoPlugin::GetMIMEDescription() {
    LOG("get plugin MIME  = %s\n", MIMEDescriptionString);
    return MIMEDescriptionString;
}

char* VideoPlugin::GetPluginNameString() {
    return PluginNameString;
}

char* VideoPlugin::GetPluginDescriptionString() {
    return PluginDescriptionString;
}

VideoPlugin::VideoPlugin(char* /*hostUri*/)
    : m_pComponentCollectionHolder(nullptr), m_bSkipJSCallback(false), m_pNpVarProperties(nullptr),
      m_pNpVarListeners(nullptr), m_DOMEventClass(nullptr), m_hPlayer(NO_PLAYER), m_ppsParamValues(nullptr),
      m_eMediaType(VIDEO), m_ePluginType(HBBTV_VIDEO), m_nX(0), m_nY(0), m_nW(HBBTV_SCREEN_WIDTH),
      m_nH(HBBTV_SCREEN_HEIGHT), m_bUrlIsQueued(false), m_acQueuedUrlBuffer(), m_nRepeateNum(0),
      m_bRepeateUtilNum(false), m_bRepeateUntilStop(false), m_bPropertySetUsingAddEventListener(nullptr),
      m_nMsgHandle(0) {
    LOG("cehtml VideoPlugin created starting !!!\n\n");
    openCommunicationChannel(nullptr);
    insetHandleToList(this);
    m_bPropertySetUsingAddEventListener = new (std::nothrow) bool[LISTENER_COUNT]();
    if (!m_bPropertySetUsingAddEventListener) {
        LOG_ERROR("No memory for the listeners: only handler properties will be called\n");
    }
    Hbbtv_AL_MediaPlayerOpen(&m_hPlayer);
    LOG("CreatePlayer-- -------- %d\n", m_hPlayer);
    Hbbtv_AL_MediaPlayerSetUserAgent(m_hPlayer);
    LOG("USER_AGENT set\n");
    Hbbtv_AL_MediaPlayerAddCallback(m_hPlayer, MediaPlayerVideoPluginWrapper, this);
    LOG("cehtml VideoPlugin created Finished !!!\n\n");
}

bool VideoPlugin::initialize(NPMIMEType /*pluginType*/, NPP instance, uint16_t /*mode*/, int16_t /*argc*/,
                             char** /*argn*/, char** /*argv*/, NPSavedData* /*saved*/) {
    LOG("VideoPlugin initialized!\n\n");
    LOG("initialize ,instance = %p\n", static_cast<void*>(instance));
    LOG("initialize ,instance->ndata = %p\n", instance ? instance->ndata : nullptr);
    storeInstanceHandle(this, instance);
    Allocate();
    return true;
}

/// A String slot without memory starts as Null.
static void setInitialText(NPVariant* slot, const char* text) {
    if (!HbbTVBaseClass::makeString(text, slot)) {
        *slot = nullVariant();
    }
}

static void setInitialValues(NPVariant* slots) {
    for (int i = 0; i < PROPERTY_COUNT; ++i) {
        slots[i] = nullVariant();
    }
    slots[COMPONENT_TYPE_VIDEO] = intVariant(AV_COMPONENT_TYPE_VIDEO);
    slots[COMPONENT_TYPE_AUDIO] = intVariant(AV_COMPONENT_TYPE_AUDIO);
    slots[COMPONENT_TYPE_SUBTITLE] = intVariant(AV_COMPONENT_TYPE_SUBTITLE);
    setInitialText(&slots[data], "");
    setInitialText(&slots[playPosition], "undefined");
    setInitialText(&slots[playTime], "undefined");
    slots[playState] = intVariant(MP_STOPPED);
    slots[error] = intVariant(0);
    slots[speed] = intVariant(1);
    slots[nrTracks] = intVariant(0);
    slots[currentTrackIndex] = intVariant(0);
    slots[persist] = boolVariant(false);
    slots[width] = intVariant(0);
    slots[height] = intVariant(0);
    slots[fullScreen] = boolVariant(false);
    setInitialText(&slots[cache], "undefined");
    slots[loop] = intVariant(0);
}

static void identify(const char* const* names, int count, NPIdentifier* identifiers) {
    for (int i = 0; i < count; ++i) {
        identifiers[i] = NPN_GetStringIdentifier(names[i]);
    }
}

void VideoPlugin::Allocate() {
    LOG("Allocation started!\n\n");
    identify(psProperties, PROPERTY_COUNT, piProperties);
    LOG("Properties identified!\n\n");
    identify(pcFunctions, FUNCTION_COUNT, piFunctions);
    LOG("Functions identified!\n\n");
    m_ppsParamValues = new (std::nothrow) char*[PARAM_COUNT]();
    m_pNpVarProperties = new (std::nothrow) NPVariant[PROPERTY_COUNT]();
    m_pNpVarListeners = new (std::nothrow) NPVariant[LISTENER_COUNT]();
    if (!m_ppsParamValues || !m_pNpVarProperties || !m_pNpVarListeners) {
        LOG_ERROR("No memory for the script state: the object answers nothing\n");
        delete[] m_ppsParamValues;
        delete[] m_pNpVarProperties;
        delete[] m_pNpVarListeners;
        m_ppsParamValues = nullptr;
        m_pNpVarProperties = nullptr;
        m_pNpVarListeners = nullptr;
        return;
    }
    initializeComponentCollectionHolderNPClass();
    initializeAVControlDOMEventNPClass();
    m_pComponentCollectionHolder = new (std::nothrow) HbbTVComponentCollectionHolderClass(getNPP());
    if (m_pComponentCollectionHolder) {
        m_pComponentCollectionHolder->setAVComponentHandle(m_hPlayer);
    } else {
        LOG_ERROR("No memory for the component collections: getComponents answers null\n");
    }
    m_DOMEventClass = new (std::nothrow) HbbTVAVControlDOMEventClass(getNPP());
    setInitialValues(m_pNpVarProperties);
    identify(psListenersPropertyNames, LISTENER_COUNT, piListenersPropertyIdentifiers);
    for (int i = 0; i < LISTENER_COUNT; ++i) {
        m_pNpVarListeners[i] = nullVariant();
    }
    LOG("Allocation over!\n\n");
}

/// Releases an array of slots and their values. The instance has none any more: script may run.
static void releaseSlots(NPVariant** owned, int count) {
    NPVariant* const slots = *owned;
    *owned = nullptr;
    for (int i = 0; i < count; ++i) {
        if (isObject(slots[i])) {
            NPN_ReleaseObject(NPVARIANT_TO_OBJECT(slots[i]));
        } else if (NPVARIANT_IS_STRING(slots[i])) {
            NPN_ReleaseVariantValue(&slots[i]);
        }
    }
    delete[] slots;
}

/// Deletes what an instance owns. The instance has it no more: script may run.
template <class Owned> static void deleteOwned(Owned** owned) {
    Owned* const going = *owned;
    *owned = nullptr;
    delete going;
}

VideoPlugin::~VideoPlugin() {
    LOG("cehtml VideoPlugin delete starting !!!\n\n");
    InstanceGuard::instanceDeleted(this);
    m_bSkipJSCallback = true;
    if (Hbbtv_AL_MediaPlayerStop(m_hPlayer) == 0) {
        LOG("ERROR from destructor, while stopping mmlib\n\n");
    }
    if (m_hPlayer != NO_PLAYER) {
        Hbbtv_AL_MediaPlayerRemoveCallback(m_hPlayer);
        LOG("Hbbtv_AL_MediaPlayerClose(player)\n");
        Hbbtv_AL_MediaPlayerClose(m_hPlayer);
        m_hPlayer = NO_PLAYER;
    }
    if (m_pNpVarProperties) {
        releaseSlots(&m_pNpVarProperties, PROPERTY_COUNT);
        LOG("m_pNpVarProperties released!\n\n");
    }
    if (m_pNpVarListeners) {
        releaseSlots(&m_pNpVarListeners, LISTENER_COUNT);
    }
    if (m_ppsParamValues) {
        for (int i = 0; i < PARAM_COUNT; ++i) {
            if (m_ppsParamValues[i]) {
                NPN_MemFree(m_ppsParamValues[i]);
                m_ppsParamValues[i] = nullptr;
            }
        }
        delete[] m_ppsParamValues;
        m_ppsParamValues = nullptr;
    }
    LOG("m_ppsParamValues freed!\n\n");
    deleteOwned(&m_DOMEventClass);
    deleteOwned(&m_pComponentCollectionHolder);
    delete[] m_bPropertySetUsingAddEventListener;
    m_bPropertySetUsingAddEventListener = nullptr;
    deleteHandleFromList(this);
    LOG("cehtml VideoPlugin delete Finished !!!\n\n");
}

int VideoPlugin::PluginGetValue(NPP instance, NPNVariable var, void* value) {
    LOG("NPP (PluginGetValue) : %p\n\n", static_cast<void*>(instance));
    return NPN_GetValue(instance, var, value);
}

HbbTVAVControlDOMEventClass* VideoPlugin::getDOMEventClass() {
    return m_DOMEventClass;
}

void VideoPlugin::SetMsgHandler(int handler) {
    m_nMsgHandle = handler;
}
