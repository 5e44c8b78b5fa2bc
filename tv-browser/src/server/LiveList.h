/** HLS playlists of films, made into those of live streams (RFC 8216, 6.2.2). */
#ifndef LIVELIST_H
#define LIVELIST_H

#include <string>

namespace tv {

/**
 * Lists what a live stream offers: the segments that a film's playlist names, over and over, of which the last few are
 * offered at any time.
 * @param playlist       media playlist of a film; or a master playlist, whose media playlists get a `?live`
 * @param elapsedSeconds since the live stream began
 */
std::string liveList(const std::string& playlist, double elapsedSeconds);

} // namespace tv

#endif
