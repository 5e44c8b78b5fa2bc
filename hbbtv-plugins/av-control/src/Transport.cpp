// Playback: what play, stop, seek and the methods beside them do with the player and the play state.
#include "Internals.h"
#include "Log.h"
#include "Slots.h"

#include <limits.h>

static constexpr int LOUDEST_VOLUME = 101;

static void enterState(VideoPlugin& plugin, int state) {
    plugin.SetPlayState(state);
    AVControlPlayStateChange(&plugin, state);
}

static void enterError(VideoPlugin& plugin) {
    plugin.SetSpeed(0.0);
    plugin.SetError(UNDEFINED_ERROR);
    enterState(plugin, MP_ERROR);
}

static void pausePlayer(VideoPlugin& plugin) {
    if (Hbbtv_AL_MediaPlayerPause(plugin.m_hPlayer) != 0) {
        plugin.SetSpeed(0.0);
        enterState(plugin, MP_PAUSED);
    } else {
        enterError(plugin);
    }
}

/// A refused resume or restart: the page sees the attempt, then the error.
static void failAfterConnecting(VideoPlugin& plugin) {
    plugin.SetSpeed(0.0);
    enterState(plugin, MP_CONNECTING);
    plugin.SetError(UNDEFINED_ERROR);
    enterState(plugin, MP_ERROR);
}

static void connectAt(VideoPlugin& plugin, int requested) {
    plugin.SetSpeed(requested);
    enterState(plugin, MP_CONNECTING);
    Hbbtv_AL_MediaPlayerSetSpeed(plugin.m_hPlayer, requested);
}

static void playFromStopped(VideoPlugin& plugin, int requested) {
    if (requested == 0) {
        pausePlayer(plugin);
    } else if (Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0) != 0) {
        connectAt(plugin, requested);
        LOG("PLAY OK\n");
    } else {
        enterError(plugin);
        LOG("PLAY FAIL\n");
    }
}

static void playWhileRunning(VideoPlugin& plugin, int requested) {
    if (requested != 0) {
        Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0);
        Hbbtv_AL_MediaPlayerSetSpeed(plugin.m_hPlayer, requested);
        plugin.SetSpeed(requested);
        return;
    }
    // So that the paused object goes on reporting where it stopped.
    const int64_t position = Hbbtv_AL_MediaPlayerGetPosition(plugin.m_hPlayer);
    if (position != -1) {
        storeInSlot(&plugin.m_pNpVarProperties[playPosition], intVariant(truncateToInt(static_cast<double>(position))));
    }
    pausePlayer(plugin);
}

static void playFromPaused(VideoPlugin& plugin, int requested) {
    if (requested == 0) {
        return;
    }
    if (Hbbtv_AL_MediaPlayerResume(plugin.m_hPlayer) != 0) {
        plugin.SetSpeed(requested);
        Hbbtv_AL_MediaPlayerSetSpeed(plugin.m_hPlayer, requested);
    } else {
        failAfterConnecting(plugin);
    }
}

static void playFromFinished(VideoPlugin& plugin, int requested) {
    if (Hbbtv_AL_MediaPlayerPlay(plugin.m_hPlayer, 0) != 0) {
        connectAt(plugin, requested);
    } else {
        failAfterConnecting(plugin);
    }
}

NPVariant VideoPlugin::Play(NPVariant npSpeed) {
    int requested = 0;
    if (!readInt(npSpeed, &requested)) {
        LOG("SPEED IS NOT SUPPORTED TYPE\n");
    }
    const int state = currentPlayState(*this);
    SetupPlayer(m_nX, m_nY, static_cast<int>(m_nW), static_cast<int>(m_nH));
    switch (state) {
    case MP_STOPPED:
        playFromStopped(*this, requested);
        break;
    case MP_PLAYING:
    case MP_CONNECTING:
    case MP_BUFFERING:
        playWhileRunning(*this, requested);
        break;
    case MP_PAUSED:
        playFromPaused(*this, requested);
        break;
    case MP_FINISHED:
        playFromFinished(*this, requested);
        break;
    default:
        break;
    }
    return boolVariant(true);
}

NPVariant VideoPlugin::Stop() {
    const int state = currentPlayState(*this);
    LOG("Called stop in playstate : %d\n", state);
    if (m_pNpVarProperties) {
        storeInSlot(&m_pNpVarProperties[playPosition], intVariant(0));
    }
    m_bUrlIsQueued = false;
    m_bRepeateUntilStop = false;
    switch (state) {
    case MP_STOPPED:
        return boolVariant(m_hPlayer != -1 && Hbbtv_AL_MediaPlayerStop(m_hPlayer) != 0);
    case MP_PLAYING:
    case MP_PAUSED:
    case MP_CONNECTING:
    case MP_BUFFERING:
    case MP_FINISHED:
    case MP_ERROR:
        if (Hbbtv_AL_MediaPlayerStop(m_hPlayer) == 0) {
            return boolVariant(false);
        }
        enterState(*this, MP_STOPPED);
        return boolVariant(true);
    default:
        return boolVariant(false);
    }
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

/// Notifies the page that the position has stayed where it was.
static void reportUnmovedPosition(VideoPlugin& plugin) {
    int position = 0;
    if (plugin.m_pNpVarProperties) {
        readInt(plugin.m_pNpVarProperties[playPosition], &position);
    }
    AVControlPositionChanged(&plugin, position);
}

NPVariant VideoPlugin::Seek(NPVariant pos) {
    const int state = currentPlayState(*this);
    LOG("Call seek in %d state\n", state);
    double requested = 0;
    if (!NPVARIANT_IS_DOUBLE(pos) || !readNumber(pos, &requested)) {
        LOG_ERROR("seek argument type not allowed\n");
        return boolVariant(false);
    }
    LOG("Seek to position %f\n", requested);
    if (!CheckSeekPos(truncateToInt(requested))) {
        LOG("seek position is error\n");
        reportUnmovedPosition(*this);
        return boolVariant(false);
    }
    if (Hbbtv_AL_MediaPlayerSeek(m_hPlayer, truncateToInt(requested)) == 0) {
        LOG("seek mmlib returned NOT OK\n");
        reportUnmovedPosition(*this);
        return boolVariant(false);
    }
    LOG("seek mmlib returned OK--i_pos=%f\n", requested);
    if (m_pNpVarProperties) {
        storeInSlot(&m_pNpVarProperties[playPosition], pos);
    }
    if (state == MP_PLAYING) {
        enterState(*this, MP_BUFFERING);
    } else if (state == MP_CONNECTING || state == MP_BUFFERING) {
        enterState(*this, MP_CONNECTING);
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
