/** What the source files of the plug-in share; hidden from the library's exports. */
#ifndef AVCONTROL_INTERNALS_H
#define AVCONTROL_INTERNALS_H

#include "VideoPlugin.h"

#include "medialib.h"

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
void AVControlPlayStateChange(void* handle, int state);
/** Queues a position notification for a later turn. @param handle the VideoPlugin. @param pos milliseconds */
void AVControlPositionChanged(void* handle, int pos);

// --- play state

/** @return the play state in its slot, or NO_PLAY_STATE */
int currentPlayState(const VideoPlugin& plugin);

// --- media queue

/**
 * Makes an address the new media and starts it.
 * @return false when the address is one that `data` refuses whole: nothing is then started
 */
bool playNow(VideoPlugin& plugin, const NPVariant& url);

// --- calls of the page: afterwards the instance may have been deleted

/** Notifies the page of a play state: the listener if there is one, else the handler. */
void notifyPlayState(VideoPlugin& plugin, int state);
/** Calls a listener with the event object. @param listener ListenerNames_e */
void callListener(VideoPlugin& plugin, int listener);
/** Calls a handler property with one value. @param handler PropertyNames_e */
void callHandler(VideoPlugin& plugin, int handler, NPVariant argument);

/**
 * Knows whether script that an instance called has deleted it. Lives on the stack around such a call.
 * Plug-in thread only.
 */
class InstanceGuard {
public:
    explicit InstanceGuard(VideoPlugin* instance);
    ~InstanceGuard();
    InstanceGuard(const InstanceGuard&) = delete;
    InstanceGuard& operator=(const InstanceGuard&) = delete;

    bool alive() const { return m_instance != nullptr; }

    /** The instance's destructor runs. */
    static void instanceDeleted(const VideoPlugin* instance);

private:
    VideoPlugin* m_instance;
    InstanceGuard* m_outer;
    static InstanceGuard* s_innermost;
};

#endif
