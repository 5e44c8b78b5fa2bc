/** The interface of a plug-in to the plug-in framework. */
#ifndef PLUGINBASECLASS_H
#define PLUGINBASECLASS_H

#include "HbbTVExport.h"

#include "npapi/npapi.h"
#include "npapi/npruntime.h"

/** Kinds of plug-ins of the framework. */
typedef enum PluginType {
    HBBTV_APPLICATION_MANAGER = 0,
    HBBTV_BROADCAST = 1,
    HBBTV_CAPABILITIES = 2,
    HBBTV_CONFIGURATION = 3,
    HBBTV_PARENTAL_CONTROL_MANAGER = 4,
    HBBTV_SEARCH_MANAGER = 5,
    OIPF_DRM_AGENT = 6,
    HBBTV_VIDEO = 7,
    HBBTV_CS_MANAGER = 8,
    HBBTV_MEDIA_SYNC = 9,
    UNKNOWN_PLUGIN_TYPE = 10
} PluginType;

/** Size in bytes of the buffer that a caller of PluginBaseClass::getParam provides. */
#define HBBTV_PARAM_VALUE_SIZE 1025

/** The television's screen, in the pixels of pages and windows. A window of this size is a full-screen window. */
#define HBBTV_SCREEN_WIDTH 1280
#define HBBTV_SCREEN_HEIGHT 720

/**
 * One instance of a plug-in. The order of the virtual operations is binary interface.
 *
 * All operations are called on the browser's plug-in thread. The framework constructs an instance, calls initialize
 * once, then setParam for each attribute and param element, then the others as the page and the engine need them. Each
 * of them may call script, and that script may cause the instance to be deleted before the operation returns.
 */
class HBBTV_EXPORT PluginBaseClass {
public:
    PluginBaseClass();
    virtual ~PluginBaseClass();
    PluginBaseClass(const PluginBaseClass&) = delete;
    PluginBaseClass& operator=(const PluginBaseClass&) = delete;

    /** Parameters as for NPP_New. @return false when the instance cannot be used */
    virtual bool initialize(NPMIMEType pluginType, NPP instance, uint16_t mode, int16_t argc, char** argn, char** argv,
                            NPSavedData* saved) = 0;

    /**
     * Calls a method.
     * @param npobj  the script object on which script called the method: the instance's element
     * @param result receives the returned value, which the browser then owns; unchanged by methods without a result
     * @return false for an unknown name
     */
    virtual bool invoke(NPObject* npobj, NPIdentifier name, const NPVariant* args, uint32_t argCount,
                        NPVariant* result) = 0;

    /** @return true when the property exists for script */
    virtual bool hasProperty(NPIdentifier name) = 0;

    /** @param result holds a value on entry (Void for none); an Object in it is released. @return false for no value */
    virtual bool getProperty(NPIdentifier name, NPVariant* result) = 0;

    /** @param value the caller keeps it. @return false when the name is unknown or the value is refused */
    virtual bool setProperty(NPIdentifier name, const NPVariant* value) = 0;

    /** @return true for the name of a known parameter; names are case-sensitive */
    virtual bool hasParam(char* sParamName) = 0;

    /** @param sParamValue buffer of HBBTV_PARAM_VALUE_SIZE bytes. @return false when there is no value */
    virtual bool getParam(char* sParamName, char* sParamValue) = 0;

    /** @param sParamValue zero-terminated; the caller keeps it. @return false when the name or the value is refused */
    virtual bool setParam(char* sParamName, char* sParamValue) = 0;

    /** @return true for the name of a method */
    virtual bool hasMethod(NPIdentifier name) = 0;

    /** Removes the instance from the platform's message channel. @return 1 */
    virtual int unregisterMsgClient() = 0;

    /** Sets the instance's rectangle. @param window in pixels of the screen. @return NPERR_NO_ERROR */
    virtual NPError setWindow(NPP instance, NPWindow* window) = 0;

    /** Calls a script function. Parameters as for NPN_InvokeDefault. @return false when it was not called or failed */
    virtual bool dispatch(NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result) = 0;

    /** @return the address of the instance handle, which is null until initialize; valid as long as this object */
    NPP* getNPP();

protected:
    NPP m_pNPInstance; /**< the instance's handle with the browser */
};

#endif
