#include "WindowScript.h"

#include "BrowserFunctions.h"

#include <string.h>

#include <string>

namespace {

NPObject* windowOf(NPP npp) {
    NPObject* window = nullptr;
    return NPN_GetValue(npp, NPNVWindowNPObject, &window) == NPERR_NO_ERROR ? window : nullptr;
}

bool isFunction(NPVariant* made) {
    if (NPVARIANT_IS_OBJECT(*made)) {
        return true;
    }
    NPN_ReleaseVariantValue(made);
    VOID_TO_NPVARIANT(*made);
    return false;
}

bool construct(NPP npp, const char* parameters, const char* body, NPVariant* function) {
    NPObject* window = windowOf(npp);
    NPVariant constructor;
    VOID_TO_NPVARIANT(constructor);
    if (window) {
        NPN_GetProperty(npp, window, NPN_GetStringIdentifier("Function"), &constructor);
    }
    // Before anything runs: engines free a frame's window with the frame, whatever references are left.
    NPN_ReleaseObject(window);
    if (!isFunction(&constructor)) {
        return false;
    }
    NPVariant texts[2];
    STRINGN_TO_NPVARIANT(parameters, static_cast<uint32_t>(strlen(parameters)), texts[0]);
    STRINGN_TO_NPVARIANT(body, static_cast<uint32_t>(strlen(body)), texts[1]);
    browserFunctions().invokeDefault(npp, NPVARIANT_TO_OBJECT(constructor), texts, 2, function);
    NPN_ReleaseVariantValue(&constructor);
    return isFunction(function);
}

bool evaluate(NPP npp, const char* parameters, const char* body, NPVariant* function) {
    NPObject* window = windowOf(npp);
    if (!window) {
        return false;
    }
    const std::string source = std::string("(function(") + parameters + ") {" + body + "})";
    NPString script = {source.c_str(), static_cast<uint32_t>(source.size())};
    NPN_Evaluate(npp, window, &script, function);
    NPN_ReleaseObject(window);
    return isFunction(function);
}

} // namespace

bool makeWindowFunction(NPP npp, const char* parameters, const char* body, NPVariant* function) {
    VOID_TO_NPVARIANT(*function);
    // NPN_Evaluate makes QtWebKit keep the instance for a turn, in which its frame must not go: only for pages whose
    // content security policy forbids the constructor.
    return construct(npp, parameters, body, function) || evaluate(npp, parameters, body, function);
}
