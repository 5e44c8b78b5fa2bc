/** What a television offers: the file that its maker writes. docs/compliance.md lists the lines. */
#ifndef COMPLIANCE_PROFILE_H
#define COMPLIANCE_PROFILE_H

#include <chrono>
#include <string>

namespace compliance {

struct Profile {
    bool trickPlay = true;             // speeds above 1
    bool reverse = true;               // speeds below 0
    bool subtitles = true;             // tracks of AddSubtitle
    bool components = true;            // lists and selection of components
    bool hls = true;                   // playlists of HTTP Live Streaming
    bool dash = true;                  // MPEG-DASH manifests
    bool removeCallbackWaits = true;   // RemoveCallback waits for the report under way
    bool onlyHttp = true;              // other schemes than http and https are error 5
    int players = 2;                   // how many play at a time
    int seekAccuracyMs = 1000;         // how far from its target a seek may land
    std::chrono::seconds patience{20}; // for a report that has to come

    /** @throws std::runtime_error naming file, line and what to write instead */
    static Profile read(const std::string& path);

    /** @return whether the feature is offered; an empty name always is */
    bool offers(const std::string& feature) const;
};

} // namespace compliance

#endif
