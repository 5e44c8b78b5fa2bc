#include "npapi/page/PageCall.h"

#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/PluginInstance.h"
#include "npapi/page/WindowScript.h"

#include <vector>

namespace {

// Thrown again outside the call, the exception is reported with the place where it happened.
constexpr char CALL_REPORTING[] = "var args = Array.prototype.slice.call(arguments, 2);"
                                  "try { return page.apply(element, args); }"
                                  "catch (error) { setTimeout(function() { throw error; }, 0); }";

} // namespace

bool callPageFunction(NPP npp, NPObject* function, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    // Made for each call: QtWebKit drops kept functions when another instance of the page goes.
    NPObject* caller = makeWindowFunction(npp, "page, element", CALL_REPORTING);
    PluginInstance* instance = PluginInstance::of(npp);
    NPObject* element = instance ? instance->pageObject(NPNVPluginElementNPObject) : nullptr;
    bool called = false;
    if (caller && element) {
        std::vector<NPVariant> values(2);
        OBJECT_TO_NPVARIANT(function, values[0]);
        OBJECT_TO_NPVARIANT(element, values[1]);
        values.insert(values.end(), args, args + argCount);
        called = browserFunctions().invokeDefault(npp, caller, values.data(), argCount + 2, result);
    } else if (instance) {
        called = browserFunctions().invokeDefault(npp, function, args, argCount, result);
    }
    NPN_ReleaseObject(element);
    NPN_ReleaseObject(caller);
    return called;
}
