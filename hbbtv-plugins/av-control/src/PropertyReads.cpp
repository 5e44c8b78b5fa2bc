// What script reads from the object.
#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include "HbbTVPluginHelpers.h"

#include <stdio.h>

bool VideoPlugin::hasProperty(NPIdentifier name) {
    const int index = HbbTVBaseClass::findIdentifier(piProperties, PROPERTY_COUNT, name);
    if (index == error) {
        return currentPlayState(*this) == MP_ERROR;
    }
    return index >= 0;
}

static bool readPlayPosition(VideoPlugin& plugin, int state, NPVariant* result) {
    NPVariant* slot = &plugin.m_pNpVarProperties[playPosition];
    if (state == MP_PLAYING) {
        const int64_t position = Hbbtv_AL_MediaPlayerGetPosition(plugin.m_hPlayer);
        LOG("getProperty playPosition:%lld\n\n", static_cast<long long>(position));
        const NPVariant number = doubleVariant(static_cast<double>(position));
        static_cast<void>(moveToSlot(plugin, slot, number));
        return handToScript(number, result);
    }
    if (NPVARIANT_IS_NULL(*slot)) {
        return false;
    }
    PrintVariant(*slot);
    return handToScript(*slot, result);
}

static bool readPlayTime(VideoPlugin& plugin, int state, NPVariant* result) {
    if (state == MP_STOPPED) {
        return handToScript(voidVariant(), result);
    }
    if (state < MP_PLAYING || state > MP_FINISHED) {
        return false;
    }
    const int duration = Hbbtv_AL_MediaPlayerGetDuration(plugin.m_hPlayer);
    if (duration == -1) {
        printf("getProperty Duration failed nData:%d\n", duration);
        return false;
    }
    LOG("getProperty Duration:%d\n\n", duration);
    static_cast<void>(moveToSlot(plugin, &plugin.m_pNpVarProperties[playTime], intVariant(duration)));
    return handToScript(intVariant(duration), result);
}

bool VideoPlugin::getProperty(NPIdentifier name, NPVariant* result) {
    const int index = HbbTVBaseClass::findIdentifier(piProperties, PROPERTY_COUNT, name);
    if (index < 0 || !m_pNpVarProperties) {
        return false;
    }
    if (parProperties[index] >= W) {
        return true;
    }
    switch (index) {
    case playPosition:
        return readPlayPosition(*this, currentPlayState(*this), result);
    case playTime:
        return readPlayTime(*this, currentPlayState(*this), result);
    default:
        return handToScript(m_pNpVarProperties[index], result);
    }
}
