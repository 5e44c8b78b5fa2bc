/** The reports of one playback to the page. */
#ifndef MEDIA_CONTROL_PAGEREPORTER_H
#define MEDIA_CONTROL_PAGEREPORTER_H

#include "playback/PlayerStatus.h"

#include <optional>
#include <string>

namespace media {

/**
 * Knows what the page knows, and reports only what is new to it: a state once, a speed when it is not the one that the
 * page expects. It begins with CONNECTING. Thread: the player's.
 */
class PageReporter {
public:
    enum class State { PLAYING, PAUSED, BUFFERING };

    /** @param reportedSpeed the speed that the page takes for the present one */
    PageReporter(PlayerStatus& status, PlaybackId playback, int reportedSpeed);

    /** The page seeks: while it plays, it waits for PLAYING to come once more. */
    void onSeekCommand();

    /** The page sets a speed and expects it: only another one is to be reported. */
    void onSpeedCommand(int speed);

    /** Reports the state unless the page has it already. */
    void reportState(State state);

    /** Reports the speed unless it is the one that the page expects. */
    void reportSpeed(int speed);

    void report(eMEDIA_CALLBACK_EVENT event, int code = 0, const std::string& cause = {});

    /** @return the speed that was last reported */
    int reportedSpeed() const { return m_reportedSpeed; }

private:
    enum class Reported { CONNECTING, PLAYING, PAUSED, BUFFERING, SEEKING };

    void reportOnce(Reported state, eMEDIA_CALLBACK_EVENT event);

    PlayerStatus& m_status;
    const PlaybackId m_playback;
    Reported m_state = Reported::CONNECTING;
    int m_reportedSpeed;
    std::optional<int> m_expectedSpeed; // of the last command, until a speed is in force
};

} // namespace media

#endif
