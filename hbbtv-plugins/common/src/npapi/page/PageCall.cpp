#include "npapi/page/PageCall.h"

#include "npapi/page/WindowScript.h"

#include <algorithm>

namespace {

constexpr uint32_t MOST_ARGUMENTS = 8; // a plug-in's calls have at most four

// Thrown again outside the call, the exception is reported with the place where it happened.
constexpr char CALL_REPORTING[] = "var args = Array.prototype.slice.call(arguments, 2);"
                                  "try { return page.apply(element, args); }"
                                  "catch (error) { setTimeout(function() { throw error; }, 0); }";

} // namespace

ScriptValue callPageFunction(const InstanceRef& instance, const ScriptObject& function, const NPVariant* args,
                             uint32_t argCount) {
    if (!function) {
        return ScriptValue();
    }
    // Made for each call: QtWebKit drops kept functions when another instance of the page goes.
    const ScriptObject caller = makeWindowFunction(instance, "page, element", CALL_REPORTING);
    const ScriptObject element = instance.element();
    if (!caller || !element || argCount > MOST_ARGUMENTS) {
        return instance.callFunction(function, args, argCount);
    }
    NPVariant values[2 + MOST_ARGUMENTS] = {function.borrowed(), element.borrowed()};
    std::copy(args, args + argCount, values + 2);
    return instance.callFunction(caller, values, argCount + 2);
}
