/** One instance between engine and plug-in: what an NPP's `pdata` points to. Plug-in thread only. */
#ifndef PLUGININSTANCE_H
#define PLUGININSTANCE_H

#include "HbbTVModule.h"
#include "PageFunctions.h"

#include "npapi/npfunctions.h"

struct PluginScriptObject;

class PluginInstance {
public:
    /** Makes the plug-in; plugin() is null when there is no memory for it. */
    PluginInstance(const HbbTVModule& module, NPP npp);

    /** Deletes the plug-in; its script object stays for those who hold it, and answers nothing. */
    ~PluginInstance();
    PluginInstance(const PluginInstance&) = delete;
    PluginInstance& operator=(const PluginInstance&) = delete;

    /** @return the instance of a handle; null when it has gone */
    static PluginInstance* of(NPP npp);

    /**
     * Initialises the plug-in and hands over attributes, parameters and what the page has set on the element.
     * Parameters as NPP_New.
     * @return false when the plug-in cannot be used
     */
    bool start(NPMIMEType type, uint16_t mode, int16_t argc, char* argn[], char* argv[], NPSavedData* saved);

    /** The engine has laid the element out. @param window its size in pixels; engines may leave the position at 0, 0 */
    void laidOut(const NPWindow& window);

    /** The element may have moved: looks for its place when the present call of the engine has returned. */
    void maybeMoved();

    /** Script writes a property. The instance may be gone afterwards. @return false when it is refused */
    bool write(NPIdentifier name, const NPVariant& value);

    /** @return the script object with a reference for the caller; null without memory */
    NPObject* scriptObject();

    const HbbTVModule& module() const { return m_module; }
    PluginBaseClass* plugin() { return m_plugin; }
    NPP npp() const { return m_npp; }
    int number() const { return m_number; }
    PageFunctions& pageFunctions() { return m_pageFunctions; }

private:
    static void place(void* npp);
    bool isFullScreen();
    void adoptProperties();

    const HbbTVModule& m_module;
    NPP m_npp;
    PluginBaseClass* m_plugin;
    int m_number;
    PluginScriptObject* m_scriptObject;
    PageFunctions m_pageFunctions;
    NPWindow m_window;   ///< what the engine gave last
    NPWindow m_reported; ///< what the plug-in was given last
    bool m_hasWindow;
    bool m_placeScheduled;
};

#endif
