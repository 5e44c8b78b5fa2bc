#include "subtitles/CueList.h"

#include "subtitles/CueText.h"

#include <algorithm>

namespace media {
namespace {

// A live stream brings cues for ever, and the oldest are over. A long film has far fewer.
constexpr size_t MOST_CUES = 10'000;

// For formats that state only when a text begins.
constexpr int64_t DEFAULT_DURATION_MS = 5000;

} // namespace

void CueList::add(GstSample* sample) {
    GstBuffer* buffer = gst_sample_get_buffer(sample);
    const GstCaps* caps = gst_sample_get_caps(sample);
    if (!buffer || !caps || !gst_structure_has_name(gst_caps_get_structure(caps, 0), "text/x-raw")) {
        return;
    }
    // In full: after a seek, a cue may have begun before the position that was sought.
    guint64 start = 0;
    const int sign = gst_segment_to_stream_time_full(gst_sample_get_segment(sample), GST_FORMAT_TIME,
                                                     GST_BUFFER_PTS(buffer), &start);
    const std::string text = cueText(buffer, cueFormat(caps));
    if (sign == 0 || text.empty()) {
        return;
    }
    const int64_t startMs = sign * static_cast<int64_t>(start / GST_MSECOND);
    const int64_t durationMs = GST_BUFFER_DURATION_IS_VALID(buffer)
                                   ? static_cast<int64_t>(GST_BUFFER_DURATION(buffer) / GST_MSECOND)
                                   : DEFAULT_DURATION_MS;
    const auto isSame = [&](const Cue& cue) { return cue.startMs == startMs && cue.text == text; };
    if (std::any_of(m_cues.begin(), m_cues.end(), isSame)) {
        return;
    }
    m_cues.push_back({startMs, startMs + durationMs, text});
    if (m_cues.size() > MOST_CUES) {
        m_cues.pop_front();
    }
}

std::string CueList::textAt(int64_t ms) const {
    std::string text;
    for (const Cue& cue : m_cues) {
        if (cue.startMs <= ms && ms < cue.endMs) {
            text += text.empty() ? "" : "\n";
            text += cue.text;
        }
    }
    return text;
}

} // namespace media
