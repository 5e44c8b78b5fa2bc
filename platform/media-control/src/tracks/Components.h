/** The components of a player's media: what there is and what is seen and heard. Threads: any. */
#ifndef MEDIA_CONTROL_COMPONENTS_H
#define MEDIA_CONTROL_COMPONENTS_H

#include "gst/GstPointer.h"
#include "gst/PlaybackId.h"
#include "medialib_components.h"
#include "tracks/TransportStreamInfo.h"

#include <array>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace media {

constexpr size_t COMPONENT_TYPES = 3;

/** GStreamer's id of the stream that is active, by component type; empty for none. */
using StreamSelection = std::array<std::string, COMPONENT_TYPES>;

class Components {
public:
    /** Nothing is known of the media yet; this playback will report it. */
    void open(PlaybackId playback, const std::string& url);

    /** There is no media any more, and what a playback reports late is ignored. */
    void close();

    /** The media's streams; ignored unless its playback is the open one, as for the next two. */
    void setCollection(PlaybackId playback, CollectionPtr collection);
    void setMarks(PlaybackId playback, std::shared_ptr<const TransportStreamInfo> marks);
    void setActive(PlaybackId playback, const StreamSelection& active);
    StreamSelection active() const;

    /** As Hbbtv_AL_MediaPlayerGetComponents. */
    std::vector<Hbbtv_AL_ComponentInfo> list(AVComponentType type) const;

    /** @return the stream's id, empty when there is none */
    std::string streamOf(AVComponentType type, int pid) const;

    /** The stream that is seen or heard unless a page asks for another. @return its id, empty when there is none */
    std::string defaultStream(AVComponentType type) const;

private:
    struct Entry {
        std::string stream;
        Hbbtv_AL_ComponentInfo info;
    };
    void forget(PlaybackId playback);
    void nameStreams();
    std::vector<Entry> entries(AVComponentType type) const;

    mutable std::mutex m_mutex;               // guards all below
    PlaybackId m_playback = PlaybackId::NONE; // NONE: closed
    CollectionPtr m_collection;
    std::shared_ptr<const TransportStreamInfo> m_marks; // null for none
    StreamSelection m_active;
    std::string m_url;                 // of the media that m_pids belongs to
    std::map<std::string, int> m_pids; // by stream id: the same for each playback of the media
    int m_lastPid = 0; // only counts up, so that a component that a page has kept is none of the next media's
};

/** @return the component type of a stream, AV_COMPONENT_TYPE_INVALID for others */
AVComponentType componentType(GstStream* stream);

} // namespace media

#endif
