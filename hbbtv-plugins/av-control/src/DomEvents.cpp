// The DOM "focus" event that focus() raises on the element.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVPluginHelpers.h"

namespace {

/// What the page is asked for while the object lives: each question may end it.
class Page {
public:
    explicit Page(VideoPlugin& plugin) : m_guard(&plugin), m_instance(*plugin.getNPP()) {}

    /// @return false after a log line; else the caller releases `document`
    bool readDocument(NPVariant* document) const {
        NPObject* window = nullptr;
        if (NPN_GetValue(m_instance, NPNVWindowNPObject, &window) != NPERR_NO_ERROR || !window) {
            LOG_ERROR("The browser gives no window: no DOM event is raised\n");
            return false;
        }
        const bool found =
            m_guard.alive() && NPN_GetProperty(m_instance, window, NPN_GetStringIdentifier("document"), document);
        NPN_ReleaseObject(window);
        if (!found) {
            LOG_ERROR("The window has no document: no DOM event is raised\n");
        }
        return found;
    }

    /// Calls `object.method(args)`. @return true when the caller is to release `result`
    bool call(NPObject* object, const char* method, const NPVariant* args, uint32_t count, NPVariant* result) const {
        return m_guard.alive() && NPN_Invoke(m_instance, object, NPN_GetStringIdentifier(method), args, count, result);
    }

    /// As call(), where `object` came from the page.
    bool callOn(const NPVariant& object, const char* method, const NPVariant* args, uint32_t count,
                NPVariant* result) const {
        if (!isObject(object)) {
            LOG_ERROR("Nothing to call %s on: no DOM event is raised\n", method);
            return false;
        }
        return call(NPVARIANT_TO_OBJECT(object), method, args, count, result);
    }

private:
    InstanceGuard m_guard;
    NPP m_instance;
};

} // namespace

/// @return false without memory for the event's type
static bool initEvent(const Page& page, const NPVariant& event, int EventType) {
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
    if (page.callOn(event, "initEvent", arguments, 3, &result)) {
        releaseAnswer(&result);
    }
    releaseHeldValue(arguments[0]);
    return true;
}

static void dispatchEvent(const Page& page, const NPVariant& event, NPObject* target) {
    NPVariant result = voidVariant();
    const bool called = page.call(target, "dispatchEvent", &event, 1, &result);
    if (called && NPVARIANT_IS_BOOLEAN(result) && !NPVARIANT_TO_BOOLEAN(result)) {
        LOG("canceled\n\n");
    } else {
        LOG("not canceled\n\n");
    }
    if (called) {
        releaseAnswer(&result);
    }
}

bool VideoPlugin::DispatchDomEvent(int EventType, NPObject* obj) {
    if (EventType < 0 || EventType >= DOM_EVENT_COUNT || !obj) {
        LOG_ERROR("DOM event %d on object %p refused\n", EventType, static_cast<void*>(obj));
        return true;
    }
    const Page page(*this);
    NPVariant document = voidVariant();
    if (!page.readDocument(&document)) {
        return true;
    }
    const NPVariant eventClass = stringVariant("HTMLEvents");
    NPVariant event = voidVariant();
    const bool created = page.callOn(document, "createEvent", &eventClass, 1, &event);
    if (created && isObject(event)) {
        if (initEvent(page, event, EventType)) {
            dispatchEvent(page, event, obj);
        }
    } else {
        LOG_ERROR("The document makes no event: no DOM event is raised\n");
    }
    if (created) {
        releaseAnswer(&event);
    }
    releaseAnswer(&document);
    return true;
}

NPVariant VideoPlugin::Focus(NPObject* obj) {
    LOG("FROM : VideoPlugin::focus ### focus() called \n\n");
    DispatchDomEvent(FOCUS, obj);
    return voidVariant();
}
