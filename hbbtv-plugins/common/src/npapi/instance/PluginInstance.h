/** One instance between engine and plug-in. */
#ifndef PLUGININSTANCE_H
#define PLUGININSTANCE_H

#include "HbbTVModule.h"
#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/InstanceRef.h"
#include "npapi/instance/WindowReports.h"

struct PageFunction;

/** How far what a page has set on an element has been handed to its instance. */
enum class PageRecordState {
    NotDue,  /**< the engine is making the instance in the middle of its layout */
    Pending, /**< it is to be handed over */
    Reading, /**< it is being read from the element, in whose place no script object may answer */
    Settled
};

/**
 * The plug-in of an instance, and what the framework knows of it. It calls nobody itself: whoever calls the engine or
 * the plug-in for it holds an InstanceRef, because either may end the instance. Plug-in thread only.
 */
class PluginInstance {
public:
    /**
     * Makes an instance with its plug-in.
     * @param type as of NPP_New
     * @return a reference to it, without an instance when there is no memory
     */
    static InstanceRef make(const HbbTVModule& module, NPP npp, NPMIMEType type);

    /**
     * Initialises the plug-in and hands over attributes and parameters; the page's record is then pending.
     * Parameters as NPP_New.
     * @return false when the plug-in cannot be used, or the instance has gone
     */
    static bool start(const InstanceRef& instance, NPMIMEType type, uint16_t mode, int16_t argc, char* argn[],
                      char* argv[], NPSavedData* saved);

    /** Ends an instance: deletes the plug-in. Its script object stays for those who hold it, and answers nothing. */
    static void end(const InstanceRef& instance);

    PluginInstance(const PluginInstance&) = delete;
    PluginInstance& operator=(const PluginInstance&) = delete;

    const HbbTVModule& module() const { return m_module; }
    PluginBaseClass& plugin() { return *m_plugin; }

    /** @return the element, kept: an instance may outlive its frame, in which engines cannot make it any more */
    NPObject* element() const { return m_element.get(); }

    PageRecordState recordState;
    ScriptObject scriptObject;   /**< empty until it is first asked for */
    PageFunction* pageFunctions; /**< the first of those that the element keeps for the plug-in */
    WindowReports windowReports;
    int tracedState; /**< the play state that was last traced */

private:
    PluginInstance(const HbbTVModule& module, NPP npp);
    ~PluginInstance();

    const HbbTVModule& m_module;
    InstanceRef m_ref;
    AsyncCalls m_calls;
    ScriptObject m_element;
    PluginBaseClass* m_plugin;
};

/** @return a property of the plug-in's; releasing it may end the instance */
ScriptValue readPluginProperty(const InstanceRef& instance, const char* name);

/** Adds the play state to the trace when it is another one; costs nothing while nobody observes. */
void traceState(const InstanceRef& instance);

#endif
