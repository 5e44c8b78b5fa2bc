/** How the framework notices that a call has ended the plug-in that it works for. */
#ifndef INSTANCEWATCH_H
#define INSTANCEWATCH_H

#include "npapi/npapi.h"

/**
 * A weak reference to a plug-in, on the stack around calls of the browser: each may run script or layout, and so end
 * the plug-in. Plug-in thread only.
 */
class InstanceWatch {
public:
    /** @param instance address of the plug-in's handle, as PluginBaseClass::getNPP() gives it */
    explicit InstanceWatch(const NPP* instance);
    ~InstanceWatch();
    InstanceWatch(const InstanceWatch&) = delete;
    InstanceWatch& operator=(const InstanceWatch&) = delete;

    bool alive() const { return m_instance != nullptr; }

    /** The plug-in's destructor runs. */
    static void instanceDeleted(const NPP* instance);

private:
    const NPP* m_instance; ///< null when it has gone
    InstanceWatch* m_outer;
    static InstanceWatch* s_innermost;
};

#endif
