// The road to the plug-in thread: of the player's reports from the player's thread, and of the object's own
// notifications from the script call that caused them to a later turn.
#include "Internals.h"
#include "Log.h"
#include "OperationMemory.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"

#include <stdlib.h>

static void MediaPlayerVideoPluginCallback(void* param) {
    callbackData* record = static_cast<callbackData*>(param);
    if (!record) {
        return;
    }
    if (findHandleFromList(record->objectHandle)) {
        record->objectHandle->MediaCallback(record->event, record->code, record->data);
    }
    free(record->data);
    free(record);
}

void MediaPlayerVideoPluginWrapper(unsigned int playerId, eMEDIA_CALLBACK_EVENT event, int code, void* callbackBlock,
                                   void* userData) {
    LOG("MediaPlayerVideoPluginWrapper playerId:%d userData:%p\n\n", static_cast<int>(playerId), userData);
    VideoPlugin* plugin = static_cast<VideoPlugin*>(userData);
    NPP instance = nullptr;
    if (!findInstanceHandle(plugin, &instance)) {
        free(callbackBlock);
        return;
    }
    LOG("!!!!!!!!!!!!!!!!!!!MediaCallback!!!!!!!!!!!!!!!!!!!!!!!!!!\n\n");
    callbackData* record = nullptr;
    if (!instance) {
        LOG_ERROR("Report %d of player %d comes before initialize: it is dropped\n", event, static_cast<int>(playerId));
    } else {
        record = static_cast<callbackData*>(malloc(sizeof(callbackData)));
        if (!record) {
            LOG_ERROR("No memory for report %d of player %d: it is dropped\n", event, static_cast<int>(playerId));
        }
    }
    if (!record) {
        free(callbackBlock);
        return;
    }
    record->objectHandle = plugin;
    record->playerId = playerId;
    record->event = event;
    record->code = code;
    record->data = callbackBlock;
    NPN_PluginThreadAsyncCall(instance, MediaPlayerVideoPluginCallback, record);
    LOG("!!!!!!!!!!!!!!!!!!!MediaCallback end!!!!!!!!!!!!!!!!!!!!!!!!!!\n\n");
}

static void freeEvent(eventData* record) {
    free(record->data);
    free(record);
}

static void deliverPlayState(VideoPlugin& plugin, int state) {
    LOG("state = %d\n\n", state);
    static_cast<void>(changeState(plugin, state));
}

static void deliverPosition(VideoPlugin& plugin, int position) {
    LOG("pos = %d\n\n", position);
    if (plugin.GetIsPropertySetFromListener(PlayPositionChanged)) {
        HbbTVAVControlDOMEventClass* event = plugin.getDOMEventClass();
        if (event) {
            event->setAVControlDOMEventProperty("position", position);
        }
        LOG("PLAY_POSITION_CHANGED GetIsPropertySetFromListener ok\n\n");
        static_cast<void>(callListener(plugin, PlayPositionChanged));
    } else {
        LOG("PLAY_POSITION_CHANGED GetIsPropertySetFromListener not ok\n\n");
        static_cast<void>(callHandler(plugin, onPlayPositionChanged, intVariant(position)));
    }
}

static void AVControlPopEvent(void* param0) {
    eventData* record = static_cast<eventData*>(param0);
    if (!record) {
        LOG_ERROR("popData is null !!!\n");
        return;
    }
    if (!findHandleFromList(record->objectHandle)) {
        LOG(" Don't find popData->objectHandle in pluginHandlelist\n");
        freeEvent(record);
        return;
    }
    LOG("event = %s\n\n", psProperties[record->event]);
    switch (record->event) {
    case onPlayStateChange:
        deliverPlayState(*record->objectHandle, static_cast<const stateChangeData*>(record->data)->state);
        break;
    case onPlayPositionChanged:
        deliverPosition(*record->objectHandle, static_cast<const posChangedData*>(record->data)->pos);
        break;
    default:
        break;
    }
    freeEvent(record);
}

static void AVControlPushEvent(eventData* record) {
    LOG("AVControlPushEvent\n\n");
    NPP instance = nullptr;
    if (!findInstanceHandle(record->objectHandle, &instance)) {
        LOG(" Don't find popData->objectHandle in pluginHandlelist\n");
        freeEvent(record);
    } else if (!instance) {
        LOG_ERROR("The object is not initialised: nobody is notified of %s\n", psProperties[record->event]);
        freeEvent(record);
    } else {
        NPN_PluginThreadAsyncCall(instance, AVControlPopEvent, record);
    }
}

/// Queues a notification that carries one number: both payloads are a single signed 32-bit field.
template <class Payload>
static void pushNumber(void* handle, PropertyNames_e event, int32_t Payload::*field, int number,
                       Notifications* notifications) {
    eventData* const record = notifications->release();
    if (!record) {
        LOG_ERROR("No record to notify the page of %s %d\n", psProperties[event], number);
        return;
    }
    static_cast<Payload*>(record->data)->*field = number;
    record->objectHandle = static_cast<VideoPlugin*>(handle);
    record->event = event;
    AVControlPushEvent(record);
}

void AVControlPlayStateChange(void* handle, int state, Notifications* notifications) {
    pushNumber(handle, onPlayStateChange, &stateChangeData::state, state, notifications);
}

void AVControlPositionChanged(void* handle, int pos, Notifications* notifications) {
    pushNumber(handle, onPlayPositionChanged, &posChangedData::pos, pos, notifications);
}
