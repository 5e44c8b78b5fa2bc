#include "npapi/instance/ElementRectangle.h"

#include "npapi/npruntime.h"

#include <math.h>

namespace {

bool readNumber(NPP npp, NPObject* object, const char* name, double* number) {
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    if (!NPN_GetProperty(npp, object, NPN_GetStringIdentifier(name), &value)) {
        return false;
    }
    bool found = true;
    if (NPVARIANT_IS_DOUBLE(value)) {
        *number = NPVARIANT_TO_DOUBLE(value);
    } else if (NPVARIANT_IS_INT32(value)) {
        *number = NPVARIANT_TO_INT32(value);
    } else {
        found = false;
    }
    NPN_ReleaseVariantValue(&value);
    return found;
}

/// @return `object.name` with a reference for the caller, or null
NPObject* readObject(NPP npp, NPObject* object, const char* name) {
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    if (!NPN_GetProperty(npp, object, NPN_GetStringIdentifier(name), &value)) {
        return nullptr;
    }
    if (NPVARIANT_IS_OBJECT(value)) {
        return NPVARIANT_TO_OBJECT(value);
    }
    NPN_ReleaseVariantValue(&value);
    return nullptr;
}

/// Replaces a window by its parent, and gives the element that frames it: null for the page's own window and for the
/// frame of another origin, whose offset stays unknown. The window is null, too, then. What measures an element may run
/// script, which may end the frame and with it its window: so this comes before.
void climb(NPP npp, NPObject** window, NPObject** frame) {
    *frame = readObject(npp, *window, "frameElement");
    NPObject* parent = *frame ? readObject(npp, *window, "parent") : nullptr;
    NPN_ReleaseObject(*window);
    *window = parent;
}

/// Adds the corner of an element's content box, in its own frame, to x and y.
bool addCorner(NPP npp, NPObject* element, double* x, double* y) {
    NPVariant rectangle;
    VOID_TO_NPVARIANT(rectangle);
    if (!NPN_Invoke(npp, element, NPN_GetStringIdentifier("getBoundingClientRect"), nullptr, 0, &rectangle)) {
        return false;
    }
    double left = 0;
    double top = 0;
    const bool found = NPVARIANT_IS_OBJECT(rectangle) &&
                       readNumber(npp, NPVARIANT_TO_OBJECT(rectangle), "left", &left) &&
                       readNumber(npp, NPVARIANT_TO_OBJECT(rectangle), "top", &top);
    NPN_ReleaseVariantValue(&rectangle);
    double borderLeft = 0;
    double borderTop = 0;
    readNumber(npp, element, "clientLeft", &borderLeft);
    readNumber(npp, element, "clientTop", &borderTop);
    *x += left + borderLeft;
    *y += top + borderTop;
    return found;
}

} // namespace

bool findElementPlace(NPP npp, ElementRectangle* place) {
    NPObject* element = nullptr;
    NPObject* window = nullptr;
    if (NPN_GetValue(npp, NPNVPluginElementNPObject, &element) != NPERR_NO_ERROR || !element ||
        NPN_GetValue(npp, NPNVWindowNPObject, &window) != NPERR_NO_ERROR || !window) {
        NPN_ReleaseObject(element);
        return false;
    }
    NPObject* frame = nullptr;
    climb(npp, &window, &frame);
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    const bool found = addCorner(npp, element, &left, &top) && readNumber(npp, element, "clientWidth", &width) &&
                       readNumber(npp, element, "clientHeight", &height) && width > 0 && height > 0;
    NPN_ReleaseObject(element);
    while (frame) {
        addCorner(npp, frame, &left, &top);
        NPN_ReleaseObject(frame);
        frame = nullptr;
        if (window) {
            climb(npp, &window, &frame);
        }
    }
    if (found) {
        *place = {static_cast<int32_t>(lround(left)), static_cast<int32_t>(lround(top)),
                  static_cast<uint32_t>(lround(width)), static_cast<uint32_t>(lround(height))};
    }
    return found;
}
