#include "PageCall.h"

#include "BrowserFunctions.h"

#include <string.h>
#include <vector>

namespace {

// Thrown again outside the call, the exception is reported with the place where it happened.
constexpr char CALL_REPORTING[] = "(function(page, element) {"
                                  " var args = Array.prototype.slice.call(arguments, 2);"
                                  " try { return page.apply(element, args); }"
                                  " catch (error) { setTimeout(function() { throw error; }, 0); } })";

NPObject* valueObject(NPP npp, NPNVariable variable) {
    NPObject* object = nullptr;
    return NPN_GetValue(npp, variable, &object) == NPERR_NO_ERROR ? object : nullptr;
}

} // namespace

bool callPageFunction(NPP npp, NPObject* function, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    NPObject* window = valueObject(npp, NPNVWindowNPObject);
    NPObject* element = valueObject(npp, NPNVPluginElementNPObject);
    NPVariant caller;
    VOID_TO_NPVARIANT(caller);
    NPString script = {CALL_REPORTING, static_cast<uint32_t>(strlen(CALL_REPORTING))};
    bool called = false;
    if (window && element && NPN_Evaluate(npp, window, &script, &caller) && NPVARIANT_IS_OBJECT(caller)) {
        std::vector<NPVariant> values(2);
        OBJECT_TO_NPVARIANT(function, values[0]);
        OBJECT_TO_NPVARIANT(element, values[1]);
        values.insert(values.end(), args, args + argCount);
        called =
            browserFunctions().invokeDefault(npp, NPVARIANT_TO_OBJECT(caller), values.data(), argCount + 2, result);
    } else {
        called = browserFunctions().invokeDefault(npp, function, args, argCount, result);
    }
    NPN_ReleaseVariantValue(&caller);
    NPN_ReleaseObject(element);
    NPN_ReleaseObject(window);
    return called;
}
