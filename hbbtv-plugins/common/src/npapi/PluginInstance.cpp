#include "PluginInstance.h"

#include "AsyncCalls.h"
#include "ElementPlace.h"
#include "PluginScriptObject.h"
#include "PluginTrace.h"

#include <string.h>

namespace {

int instancesMade = 0;

} // namespace

PluginInstance::PluginInstance(const HbbTVModule& module, NPP npp)
    : m_module(module), m_npp(npp), m_plugin(nullptr), m_number(++instancesMade), m_scriptObject(nullptr), m_window(),
      m_reported(), m_hasWindow(false), m_placeScheduled(false) {
    m_npp->pdata = this;
    openAsyncCalls(npp);
    m_plugin = module.create(nullptr);
}

PluginInstance::~PluginInstance() {
    m_npp->pdata = nullptr;
    if (m_scriptObject) {
        m_scriptObject->instance = nullptr;
        NPN_ReleaseObject(&m_scriptObject->object);
    }
    delete m_plugin;
    closeAsyncCalls(m_npp);
    if (pluginTraceIsOn()) {
        pluginTraceEntry(HBBTV_TRACE_DESTROYED, m_number, pluginTraceNow(), 0, "destroyed");
    }
}

PluginInstance* PluginInstance::of(NPP npp) {
    return npp ? static_cast<PluginInstance*>(npp->pdata) : nullptr;
}

bool PluginInstance::start(NPMIMEType type, uint16_t mode, int16_t argc, char* argn[], char* argv[],
                           NPSavedData* saved) {
    if (pluginTraceIsOn()) {
        pluginTraceEntry(HBBTV_TRACE_CREATED, m_number, pluginTraceNow(), 0, type ? type : "");
    }
    if (!m_plugin->initialize(type, m_npp, mode, argc, argn, argv, saved)) {
        return false;
    }
    for (int16_t i = 0; i < argc; ++i) {
        if (!argn[i] || !argv[i] || !m_plugin->hasParam(argn[i])) {
            continue;
        }
        if (pluginTraceIsOn()) {
            pluginTraceEntry(HBBTV_TRACE_PARAM, m_number, pluginTraceNow(), 0,
                             std::string(argn[i]) + " = \"" + argv[i] + "\"");
        }
        m_plugin->setParam(argn[i], argv[i]);
    }
    adoptProperties();
    return true;
}

void PluginInstance::adoptProperties() {
    NPObject* element = nullptr;
    if (NPN_GetValue(m_npp, NPNVPluginElementNPObject, &element) != NPERR_NO_ERROR || !element) {
        return;
    }
    for (const char* const* name = m_module.adoptedProperties; *name; ++name) {
        const NPIdentifier identifier = NPN_GetStringIdentifier(*name);
        NPVariant value;
        VOID_TO_NPVARIANT(value);
        if (!NPN_GetProperty(m_npp, element, identifier, &value)) {
            continue;
        }
        if (!NPVARIANT_IS_VOID(value) && !NPVARIANT_IS_NULL(value)) {
            write(identifier, value);
        }
        NPN_ReleaseVariantValue(&value);
    }
    NPN_ReleaseObject(element);
}

bool PluginInstance::write(NPIdentifier name, const NPVariant& value) {
    if (pluginTraceIsOn()) {
        const std::string property = describeIdentifier(name);
        pluginTraceEntry(HBBTV_TRACE_WRITE, m_number, pluginTraceNow(), 0, property + " = " + describeVariant(value));
        m_pageFunctions.remember(property, NPVARIANT_IS_OBJECT(value) ? NPVARIANT_TO_OBJECT(value) : nullptr);
    }
    return m_plugin->setProperty(name, &value);
}

NPObject* PluginInstance::scriptObject() {
    if (!m_scriptObject) {
        m_scriptObject = createPluginScriptObject(*this);
    }
    return m_scriptObject ? NPN_RetainObject(&m_scriptObject->object) : nullptr;
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

bool PluginInstance::isFullScreen() {
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    const bool found = m_plugin->getProperty(NPN_GetStringIdentifier("fullScreen"), &value);
    const bool on = found && NPVARIANT_IS_BOOLEAN(value) && NPVARIANT_TO_BOOLEAN(value);
    NPN_ReleaseVariantValue(&value);
    return on;
}

void PluginInstance::place(void* npp) {
    PluginInstance* instance = of(static_cast<NPP>(npp));
    if (!instance) {
        return;
    }
    instance->m_placeScheduled = false;
    int32_t x = instance->m_window.x;
    int32_t y = instance->m_window.y;
    findElementPlace(static_cast<NPP>(npp), &x, &y);
    // The look at the page may have run layout, and layout may have ended the instance.
    instance = of(static_cast<NPP>(npp));
    if (!instance) {
        return;
    }
    NPWindow window = instance->m_window;
    const NPWindow& reported = instance->m_reported;
    const bool sameSize = window.width == reported.width && window.height == reported.height;
    // In full-screen mode the browser moves the element itself; the place to come back to stays the former one.
    if (sameSize && ((x == reported.x && y == reported.y) || instance->isFullScreen())) {
        return;
    }
    window.x = x;
    window.y = y;
    instance->m_reported = window;
    instance->m_plugin->setWindow(static_cast<NPP>(npp), &window);
}
