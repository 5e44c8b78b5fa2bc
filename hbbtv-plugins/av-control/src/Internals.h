/** What the source files of the plug-in share; hidden from the library's exports. */
#ifndef AVCONTROL_INTERNALS_H
#define AVCONTROL_INTERNALS_H

#include "InstanceGuard.h"
#include "VideoPlugin.h"

#include "medialib.h"

class DataMemory;
class Notifications;

// Longest texts that the plug-in takes, in bytes without the terminating zero.
constexpr unsigned LONGEST_SIZE_TEXT = 7;    /**< `width` and `height` written by script */
constexpr unsigned LONGEST_URL = 1023;       /**< a source for the player, `data` and `id` written by script */
constexpr unsigned LONGEST_PARAMETER = 1024; /**< a stored parameter, a resolved URL */

/** A `playState` slot that holds no number: script may write anything into it. */
constexpr int NO_PLAY_STATE = -1;

// --- instance registry: any thread

/** Enters an instance; without memory it stays out, and its player's reports are dropped. */
void insetHandleToList(VideoPlugin* handle);
/** Removes an instance. */
void deleteHandleFromList(VideoPlugin* handle);
/** @return true when the instance is alive; only the pointer is compared */
bool findHandleFromList(VideoPlugin* handle);
/** As findHandleFromList; reads the instance's browser handle before the instance can be destroyed. */
bool findInstanceHandle(VideoPlugin* handle, NPP* instance);
/** Stores the browser handle of an instance where other threads may be reading it. */
void storeInstanceHandle(VideoPlugin* handle, NPP instance);

// --- player callback bridge

/** The player's callback: hands a copy of the report to the plug-in thread. `userData` is the instance. */
void MediaPlayerVideoPluginWrapper(unsigned int playerId, eMEDIA_CALLBACK_EVENT event, int code, void* callbackBlock,
                                   void* userData);
/** Queues a play-state notification for a later turn. @param handle the VideoPlugin */
void AVControlPlayStateChange(void* handle, int state, Notifications* notifications);
/** Queues a position notification for a later turn. @param handle the VideoPlugin. @param pos milliseconds */
void AVControlPositionChanged(void* handle, int pos, Notifications* notifications);

// --- play state

/** @return the play state in its slot, or NO_PLAY_STATE */
int currentPlayState(const VideoPlugin& plugin);

/** Stores a play state and queues its notification. @return Done, or Gone */
Outcome enterState(VideoPlugin& plugin, int state, Notifications* notifications);

// --- playback

/** How many notifications startPlayback() may queue. */
constexpr int MOST_PLAY_NOTIFICATIONS = 2;

/** What Play does. @param speed 0 pauses. @return Done, or Gone */
Outcome startPlayback(VideoPlugin& plugin, int speed, Notifications* notifications);

/** @return true for an address that is to be resolved against the page's */
bool isRelativeAddress(const char* address);

/** @return true for a `data` that is loaded when it is written */
bool isLoadableAddress(const NPVariant& value);

/** Takes what playNow() needs. @param url a String. @return false after an error line */
[[nodiscard]] bool takeToPlayNow(const VideoPlugin& plugin, const NPVariant& url, DataMemory* memory);

/**
 * Makes an address the new media and starts it.
 * @param url a String
 * @return Refused when `data` refuses the address: nothing is then started
 */
Outcome playNow(VideoPlugin& plugin, const NPVariant& url, DataMemory* memory);

// --- calls of the page; all return Done or Gone

/** Stores a play state and notifies the page of it. */
Outcome changeState(VideoPlugin& plugin, int state);
/** Notifies the page of a play state: the listener if there is one, else the handler. */
Outcome notifyPlayState(VideoPlugin& plugin, int state);
/** Calls a listener with the event object. @param listener ListenerNames_e */
Outcome callListener(VideoPlugin& plugin, int listener);
/** Calls a handler property. @param handler PropertyNames_e. @param args the caller's */
Outcome callHandler(VideoPlugin& plugin, int handler, NPVariant* args, int arg_cnt);
/** Calls a handler property with one value. */
Outcome callHandler(VideoPlugin& plugin, int handler, NPVariant argument);

#endif
