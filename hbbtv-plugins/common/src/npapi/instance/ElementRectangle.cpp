#include "npapi/instance/ElementRectangle.h"

#include <math.h>

namespace {

constexpr int DEEPEST_FRAME = 100; // a page can make its frames appear endless

bool readNumber(const InstanceRef& instance, const ScriptObject& object, const char* name, double* number) {
    return instance.property(object, name).readNumber(number);
}

/// Replaces a window by its parent. @return the element that frames it: empty for the page's own window and for the
/// frame of another origin, whose offset stays unknown; the window is empty, too, then
ScriptObject climb(const InstanceRef& instance, ScriptObject* window) {
    ScriptObject frame = instance.property(*window, "frameElement").takeObject();
    *window = frame ? instance.property(*window, "parent").takeObject() : ScriptObject();
    return frame;
}

/// Adds the corner of an element's content box, in its own frame, to x and y.
bool addCorner(const InstanceRef& instance, const ScriptObject& element, double* x, double* y) {
    double left = 0;
    double top = 0;
    const ScriptObject rectangle = instance.call(element, "getBoundingClientRect").takeObject();
    const bool found = readNumber(instance, rectangle, "left", &left) && readNumber(instance, rectangle, "top", &top);
    double borderLeft = 0;
    double borderTop = 0;
    readNumber(instance, element, "clientLeft", &borderLeft);
    readNumber(instance, element, "clientTop", &borderTop);
    *x += left + borderLeft;
    *y += top + borderTop;
    return found;
}

/// @return the nearest number of the type; 0 for what is no number
template <class Integer> Integer rounded(double number) {
    constexpr double LARGEST = 1 << 30;
    return isnan(number) ? 0 : static_cast<Integer>(lround(fmax(-LARGEST, fmin(number, LARGEST))));
}

} // namespace

bool findElementRectangle(const InstanceRef& instance, ElementRectangle* rectangle) {
    const ScriptObject element = instance.element();
    ScriptObject window = instance.window();
    if (!window) {
        return false;
    }
    // Before the page measures anything, which may run script and end the frame.
    ScriptObject frame = climb(instance, &window);
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    const bool found = addCorner(instance, element, &left, &top) &&
                       readNumber(instance, element, "clientWidth", &width) &&
                       readNumber(instance, element, "clientHeight", &height) && width > 0 && height > 0;
    for (int depth = 0; frame && depth < DEEPEST_FRAME; ++depth) {
        addCorner(instance, frame, &left, &top);
        frame = climb(instance, &window);
    }
    if (found) {
        *rectangle = {rounded<int32_t>(left), rounded<int32_t>(top), rounded<uint32_t>(width),
                      rounded<uint32_t>(height)};
    }
    return found;
}
