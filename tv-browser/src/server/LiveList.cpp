#include "server/LiveList.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace tv {

namespace {

constexpr size_t offeredSegments = 5;
const char* const segmentTag = "#EXTINF:";

struct Segment {
    std::string lines;
    double seconds;
};

struct MediaPlaylist {
    std::string head; // all lines that are not of a segment
    std::vector<Segment> segments;
    double seconds = 0; // of all segments
};

bool startsWith(const std::string& line, const char* start) {
    return line.rfind(start, 0) == 0;
}

bool isAddress(const std::string& line) {
    return !line.empty() && line[0] != '#';
}

/** @return true for tags whose value is another one in a live stream */
bool isOfRecording(const std::string& line) {
    return startsWith(line, "#EXT-X-PLAYLIST-TYPE") || startsWith(line, "#EXT-X-MEDIA-SEQUENCE") ||
           startsWith(line, "#EXT-X-ENDLIST");
}

/** @return a master playlist whose media playlists are those of live streams */
std::string liveMaster(const std::string& playlist) {
    std::string result;
    std::istringstream input(playlist);
    for (std::string line; std::getline(input, line);) {
        const size_t attribute = line.find("URI=\"");
        if (isAddress(line)) {
            line += "?live";
        } else if (attribute != std::string::npos) {
            line.insert(std::min(line.find('"', attribute + 5), line.size()), "?live");
        }
        result += line + '\n';
    }
    return result;
}

MediaPlaylist parseMediaPlaylist(const std::string& playlist) {
    MediaPlaylist parsed;
    Segment segment{}; // that the next lines complete
    std::istringstream input(playlist);
    for (std::string line; std::getline(input, line);) {
        if (startsWith(line, segmentTag)) {
            segment.seconds = std::atof(line.c_str() + std::string(segmentTag).size());
        }
        if (isAddress(line)) {
            segment.lines += line + '\n';
            parsed.segments.push_back(segment);
            parsed.seconds += segment.seconds;
            segment.lines.clear();
        } else if (startsWith(line, segmentTag) || !segment.lines.empty()) {
            segment.lines += line + '\n';
        } else if (!isOfRecording(line)) {
            parsed.head += line + '\n';
        }
    }
    return parsed;
}

/** @return the number of the first segment that is offered; numbers continue when the playlist begins again */
size_t firstSegmentAt(const MediaPlaylist& playlist, double elapsedSeconds) {
    const auto rounds = static_cast<size_t>(elapsedSeconds / playlist.seconds);
    double left = elapsedSeconds - static_cast<double>(rounds) * playlist.seconds;
    size_t first = rounds * playlist.segments.size();
    while (left >= playlist.segments[first % playlist.segments.size()].seconds) {
        left -= playlist.segments[first++ % playlist.segments.size()].seconds;
    }
    return first;
}

} // namespace

std::string liveList(const std::string& playlist, double elapsedSeconds) {
    if (playlist.find("#EXT-X-STREAM-INF") != std::string::npos) {
        return liveMaster(playlist);
    }
    const MediaPlaylist recording = parseMediaPlaylist(playlist);
    if (recording.seconds <= 0) {
        return playlist;
    }
    const size_t count = recording.segments.size();
    const size_t first = firstSegmentAt(recording, elapsedSeconds);
    const size_t passedDiscontinuities = first == 0 ? 0 : (first - 1) / count;
    std::string list = recording.head + "#EXT-X-MEDIA-SEQUENCE:" + std::to_string(first) +
                       "\n#EXT-X-DISCONTINUITY-SEQUENCE:" + std::to_string(passedDiscontinuities) + '\n';
    for (size_t number = first; number < first + offeredSegments; ++number) {
        const bool beginsAgain = number > 0 && number % count == 0;
        list += (beginsAgain ? "#EXT-X-DISCONTINUITY\n" : "") + recording.segments[number % count].lines;
    }
    return list;
}

} // namespace tv
