/** A player as the adaptation layer knows it: takes commands at once and leaves them to its own thread. */
#ifndef MEDIA_CONTROL_PLAYER_H
#define MEDIA_CONTROL_PLAYER_H

#include "gst/PlayerThread.h"
#include "playback/Playback.h"
#include "playback/PlayerStatus.h"
#include "sinks/VideoOutput.h"
#include "subtitles/SubtitleReader.h"
#include "subtitles/Subtitles.h"
#include "tracks/Components.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace media {

/** Commands may come on any thread; each returns at once, false when it is refused. */
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

    /** Ends everything; the object takes no commands after it. */
    void close();

    PlayerStatus& status() { return m_status; }
    const VideoOutput& videoOutput() const { return *m_videoOutput; }
    const Subtitles& subtitles() const { return *m_subtitles; }

    /** As Hbbtv_AL_MediaPlayerGetComponents. */
    std::vector<Hbbtv_AL_ComponentInfo> listComponents(AVComponentType type) const;

private:
    void post(std::function<void(Player&)> task);
    void postToPlayback(std::function<void(Playback&)> command);
    void start(bool paused);
    void startPlayback(PlaybackSettings settings);
    void endPlayback();
    void stopPlayback();
    bool postSelection(AVComponentType type, const std::string& stream);

    // PlayerSubtitles.cpp; the last three on the player's thread
    bool selectSubtitles(std::optional<int> pid);
    void startSubtitles(const PlaybackSettings& settings);
    void readSubtitles();
    void tellSubtitlesSelected();

    PlayerStatus m_status;
    Components m_components;
    const std::shared_ptr<Subtitles> m_subtitles;
    const std::shared_ptr<VideoOutput> m_videoOutput;
    const std::shared_ptr<PlayerThread> m_thread;
    std::mutex m_commandMutex; // guards all below but the last three, and the order of commands
    std::string m_source;
    bool m_televisionUserAgent = false;
    bool m_closed = false;
    std::unique_ptr<Playback> m_playback; // this one and those below: only on the player's thread
    int m_reportedSpeed = 1;
    PlaybackSettings m_subtitleSettings = {}; // of the playback that the readers belong to
    std::vector<std::unique_ptr<SubtitleReader>> m_subtitleReaders;
};

} // namespace media

#endif
