/** Turns HLS playlists of recorded media into those of live streams (RFC 8216, 6.2.2). */
#ifndef LIVELIST_H
#define LIVELIST_H

#include <string>

namespace tv {

/**
 * Lists what a live stream offers at a time: a few segments of the playlist, which it repeats without end.
 * @param playlist       media playlist; or master playlist, whose media playlists get a `?live`
 * @param elapsedSeconds since the live stream began
 * @return the playlist of that moment; the playlist as it was given when it lists no segments
 */
std::string liveList(const std::string& playlist, double elapsedSeconds);

} // namespace tv

#endif
