#include "npapi/page/CollectionArray.h"

#include "HbbTVBaseClass.h"
#include "npapi/engine/BrowserFunctions.h"
#include "npapi/page/WindowScript.h"

namespace {

constexpr char COPY_COLLECTION[] = "var items = [];"
                                   "for (var i = 0; i < collection.length; ++i) items[i] = collection.item(i);"
                                   "items.item = function(i) { return items[i] === undefined ? null : items[i]; };"
                                   "return items;";

bool isCollection(const NPVariant& value) {
    return NPVARIANT_IS_OBJECT(value) && HbbTVBaseClass::isFrameworkObject(NPVARIANT_TO_OBJECT(value)) &&
           reinterpret_cast<const NPObjectHbbTV*>(NPVARIANT_TO_OBJECT(value))->typeNPObject ==
               NPOBJECT_COMPONENT_COLLECTION_CLASS;
}

} // namespace

void presentAsArray(NPP npp, NPVariant* value) {
    NPObject* copier = isCollection(*value) ? makeWindowFunction(npp, "collection", COPY_COLLECTION) : nullptr;
    if (!copier) {
        return;
    }
    NPVariant array;
    VOID_TO_NPVARIANT(array);
    // Not by NPN_InvokeDefault, which traces calls of the page's own functions.
    if (browserFunctions().invokeDefault(npp, copier, value, 1, &array)) {
        NPN_ReleaseVariantValue(value);
        *value = array;
    }
    NPN_ReleaseObject(copier);
}
