#include "HbbTVPluginHelpers.h"

#include "FrameworkLog.h"

#include <string.h>

namespace {

/// Reads `object.name`; on true the caller releases `result`.
bool readProperty(NPP instance, NPObject* object, const char* name, NPVariant* result) {
    VOID_TO_NPVARIANT(*result);
    return NPN_GetProperty(instance, object, NPN_GetStringIdentifier(name), result);
}

bool copyText(const NPVariant& value, char* buffer, size_t size) {
    if (!NPVARIANT_IS_STRING(value) || NPVARIANT_TO_STRING(value).UTF8Length == 0 ||
        NPVARIANT_TO_STRING(value).UTF8Length >= size) {
        return false;
    }
    const NPString& text = NPVARIANT_TO_STRING(value);
    memcpy(buffer, text.UTF8Characters, text.UTF8Length);
    buffer[text.UTF8Length] = '\0';
    return true;
}

} // namespace

bool GetPageUrl(NPP* instance, char* url, size_t size) {
    if (!url || size == 0) {
        return false;
    }
    url[0] = '\0';
    NPObject* window = nullptr;
    if (!instance || NPN_GetValue(*instance, NPNVWindowNPObject, &window) != NPERR_NO_ERROR || !window) {
        FRAMEWORK_LOG("The browser gives no window: the page's address is not known\n");
        return false;
    }
    bool found = false;
    NPVariant location;
    if (readProperty(*instance, window, "location", &location)) {
        NPVariant href;
        if (NPVARIANT_IS_OBJECT(location) && readProperty(*instance, NPVARIANT_TO_OBJECT(location), "href", &href)) {
            found = copyText(href, url, size);
            NPN_ReleaseVariantValue(&href);
        }
        NPN_ReleaseVariantValue(&location);
    }
    NPN_ReleaseObject(window);
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
