// Listeners and handlers: how a page registers them and the one road by which they are called.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"

#include "media_sync_global.h"

#include <string.h>

/// Checks the arguments of addEventListener and removeEventListener and looks the type up.
/// @return its ListenerNames_e, or -1 after a log line
static int findListenerType(const NPVariant& npType, const NPVariant& npListener, const NPVariant& npUseCapture) {
    const bool captureIsGood = NPVARIANT_IS_BOOLEAN(npUseCapture) || NPVARIANT_IS_NULL(npUseCapture);
    if (!NPVARIANT_IS_STRING(npType) || !NPVARIANT_IS_OBJECT(npListener) || !captureIsGood) {
        LOG_ERROR("%s\n", "Wrong input argument type !");
        return -1;
    }
    const NPString& type = NPVARIANT_TO_STRING(npType);
    char* name = type.UTF8Length < UINT32_MAX ? static_cast<char*>(NPN_MemAlloc(type.UTF8Length + 1)) : nullptr;
    if (!name) {
        LOG_ERROR("Unable to allocate string buffer !\n");
        return -1;
    }
    if (type.UTF8Length > 0) {
        memcpy(name, type.UTF8Characters, type.UTF8Length);
    }
    name[type.UTF8Length] = '\0';
    const int index =
        HbbTVBaseClass::findIdentifier(piListenersPropertyIdentifiers, LISTENER_COUNT, NPN_GetStringIdentifier(name));
    NPN_MemFree(name);
    if (index < 0) {
        LOG_ERROR("%s\n", "Property not supported !");
    }
    return index;
}

void VideoPlugin::AddEventListener(NPVariant npType, NPVariant npListener, NPVariant npUseCapture) {
    LOG("Method addEventListener called\n");
    const int index = findListenerType(npType, npListener, npUseCapture);
    if (index >= 0 && m_pNpVarListeners && storeInSlot(*this, &m_pNpVarListeners[index], npListener) == Outcome::Done) {
        SetPropertyFromListener(static_cast<unsigned>(index), true);
    }
}

void VideoPlugin::RemoveEventListener(NPVariant npType, NPVariant npListener, NPVariant npUseCapture) {
    LOG("videoplugin JS_removeEventListener called\n");
    const int index = findListenerType(npType, npListener, npUseCapture);
    if (index >= 0 && m_pNpVarListeners &&
        moveToSlot(*this, &m_pNpVarListeners[index], nullVariant()) == Outcome::Done) {
        SetPropertyFromListener(static_cast<unsigned>(index), false);
    }
}

void VideoPlugin::SetPropertyFromListener(unsigned int index, bool value) {
    if (index < LISTENER_COUNT && m_bPropertySetUsingAddEventListener) {
        m_bPropertySetUsingAddEventListener[index] = value;
    }
}

bool VideoPlugin::GetIsPropertySetFromListener(unsigned int index) {
    return index < LISTENER_COUNT && m_bPropertySetUsingAddEventListener && m_bPropertySetUsingAddEventListener[index];
}

static void reportToMediaSync(const VideoPlugin& plugin, int property, const NPVariant* args, int arg_cnt,
                              bool isListener) {
    if (property == (isListener ? static_cast<int>(PlayStateChange) : static_cast<int>(onPlayStateChange))) {
        adapt_play_state_change(plugin.m_hPlayer, AVCONTROL, currentPlayState(plugin));
    } else if (property == (isListener ? static_cast<int>(PlaySpeedChanged) : static_cast<int>(onPlaySpeedChanged))) {
        double current = 0.0;
        readNumber(plugin.m_pNpVarProperties[speed], &current);
        adapt_play_speed_change(plugin.m_hPlayer, static_cast<float>(current));
    } else if (property ==
               (isListener ? static_cast<int>(ParentalRatingChange) : static_cast<int>(onParentalRatingChange))) {
        adapt_parental_rating_change(plugin.m_hPlayer, arg_cnt > 3 && readTruth(args[3]));
    }
}

bool VideoPlugin::ExecutePropertyJSFunctionArgs(int property, NPVariant* args, int arg_cnt, bool isListener) {
    const NPVariant* slots = isListener ? m_pNpVarListeners : m_pNpVarProperties;
    if (!slots || property < 0 || property >= (isListener ? LISTENER_COUNT : PROPERTY_COUNT) || arg_cnt < 0) {
        LOG_ERROR("Call of function %d with %d arguments refused\n", property, arg_cnt);
        return false;
    }
    if (!NPVARIANT_IS_OBJECT(slots[property])) {
        if (isListener) {
            LOG_WARN("ExecutePropertyJSFunctionArgs, m_pNpVarListeners[%s] is NOT NPObject\n",
                     psListenersPropertyNames[property]);
        } else {
            LOG_WARN("ExecutePropertyJSFunctionArgs, m_pNpVarProperties[%s] is NOT NPObject\n", psProperties[property]);
        }
        return false;
    }
    const InstanceGuard guard(this);
    bool succeeded = false;
    if (NPObject* function = NPVARIANT_TO_OBJECT(slots[property])) {
        if (isListener) {
            LOG("ExecutePropertyJSFunctionArgs, dispatch m_pNpVarListeners[%s]\n", psListenersPropertyNames[property]);
        } else {
            LOG("ExecutePropertyJSFunctionArgs, dispatch m_pNpVarProperties[%s]\n", psProperties[property]);
        }
        NPVariant result = voidVariant();
        // The function may replace or remove itself while it runs.
        NPN_RetainObject(function);
        succeeded =
            static_cast<PluginBaseClass*>(this)->dispatch(function, args, static_cast<uint32_t>(arg_cnt), &result);
        if (succeeded) {
            releaseAnswer(&result);
        }
        NPN_ReleaseObject(function);
    }
    if (guard.alive()) {
        reportToMediaSync(*this, property, args, arg_cnt, isListener);
    }
    return succeeded;
}

bool VideoPlugin::dispatch(NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    if (m_bSkipJSCallback) {
        LOG_WARN("m_bSkipJSCallback is ture,so return\n\n");
        return false;
    }
    return NPN_InvokeDefault(m_pNPInstance, npobj, args, argCount, result);
}

Outcome callListener(VideoPlugin& plugin, int listener) {
    HbbTVAVControlDOMEventClass* owner = plugin.getDOMEventClass();
    NPObject* event = owner ? owner->getAVControlDOMEventNPObject() : nullptr;
    if (!event) {
        LOG_ERROR("No event object: listener %s is not called\n", psListenersPropertyNames[listener]);
        return Outcome::Done;
    }
    NPVariant argument = objectVariant(NPN_RetainObject(event));
    const InstanceGuard guard(&plugin);
    plugin.ExecutePropertyJSFunctionArgs(listener, &argument, 1, true);
    NPN_ReleaseObject(event);
    return guard.outcome();
}

Outcome callHandler(VideoPlugin& plugin, int handler, NPVariant* args, int arg_cnt) {
    return guarded(plugin, [&] { plugin.ExecutePropertyJSFunctionArgs(handler, args, arg_cnt, false); });
}

Outcome callHandler(VideoPlugin& plugin, int handler, NPVariant argument) {
    return callHandler(plugin, handler, &argument, 1);
}

void VideoPlugin::onDRMRightsErrorFun(int errorState, char* contentID, char* DRMSystemID, char* rightsIssuerURL) {
    LOG("[onDRMRightsErrorFun],errorState[%d],contentID[%s],DRMSystemID[%s],rightsIssuerURL[%s]\n\n", errorState,
        contentID, DRMSystemID, rightsIssuerURL);
    NPVariant variants[4] = {intVariant(errorState), stringVariant(contentID), stringVariant(DRMSystemID),
                             stringVariant(rightsIssuerURL)};
    ExecutePropertyJSFunctionArgs(onDRMRightsError, variants, 4, false);
}
