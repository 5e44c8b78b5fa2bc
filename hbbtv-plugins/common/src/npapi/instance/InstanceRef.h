/** Weak references to instances, and the calls into the engine that are made for one. */
#ifndef INSTANCEREF_H
#define INSTANCEREF_H

#include "ScriptValue.h"

#include "npapi/npapi.h"

class PluginInstance;

/**
 * A reference to an instance that does not keep it. Plug-in thread only.
 *
 * Every call into the engine may run script or layout, and either may end the instance: the one called for, or any
 * other. So whatever calls the engine has a reference, calls through it, and asks it again after each call. A reference
 * whose instance has gone makes no call, and answers that there is nothing: a handle that has gone reaches no engine.
 */
class InstanceRef {
public:
    InstanceRef() : m_cell(nullptr) {}
    InstanceRef(const InstanceRef& other);
    InstanceRef& operator=(const InstanceRef& other);
    ~InstanceRef();

    /** @return a reference to the instance of a handle; without an instance when it has gone, and perhaps the handle */
    static InstanceRef of(NPP npp);

    /** @return the instance; null when it goes or has gone. Not to be kept over a call of anything. */
    PluginInstance* get() const { return m_cell ? m_cell->instance : nullptr; }
    explicit operator bool() const { return get() != nullptr; }

    /** @return the instance's number in traces, which stays; 0 for none */
    int number() const { return m_cell ? m_cell->number : 0; }

    /** @return the instance's handle; null when it has gone */
    NPP npp() const { return get() ? m_cell->npp : nullptr; }

    /** @return the instance's element; no call into the engine */
    ScriptObject element() const;

    /** @return the page's window; empty when the frame has gone. Engines may run layout to answer. */
    ScriptObject window() const;

    ScriptValue property(const ScriptObject& object, const char* name) const;
    bool setProperty(const ScriptObject& object, const char* name, const NPVariant& value) const;
    void removeProperty(const ScriptObject& object, const char* name) const;

    /** Calls `object.method(args)`. */
    ScriptValue call(const ScriptObject& object, const char* method, const NPVariant* args = nullptr,
                     uint32_t count = 0) const;

    /** Calls `function(args)`. */
    ScriptValue callFunction(const ScriptObject& function, const NPVariant* args, uint32_t count) const;

    /** @param source an expression, evaluated in the window */
    ScriptValue evaluate(const ScriptObject& window, const char* source) const;

private:
    friend class PluginInstance;

    /** What the references to an instance share. */
    struct Cell {
        PluginInstance* instance; ///< null when it has gone
        NPP npp;
        int number;
        int references;
        Cell* next; ///< the live instances, the latest first
    };

    explicit InstanceRef(Cell* cell);

    /// @return a reference to a new instance; empty without memory
    static InstanceRef to(PluginInstance* instance, NPP npp);

    /// The instance goes: from now on no reference finds it.
    void instanceGoes() const;

    static Cell* s_live;
    Cell* m_cell;
};

#endif
