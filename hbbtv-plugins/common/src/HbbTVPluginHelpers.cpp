#include "HbbTVPluginHelpers.h"

#include "FrameworkLog.h"
#include "InstanceWatch.h"
#include "ScriptValue.h"

#include <string.h>

namespace {

ScriptValue readProperty(NPP instance, const ScriptObject& object, const char* name) {
    ScriptValue value;
    value.answered(NPN_GetProperty(instance, object.get(), NPN_GetStringIdentifier(name), value.result()));
    return value;
}

bool copyText(const ScriptValue& value, char* buffer, size_t size) {
    if (!value.isString()) {
        return false;
    }
    const NPString& text = NPVARIANT_TO_STRING(value.get());
    if (!text.UTF8Characters || text.UTF8Length == 0 || text.UTF8Length >= size) {
        return false;
    }
    memcpy(buffer, text.UTF8Characters, text.UTF8Length);
    buffer[text.UTF8Length] = '\0';
    return true;
}

/// @return `window.location`; empty when there is none, or when the question has ended the plug-in
ScriptObject readLocation(NPP instance, const InstanceWatch& plugin) {
    NPObject* given = nullptr;
    if (NPN_GetValue(instance, NPNVWindowNPObject, &given) != NPERR_NO_ERROR || !given) {
        FRAMEWORK_LOG("The browser gives no window: the page's address is not known\n");
        return ScriptObject();
    }
    // Given back here: engines free a frame's window with the frame, which the next question may end.
    const ScriptObject window(given);
    return plugin.alive() ? readProperty(instance, window, "location").takeObject() : ScriptObject();
}

} // namespace

bool GetPageUrl(NPP* instance, char* url, size_t size) {
    if (!url || size == 0) {
        return false;
    }
    url[0] = '\0';
    if (!instance) {
        return false;
    }
    // Copies: what follows may delete the plug-in, and the handle with it.
    const NPP handle = *instance;
    const InstanceWatch plugin(instance);
    const ScriptObject location = readLocation(handle, plugin);
    const bool found = location && plugin.alive() && copyText(readProperty(handle, location, "href"), url, size);
    if (!found) {
        FRAMEWORK_LOG("The page has no address of at most %u bytes in window.location.href\n",
                      static_cast<unsigned>(size - 1));
    }
    return found;
}

void PrintVariant(NPVariant value) {
    switch (value.type) {
    case NPVariantType_Void:
        FRAMEWORK_LOG("variant: undefined\n");
        break;
    case NPVariantType_Null:
        FRAMEWORK_LOG("variant: null\n");
        break;
    case NPVariantType_Bool:
        FRAMEWORK_LOG("variant: bool %s\n", NPVARIANT_TO_BOOLEAN(value) ? "true" : "false");
        break;
    case NPVariantType_Int32:
        FRAMEWORK_LOG("variant: int %d\n", NPVARIANT_TO_INT32(value));
        break;
    case NPVariantType_Double:
        FRAMEWORK_LOG("variant: double %f\n", NPVARIANT_TO_DOUBLE(value));
        break;
    case NPVariantType_String:
        FRAMEWORK_LOG("variant: string \"%.*s\"\n", static_cast<int>(NPVARIANT_TO_STRING(value).UTF8Length),
                      NPVARIANT_TO_STRING(value).UTF8Characters);
        break;
    case NPVariantType_Object:
        FRAMEWORK_LOG("variant: object %p\n", static_cast<void*>(NPVARIANT_TO_OBJECT(value)));
        break;
    }
}
