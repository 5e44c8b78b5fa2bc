// Play state, speed and error: values of three property slots, changed here and announced by the callers.
#include "Internals.h"
#include "Log.h"
#include "Slots.h"

int currentPlayState(const VideoPlugin& plugin) {
    int state = NO_PLAY_STATE;
    if (plugin.m_pNpVarProperties) {
        readInt(plugin.m_pNpVarProperties[playState], &state);
    }
    return state;
}

void VideoPlugin::SetPlayState(int state) {
    const int current = currentPlayState(*this);
    if (!m_pNpVarProperties || current == state) {
        return;
    }
    LOG("currentState = %d,newState = %d\n", current, state);
    static_cast<void>(moveToSlot(*this, &m_pNpVarProperties[playState], intVariant(state)));
}

void VideoPlugin::SetSpeed(double Speed) {
    if (m_pNpVarProperties) {
        static_cast<void>(moveToSlot(*this, &m_pNpVarProperties[speed], doubleVariant(Speed)));
    }
}

void VideoPlugin::SetError(int Error) {
    if (m_pNpVarProperties) {
        static_cast<void>(moveToSlot(*this, &m_pNpVarProperties[error], intVariant(Error)));
    }
}

NPVariant* VideoPlugin::GetSpeedProperty() {
    return m_pNpVarProperties ? &m_pNpVarProperties[speed] : nullptr;
}

NPVariant* VideoPlugin::GetErrorProperty() {
    return m_pNpVarProperties ? &m_pNpVarProperties[error] : nullptr;
}
