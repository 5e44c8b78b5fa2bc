/** The components of a player's media. */
#ifndef MEDIA_CONTROL_COMPONENTS_H
#define MEDIA_CONTROL_COMPONENTS_H

#include "GuardedMutex.h"
#include "gst/GstPointer.h"
#include "gst/PlaybackId.h"
#include "medialib_components.h"
#include "tracks/TransportStreamInfo.h"

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace media {

constexpr size_t COMPONENT_TYPES = 3;

/** GStreamer's id of the stream that is active, by component type; empty for none. */
using StreamSelection = std::array<std::string, COMPONENT_TYPES>;

/**
 * The components that there are, and those that are seen and heard. The pipeline's messages fill it; what comes late,
 * from a playback that is not the open one, is ignored. Threads: any.
 */
class Components {
public:
    /** A playback of this media begins: nothing is known of its components yet. */
    void open(PlaybackId playback, const std::string& url);

    /** There is no media any more. */
    void close();

    void setCollection(PlaybackId playback, CollectionPtr collection);
    void setTransportInfo(PlaybackId playback, std::shared_ptr<const TransportStreamInfo> info);
    void setActive(PlaybackId playback, const StreamSelection& active);
    StreamSelection active() const;

    /** As Hbbtv_AL_MediaPlayerGetComponents. */
    std::vector<Hbbtv_AL_ComponentInfo> list(AVComponentType type) const;

    /** @return the stream's id, empty when there is none */
    std::string streamOf(AVComponentType type, int pid) const;

    /** The stream that is seen or heard unless a page selects another. @return its id, empty when there is none */
    std::string defaultStream(AVComponentType type) const;

private:
    struct Entry {
        std::string stream;
        Hbbtv_AL_ComponentInfo info;
    };
    void forget(PlaybackId playback) REQUIRES(m_mutex);
    void nameStreams() REQUIRES(m_mutex);
    std::vector<Entry> entries(AVComponentType type) const EXCLUDES(m_mutex);

    mutable support::Mutex m_mutex;
    PlaybackId m_playback GUARDED_BY(m_mutex) = PlaybackId::NONE; // NONE: closed
    CollectionPtr m_collection GUARDED_BY(m_mutex);
    std::shared_ptr<const TransportStreamInfo> m_transportInfo GUARDED_BY(m_mutex); // null for none
    StreamSelection m_active GUARDED_BY(m_mutex);
    std::string m_url GUARDED_BY(m_mutex);                 // of the media that m_pids belongs to
    std::map<std::string, int> m_pids GUARDED_BY(m_mutex); // by stream id: the same for each playback of the media
    int m_lastPid GUARDED_BY(m_mutex) = 0; // never reused, so a kept component cannot match the next media
};

/** @return the component type of a stream, AV_COMPONENT_TYPE_INVALID for others */
AVComponentType componentType(GstStream* stream);

} // namespace media

#endif
