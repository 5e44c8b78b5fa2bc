#include "playback/PageReporter.h"

namespace media {

PageReporter::PageReporter(PlayerStatus& status, PlaybackId playback, int reportedSpeed)
    : m_status(status), m_playback(playback), m_reportedSpeed(reportedSpeed) {
    report(eMEDIA_CALLBACK_CONNECTING);
}

void PageReporter::onSeekCommand() {
    if (m_state == Reported::PLAYING) {
        m_state = Reported::SEEKING;
    }
}

void PageReporter::onSpeedCommand(int speed) {
    if (speed == 1 && m_state == Reported::CONNECTING) {
        m_reportedSpeed = 1; // the page starts at normal speed and knows it
    }
    m_expectedSpeed = speed;
}

void PageReporter::reportState(State state) {
    switch (state) {
    case State::PAUSED:
        reportOnce(Reported::PAUSED, eMEDIA_CALLBACK_PAUSED);
        break;
    case State::PLAYING:
        reportOnce(Reported::PLAYING, eMEDIA_CALLBACK_PLAYING);
        break;
    case State::BUFFERING:
        if (m_state == Reported::PLAYING) { // else the page waits already
            reportOnce(Reported::BUFFERING, eMEDIA_CALLBACK_BUFFERING);
        }
        break;
    }
}

void PageReporter::reportOnce(Reported state, eMEDIA_CALLBACK_EVENT event) {
    if (m_state != state) {
        m_state = state;
        report(event);
    }
}

void PageReporter::reportSpeed(int speed) {
    if (speed != m_reportedSpeed || (m_expectedSpeed && *m_expectedSpeed != speed)) {
        m_reportedSpeed = speed;
        report(eMEDIA_CALLBACK_SPEED_CHANGED);
    }
    m_expectedSpeed.reset();
}

void PageReporter::report(eMEDIA_CALLBACK_EVENT event, int code, const std::string& cause) {
    m_status.report(m_playback, event, code, cause);
}

} // namespace media
