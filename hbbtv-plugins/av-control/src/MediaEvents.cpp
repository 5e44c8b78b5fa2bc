// What a player's report does to the object and what the page hears of it.
#include "Internals.h"
#include "Log.h"
#include "OperationMemory.h"
#include "Slots.h"

#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"
#include "HbbTVPluginHelpers.h"

#include <string.h>

static void setEventNumber(VideoPlugin& plugin, const char* name, int number) {
    if (HbbTVAVControlDOMEventClass* event = plugin.getDOMEventClass()) {
        event->setAVControlDOMEventProperty(name, number);
    }
}

Outcome notifyPlayState(VideoPlugin& plugin, int state) {
    if (plugin.GetIsPropertySetFromListener(PlayStateChange)) {
        setEventNumber(plugin, "state", state);
        LOG("PLAY_STATE_CHANGED GetIsPropertySetFromListener ok\n\n");
        return callListener(plugin, PlayStateChange);
    }
    LOG("PLAY_STATE_CHANGED GetIsPropertySetFromListener not ok\n\n");
    return callHandler(plugin, onPlayStateChange, intVariant(state));
}

Outcome changeState(VideoPlugin& plugin, int state) {
    const Outcome outcome = guarded(plugin, [&] { plugin.SetPlayState(state); });
    return outcome == Outcome::Done ? notifyPlayState(plugin, state) : outcome;
}

/// Starts the media again without a notification, if `loop` says so.
/// @param restarted receives whether it was
static Outcome restartForLoop(VideoPlugin& plugin, bool* restarted) {
    *restarted = false;
    const bool isCounted = plugin.m_bRepeateUtilNum;
    if (!isCounted && !plugin.m_bRepeateUntilStop) {
        return Outcome::Done;
    }
    if (guarded(plugin, [&] { plugin.SetPlayState(MP_FINISHED); }) == Outcome::Gone) {
        return Outcome::Gone;
    }
    if (isCounted) {
        if (plugin.m_nRepeateNum > INT32_MIN) {
            --plugin.m_nRepeateNum;
        }
        if (plugin.m_nRepeateNum < 1) {
            plugin.m_bRepeateUtilNum = false;
            return Outcome::Done;
        }
    }
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0);
    *restarted = true;
    return Outcome::Done;
}

/// Reports the end of the media and starts the queued one.
/// @return true when that was started
static bool playQueued(VideoPlugin& plugin) {
    // The page may delete the object, or empty the queue by stop() or queue(null).
    if (changeState(plugin, MP_FINISHED) == Outcome::Gone) {
        return false;
    }
    const NPVariant url = stringVariant(plugin.m_acQueuedUrlBuffer);
    DataMemory memory;
    if (!plugin.m_bUrlIsQueued || !takeToPlayNow(plugin, url, &memory)) {
        // Without memory it stays queued.
        if (currentPlayState(plugin) == MP_FINISHED) {
            Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
        }
        return false;
    }
    LOG("FROM : callback ### URL IS QUEUED !!!\n\n");
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    if (playNow(plugin, url, &memory) != Outcome::Gone) {
        plugin.m_bUrlIsQueued = false;
    }
    return true;
}

/// @return true when the queued media was started: the report then ends without its last log line
static bool finishMedia(VideoPlugin& plugin) {
    LOG("m_bRepeateUtilNum = %d,m_nRepeateNum=%d,m_bRepeateUntilStop = %d\n\n", plugin.m_bRepeateUtilNum,
        plugin.m_nRepeateNum, plugin.m_bRepeateUntilStop);
    bool restarted = false;
    if (restartForLoop(plugin, &restarted) == Outcome::Gone || restarted) {
        return false;
    }
    if (plugin.m_bUrlIsQueued) {
        return playQueued(plugin);
    }
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    static_cast<void>(changeState(plugin, MP_FINISHED));
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

static Outcome notifyPosition(VideoPlugin& plugin, int state) {
    const double position = reportedPosition(plugin, state);
    if (plugin.GetIsPropertySetFromListener(PlayPositionChanged)) {
        if (HbbTVAVControlDOMEventClass* event = plugin.getDOMEventClass()) {
            event->setAVControlDOMEventPropertyDouble("position", position);
        }
        LOG("PLAY_POSITION_CHANGED getIsPropertySetFromListener ok\n\n");
        return callListener(plugin, PlayPositionChanged);
    }
    LOG("PLAY_POSITION_CHANGED getIsPropertySetFromListener not ok\n\n");
    return callHandler(plugin, onPlayPositionChanged, doubleVariant(position));
}

static Outcome notifySpeed(VideoPlugin& plugin) {
    const int curSpeed = Hbbtv_AL_MediaPlayerGetSpeed(plugin.m_hPlayer);
    plugin.SetSpeed(curSpeed);
    if (plugin.GetIsPropertySetFromListener(PlaySpeedChanged)) {
        setEventNumber(plugin, "speed", curSpeed);
        return callListener(plugin, PlaySpeedChanged);
    }
    return callHandler(plugin, onPlaySpeedChanged, intVariant(curSpeed));
}

static Outcome notifyComponent(VideoPlugin& plugin, int componentType) {
    LOG("componentType = %d\n", componentType);
    if (plugin.GetIsPropertySetFromListener(SelectedComponentChange)) {
        setEventNumber(plugin, "componentType", componentType);
        return callListener(plugin, SelectedComponentChange);
    }
    return callHandler(plugin, onSelectedComponentChanged, intVariant(componentType));
}

static Outcome notifyParentalRating(VideoPlugin& plugin, int blocked) {
    LOG("blocked = %d\n", blocked);
    NPVariant arguments[4] = {nullVariant(), nullVariant(), nullVariant(), boolVariant(blocked != 0)};
    return callHandler(plugin, onParentalRatingChange, arguments, 4);
}

static Outcome notifyRightsError(VideoPlugin& plugin, int errorState) {
    LOG("errorstate = %d\n", errorState);
    NPVariant arguments[4] = {intVariant(errorState), nullVariant(), nullVariant(), nullVariant()};
    return callHandler(plugin, onDRMRightsError, arguments, 4);
}

static Outcome fail(VideoPlugin& plugin, int code) {
    if (guarded(plugin, [&] { plugin.SetPlayState(MP_ERROR); }) == Outcome::Gone) {
        return Outcome::Gone;
    }
    plugin.SetError(code);
    plugin.SetSpeed(0.0);
    Hbbtv_AL_MediaPlayerStop(plugin.m_hPlayer);
    return notifyPlayState(plugin, MP_ERROR);
}

// NOLINTNEXTLINE(readability-function-size): a table of the reports
void VideoPlugin::MediaCallback(int event, int code, void* /*pData*/) {
    if (!m_pNpVarProperties) {
        LOG_ERROR("Report %d of the player comes before initialize: it is dropped\n", event);
        return;
    }
    LOG("!!!MediaCallback called!!!\n");
    const int state = currentPlayState(*this);
    LOG("MediaCallback nEvent = %d, eEventCode:%d\n\n", event, code);
    Outcome outcome = Outcome::Done;
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
        outcome = changeState(*this, MP_PLAYING);
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
        outcome = changeState(*this, MP_BUFFERING);
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
        outcome = notifyPosition(*this, state);
        break;
    case eMEDIA_CALLBACK_SPEED_CHANGED:
        LOG("eMEDIA_CALLBACK_SPEED_CHANGED\n\n");
        outcome = notifySpeed(*this);
        break;
    case eMEDIA_CALLBACK_ERROR:
        LOG("eMEDIA_CALLBACK_ERROR\n\n");
        if (state == MP_ERROR) {
            LOG("current playstate is ERROR ,so return \n");
            return;
        }
        outcome = fail(*this, code);
        break;
    case eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED:
        LOG("eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED\n\n");
        outcome = notifyComponent(*this, code);
        break;
    case eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED:
        LOG("eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED\n\n");
        outcome = notifyParentalRating(*this, code);
        break;
    case eMEDIA_CALLBACK_DRM_RIGHTS_ERROR:
        LOG("eMEDIA_CALLBACK_DRM_RIGHTS_ERROR\n\n");
        outcome = notifyRightsError(*this, code);
        break;
    default:
        break;
    }
    static_cast<void>(outcome); // Nothing here touches the object again.
    LOG("!!!MediaCallback called end!!!\n");
}
