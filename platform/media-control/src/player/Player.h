/** A player of the adaptation layer. */
#ifndef MEDIA_CONTROL_PLAYER_H
#define MEDIA_CONTROL_PLAYER_H

#include "GuardedMutex.h"
#include "gst/PlayerThread.h"
#include "playback/Playback.h"
#include "playback/PlaybackContext.h"
#include "playback/PlayerStatus.h"
#include "player/SubtitleLoader.h"
#include "sinks/VideoOutput.h"
#include "subtitles/Subtitles.h"
#include "tracks/Components.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace media {

/**
 * Takes the commands of the adaptation layer, on any thread. A command returns at once, false when it is refused; what
 * takes time is left to the player's own thread, in the order of the commands.
 */
class Player : public std::enable_shared_from_this<Player> {
public:
    /** @throws std::system_error when there is no thread to be had */
    explicit Player(int handle);

    void useTelevisionUserAgent();
    bool setSource(const std::string& url);
    bool setWindow(int x, int y, int width, int height);
    bool play();
    bool pause();
    bool resume();
    bool stop();
    bool seek(int ms);
    bool setSpeed(int speed);

    /** @param properties with an address */
    void addSubtitle(const sub_properties_t& properties);

    bool select(AVComponentType type, int pid);
    bool selectDefault(AVComponentType type);

    /** @param pid of the component to unselect, none for whichever is active */
    bool unselect(AVComponentType type, std::optional<int> pid);

    /** As mediaInjectReport. */
    void inject(eMEDIA_CALLBACK_EVENT event, int code);

    /** Ends everything; later commands do nothing. */
    void close();

    PlayerStatus& status() { return m_status; }
    const VideoOutput& videoOutput() const { return *m_videoOutput; }
    const Subtitles& subtitles() const { return *m_subtitles; }

    /** As Hbbtv_AL_MediaPlayerGetComponents. */
    std::vector<Hbbtv_AL_ComponentInfo> listComponents(AVComponentType type) const;

private:
    // Parts of commands
    void post(std::function<void(Player&)> task) REQUIRES(m_commandMutex);
    void postToPlayback(std::function<void(Playback&)> command) REQUIRES(m_commandMutex);
    bool postSelection(AVComponentType type, const std::string& stream) REQUIRES(m_commandMutex);
    void start(bool paused) REQUIRES(m_commandMutex);
    void stopPlayback() REQUIRES(m_commandMutex);
    bool selectSubtitles(std::optional<int> pid) REQUIRES(m_commandMutex);

    // On the player's thread
    void startPlayback(PlaybackSettings settings);
    void endPlayback();

    PlayerStatus m_status;
    Components m_components;
    const std::shared_ptr<Subtitles> m_subtitles;
    const std::shared_ptr<VideoOutput> m_videoOutput;
    const std::shared_ptr<PlayerThread> m_thread;
    const PlaybackContext m_context; // of the five above

    // Held by each command until it has posted what is left to do, so that their order is that of the posts.
    support::Mutex m_commandMutex;
    std::string m_source GUARDED_BY(m_commandMutex);
    bool m_televisionUserAgent GUARDED_BY(m_commandMutex) = false;
    bool m_closed GUARDED_BY(m_commandMutex) = false;

    // Only on the player's thread
    std::unique_ptr<Playback> m_playback;
    int m_reportedSpeed = 1; // by the former playback
    SubtitleLoader m_subtitleLoader;
};

} // namespace media

#endif
