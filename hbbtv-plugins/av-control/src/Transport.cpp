// Playback: what play, stop, seek and the methods beside them do with the player and the play state.
#include "Internals.h"
#include "Log.h"
#include "OperationMemory.h"
#include "Slots.h"

static constexpr int LOUDEST_VOLUME = 101;

// SetSpeed and SetError end no instance: script cannot write their slots, which hold numbers.

Outcome enterState(VideoPlugin& plugin, int state, Notifications* notifications) {
    const Outcome outcome = guarded(plugin, [&] { plugin.SetPlayState(state); });
    if (outcome == Outcome::Done) {
        AVControlPlayStateChange(&plugin, state, notifications);
    }
    return outcome;
}

static Outcome enterError(VideoPlugin& plugin, Notifications* notifications) {
    plugin.SetSpeed(0.0);
    plugin.SetError(UNDEFINED_ERROR);
    return enterState(plugin, MP_ERROR, notifications);
}

static Outcome pausePlayer(VideoPlugin& plugin, Notifications* notifications) {
    if (Hbbtv_AL_MediaPlayerPause(plugin.m_hPlayer) == 0) {
        return enterError(plugin, notifications);
    }
    plugin.SetSpeed(0.0);
    return enterState(plugin, MP_PAUSED, notifications);
}

/// A refused resume or restart: the page sees the attempt, then the error.
static Outcome failAfterConnecting(VideoPlugin& plugin, Notifications* notifications) {
    plugin.SetSpeed(0.0);
    if (enterState(plugin, MP_CONNECTING, notifications) == Outcome::Gone) {
        return Outcome::Gone;
    }
    plugin.SetError(UNDEFINED_ERROR);
    return enterState(plugin, MP_ERROR, notifications);
}

static Outcome connectAt(VideoPlugin& plugin, int requested, Notifications* notifications) {
    plugin.SetSpeed(requested);
    const Outcome outcome = enterState(plugin, MP_CONNECTING, notifications);
    if (outcome == Outcome::Done) {
        Hbbtv_AL_MediaPlayerSetSpeed(plugin.m_hPlayer, requested);
    }
    return outcome;
}

static Outcome playFromStopped(VideoPlugin& plugin, int requested, Notifications* notifications) {
    if (requested == 0) {
        return pausePlayer(plugin, notifications);
    }
    if (Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0) == 0) {
        const Outcome outcome = enterError(plugin, notifications);
        LOG("PLAY FAIL\n");
        return outcome;
    }
    const Outcome outcome = connectAt(plugin, requested, notifications);
    LOG("PLAY OK\n");
    return outcome;
}

static Outcome playWhileRunning(VideoPlugin& plugin, int requested, Notifications* notifications) {
    if (requested != 0) {
        Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0);
        Hbbtv_AL_MediaPlayerSetSpeed(plugin.m_hPlayer, requested);
        plugin.SetSpeed(requested);
        return Outcome::Done;
    }
    // So that the paused object keeps reporting where it stopped.
    const int64_t position = Hbbtv_AL_MediaPlayerGetPosition(plugin.m_hPlayer);
    if (position != -1 && storeInSlot(plugin, &plugin.m_pNpVarProperties[playPosition],
                                      intVariant(truncateToInt(static_cast<double>(position)))) == Outcome::Gone) {
        return Outcome::Gone;
    }
    return pausePlayer(plugin, notifications);
}

static Outcome playFromPaused(VideoPlugin& plugin, int requested, Notifications* notifications) {
    if (requested == 0) {
        return Outcome::Done;
    }
    if (Hbbtv_AL_MediaPlayerResume(plugin.m_hPlayer) == 0) {
        return failAfterConnecting(plugin, notifications);
    }
    plugin.SetSpeed(requested);
    Hbbtv_AL_MediaPlayerSetSpeed(plugin.m_hPlayer, requested);
    return Outcome::Done;
}

static Outcome playFromFinished(VideoPlugin& plugin, int requested, Notifications* notifications) {
    return Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0) != 0 ? connectAt(plugin, requested, notifications)
                                                              : failAfterConnecting(plugin, notifications);
}

Outcome startPlayback(VideoPlugin& plugin, int requested, Notifications* notifications) {
    const int state = currentPlayState(plugin);
    const Outcome placed = guarded(plugin, [&] {
        plugin.SetupPlayer(plugin.m_nX, plugin.m_nY, static_cast<int>(plugin.m_nW), static_cast<int>(plugin.m_nH));
    });
    if (placed != Outcome::Done) {
        return placed;
    }
    switch (state) {
    case MP_STOPPED:
        return playFromStopped(plugin, requested, notifications);
    case MP_PLAYING:
    case MP_CONNECTING:
    case MP_BUFFERING:
        return playWhileRunning(plugin, requested, notifications);
    case MP_PAUSED:
        return playFromPaused(plugin, requested, notifications);
    case MP_FINISHED:
        return playFromFinished(plugin, requested, notifications);
    default:
        return Outcome::Done;
    }
}

NPVariant VideoPlugin::Play(NPVariant npSpeed) {
    int requested = 0;
    if (!readInt(npSpeed, &requested)) {
        LOG("SPEED IS NOT SUPPORTED TYPE\n");
    }
    Notifications notifications;
    if (!notifications.take(MOST_PLAY_NOTIFICATIONS)) {
        return boolVariant(false);
    }
    static_cast<void>(startPlayback(*this, requested, &notifications));
    return boolVariant(true);
}

NPVariant VideoPlugin::Stop() {
    const int state = currentPlayState(*this);
    LOG("Called stop in playstate : %d\n", state);
    const bool changesState = state > MP_STOPPED && state <= MP_ERROR;
    Notifications notifications;
    if (changesState && !notifications.take(1)) {
        return boolVariant(false);
    }
    if (m_pNpVarProperties && storeInSlot(*this, &m_pNpVarProperties[playPosition], intVariant(0)) == Outcome::Gone) {
        return boolVariant(false);
    }
    m_bUrlIsQueued = false;
    m_bRepeateUntilStop = false;
    if (changesState) {
        if (Hbbtv_AL_MediaPlayerStop(m_hPlayer) == 0) {
            return boolVariant(false);
        }
        static_cast<void>(enterState(*this, MP_STOPPED, &notifications));
        return boolVariant(true);
    }
    return boolVariant(state == MP_STOPPED && m_hPlayer != -1 && Hbbtv_AL_MediaPlayerStop(m_hPlayer) != 0);
}

bool VideoPlugin::CheckSeekPos(int pos) {
    LOG("Check Seek Pos = %d\n", pos);
    const int duration = Hbbtv_AL_MediaPlayerGetDuration(m_hPlayer);
    if (duration == -1) {
        LOG_ERROR("can not get video duration\n");
        return false;
    }
    if (pos > duration && duration != 0) {
        LOG("seek pos is error\n");
        return false;
    }
    return true;
}

/// Reports to the page that the position has stayed where it was.
static void reportUnmovedPosition(VideoPlugin& plugin, Notifications* notifications) {
    int position = 0;
    if (plugin.m_pNpVarProperties) {
        readInt(plugin.m_pNpVarProperties[playPosition], &position);
    }
    AVControlPositionChanged(&plugin, position, notifications);
}

NPVariant VideoPlugin::Seek(NPVariant pos) {
    const int state = currentPlayState(*this);
    LOG("Call seek in %d state\n", state);
    double requested = 0;
    if (!NPVARIANT_IS_DOUBLE(pos) || !readNumber(pos, &requested)) {
        LOG_ERROR("seek argument type not allowed\n");
        return boolVariant(false);
    }
    Notifications notifications;
    if (!notifications.take(1)) {
        return boolVariant(false);
    }
    LOG("Seek to position %f\n", requested);
    if (!CheckSeekPos(truncateToInt(requested))) {
        LOG("seek position is error\n");
        reportUnmovedPosition(*this, &notifications);
        return boolVariant(false);
    }
    if (Hbbtv_AL_MediaPlayerSeek(m_hPlayer, truncateToInt(requested)) == 0) {
        LOG("seek mmlib returned NOT OK\n");
        reportUnmovedPosition(*this, &notifications);
        return boolVariant(false);
    }
    LOG("seek mmlib returned OK--i_pos=%f\n", requested);
    if (m_pNpVarProperties && storeInSlot(*this, &m_pNpVarProperties[playPosition], pos) == Outcome::Gone) {
        return boolVariant(true);
    }
    if (state == MP_PLAYING) {
        static_cast<void>(enterState(*this, MP_BUFFERING, &notifications));
    } else if (state == MP_CONNECTING || state == MP_BUFFERING) {
        static_cast<void>(enterState(*this, MP_CONNECTING, &notifications));
    }
    return boolVariant(true);
}

NPVariant VideoPlugin::SetVolume(NPVariant volume) {
    int value = 0;
    return boolVariant(readInt(volume, &value) && value >= 0 && value <= LOUDEST_VOLUME);
}

NPVariant VideoPlugin::Next() {
    return boolVariant(false);
}

NPVariant VideoPlugin::Previous() {
    return boolVariant(false);
}

/// @return a new String "undefined", Void without memory
static NPVariant undefinedText() {
    NPVariant text = voidVariant();
    HbbTVBaseClass::makeString("undefined", &text);
    return text;
}

NPVariant VideoPlugin::GetSinkProtocolInfo() {
    return undefinedText();
}

NPVariant VideoPlugin::GetTransportStateVariables(NPVariant /*stateVariableList*/) {
    return undefinedText();
}

NPVariant VideoPlugin::SetTransportStateVariables(NPVariant /*stateVariableValuePairs*/) {
    return undefinedText();
}
