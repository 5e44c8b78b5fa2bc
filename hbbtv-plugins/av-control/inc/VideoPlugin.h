/**
 * The A/V Control object of a page (OIPF DAE, CE-HTML "A/V Control object"): `<object type="video/mp4" ...>`.
 *
 * The plug-in framework constructs one VideoPlugin for each such element and calls its virtual operations. The player
 * reports to it through the adaptation layer. Names, fields and the order of the virtual operations are interface:
 * programs are compiled against this header and linked to avcontrol-plugin.so.
 */
#ifndef VIDEOPLUGIN_H
#define VIDEOPLUGIN_H

#include "HbbTVExport.h"
#include "HbbTVObjectsTypes.h"
#include "PluginBaseClass.h"

#include "medialib.h"
#include "npapi/npapi.h"
#include "npapi/npruntime.h"

#include <stdint.h>

class HbbTVAVControlDOMEventClass;
class HbbTVComponentCollectionHolderClass;

/** The script properties, in the order of their slots. */
typedef enum PropertyNames_e {
    COMPONENT_TYPE_VIDEO = 0,
    COMPONENT_TYPE_AUDIO = 1,
    COMPONENT_TYPE_SUBTITLE = 2,
    data = 3,
    playPosition = 4,
    playTime = 5,
    playState = 6,
    error = 7,
    speed = 8,
    nrTracks = 9,
    currentTrackIndex = 10,
    onPlayStateChange = 11,
    onPlaySpeedChanged = 12,
    onPlayPositionChanged = 13,
    persist = 14,
    width = 15,
    height = 16,
    fullScreen = 17,
    onFullScreenChange = 18,
    onfocus = 19,
    onblur = 20,
    id = 21,
    cache = 22,
    loop = 23,
    onDRMRightsError = 24,
    onSelectedComponentChange = 25,
    onSelectedComponentChanged = 26,
    onComponentChanged = 27,
    onParentalRatingChange = 28
} PropertyNames_e;

/** The script methods. */
typedef enum FunctionNames_e {
    play_func = 0,
    stop_func = 1,
    seek_func = 2,
    setVolume_func = 3,
    next_func = 4,
    previous_func = 5,
    getSinkProtocolInfo_func = 6,
    getTransportStateVariables_func = 7,
    setTransportStateVariables_func = 8,
    setFullScreen_func = 9,
    focus_func = 10,
    queue_func = 11,
    addEventListener_func = 12,
    removeEventListener_func = 13,
    getComponents_func = 14,
    getCurrentActiveComponents_func = 15,
    selectComponent_func = 16,
    unselectComponent_func = 17,
    getPluginType_func = 18,
    getMediaHandle_func = 19,
    getPluginElement_func = 20
} FunctionNames_e;

/** The event types of addEventListener, in the order of their slots. */
typedef enum ListenerNames_e {
    PlayStateChange = 0,
    SelectedComponentChange = 1,
    PlayPositionChanged = 2,
    PlaySpeedChanged = 3,
    FullScreenChange = 4,
    focus = 5,
    blur = 6,
    DRMRightsError = 7,
    ComponentChanged = 8,
    ParentalRatingChange = 9
} ListenerNames_e;

/** The DOM events of DispatchDomEvent. */
typedef enum DOMEvents_e { FOCUS = 0, BLUR = 1, PLAY_STATE_CHANGE = 2, FULLSCREEN_CHANGE = 3 } DOMEvents_e;

/** The kind of media that the element's `type` declares. */
typedef enum MediaType_e { VIDEO = 0, AUDIO = 1 } MediaType;

/** Values of `playState` (OIPF DAE). */
typedef enum PlayStates_e {
    MP_STOPPED = 0,    /**< no playback: initially, after stop() and after a new `data` */
    MP_PLAYING = 1,    /**< the player reported that it plays */
    MP_PAUSED = 2,     /**< paused by play(0) */
    MP_CONNECTING = 3, /**< playback was started, and the player has not reported yet */
    MP_BUFFERING = 4,  /**< the player reported buffering, or a seek was started while playing */
    MP_FINISHED = 5,   /**< the player reported the end of the media */
    MP_ERROR = 6       /**< a command was refused, or the player reported an error */
} PlayStates_e;

/** Values of `error` (OIPF DAE). */
typedef enum ErrorTypes_e {
    AV_FORMAT_NOT_SUPPORTED = 0,
    BAD_CONNECTION = 1,
    UNDEFINED_ERROR = 2,
    INSUFFICIENT_RESOURCES = 3,
    CONTENT_CORRUPT_OR_INVALID = 4,
    CONTENT_NOT_AVAILABLE = 5,
    CONTENT_NOT_AVAILABLE_AT_GIVEN_POSITION = 6
} ErrorTypes_e;

class VideoPlugin;

/** A node in the registry of live instances. */
typedef struct pluginHandleList {
    VideoPlugin* handle;
    struct pluginHandleList* next;
} pluginHandleList;

/** The argument that the platform's message channel passes to videoControlHandleNotify. */
typedef struct cbArguments {
    void* objectHandler; /**< the VideoPlugin that receives the message; must be alive */
    int32_t operationID; /**< not used */
    void* data;          /**< not used */
} cbArguments;

/** A player's report on its way to the plug-in thread. Allocated with malloc. */
typedef struct callbackData {
    VideoPlugin* objectHandle;
    uint32_t playerId;
    int32_t event; /**< eMEDIA_CALLBACK_EVENT */
    int32_t code;
    void* data; /**< null or from malloc; freed with the record */
} callbackData;

/** A notification of the object itself, for a later turn of the plug-in thread. Allocated with malloc. */
typedef struct eventData {
    VideoPlugin* objectHandle;
    int32_t event; /**< onPlayStateChange or onPlayPositionChanged */
    void* data;    /**< stateChangeData or posChangedData, from malloc; freed with the record */
} eventData;

typedef struct stateChangeData {
    int32_t state; /**< PlayStates_e */
} stateChangeData;

typedef struct posChangedData {
    int32_t pos; /**< milliseconds */
} posChangedData;

/**
 * One A/V Control object. Everything runs on the browser's plug-in thread, except the player's callback, which only
 * queues a copy of the report for the plug-in thread.
 *
 * The operations behind script methods take their arguments by value; the caller keeps ownership. The caller releases a
 * returned String or Object.
 */
class HBBTV_EXPORT VideoPlugin : public PluginBaseClass {
public:
    /** @return the MIME types of the plug-in, "type:extension:description;..."; static text */
    static const char* GetMIMEDescription();
    /** @return "Video Player"; static text, not to be changed */
    static char* GetPluginNameString();
    /** @return "Video Player"; static text, not to be changed */
    static char* GetPluginDescriptionString();

    /** Registers the instance and opens its player. @param hostUri not used; see GetPageUrl */
    explicit VideoPlugin(char* hostUri);
    /** Stops and closes the player and releases everything. Calls no function of the page any more. */
    ~VideoPlugin() override;

    bool initialize(NPMIMEType pluginType, NPP instance, uint16_t mode, int16_t argc, char** argn, char** argv,
                    NPSavedData* saved) override;
    bool invoke(NPObject* npobj, NPIdentifier name, const NPVariant* args, uint32_t argCount,
                NPVariant* result) override;
    bool hasProperty(NPIdentifier name) override;
    bool getProperty(NPIdentifier name, NPVariant* result) override;
    bool setProperty(NPIdentifier name, const NPVariant* value) override;
    bool hasParam(char* sParamName) override;
    bool getParam(char* sParamName, char* sParamValue) override;
    bool setParam(char* sParamName, char* sParamValue) override;
    bool hasMethod(NPIdentifier name) override;
    int unregisterMsgClient() override;
    NPError setWindow(NPP instance, NPWindow* window) override;
    bool dispatch(NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result) override;

    /** Creates the script state: identifiers, slots, parameter store, component holder, event object. */
    void Allocate();
    /** Calls NPN_GetValue; same parameters and result. */
    int PluginGetValue(NPP instance, NPNVariable var, void* value);
    /** @return the owner of the event object, null before initialize */
    HbbTVAVControlDOMEventClass* getDOMEventClass();
    /** @param handler the handle that the message channel assigned to this instance */
    void SetMsgHandler(int handler);

    /** Stores a play state without a notification. @param state PlayStates_e */
    void SetPlayState(int state);
    /** Stores the speed as a Double without a notification. */
    void SetSpeed(double Speed);
    /** Stores the error. @param Error ErrorTypes_e, or any other code that the player reported */
    void SetError(int Error);
    /** @return the `speed` slot; the object keeps ownership */
    NPVariant* GetSpeedProperty();
    /** @return the `error` slot; the object keeps ownership */
    NPVariant* GetErrorProperty();

    /** Reserved name of the interface, not defined: the constructor opens the player. */
    void CreatePlayer();
    /** Passes the URL in `data` to the player. @return false when it contains no "http" or is too long */
    bool SetInput();
    /** Sets the player's rectangle, in pixels, and stores its size in `width` and `height`. @return true */
    bool SetupPlayer(int x, int y, int w, int h);
    /** @param fullscreen Bool, or a number taken as a truth value; others are false. @return Bool true */
    NPVariant SetFullScreen(NPVariant fullscreen);
    /** Stops the player without closing it. */
    void DestoryPlayer();

    /** @param npSpeed Int32 or Double, 0 pauses; other types count as 0. @return Bool true */
    NPVariant Play(NPVariant npSpeed);
    /** @return Bool, true when the player has stopped */
    NPVariant Stop();
    /** @param pos milliseconds. @return true when a seek to the position is possible */
    bool CheckSeekPos(int pos);
    /** @param pos Double, milliseconds; other types are refused. @return Bool, true when the seek was started */
    NPVariant Seek(NPVariant pos);
    /** @param volume Int32 or Double, 0 to 101. @return Bool, true when it is in range; the volume is not changed */
    NPVariant SetVolume(NPVariant volume);
    /** @return Bool false: there is one track */
    NPVariant Next();
    /** @return Bool false: there is one track */
    NPVariant Previous();
    /** @return String "undefined" */
    NPVariant GetSinkProtocolInfo();
    /** @return String "undefined" */
    NPVariant GetTransportStateVariables(NPVariant stateVariableList);
    /** @return String "undefined" */
    NPVariant SetTransportStateVariables(NPVariant stateVariableValuePairs);

    /** Queues the next media. @param url String of at most 1023 bytes; other types empty the queue. @return Bool */
    NPVariant Queue(NPVariant url);

    /** Applies a player's report. @param event eMEDIA_CALLBACK_EVENT. @param pData ignored; the caller keeps it */
    void MediaCallback(int event, int code, void* pData);

    void AddEventListener(NPVariant npType, NPVariant npListener, NPVariant npUseCapture);
    void RemoveEventListener(NPVariant npType, NPVariant npListener, NPVariant npUseCapture);
    /** @param index ListenerNames_e; others are ignored */
    void SetPropertyFromListener(unsigned int index, bool value);
    /** @param index ListenerNames_e. @return true when a listener is registered for it */
    bool GetIsPropertySetFromListener(unsigned int index);
    /**
     * Calls the function in a slot, and reports play state, speed and parental rating to media synchronisation.
     * @param property   ListenerNames_e when `isListener`, else PropertyNames_e; others are refused
     * @param args       `arg_cnt` values, which belong to the caller; null when there are none
     * @return true when the function was called and succeeded
     * The function may delete this object.
     */
    bool ExecutePropertyJSFunctionArgs(int property, NPVariant* args, int arg_cnt, bool isListener);
    /** Calls `onDRMRightsError`. @param contentID,DRMSystemID,rightsIssuerURL zero-terminated; belong to the caller */
    void onDRMRightsErrorFun(int errorState, char* contentID, char* DRMSystemID, char* rightsIssuerURL);

    /** Raises a DOM "focus" event on `obj`. @param EventType DOMEvents_e, for the log only. @return true */
    bool DispatchDomEvent(int EventType, NPObject* obj);
    /** @return Void */
    NPVariant Focus(NPObject* obj);

    /** @param npComponentType Int32 or Double 0 to 2, or Null for all. @return Object, or Null when refused */
    NPVariant GetComponents(NPVariant npComponentType);
    /** @param npComponentType Int32 or Double 0 to 2. @return Object, or Null when refused */
    NPVariant GetCurrentActiveComponents(NPVariant npComponentType);
    /** @param npComponent Object of a component collection */
    void SelectComponent(NPVariant npComponent);
    /** @param npComponent Object of a component collection */
    void UnSelectComponent(NPVariant npComponent);
    /** @param componentType Int32 or Double; the player validates it */
    void SelectDefaultComponent(NPVariant componentType);
    /** @param componentType Int32 or Double; the player validates it */
    void UnSelectDefaultComponent(NPVariant componentType);
    /** Calls `onSelectedComponentChanged`. @param type component type */
    void onSelectedComponentChangedFun(int type);

    /**
     * Parses the description of a subtitle track: "srclang:", "laber:" and "src:" anywhere in the text, each followed
     * by its value, which ends at a blank or tab.
     * @param pSub           zero-terminated text
     * @param pSubProperties record; fields in the description are filled, cut at their sizes; others are unchanged
     */
    static void getSubtitleProperties(char* pSub, sub_properties_t* pSubProperties);

    HbbTVComponentCollectionHolderClass* m_pComponentCollectionHolder; /**< owned */
    bool m_bSkipJSCallback;                                            /**< blocks calls of the page's functions */
    NPVariant* m_pNpVarProperties;                                     /**< owned, indexed by PropertyNames_e */
    NPVariant* m_pNpVarListeners;                                      /**< owned, indexed by ListenerNames_e */
    HbbTVAVControlDOMEventClass* m_DOMEventClass;                      /**< owned */
    int32_t m_hPlayer;                                                 /**< the adaptation layer's handle; -1: none */
    char** m_ppsParamValues;                                           /**< owned, one entry per parameter name */
    MediaType m_eMediaType;
    PluginType m_ePluginType;
    int32_t m_nX; /**< rectangle from the browser, pixels */
    int32_t m_nY;
    uint32_t m_nW;
    uint32_t m_nH;
    bool m_bUrlIsQueued;
    char m_acQueuedUrlBuffer[1024]; /**< valid while m_bUrlIsQueued */
    int32_t m_nRepeateNum;          /**< plays left while m_bRepeateUtilNum */
    bool m_bRepeateUtilNum;
    bool m_bRepeateUntilStop;
    bool* m_bPropertySetUsingAddEventListener; /**< owned, indexed by ListenerNames_e */
    int32_t m_nMsgHandle;                      /**< from the platform's message channel */
};

extern "C" {

/** Registers for the adaptation layer's resource messages. Called by the platform. */
HBBTV_EXPORT void regMediaPlayerResourceCallback();

/** Platform hook for cleaning up an instance; only writes log lines. @param objectHandle the VideoPlugin */
HBBTV_EXPORT void videoInstanceCleanerFunction(void* objectHandle);

/**
 * Receives a notification of the message channel and stores the handle in the record's instance.
 * @param cb_arguments cbArguments; null, or a null instance in it, is refused with a log line
 * @return 0
 */
HBBTV_EXPORT int videoControlHandleNotify(void* cb_arguments, int handle);
}

#endif
