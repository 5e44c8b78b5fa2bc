/** One instance between engine and plug-in. Plug-in thread only. */
#ifndef PLUGININSTANCE_H
#define PLUGININSTANCE_H

#include "HbbTVModule.h"

#include "npapi/npfunctions.h"

#include <vector>

struct PluginScriptObject;

class PluginInstance {
public:
    /** Makes the plug-in; plugin() is null when there is no memory for it. @param type as of NPP_New */
    PluginInstance(const HbbTVModule& module, NPP npp, NPMIMEType type);

    /** Deletes the plug-in; its script object stays for those who hold it, and answers nothing. */
    ~PluginInstance();
    PluginInstance(const PluginInstance&) = delete;
    PluginInstance& operator=(const PluginInstance&) = delete;

    /** @return the instance of a handle; null when it has gone, and the handle perhaps with it */
    static PluginInstance* of(NPP npp);

    /** @return the instance of a number; null when it goes or has gone */
    static PluginInstance* withNumber(int number);

    /**
     * Initialises the plug-in and hands over attributes and parameters; settleRecord() is to follow.
     * Parameters as NPP_New.
     * @return false when the plug-in cannot be used
     */
    bool start(NPMIMEType type, uint16_t mode, int16_t argc, char* argn[], char* argv[], NPSavedData* saved);

    /** The engine has laid the element out. @param window as of NPP_SetWindow: engines leave the position at 0, 0 */
    void laidOut(const NPWindow& window);

    /** The element may have moved: looks for its place when the present call of the engine has returned. */
    void maybeMoved();

    /** Adds the play state to the trace when it is another one; costs nothing while nobody observes. */
    void traceState();

    /**
     * Hands over what the page has set on the element, if that is yet to be done: when the engine asks for the script
     * object, or in a turn of its own, but not while it makes the instance in the middle of its layout. Script may run,
     * and the instance may be gone afterwards.
     */
    void settleRecord();

    /** Looks for the element's place now if that is due. Script may run, and the instance may be gone afterwards. */
    void settlePlace();

    /** Script writes a property. The instance may be gone afterwards. @return false when it is refused */
    bool write(NPIdentifier name, const NPVariant& value);

    /** @return the script object with a reference for the caller; null without memory, or while the record is read */
    NPObject* scriptObject();

    const HbbTVModule& module() const { return m_module; }
    PluginBaseClass* plugin() { return m_plugin; }
    NPP npp() const { return m_npp; }
    int number() const { return m_number; }

    /**
     * The engine's objects of the instance, as NPN_GetValue gives them. Asking for the window may run layout, and the
     * instance may be gone afterwards.
     * @param variable NPNVWindowNPObject or NPNVPluginElementNPObject
     * @return with a reference for the caller; null without one, and no window when the frame or the instance has gone
     */
    NPObject* pageObject(NPNVariable variable);

    /** Which of the element's places for functions of the page are taken. */
    std::vector<bool>& functionPlaces() { return m_functionPlaces; }

private:
    static void place(void* npp);
    static void settleRecordOf(void* npp);
    /// @return a property's whole number, 1 for true, 0 for anything else
    int numberOf(const char* property);
    bool isFullScreen();
    bool hasFrame();

    const HbbTVModule& m_module;
    NPP m_npp;
    PluginBaseClass* m_plugin;
    int m_number;
    PluginScriptObject* m_scriptObject;
    NPObject* m_element; ///< kept: an instance may outlive its frame, in which engines cannot make it any more
    std::vector<bool> m_functionPlaces;
    NPWindow m_window;   ///< what the engine gave last
    NPWindow m_reported; ///< what the plug-in was given last
    bool m_hasWindow;
    bool m_isStarted;
    bool m_recordPending;
    bool m_recordIsRead;
    bool m_placeScheduled;
    int m_tracedState;
};

#endif
