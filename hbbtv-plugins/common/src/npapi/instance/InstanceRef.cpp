#include "npapi/instance/InstanceRef.h"

#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/PluginInstance.h"

#include <new>
#include <string.h>

InstanceRef::Cell* InstanceRef::s_live = nullptr;

InstanceRef::InstanceRef(Cell* cell) : m_cell(cell) {
    if (m_cell) {
        ++m_cell->references;
    }
}

InstanceRef::InstanceRef(const InstanceRef& other) : InstanceRef(other.m_cell) {}

InstanceRef& InstanceRef::operator=(const InstanceRef& other) {
    InstanceRef copy(other);
    std::swap(m_cell, copy.m_cell);
    return *this;
}

InstanceRef::~InstanceRef() {
    if (m_cell && --m_cell->references == 0) {
        delete m_cell;
    }
}

InstanceRef InstanceRef::to(PluginInstance* instance, NPP npp) {
    static int instancesMade = 0;
    Cell* const cell = new (std::nothrow) Cell{instance, npp, ++instancesMade, 0, s_live};
    if (cell) {
        s_live = cell;
    }
    return InstanceRef(cell);
}

void InstanceRef::instanceGoes() const {
    if (!get()) {
        return;
    }
    Cell** link = &s_live;
    while (*link != m_cell) {
        link = &(*link)->next;
    }
    *link = m_cell->next;
    m_cell->instance = nullptr;
}

InstanceRef InstanceRef::of(NPP npp) {
    // Engines free the handle with the instance, inside functions of the page too: it is compared, never looked into.
    Cell* cell = s_live;
    while (cell && cell->npp != npp) {
        cell = cell->next;
    }
    return InstanceRef(cell);
}

ScriptObject InstanceRef::element() const {
    const PluginInstance* const instance = get();
    return ScriptObject::to(instance ? instance->element() : nullptr);
}

ScriptObject InstanceRef::window() const {
    const PluginInstance* const instance = get();
    if (instance && instance->recordState == PageRecordState::NotDue) {
        // The engine makes the instance in the middle of its layout, which an access to the element would begin again.
        NPObject* window = nullptr;
        const NPError result = browserFunctions().getvalue(npp(), NPNVWindowNPObject, &window);
        return ScriptObject(result == NPERR_NO_ERROR ? window : nullptr);
    }
    // Not the engine's own object for the window, which goes with the frame whatever references are left, and for which
    // no engine may be asked when the frame has gone: the element then answers nothing.
    return property(property(element(), "ownerDocument").takeObject(), "defaultView").takeObject();
}

ScriptValue InstanceRef::property(const ScriptObject& object, const char* name) const {
    ScriptValue value;
    if (object && get()) {
        value.answered(
            browserFunctions().getproperty(npp(), object.get(), NPN_GetStringIdentifier(name), value.result()));
    }
    return value;
}

bool InstanceRef::setProperty(const ScriptObject& object, const char* name, const NPVariant& value) const {
    return object && get() &&
           browserFunctions().setproperty(npp(), object.get(), NPN_GetStringIdentifier(name), &value);
}

void InstanceRef::removeProperty(const ScriptObject& object, const char* name) const {
    if (object && get() && browserFunctions().removeproperty) {
        browserFunctions().removeproperty(npp(), object.get(), NPN_GetStringIdentifier(name));
    }
}

ScriptValue InstanceRef::call(const ScriptObject& object, const char* method, const NPVariant* args,
                              uint32_t count) const {
    ScriptValue value;
    if (object && get()) {
        value.answered(browserFunctions().invoke(npp(), object.get(), NPN_GetStringIdentifier(method), args, count,
                                                 value.result()));
    }
    return value;
}

ScriptValue InstanceRef::callFunction(const ScriptObject& function, const NPVariant* args, uint32_t count) const {
    ScriptValue value;
    if (function && get()) {
        value.answered(browserFunctions().invokeDefault(npp(), function.get(), args, count, value.result()));
    }
    return value;
}

ScriptValue InstanceRef::evaluate(const ScriptObject& window, const char* source) const {
    ScriptValue value;
    if (window && get() && browserFunctions().evaluate) {
        NPString script = {source, static_cast<uint32_t>(strlen(source))};
        value.answered(browserFunctions().evaluate(npp(), window.get(), &script, value.result()));
    }
    return value;
}
