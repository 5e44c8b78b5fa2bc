#include "WindowScript.h"

#include "BrowserFunctions.h"

#include <string.h>

bool makeWindowFunction(NPP npp, const char* parameters, const char* body, NPVariant* function) {
    NPObject* window = nullptr;
    if (NPN_GetValue(npp, NPNVWindowNPObject, &window) != NPERR_NO_ERROR || !window) {
        return false;
    }
    // Not by NPN_Evaluate, which in QtWebKit keeps the instance for a turn: the engine crashes when its frame goes
    // then.
    NPVariant constructor;
    VOID_TO_NPVARIANT(constructor);
    NPN_GetProperty(npp, window, NPN_GetStringIdentifier("Function"), &constructor);
    // Before anything of the page runs: engines free a frame's window with the frame, whatever references are left.
    NPN_ReleaseObject(window);
    NPVariant made;
    VOID_TO_NPVARIANT(made);
    if (NPVARIANT_IS_OBJECT(constructor)) {
        NPVariant texts[2];
        STRINGN_TO_NPVARIANT(parameters, static_cast<uint32_t>(strlen(parameters)), texts[0]);
        STRINGN_TO_NPVARIANT(body, static_cast<uint32_t>(strlen(body)), texts[1]);
        browserFunctions().invokeDefault(npp, NPVARIANT_TO_OBJECT(constructor), texts, 2, &made);
    }
    NPN_ReleaseVariantValue(&constructor);
    if (!NPVARIANT_IS_OBJECT(made)) {
        NPN_ReleaseVariantValue(&made);
        return false;
    }
    *function = made;
    return true;
}
