// Script's method calls: which operation carries a method out, with which arguments, and what script receives.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

bool VideoPlugin::hasMethod(NPIdentifier name) {
    return HbbTVBaseClass::findIdentifier(piFunctions, FUNCTION_COUNT, name) >= 0;
}

static void logInvocation(NPIdentifier name, int index) {
    if (!ordinaryLogIsOn()) {
        return;
    }
    NPUTF8* text = NPN_UTF8FromIdentifier(name);
    LOG("invoke: %s %d\n", text ? text : "", index);
    if (text) {
        NPN_MemFree(text);
    }
}

/// @return the element with the browser's reference, Null when the browser gives none
static NPVariant pluginElement(NPP instance) {
    NPObject* element = nullptr;
    if (NPN_GetValue(instance, NPNVPluginElementNPObject, &element) != NPERR_NO_ERROR || !element) {
        LOG_ERROR("The browser gives no element: getPluginElement answers null\n");
        return nullVariant();
    }
    return objectVariant(element);
}

// NOLINTNEXTLINE(readability-function-size): a table of the methods
bool VideoPlugin::invoke(NPObject* npobj, NPIdentifier name, const NPVariant* args, uint32_t argCount,
                         NPVariant* result) {
    const int index = HbbTVBaseClass::findIdentifier(piFunctions, FUNCTION_COUNT, name);
    if (index < 0) {
        LOG("Invoke function is not exist\n");
        return false;
    }
    logInvocation(name, index);
    const NPVariant defaultSpeed = doubleVariant(1.0);
    const NPVariant optionalArg = nullVariant();
    const NPVariant first = argCount > 0 ? args[0] : voidVariant();
    const NPVariant listenerCapture = argCount == 3 ? args[2] : optionalArg;
    const NPVariant componentType = argCount == 1 ? first : optionalArg;
    const bool firstIsNumber = NPVARIANT_IS_INT32(first) || NPVARIANT_IS_DOUBLE(first);
    switch (index) {
    case play_func:
        *result = Play(argCount == 1 ? first : defaultSpeed);
        break;
    case stop_func:
        *result = Stop();
        break;
    case seek_func:
        *result = Seek(first);
        break;
    case setVolume_func:
        *result = SetVolume(first);
        break;
    case next_func:
        *result = Next();
        break;
    case previous_func:
        *result = Previous();
        break;
    case getSinkProtocolInfo_func:
        *result = GetSinkProtocolInfo();
        break;
    case getTransportStateVariables_func:
        *result = GetTransportStateVariables(first);
        break;
    case setTransportStateVariables_func:
        *result = SetTransportStateVariables(first);
        break;
    case setFullScreen_func:
        *result = SetFullScreen(first);
        break;
    case focus_func:
        *result = Focus(npobj);
        break;
    case queue_func:
        *result = Queue(first);
        break;
    case addEventListener_func:
        if (argCount == 2 || argCount == 3) {
            AddEventListener(first, args[1], listenerCapture);
        }
        break;
    case removeEventListener_func:
        if (argCount == 2 || argCount == 3) {
            RemoveEventListener(first, args[1], listenerCapture);
        }
        break;
    case getComponents_func:
        if (argCount <= 1) {
            *result = GetComponents(componentType);
        }
        break;
    case getCurrentActiveComponents_func:
        if (argCount <= 1) {
            *result = GetCurrentActiveComponents(componentType);
        }
        break;
    case selectComponent_func:
        if (NPVARIANT_IS_OBJECT(first)) {
            SelectComponent(first);
        } else if (firstIsNumber) {
            SelectDefaultComponent(first);
        }
        break;
    case unselectComponent_func:
        if (NPVARIANT_IS_OBJECT(first)) {
            UnSelectComponent(first);
        } else if (firstIsNumber) {
            UnSelectDefaultComponent(first);
        }
        break;
    case getPluginType_func:
        *result = intVariant(m_ePluginType);
        break;
    case getMediaHandle_func:
        *result = intVariant(m_hPlayer);
        break;
    case getPluginElement_func:
        *result = pluginElement(m_pNPInstance);
        break;
    default:
        break;
    }
    return true;
}
