/**
 * Functions of the page that a plug-in keeps, as handlers or listeners.
 *
 * An engine may tie the object of a script function to any plug-in instance of the page: when that instance is removed,
 * the object is dead, although it belongs to another. So the plug-in is given a stand-in, the function itself is kept
 * on the element, and an object for it is asked of the engine anew whenever it is needed.
 */
#ifndef PAGEFUNCTION_H
#define PAGEFUNCTION_H

#include "npapi/npruntime.h"

#include <vector>

class PluginInstance;

/**
 * Keeps a function for an instance.
 * @param name     for traces, for example "onPlayStateChange"; cut when it is long
 * @param function any script object
 * @return the stand-in, or `function` itself when the page cannot keep it; with a reference for the caller
 */
NPObject* keepPageFunction(PluginInstance& instance, const char* name, NPObject* function);

/** @return the name of a stand-in; null when the object is none */
const char* pageFunctionName(const NPObject* object);

/** @return the function behind a stand-in, any other object as it is, with a reference for the caller; null: gone */
NPObject* pageFunctionBehind(NPP npp, NPObject* object);

/** Arguments for a call of the page, in which the functions themselves take the place of their stand-ins. */
class PageArguments {
public:
    PageArguments(NPP npp, const NPVariant* args, uint32_t count);
    ~PageArguments();
    PageArguments(const PageArguments&) = delete;
    PageArguments& operator=(const PageArguments&) = delete;

    /** @return as many values as were given, valid as long as this object is */
    const NPVariant* values() const { return m_copies.empty() ? m_args : m_copies.data(); }

private:
    const NPVariant* m_args;
    std::vector<NPVariant> m_copies; ///< empty when there is no stand-in; each Object in it has a reference
};

#endif
