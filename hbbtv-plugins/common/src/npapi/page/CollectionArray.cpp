#include "npapi/page/CollectionArray.h"

#include "HbbTVBaseClass.h"
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

void presentAsArray(const InstanceRef& instance, NPVariant* value) {
    if (!isCollection(*value)) {
        return;
    }
    const ScriptObject copier = makeWindowFunction(instance, "collection", COPY_COLLECTION);
    ScriptValue array = instance.callFunction(copier, value, 1);
    if (array) {
        NPN_ReleaseVariantValue(value);
        *value = array.release();
    }
}
