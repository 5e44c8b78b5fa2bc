/** The cues of one subtitle track. */
#ifndef MEDIA_CONTROL_CUELIST_H
#define MEDIA_CONTROL_CUELIST_H

#include "gst/GstPointer.h"

#include <cstdint>
#include <deque>
#include <string>

namespace media {

/** A text and when it shows, from `startMs` until before `endMs`, in the media's time. */
struct Cue {
    int64_t startMs;
    int64_t endMs;
    std::string text; /**< as mediaSubtitlesAt hands it out */
};

/** Cues in the order in which they came; the oldest go when there are too many. */
class CueList {
public:
    /** Adds what a GStreamer sink of a text stream got. A cue that comes again, as after a seek, is dropped. */
    void add(GstSample* sample);

    bool empty() const { return m_cues.empty(); }

    /** @return the texts of that moment, line after line; empty for none */
    std::string textAt(int64_t ms) const;

private:
    std::deque<Cue> m_cues;
};

} // namespace media

#endif
