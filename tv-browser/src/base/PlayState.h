/** The states and errors of A/V Control objects, in numbers and words. */
#ifndef PLAYSTATE_H
#define PLAYSTATE_H

#include <QString>

namespace tv {

/** The values of `playState`. */
enum class PlayState { STOPPED, PLAYING, PAUSED, CONNECTING, BUFFERING, FINISHED, ERROR };

inline constexpr int playStateCount = static_cast<int>(PlayState::ERROR) + 1;

/** The values of `error` are 0 to one below this. */
inline constexpr int playbackErrorCount = 7;

/** @return "playing" for PlayState::PLAYING, and so on; the number of a state that does not exist */
QString playStateName(PlayState state);

/** @return what a value of `error` means, without a full stop */
QString playbackErrorName(int code);

} // namespace tv

#endif
