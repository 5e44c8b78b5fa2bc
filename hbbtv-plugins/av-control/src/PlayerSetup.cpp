// The player's source and its position on the screen.
#include "Internals.h"
#include "Log.h"
#include "Slots.h"

#include <string.h>

static constexpr uint32_t TOO_SHORT_URL = 4;

bool VideoPlugin::SetInput() {
    if (!m_pNpVarProperties || !NPVARIANT_IS_STRING(m_pNpVarProperties[data])) {
        return false;
    }
    const NPString& source = NPVARIANT_TO_STRING(m_pNpVarProperties[data]);
    if (source.UTF8Length > LONGEST_URL) {
        LOG_ERROR("data refused as source: %u bytes, the player takes at most %u\n", source.UTF8Length, LONGEST_URL);
        return false;
    }
    char url[LONGEST_URL + 1] = "";
    if (source.UTF8Length > TOO_SHORT_URL) {
        memcpy(url, source.UTF8Characters, source.UTF8Length);
        url[source.UTF8Length] = '\0';
        LOG("data: %s\n", url);
    }
    if (!strstr(url, "http")) {
        return false;
    }
    Hbbtv_AL_MediaPlayerSetSource(m_hPlayer, url);
    return true;
}

bool VideoPlugin::SetupPlayer(int x, int y, int w, int h) {
    LOG("SetupPlayer : x %d, y %d, w %d, h %d\n", x, y, w, h);
    if (m_hPlayer == -1) {
        return true;
    }
    if (Hbbtv_AL_MediaPlayerSetWindow(m_hPlayer, x, y, w, h) != 1) {
        LOG("Setting Hbbtv_AL_MediaPlayerSetWindow failed!\n");
    }
    if (m_pNpVarProperties) {
        if (moveToSlot(*this, &m_pNpVarProperties[width], intVariant(w)) == Outcome::Done) {
            static_cast<void>(moveToSlot(*this, &m_pNpVarProperties[height], intVariant(h)));
        }
    }
    return true;
}

static Outcome storeFullScreen(VideoPlugin& plugin, bool on) {
    return moveToSlot(plugin, &plugin.m_pNpVarProperties[fullScreen], boolVariant(on));
}

static Outcome notifyFullScreen(VideoPlugin& plugin) {
    return guarded(plugin, [&] { plugin.ExecutePropertyJSFunctionArgs(onFullScreenChange, nullptr, 0, false); });
}

/// The browser gives the object the whole screen, or a part of it again.
static Outcome changeFullScreen(VideoPlugin& plugin, bool on) {
    const Outcome stored = storeFullScreen(plugin, on);
    return stored == Outcome::Done ? notifyFullScreen(plugin) : stored;
}

NPError VideoPlugin::setWindow(NPP /*instance*/, NPWindow* window) {
    if (!window || !m_pNpVarProperties) {
        LOG_ERROR("setWindow without a window or script state: ignored\n");
        return NPERR_NO_ERROR;
    }
    const bool isFull = readTruth(m_pNpVarProperties[fullScreen]);
    Outcome outcome = Outcome::Done;
    if (window->width == HBBTV_SCREEN_WIDTH && window->height == HBBTV_SCREEN_HEIGHT && !isFull) {
        outcome = changeFullScreen(*this, true);
    } else if (window->width != HBBTV_SCREEN_WIDTH && window->height != HBBTV_SCREEN_HEIGHT && isFull) {
        outcome = changeFullScreen(*this, false);
    }
    if (outcome == Outcome::Gone) {
        return NPERR_NO_ERROR;
    }
    // Read only now: the page's handler may have had the browser lay the element out again.
    const NPWindow rectangle = *window;
    if (rectangle.x == m_nX && rectangle.y == m_nY && rectangle.width == m_nW && rectangle.height == m_nH) {
        return NPERR_NO_ERROR;
    }
    m_nX = rectangle.x;
    m_nY = rectangle.y;
    m_nW = rectangle.width;
    m_nH = rectangle.height;
    if (m_nW == HBBTV_SCREEN_WIDTH && m_nH == HBBTV_SCREEN_HEIGHT) {
        m_nX = 0;
        m_nY = 0;
    }
    SetupPlayer(m_nX, m_nY, static_cast<int>(m_nW), static_cast<int>(m_nH));
    return NPERR_NO_ERROR;
}

NPVariant VideoPlugin::SetFullScreen(NPVariant fullscreen) {
    if (!m_pNpVarProperties) {
        return boolVariant(true);
    }
    const bool on = readTruth(fullscreen);
    if (on == readTruth(m_pNpVarProperties[fullScreen])) {
        LOG("new FullScreen is equal to old FullScreen\n");
        return boolVariant(true);
    }
    if (storeFullScreen(*this, on) == Outcome::Gone) {
        return boolVariant(true);
    }
    const InstanceGuard guard(this);
    if (on) {
        LOG("setFullScreen set player in fullscreen mode\n");
        SetupPlayer(0, 0, HBBTV_SCREEN_WIDTH, HBBTV_SCREEN_HEIGHT);
    } else {
        LOG("setFullScreen  set player not in fullscreen mode\n");
        SetupPlayer(m_nX, m_nY, static_cast<int>(m_nW), static_cast<int>(m_nH));
    }
    if (guard.alive()) {
        static_cast<void>(notifyFullScreen(*this));
    }
    return boolVariant(true);
}

void VideoPlugin::DestoryPlayer() {
    if (Hbbtv_AL_MediaPlayerStop(m_hPlayer) == 0) {
        LOG("ERROR from destructor, while stopping mmlib\n");
    }
}
