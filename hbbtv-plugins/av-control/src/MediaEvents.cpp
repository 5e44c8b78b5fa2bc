// What a player's report does to the object and what the page hears of it.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"
#include "HbbTVPluginHelpers.h"

#include <string.h>

static void setEventNumber(VideoPlugin& plugin, const char* name, int number) {
    if (HbbTVAVControlDOMEventClass* event = plugin.getDOMEventClass()) {
        event->setAVControlDOMEventProperty(name, number);
    }
}

void notifyPlayState(VideoPlugin& plugin, int state) {
    if (plugin.GetIsPropertySetFromListener(PlayStateChange)) {
        setEventNumber(plugin, "state", state);
        LOG("PLAY_STATE_CHANGED GetIsPropertySetFromListener ok\n\n");
        callListener(plugin, PlayStateChange);
    } else {
        LOG("PLAY_STATE_CHANGED GetIsPropertySetFromListener not ok\n\n");
        callHandler(plugin, onPlayStateChange, intVariant(state));
    }
}

/// Starts the media again without notifying the page, if `loop` asks for it.
/// @return true when it was started again
static bool restartForLoop(VideoPlugin& plugin) {
    if (plugin.m_bRepeateUtilNum) {
        plugin.SetPlayState(MP_FINISHED);
        if (plugin.m_nRepeateNum > INT32_MIN) {
            --plugin.m_nRepeateNum;
        }
        if (plugin.m_nRepeateNum < 1) {
            plugin.m_bRepeateUtilNum = false;
            return false;
        }
    } else if (plugin.m_bRepeateUntilStop) {
        plugin.SetPlayState(MP_FINISHED);
    } else {
        return false;
    }
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0);
    return true;
}

/// @return true when the queued media was started
static bool playQueued(VideoPlugin& plugin) {
    const InstanceGuard guard(&plugin);
    plugin.SetPlayState(MP_FINISHED);
    notifyPlayState(plugin, MP_FINISHED);
    // The page has just run: it may have deleted the object, or emptied the queue by stop() or queue(null).
    if (!guard.alive()) {
        return false;
    }
    if (!plugin.m_bUrlIsQueued) {
        if (currentPlayState(plugin) == MP_FINISHED) {
            Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
        }
        return false;
    }
    LOG("FROM : callback ### URL IS QUEUED !!!\n\n");
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    const NPVariant url = stringVariant(plugin.m_acQueuedUrlBuffer);
    playNow(plugin, url);
    plugin.m_bUrlIsQueued = false;
    return true;
}

/// @return true when the queued media was started: the report then ends without its last log line
static bool finishMedia(VideoPlugin& plugin) {
    LOG("m_bRepeateUtilNum = %d,m_nRepeateNum=%d,m_bRepeateUntilStop = %d\n\n", plugin.m_bRepeateUtilNum,
        plugin.m_nRepeateNum, plugin.m_bRepeateUntilStop);
    if (restartForLoop(plugin)) {
        return false;
    }
    if (plugin.m_bUrlIsQueued) {
        return playQueued(plugin);
    }
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    plugin.SetPlayState(MP_FINISHED);
    notifyPlayState(plugin, MP_FINISHED);
    return false;
}

static double reportedPosition(VideoPlugin& plugin, int state) {
    double position = 0.0;
    if (state == MP_PLAYING) {
        const int64_t playerPosition = Hbbtv_AL_MediaPlayerGetPosition(plugin.m_hPlayer);
        if (playerPosition != -1) {
            position = static_cast<double>(playerPosition);
            LOG("getProperty nData:%lld,playPosition:%f\n\n", static_cast<long long>(playerPosition), position);
        }
        return position;
    }
    PrintVariant(plugin.m_pNpVarProperties[playPosition]);
    readNumber(plugin.m_pNpVarProperties[playPosition], &position);
    LOG("eMEDIA_CALLBACK_POSITION_CHANGED--pos=%f\n\n", position);
    return position;
}

static void notifyPosition(VideoPlugin& plugin, int state) {
    const double position = reportedPosition(plugin, state);
    if (plugin.GetIsPropertySetFromListener(PlayPositionChanged)) {
        if (HbbTVAVControlDOMEventClass* event = plugin.getDOMEventClass()) {
            event->setAVControlDOMEventPropertyDouble("position", position);
        }
        LOG("PLAY_POSITION_CHANGED getIsPropertySetFromListener ok\n\n");
        callListener(plugin, PlayPositionChanged);
    } else {
        LOG("PLAY_POSITION_CHANGED getIsPropertySetFromListener not ok\n\n");
        callHandler(plugin, onPlayPositionChanged, doubleVariant(position));
    }
}

static void notifySpeed(VideoPlugin& plugin) {
    const int curSpeed = Hbbtv_AL_MediaPlayerGetSpeed(plugin.m_hPlayer);
    plugin.SetSpeed(curSpeed);
    if (plugin.GetIsPropertySetFromListener(PlaySpeedChanged)) {
        setEventNumber(plugin, "speed", curSpeed);
        callListener(plugin, PlaySpeedChanged);
    } else {
        callHandler(plugin, onPlaySpeedChanged, intVariant(curSpeed));
    }
}

static void notifyComponent(VideoPlugin& plugin, int componentType) {
    LOG("componentType = %d\n", componentType);
    if (plugin.GetIsPropertySetFromListener(SelectedComponentChange)) {
        setEventNumber(plugin, "componentType", componentType);
        callListener(plugin, SelectedComponentChange);
    } else {
        callHandler(plugin, onSelectedComponentChanged, intVariant(componentType));
    }
}

static void notifyParentalRating(VideoPlugin& plugin, int blocked) {
    LOG("blocked = %d\n", blocked);
    NPVariant arguments[4] = {nullVariant(), nullVariant(), nullVariant(), boolVariant(blocked != 0)};
    plugin.ExecutePropertyJSFunctionArgs(onParentalRatingChange, arguments, 4, false);
}

static void notifyRightsError(VideoPlugin& plugin, int errorState) {
    LOG("errorstate = %d\n", errorState);
    NPVariant arguments[4] = {intVariant(errorState), nullVariant(), nullVariant(), nullVariant()};
    plugin.ExecutePropertyJSFunctionArgs(onDRMRightsError, arguments, 4, false);
}

// NOLINTNEXTLINE(readability-function-size): a table of the player's reports
void VideoPlugin::MediaCallback(int event, int code, void* /*pData*/) {
    if (!m_pNpVarProperties) {
        LOG_ERROR("Report %d of the player comes before initialize: it is dropped\n", event);
        return;
    }
    LOG("!!!MediaCallback called!!!\n");
    const int state = currentPlayState(*this);
    LOG("MediaCallback nEvent = %d, eEventCode:%d\n\n", event, code);
    switch (event) {
    case eMEDIA_CALLBACK_STOPPED:
        LOG("eMEDIA_CALLBACK_STOPPED\n\n");
        break;
    case eMEDIA_CALLBACK_PLAYING:
        LOG("eMEDIA_CALLBACK_PLAYING\n\n");
        if (state == MP_PLAYING) {
            LOG("current playstate is PLAYING ,so return \n");
            return;
        }
        SetPlayState(MP_PLAYING);
        notifyPlayState(*this, MP_PLAYING);
        break;
    case eMEDIA_CALLBACK_PAUSED:
        LOG("eMEDIA_CALLBACK_PAUSED\n\n");
        break;
    case eMEDIA_CALLBACK_CONNECTING:
        LOG("eMEDIA_CALLBACK_CONNECTING\n\n");
        break;
    case eMEDIA_CALLBACK_BUFFERING:
        LOG("eMEDIA_CALLBACK_BUFFERING\n\n");
        if (state == MP_BUFFERING || state == MP_PAUSED) {
            LOG("current playstate is BUFFERING or %d ,so return \n", state);
            return;
        }
        SetPlayState(MP_BUFFERING);
        notifyPlayState(*this, MP_BUFFERING);
        break;
    case eMEDIA_CALLBACK_FINISHED:
        LOG("eMEDIA_CALLBACK_FINISHED\n\n");
        if (state == MP_FINISHED) {
            LOG("current playstate is FINISHED ,so return \n");
            return;
        }
        if (finishMedia(*this)) {
            return;
        }
        break;
    case eMEDIA_CALLBACK_POSITION_CHANGED:
        LOG("eMEDIA_CALLBACK_POSITION_CHANGED\n\n");
        notifyPosition(*this, state);
        break;
    case eMEDIA_CALLBACK_SPEED_CHANGED:
        LOG("eMEDIA_CALLBACK_SPEED_CHANGED\n\n");
        notifySpeed(*this);
        break;
    case eMEDIA_CALLBACK_ERROR:
        LOG("eMEDIA_CALLBACK_ERROR\n\n");
        if (state == MP_ERROR) {
            LOG("current playstate is ERROR ,so return \n");
            return;
        }
        SetPlayState(MP_ERROR);
        SetError(code);
        SetSpeed(0.0);
        Hbbtv_AL_MediaPlayerStop(m_hPlayer);
        notifyPlayState(*this, MP_ERROR);
        break;
    case eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED:
        LOG("eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED\n\n");
        notifyComponent(*this, code);
        break;
    case eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED:
        LOG("eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED\n\n");
        notifyParentalRating(*this, code);
        break;
    case eMEDIA_CALLBACK_DRM_RIGHTS_ERROR:
        LOG("eMEDIA_CALLBACK_DRM_RIGHTS_ERROR\n\n");
        notifyRightsError(*this, code);
        break;
    default:
        break;
    }
    LOG("!!!MediaCallback called end!!!\n");
}
