#include "npapi/page/WindowScript.h"

#include "npapi/engine/BrowserFunctions.h"

#include <string.h>

#include <string>

namespace {

NPObject* windowOf(NPP npp) {
    NPObject* window = nullptr;
    return NPN_GetValue(npp, NPNVWindowNPObject, &window) == NPERR_NO_ERROR ? window : nullptr;
}

/// @return the object that the variant holds, with its reference; any other value is released
NPObject* takeObject(NPVariant* value) {
    if (NPVARIANT_IS_OBJECT(*value)) {
        return NPVARIANT_TO_OBJECT(*value);
    }
    NPN_ReleaseVariantValue(value);
    return nullptr;
}

NPObject* construct(NPP npp, const char* parameters, const char* body) {
    NPObject* window = windowOf(npp);
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    if (window) {
        NPN_GetProperty(npp, window, NPN_GetStringIdentifier("Function"), &value);
    }
    // Before the page runs: engines free a frame's window with the frame, whatever references are left.
    NPN_ReleaseObject(window);
    NPObject* constructor = takeObject(&value);
    if (!constructor) {
        return nullptr;
    }
    NPVariant texts[2];
    STRINGN_TO_NPVARIANT(parameters, static_cast<uint32_t>(strlen(parameters)), texts[0]);
    STRINGN_TO_NPVARIANT(body, static_cast<uint32_t>(strlen(body)), texts[1]);
    VOID_TO_NPVARIANT(value);
    browserFunctions().invokeDefault(npp, constructor, texts, 2, &value);
    NPN_ReleaseObject(constructor);
    return takeObject(&value);
}

NPObject* evaluate(NPP npp, const char* parameters, const char* body) {
    NPObject* window = windowOf(npp);
    if (!window) {
        return nullptr;
    }
    const std::string source = std::string("(function(") + parameters + ") {" + body + "})";
    NPString script = {source.c_str(), static_cast<uint32_t>(source.size())};
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    NPN_Evaluate(npp, window, &script, &value);
    NPN_ReleaseObject(window);
    return takeObject(&value);
}

} // namespace

NPObject* makeWindowFunction(NPP npp, const char* parameters, const char* body) {
    // NPN_Evaluate makes QtWebKit keep the instance for a turn, in which its frame must not go: only for pages whose
    // content security policy forbids the constructor.
    NPObject* function = construct(npp, parameters, body);
    return function ? function : evaluate(npp, parameters, body);
}
