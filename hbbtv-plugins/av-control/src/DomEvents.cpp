// The DOM "focus" event that focus() raises on the element.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVPluginHelpers.h"

static bool readDocument(NPP instance, NPVariant* document) {
    NPObject* window = nullptr;
    if (NPN_GetValue(instance, NPNVWindowNPObject, &window) != NPERR_NO_ERROR || !window) {
        LOG_ERROR("The browser gives no window: no DOM event is raised\n");
        return false;
    }
    const bool found = NPN_GetProperty(instance, window, NPN_GetStringIdentifier("document"), document);
    NPN_ReleaseObject(window);
    if (!found) {
        LOG_ERROR("The window has no document: no DOM event is raised\n");
    }
    return found;
}

/// Calls `object.method(args)`, where `object` came from the page. @return true when `result` is to be released
static bool callMethod(NPP instance, const NPVariant& object, const char* method, const NPVariant* args, uint32_t count,
                       NPVariant* result) {
    if (!NPVARIANT_IS_OBJECT(object) || !NPVARIANT_TO_OBJECT(object)) {
        LOG_ERROR("Nothing to call %s on: no DOM event is raised\n", method);
        return false;
    }
    return NPN_Invoke(instance, NPVARIANT_TO_OBJECT(object), NPN_GetStringIdentifier(method), args, count, result);
}

/// @return false without memory for the event's type
static bool initEvent(NPP instance, const NPVariant& event, int EventType) {
    NPVariant arguments[3] = {nullVariant(), nullVariant(), nullVariant()};
    LOG(" FROM : VideoPlugin::dispatchDomEvent ### EventType %s\n\n", psDOMEventNames[EventType]);
    LOG("FROM : VideoPlugin::dispatchDomEvent ### Forced : \n");
    if (!HbbTVBaseClass::makeString("focus", &arguments[0])) {
        return false;
    }
    PrintVariant(arguments[0]);
    arguments[1] = boolVariant(false);
    arguments[2] = boolVariant(false);
    NPVariant result = voidVariant();
    if (callMethod(instance, event, "initEvent", arguments, 3, &result)) {
        NPN_ReleaseVariantValue(&result);
    }
    releaseHeldValue(arguments[0]);
    return true;
}

static void dispatchEvent(NPP instance, const NPVariant& event, NPObject* target) {
    NPVariant result = voidVariant();
    const bool called = NPN_Invoke(instance, target, NPN_GetStringIdentifier("dispatchEvent"), &event, 1, &result);
    if (called && NPVARIANT_IS_BOOLEAN(result) && !NPVARIANT_TO_BOOLEAN(result)) {
        LOG("canceled\n\n");
    } else {
        LOG("not canceled\n\n");
    }
    if (called) {
        NPN_ReleaseVariantValue(&result);
    }
}

bool VideoPlugin::DispatchDomEvent(int EventType, NPObject* obj) {
    if (EventType < 0 || EventType >= DOM_EVENT_COUNT || !obj) {
        LOG_ERROR("DOM event %d on object %p refused\n", EventType, static_cast<void*>(obj));
        return true;
    }
    // A copy: the page's event handlers may delete this object.
    const NPP instance = m_pNPInstance;
    NPVariant document = voidVariant();
    if (!readDocument(instance, &document)) {
        return true;
    }
    const NPVariant eventClass = stringVariant("HTMLEvents");
    NPVariant event = voidVariant();
    const bool created = callMethod(instance, document, "createEvent", &eventClass, 1, &event);
    if (created && NPVARIANT_IS_OBJECT(event) && NPVARIANT_TO_OBJECT(event)) {
        if (initEvent(instance, event, EventType)) {
            dispatchEvent(instance, event, obj);
        }
    } else {
        LOG_ERROR("The document makes no event: no DOM event is raised\n");
    }
    if (created) {
        NPN_ReleaseVariantValue(&event);
    }
    NPN_ReleaseVariantValue(&document);
    return true;
}

NPVariant VideoPlugin::Focus(NPObject* obj) {
    LOG("FROM : VideoPlugin::focus ### focus() called \n\n");
    DispatchDomEvent(FOCUS, obj);
    return voidVariant();
}
