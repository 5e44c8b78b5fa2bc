#include "PageCall.h"

#include "BrowserFunctions.h"
#include "WindowScript.h"

#include <vector>

namespace {

// Thrown again outside the call, the exception is reported with the place where it happened.
constexpr char CALL_REPORTING[] = "var args = Array.prototype.slice.call(arguments, 2);"
                                  "try { return page.apply(element, args); }"
                                  "catch (error) { setTimeout(function() { throw error; }, 0); }";

} // namespace

bool callPageFunction(NPP npp, NPObject* function, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    NPObject* element = nullptr;
    NPVariant caller;
    const bool reporting = NPN_GetValue(npp, NPNVPluginElementNPObject, &element) == NPERR_NO_ERROR && element &&
                           makeWindowFunction(npp, "page, element", CALL_REPORTING, &caller);
    bool called = false;
    if (reporting) {
        std::vector<NPVariant> values(2);
        OBJECT_TO_NPVARIANT(function, values[0]);
        OBJECT_TO_NPVARIANT(element, values[1]);
        values.insert(values.end(), args, args + argCount);
        called =
            browserFunctions().invokeDefault(npp, NPVARIANT_TO_OBJECT(caller), values.data(), argCount + 2, result);
        NPN_ReleaseVariantValue(&caller);
    } else {
        called = browserFunctions().invokeDefault(npp, function, args, argCount, result);
    }
    NPN_ReleaseObject(element);
    return called;
}
