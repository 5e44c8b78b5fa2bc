#include "interpose/X11Interposition.h"

#include <QGuiApplication>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <cstdlib>
#include <dlfcn.h>
#include <vector>

namespace tv {

namespace {

bool painting = false;
bool painted = false;
uint32_t colour = 0;

/** Returned in place of every X resource without a display, where nobody uses it. */
constexpr XID noResource = 1;
constexpr int screenDepth = 24;
constexpr int elementDepth = 32;

/** @return the X library's own function that is overridden */
template <typename Function> Function* original(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

int destroyColouredImage(XImage* image) {
    delete image;
    return 1;
}

/** @return an image in the pass's colour, freed by XDestroyImage, its pixels valid until the next one is made */
XImage* colouredImage(unsigned width, unsigned height) {
    static std::vector<uint32_t> pixels;
    pixels.assign(size_t{width} * height, colour);
    auto* image = new XImage{};
    image->width = static_cast<int>(width);
    image->height = static_cast<int>(height);
    image->format = ZPixmap;
    image->data = reinterpret_cast<char*>(pixels.data());
    image->byte_order = LSBFirst;
    image->bitmap_unit = 32;
    image->bitmap_bit_order = LSBFirst;
    image->bitmap_pad = 32;
    image->depth = elementDepth;
    image->bytes_per_line = static_cast<int>(width * sizeof(uint32_t));
    image->bits_per_pixel = 32;
    image->f.destroy_image = destroyColouredImage;
    return image;
}

/** @return false without a display, and on Wayland, whose display the engine mistakes for one of X11 */
bool isReal(Display* display) {
    return display && QGuiApplication::platformName() == QLatin1String("xcb");
}

} // namespace

PluginElementColour::PluginElementColour(uint32_t argb) {
    colour = argb;
    painted = false;
    painting = true;
}

PluginElementColour::~PluginElementColour() {
    painting = false;
}

bool PluginElementColour::wasUsed() const {
    return painted;
}

// Exported, so that the engine binds to these functions. Calls with a real display are passed on.
#define INTERPOSE extern "C" __attribute__((visibility("default")))

INTERPOSE XImage* XGetImage(Display* display, Drawable drawable, int x, int y, unsigned width, unsigned height,
                            unsigned long planes, int format) {
    if (painting) {
        painted = true;
        return colouredImage(width, height);
    }
    if (!isReal(display)) {
        return nullptr;
    }
    return original<decltype(XGetImage)>("XGetImage")(display, drawable, x, y, width, height, planes, format);
}

INTERPOSE int XDefaultScreen(Display* display) {
    return isReal(display) ? original<decltype(XDefaultScreen)>("XDefaultScreen")(display) : 0;
}

INTERPOSE int XDefaultDepth(Display* display, int screen) {
    return isReal(display) ? original<decltype(XDefaultDepth)>("XDefaultDepth")(display, screen) : screenDepth;
}

INTERPOSE Window XDefaultRootWindow(Display* display) {
    return isReal(display) ? original<decltype(XDefaultRootWindow)>("XDefaultRootWindow")(display) : noResource;
}

INTERPOSE XVisualInfo* XGetVisualInfo(Display* display, long mask, XVisualInfo* wanted, int* count) {
    if (isReal(display)) {
        return original<decltype(XGetVisualInfo)>("XGetVisualInfo")(display, mask, wanted, count);
    }
    static Visual visual{};
    auto* info = static_cast<XVisualInfo*>(std::calloc(1, sizeof(XVisualInfo))); // The caller's XFree is free().
    *count = info ? 1 : 0;
    if (info) {
        info->visual = &visual;
        info->depth = elementDepth;
        info->c_class = TrueColor;
    }
    return info;
}

INTERPOSE Colormap XCreateColormap(Display* display, Window window, Visual* visual, int allocate) {
    return isReal(display) ? original<decltype(XCreateColormap)>("XCreateColormap")(display, window, visual, allocate)
                           : noResource;
}

INTERPOSE int XFreeColormap(Display* display, Colormap colormap) {
    return isReal(display) ? original<decltype(XFreeColormap)>("XFreeColormap")(display, colormap) : 1;
}

INTERPOSE Pixmap XCreatePixmap(Display* display, Drawable drawable, unsigned width, unsigned height, unsigned depth) {
    return isReal(display) ? original<decltype(XCreatePixmap)>("XCreatePixmap")(display, drawable, width, height, depth)
                           : noResource;
}

INTERPOSE int XFreePixmap(Display* display, Pixmap pixmap) {
    return isReal(display) ? original<decltype(XFreePixmap)>("XFreePixmap")(display, pixmap) : 1;
}

INTERPOSE int XSync(Display* display, Bool discard) {
    return isReal(display) ? original<decltype(XSync)>("XSync")(display, discard) : 1;
}

} // namespace tv
