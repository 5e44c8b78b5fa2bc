/** Trace of one call of a page's function. */
#ifndef PAGECALLTRACE_H
#define PAGECALLTRACE_H

#include "npapi/instance/InstanceRef.h"
#include "npapi/instance/PluginTrace.h"

/**
 * Made before the call of a page's function, notified when it returns. The arguments outlive it. Costs nothing while
 * no observer is set.
 */
class PageCallTrace {
public:
    PageCallTrace(const InstanceRef& instance, const NPObject* function, const NPVariant* args, uint32_t argCount);
    PageCallTrace(const PageCallTrace&) = delete;
    PageCallTrace& operator=(const PageCallTrace&) = delete;

    /** The call has returned. @return `succeeded` */
    bool finished(bool succeeded) const;

private:
    bool readEvent(const InstanceRef& instance, const NPVariant& event);

    int m_instance; ///< its number; 0 while no observer is set
    int64_t m_start;
    TraceName m_name;
    PluginTraceValues m_arguments;
    const char* m_property; ///< of the event object; null when the function got the arguments as they are
    ScriptValue m_value;    ///< of that property
};

#endif
