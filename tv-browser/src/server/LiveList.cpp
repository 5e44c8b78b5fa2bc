#include "server/LiveList.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace tv {

namespace {

constexpr size_t offeredSegments = 5;

struct Segment {
    std::string lines;
    double seconds;
};

bool startsWith(const std::string& line, const char* start) {
    return line.rfind(start, 0) == 0;
}

/** @return a master playlist whose media playlists are live ones */
std::string liveMaster(const std::string& playlist) {
    std::string result;
    std::istringstream input(playlist);
    for (std::string line; std::getline(input, line);) {
        const size_t attribute = line.find("URI=\"");
        if (!line.empty() && line[0] != '#') {
            line += "?live";
        } else if (attribute != std::string::npos) {
            line.insert(std::min(line.find('"', attribute + 5), line.size()), "?live");
        }
        result += line + '\n';
    }
    return result;
}

} // namespace

std::string liveList(const std::string& playlist, double elapsedSeconds) {
    if (playlist.find("#EXT-X-STREAM-INF") != std::string::npos) {
        return liveMaster(playlist);
    }
    std::string head;
    std::string lines; // of the segment that begins
    std::vector<Segment> segments;
    double seconds = 0;
    double filmSeconds = 0;
    std::istringstream input(playlist);
    for (std::string line; std::getline(input, line);) {
        if (startsWith(line, "#EXTINF:")) {
            seconds = std::atof(line.c_str() + 8);
        }
        if (!line.empty() && line[0] != '#') {
            segments.push_back({lines + line + '\n', seconds});
            filmSeconds += seconds;
            lines.clear();
        } else if (startsWith(line, "#EXTINF:") || !lines.empty()) {
            lines += line + '\n';
        } else if (!startsWith(line, "#EXT-X-PLAYLIST-TYPE") && !startsWith(line, "#EXT-X-MEDIA-SEQUENCE") &&
                   !startsWith(line, "#EXT-X-ENDLIST")) {
            head += line + '\n';
        }
    }
    if (filmSeconds <= 0) {
        return playlist;
    }
    // The first segments are there when the stream begins.
    const auto rounds = static_cast<size_t>(elapsedSeconds / filmSeconds);
    double left = elapsedSeconds - static_cast<double>(rounds) * filmSeconds;
    size_t first = rounds * segments.size();
    while (left >= segments[first % segments.size()].seconds) {
        left -= segments[first++ % segments.size()].seconds;
    }
    std::string list = head + "#EXT-X-MEDIA-SEQUENCE:" + std::to_string(first) + "\n#EXT-X-DISCONTINUITY-SEQUENCE:" +
                       std::to_string(first == 0 ? 0 : (first - 1) / segments.size()) + '\n';
    for (size_t i = first; i < first + offeredSegments; ++i) {
        const bool beginsAgain = i > 0 && i % segments.size() == 0;
        list += (beginsAgain ? "#EXT-X-DISCONTINUITY\n" : "") + segments[i % segments.size()].lines;
    }
    return list;
}

} // namespace tv
