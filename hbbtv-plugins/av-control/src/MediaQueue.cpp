// The media that is to follow the one that plays: at most one waits.
#include "Internals.h"
#include "Log.h"
#include "OperationMemory.h"
#include "Slots.h"

#include <string.h>

static constexpr uint32_t TOO_SHORT_URL = 4;

Outcome playNow(VideoPlugin& plugin, const NPVariant& url, DataMemory* memory) {
    const bool tooShort = NPVARIANT_TO_STRING(url).UTF8Length <= TOO_SHORT_URL;
    const Outcome written = setDataOf(plugin, url, memory);
    if (written == Outcome::Gone || (written == Outcome::Refused && !tooShort)) {
        return written;
    }
    const NPVariant& source = plugin.m_pNpVarProperties[data];
    // Too long by the page's folder: the player would start the former media under the new name.
    if (NPVARIANT_IS_STRING(source) && NPVARIANT_TO_STRING(source).UTF8Length > LONGEST_URL) {
        return Outcome::Refused;
    }
    return startPlayback(plugin, 1, &memory->notifications);
}

bool takeToPlayNow(const VideoPlugin& plugin, const NPVariant& url, DataMemory* memory) {
    return memory->take(plugin, url) && memory->notifications.take(MOST_PLAY_NOTIFICATIONS);
}

/// @return false when the media was refused
static bool queueNow(VideoPlugin& plugin, const NPVariant& url) {
    DataMemory memory;
    return takeToPlayNow(plugin, url, &memory) && playNow(plugin, url, &memory) != Outcome::Refused;
}

static bool fits(const NPString& url) {
    if (url.UTF8Length > LONGEST_URL) {
        LOG_ERROR("queue refused: %u bytes, at most %u are taken\n", url.UTF8Length, LONGEST_URL);
        return false;
    }
    return true;
}

NPVariant VideoPlugin::Queue(NPVariant url) {
    if (!NPVARIANT_IS_STRING(url)) {
        LOG("queue url not is string\n");
        m_bUrlIsQueued = false;
        memset(m_acQueuedUrlBuffer, 0, sizeof m_acQueuedUrlBuffer);
        return boolVariant(true);
    }
    if (m_bUrlIsQueued) {
        LOG_WARN("media item is already queued\n");
        return boolVariant(false);
    }
    const NPString& text = NPVARIANT_TO_STRING(url);
    switch (currentPlayState(*this)) {
    case MP_STOPPED:
    case MP_FINISHED:
        LOG("queue() called in MP_STOPPED or MP_FINISHED state\n");
        return boolVariant(fits(text) && queueNow(*this, url));
    case MP_PLAYING:
    case MP_PAUSED:
    case MP_CONNECTING:
    case MP_BUFFERING:
        LOG("queue() called in MP_PLAYING or MP_PAUSED or MP_CONNECTING or BUFFERINGstate\n");
        if (!fits(text)) {
            return boolVariant(false);
        }
        memset(m_acQueuedUrlBuffer, 0, sizeof m_acQueuedUrlBuffer);
        if (text.UTF8Length > 0) {
            memcpy(m_acQueuedUrlBuffer, text.UTF8Characters, text.UTF8Length);
        }
        m_bUrlIsQueued = m_acQueuedUrlBuffer[0] != '\0';
        if (m_bUrlIsQueued) {
            LOG("queueing this media : %s\n", m_acQueuedUrlBuffer);
        } else {
            LOG("queueing empty URL, clear buffer\n");
        }
        return boolVariant(true);
    default:
        return boolVariant(true);
    }
}
