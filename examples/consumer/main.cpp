// Makes one A/V Control object, plays media with it as a page would, and checks what the page hears.
#include "engine.h"
#include "platform.h"

#include "VideoPlugin.h"

#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <memory>
#include <string>

namespace {

std::string heard;

void hearState(const NPVariant* arguments, uint32_t count) {
    heard += count > 0 && NPVARIANT_IS_INT32(arguments[0]) ? std::to_string(NPVARIANT_TO_INT32(arguments[0])) : "?";
}

/** Says which library the framework comes from. */
void printFramework() {
    Dl_info info = {};
    NPP* (PluginBaseClass::*function)() = &PluginBaseClass::getNPP;
    void* address = nullptr;
    std::memcpy(&address, &function, sizeof address);
    if (dladdr(address, &info)) {
        std::printf("framework: %s\n", info.dli_fname);
    }
}

} // namespace

int main() {
    std::printf("plug-in: %s\n", VideoPlugin::GetPluginNameString());
    printFramework();

    NPP_t handle = {};
    std::unique_ptr<PluginBaseClass> plugin(new VideoPlugin(nullptr));
    char type[] = "video/mp4";
    if (!plugin->initialize(type, &handle, NP_EMBED, 0, nullptr, nullptr, nullptr)) {
        std::fputs("the plug-in refused to start\n", stderr);
        return 1;
    }
    char name[] = "data";
    char url[] = "http://127.0.0.1/film.mp4";
    plugin->setParam(name, url);

    NPVariant handler;
    OBJECT_TO_NPVARIANT(makePageFunction(hearState), handler);
    plugin->setProperty(NPN_GetStringIdentifier("onPlayStateChange"), &handler);
    NPN_ReleaseVariantValue(&handler);

    NPVariant result;
    VOID_TO_NPVARIANT(result);
    plugin->invoke(nullptr, NPN_GetStringIdentifier("play"), nullptr, 0, &result);
    NPN_ReleaseVariantValue(&result);
    runQueuedCalls();
    reportPlaying();
    runQueuedCalls();
    plugin.reset();
    runQueuedCalls();

    std::printf("play states that the page heard: %s\n", heard.c_str());
    if (heard != "31") { // connecting, playing
        std::fprintf(stderr, "expected 31, heard %s\n", heard.c_str());
        return 1;
    }
    return 0;
}
