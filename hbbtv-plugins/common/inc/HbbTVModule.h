/**
 * The NPAPI side of the framework: turns the engine's calls into the virtual operations of a plug-in.
 *
 * A module that an engine loads defines the four NP_ entry points and passes them on to these functions, with a
 * description of the plug-in that it carries. A process holds one such module.
 */
#ifndef HBBTVMODULE_H
#define HBBTVMODULE_H

#include "HbbTVExport.h"
#include "PluginBaseClass.h"

#include "npapi/npfunctions.h"

/** Which property of the event object says what happened. */
typedef struct HbbTVListenerProperty {
    const char* listener; /**< type of addEventListener */
    const char* property;
} HbbTVListenerProperty;

/**
 * The beginnings of the names under which an element keeps what a page has set on its object. Browsers that answer for
 * an element without an instance use the same names.
 */
typedef struct HbbTVElementNames {
    const char* property;  /**< followed by the name of an adopted property, or of the source property */
    const char* listener;  /**< followed by the type of an adopted listener */
    const char* attribute; /**< followed by the name of the source property: the attribute when script wrote that */
    const char* function;  /**< followed by a number: functions of the page that the plug-in holds */
} HbbTVElementNames;

/** The plug-in that a module carries. All texts are static. */
typedef struct HbbTVModule {
    const char* (*mimeDescription)();
    char* (*name)();
    char* (*description)();

    /** Makes an instance. @param hostUri null; instances ask for the page's address when they need it */
    PluginBaseClass* (*create)(char* hostUri);

    /**
     * Script properties that an element's next instance is given again, and that a page may have set on the element
     * before it had an instance; ended by null.
     * Attributes that every element reflects (`data`, `width`, ...) do not belong here: they come as attributes.
     */
    const char* const* adoptedProperties;

    /** Listeners that an element's next instance is given again; ended by an entry of nulls. */
    const HbbTVListenerProperty* listenerProperties;

    HbbTVElementNames elementNames;

    /** Property that is also an attribute: what script wrote holds until the attribute has another value. Or null. */
    const char* sourceProperty;

    /** Property, an Int32, whose changes are traced; or null. */
    const char* stateProperty;

    /** Property that is true while the object has the whole screen; or null. */
    const char* fullScreenProperty;

    int logModule; /**< number under which the framework writes log lines */
} HbbTVModule;

/** As NP_Initialize. @param module kept, not copied */
HBBTV_EXPORT NPError hbbtvModuleInitialize(const HbbTVModule* module, NPNetscapeFuncs* browser, NPPluginFuncs* plugin);

/** As NP_GetValue. */
HBBTV_EXPORT NPError hbbtvModuleGetValue(const HbbTVModule* module, NPPVariable variable, void* value);

/** As NP_Shutdown. */
HBBTV_EXPORT NPError hbbtvModuleShutdown();

#endif
