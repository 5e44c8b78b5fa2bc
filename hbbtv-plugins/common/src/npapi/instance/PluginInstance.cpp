#include "npapi/instance/PluginInstance.h"

#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/ElementRectangle.h"
#include "npapi/instance/PluginTrace.h"
#include "npapi/page/PageFunction.h"
#include "npapi/page/PageRecord.h"
#include "npapi/page/PluginScriptObject.h"

#include <algorithm>
#include <string.h>

namespace {

constexpr int FULL_WIDTH = 1280;
constexpr int FULL_HEIGHT = 720;

int instancesMade = 0;

std::vector<PluginInstance*>& liveInstances() {
    static std::vector<PluginInstance*> instances;
    return instances;
}

template <class Predicate> PluginInstance* findLive(Predicate wanted) {
    const std::vector<PluginInstance*>& live = liveInstances();
    const auto found = std::find_if(live.begin(), live.end(), wanted);
    return found == live.end() ? nullptr : *found;
}

} // namespace

PluginInstance::PluginInstance(const HbbTVModule& module, NPP npp, NPMIMEType type)
    : m_module(module), m_npp(npp), m_plugin(nullptr), m_number(++instancesMade), m_scriptObject(nullptr),
      m_element(nullptr), m_window(), m_reported(), m_hasWindow(false), m_isStarted(false), m_recordPending(false),
      m_recordIsRead(false), m_placeScheduled(false), m_tracedState(0) {
    liveInstances().push_back(this);
    openAsyncCalls(npp);
    if (pluginTraceIsOn()) {
        HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_CREATED, m_number);
        entry.created = {type ? type : ""};
        pluginTraceEntry(entry);
    }
    m_plugin = module.create(nullptr);
}

PluginInstance::~PluginInstance() {
    std::vector<PluginInstance*>& live = liveInstances();
    live.erase(std::remove(live.begin(), live.end(), this), live.end());
    if (m_scriptObject) {
        m_scriptObject->instance = nullptr;
        NPN_ReleaseObject(&m_scriptObject->object);
    }
    delete m_plugin;
    NPN_ReleaseObject(m_element);
    closeAsyncCalls(m_npp);
    if (pluginTraceIsOn()) {
        pluginTraceEntry(pluginTraceEntryNow(HBBTV_TRACE_DESTROYED, m_number));
    }
}

PluginInstance* PluginInstance::of(NPP npp) {
    // Engines free the handle with the instance, inside functions of the page too: it is compared, never looked into.
    return findLive([npp](const PluginInstance* instance) { return instance->m_npp == npp; });
}

PluginInstance* PluginInstance::withNumber(int number) {
    return findLive([number](const PluginInstance* instance) { return instance->m_number == number; });
}

bool PluginInstance::start(NPMIMEType type, uint16_t mode, int16_t argc, char* argn[], char* argv[],
                           NPSavedData* saved) {
    browserFunctions().getvalue(m_npp, NPNVPluginElementNPObject, &m_element);
    if (!m_plugin->initialize(type, m_npp, mode, argc, argn, argv, saved)) {
        return false;
    }
    for (int16_t i = 0; i < argc; ++i) {
        if (!argn[i]) {
            continue;
        }
        if (pluginTraceIsOn() && argv[i]) {
            pluginTraceProperty(HBBTV_TRACE_PARAM, m_number, argn[i], pluginTraceString(argv[i], strlen(argv[i])));
        }
        m_plugin->setParam(argn[i], argv[i]);
    }
    m_isStarted = true;
    m_recordPending = true;
    NPN_PluginThreadAsyncCall(m_npp, settleRecordOf, m_npp);
    return true;
}

bool PluginInstance::write(NPIdentifier name, const NPVariant& value) {
    const OperationScope scope;
    if (pluginTraceIsOn()) {
        pluginTraceProperty(HBBTV_TRACE_WRITE, m_number, describeIdentifier(name).c_str(), pluginTraceValue(value));
    }
    if (!NPVARIANT_IS_OBJECT(value)) {
        return m_plugin->setProperty(name, &value);
    }
    const int number = m_number;
    NPVariant kept;
    OBJECT_TO_NPVARIANT(keepPageFunction(*this, describeIdentifier(name).c_str(), NPVARIANT_TO_OBJECT(value)), kept);
    const bool taken = withNumber(number) && m_plugin->setProperty(name, &kept);
    NPN_ReleaseVariantValue(&kept);
    return taken;
}

NPObject* PluginInstance::scriptObject() {
    if (m_recordIsRead) {
        return nullptr; // It would answer in the place of the element, whose own properties are asked for.
    }
    if (!m_scriptObject) {
        m_scriptObject = createPluginScriptObject(*this);
    }
    return m_scriptObject ? NPN_RetainObject(&m_scriptObject->object) : nullptr;
}

NPObject* PluginInstance::pageObject(NPNVariable variable) {
    if (variable == NPNVPluginElementNPObject) {
        return NPN_RetainObject(m_element);
    }
    NPObject* window = nullptr;
    if (hasFrame()) {
        browserFunctions().getvalue(m_npp, NPNVWindowNPObject, &window);
    }
    return window;
}

bool PluginInstance::hasFrame() {
    if (!m_isStarted) {
        return true; // The engine is making the instance in the middle of its layout, which must not begin again.
    }
    const int number = m_number;
    NPVariant name;
    VOID_TO_NPVARIANT(name);
    // Every element has a name; the object of one whose frame has gone answers nothing.
    const bool answers = m_element && NPN_GetProperty(m_npp, m_element, NPN_GetStringIdentifier("nodeName"), &name);
    NPN_ReleaseVariantValue(&name);
    return answers && withNumber(number);
}

void PluginInstance::laidOut(const NPWindow& window) {
    m_window = window;
    m_hasWindow = true;
    maybeMoved();
}

void PluginInstance::maybeMoved() {
    if (m_hasWindow && !m_placeScheduled) {
        m_placeScheduled = true;
        NPN_PluginThreadAsyncCall(m_npp, place, m_npp);
    }
}

void PluginInstance::settleRecord() {
    if (!m_recordPending) {
        return;
    }
    m_recordPending = false;
    m_recordIsRead = true;
    const int number = m_number;
    applyRecord(*this);
    if (withNumber(number)) {
        m_recordIsRead = false;
    }
}

void PluginInstance::settleRecordOf(void* npp) {
    if (PluginInstance* instance = of(static_cast<NPP>(npp))) {
        instance->settleRecord();
    }
}

void PluginInstance::settlePlace() {
    if (m_placeScheduled) {
        place(m_npp);
    }
}

void PluginInstance::traceState() {
    if (!pluginTraceIsOn()) {
        return;
    }
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    if (m_plugin->getProperty(NPN_GetStringIdentifier("playState"), &value) && NPVARIANT_IS_INT32(value) &&
        NPVARIANT_TO_INT32(value) != m_tracedState) {
        m_tracedState = NPVARIANT_TO_INT32(value);
        HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_STATE, m_number);
        entry.state = {m_tracedState};
        pluginTraceEntry(entry);
    }
    NPN_ReleaseVariantValue(&value);
}

int PluginInstance::numberOf(const char* property) {
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    m_plugin->getProperty(NPN_GetStringIdentifier(property), &value);
    int number = 0;
    if (NPVARIANT_IS_INT32(value)) {
        number = NPVARIANT_TO_INT32(value);
    } else if (NPVARIANT_IS_BOOLEAN(value)) {
        number = NPVARIANT_TO_BOOLEAN(value) ? 1 : 0;
    }
    NPN_ReleaseVariantValue(&value);
    return number;
}

bool PluginInstance::isFullScreen() {
    // A page may write `fullScreen`, and play() puts the picture back: the size tells where the picture is.
    return numberOf("fullScreen") == 1 && numberOf("width") == FULL_WIDTH && numberOf("height") == FULL_HEIGHT;
}

void PluginInstance::place(void* npp) {
    PluginInstance* instance = of(static_cast<NPP>(npp));
    if (!instance || !instance->m_placeScheduled) {
        return;
    }
    instance->m_placeScheduled = false;
    NPWindow window = instance->m_window;
    ElementRectangle place = {window.x, window.y, window.width, window.height};
    findElementPlace(static_cast<NPP>(npp), &place);
    // The look at the page may have run layout, and layout may have ended the instance.
    instance = of(static_cast<NPP>(npp));
    if (!instance) {
        return;
    }
    const NPWindow& reported = instance->m_reported;
    const bool sameSize = place.width == reported.width && place.height == reported.height;
    // In full-screen mode the browser stretches the element itself; the place to come back to stays the former one.
    if (sameSize && ((place.x == reported.x && place.y == reported.y) || instance->isFullScreen())) {
        return;
    }
    window.x = place.x;
    window.y = place.y;
    window.width = place.width;
    window.height = place.height;
    // One record for all calls: where a page's handler moves the element again, the later place holds.
    instance->m_reported = window;
    instance->m_plugin->setWindow(static_cast<NPP>(npp), &instance->m_reported);
}
