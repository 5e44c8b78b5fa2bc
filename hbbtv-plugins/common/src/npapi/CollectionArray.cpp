#include "CollectionArray.h"

#include "BrowserFunctions.h"
#include "HbbTVBaseClass.h"

#include <string.h>

namespace {

constexpr char COPY_COLLECTION[] = "(function(collection) {"
                                   " var items = [];"
                                   " for (var i = 0; i < collection.length; ++i) items[i] = collection.item(i);"
                                   " items.item = function(i) { return items[i] === undefined ? null : items[i]; };"
                                   " return items; })";

bool isCollection(const NPVariant& value) {
    return NPVARIANT_IS_OBJECT(value) && HbbTVBaseClass::isFrameworkObject(NPVARIANT_TO_OBJECT(value)) &&
           reinterpret_cast<const NPObjectHbbTV*>(NPVARIANT_TO_OBJECT(value))->typeNPObject ==
               NPOBJECT_COMPONENT_COLLECTION_CLASS;
}

} // namespace

void presentAsArray(NPP npp, NPVariant* value) {
    NPObject* window = nullptr;
    if (!isCollection(*value) || NPN_GetValue(npp, NPNVWindowNPObject, &window) != NPERR_NO_ERROR || !window) {
        return;
    }
    NPString script = {COPY_COLLECTION, static_cast<uint32_t>(strlen(COPY_COLLECTION))};
    NPVariant copy;
    VOID_TO_NPVARIANT(copy);
    if (NPN_Evaluate(npp, window, &script, &copy)) {
        NPVariant array;
        VOID_TO_NPVARIANT(array);
        // Not by NPN_InvokeDefault, which traces calls of the page's own functions.
        if (NPVARIANT_IS_OBJECT(copy) &&
            browserFunctions().invokeDefault(npp, NPVARIANT_TO_OBJECT(copy), value, 1, &array)) {
            NPN_ReleaseVariantValue(value);
            *value = array;
        }
        NPN_ReleaseVariantValue(&copy);
    }
    NPN_ReleaseObject(window);
}
