/** Functions of the page that a plug-in keeps, as handlers or listeners. */
#ifndef PAGEFUNCTION_H
#define PAGEFUNCTION_H

#include "npapi/instance/InstanceRef.h"
#include "npapi/instance/PluginTrace.h"

#include <memory>

/**
 * Keeps a function of the page for an instance.
 *
 * An engine may tie the object of a script function to any plug-in instance of the page: when that instance is removed,
 * the object is dead, although it belongs to another. So the plug-in is given a substitute, the function itself is kept
 * on the element, and an object for it is asked of the engine anew whenever it is needed.
 * @param name     of the handler, or type of the event
 * @param function any script object
 * @return the substitute; the function itself when the page cannot keep it
 */
ScriptObject keepPageFunction(const InstanceRef& instance, const TraceName& name, NPObject* function);

/** @return the name of a substitute; null when the object is none */
const char* pageFunctionName(const NPObject* object);

/** @return the function behind a substitute, empty when it has gone; any other object as it is */
ScriptObject pageFunctionBehind(const InstanceRef& instance, NPObject* object);

/** Arguments for a call of the page, in which the functions themselves take the place of their substitutes. */
class PageArguments {
public:
    PageArguments(const InstanceRef& instance, const NPVariant* args, uint32_t count);

    /** @return false when there was no memory for them */
    bool areComplete() const { return m_values != nullptr; }

    /** @return as many values as were given, valid as long as this object is */
    const NPVariant* values() const { return m_values; }

private:
    const NPVariant* m_values;
    std::unique_ptr<NPVariant[]> m_copies; ///< empty when there is no substitute
    std::unique_ptr<ScriptObject[]> m_functions;
};

#endif
