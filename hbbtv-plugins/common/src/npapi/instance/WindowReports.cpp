#include "npapi/instance/WindowReports.h"

#include "npapi/instance/ElementRectangle.h"
#include "npapi/instance/PluginInstance.h"

namespace {

bool isInt(const ScriptValue& value, int number) {
    return NPVARIANT_IS_INT32(value.get()) && NPVARIANT_TO_INT32(value.get()) == number;
}

bool isFullScreen(const InstanceRef& instance) {
    const char* const property = instance ? instance.get()->module().fullScreenProperty : nullptr;
    if (!property) {
        return false;
    }
    // A page may write the property, and play() puts the video back: the size says where the video is.
    const ScriptValue value = readPluginProperty(instance, property);
    return (value.isTrue() || isInt(value, 1)) && isInt(readPluginProperty(instance, "width"), HBBTV_SCREEN_WIDTH) &&
           isInt(readPluginProperty(instance, "height"), HBBTV_SCREEN_HEIGHT);
}

bool isReported(const WindowReports& reports, const ElementRectangle& rectangle, bool wherever) {
    const NPWindow& reported = reports.reported;
    return rectangle.width == reported.width && rectangle.height == reported.height &&
           (wherever || (rectangle.x == reported.x && rectangle.y == reported.y));
}

void settleWindowOf(void* npp) {
    settleWindow(InstanceRef::of(static_cast<NPP>(npp)));
}

} // namespace

void elementLaidOut(const InstanceRef& instance, const NPWindow& window) {
    if (PluginInstance* const live = instance.get()) {
        live->windowReports.given = window;
        live->windowReports.isGiven = true;
        elementMayHaveMoved(instance);
    }
}

void elementMayHaveMoved(const InstanceRef& instance) {
    PluginInstance* const live = instance.get();
    if (live && live->windowReports.isGiven && !live->windowReports.isDue) {
        live->windowReports.isDue = true;
        queueAsyncCall(instance.npp(), settleWindowOf, instance.npp());
    }
}

void settleWindow(const InstanceRef& instance) {
    if (!instance || !instance.get()->windowReports.isDue) {
        return;
    }
    instance.get()->windowReports.isDue = false;
    NPWindow window = instance.get()->windowReports.given;
    ElementRectangle rectangle = {window.x, window.y, window.width, window.height};
    findElementRectangle(instance, &rectangle);
    // In full-screen mode the browser stretches the element itself; the position to come back to stays the former one.
    if (!instance || isReported(instance.get()->windowReports, rectangle, false) ||
        (isReported(instance.get()->windowReports, rectangle, true) && isFullScreen(instance))) {
        return;
    }
    window.x = rectangle.x;
    window.y = rectangle.y;
    window.width = rectangle.width;
    window.height = rectangle.height;
    if (PluginInstance* const live = instance.get()) {
        // One record for all calls: where a page's handler moves the element again, the later rectangle holds.
        live->windowReports.reported = window;
        live->plugin().setWindow(instance.npp(), &live->windowReports.reported);
    }
}
