#include "player/Player.h"

#include "gst/GstRuntime.h"
#include "trace/MediaLog.h"

namespace media {

Player::Player(int handle)
    : m_status(handle), m_subtitles(std::make_shared<Subtitles>(handle)),
      m_videoOutput(std::make_shared<VideoOutput>(handle)),
      m_thread(PlayerThread::start()), m_context{*m_thread, m_status, m_components, m_videoOutput, m_subtitles},
      m_subtitleLoader(m_context) {
    m_thread->post([] { prepareGstreamer(); });
}

void Player::useTelevisionUserAgent() {
    const support::Lock lock(m_commandMutex);
    m_televisionUserAgent = true;
}

bool Player::setSource(const std::string& url) {
    const support::Lock lock(m_commandMutex);
    if (url.empty()) {
        return false;
    }
    if (url != m_source) {
        m_subtitles->startMedia();
    }
    m_source = url;
    if (m_status.isStopped()) {
        m_status.forgetMedia();
    }
    return true;
}

bool Player::setWindow(int x, int y, int width, int height) {
    const support::Lock lock(m_commandMutex);
    if (width < 0 || height < 0) {
        return false;
    }
    const MediaPictureWindow before = m_videoOutput->window();
    m_videoOutput->setWindow(x, y, width, height);
    if (width != before.width || height != before.height) {
        postToPlayback([](Playback& playback) { playback.fitWindow(); });
    }
    return true;
}

bool Player::play() {
    const support::Lock lock(m_commandMutex);
    if (m_status.isRunning()) {
        postToPlayback([](Playback& playback) { playback.resume(); });
        return true;
    }
    if (m_source.empty()) {
        return false;
    }
    start(false);
    return true;
}

bool Player::pause() {
    const support::Lock lock(m_commandMutex);
    if (!m_status.isStopped()) {
        postToPlayback([](Playback& playback) { playback.pause(); });
        return true;
    }
    if (m_source.empty()) {
        return false;
    }
    start(true);
    return true;
}

bool Player::resume() {
    const support::Lock lock(m_commandMutex);
    if (m_status.isStopped()) {
        return false;
    }
    postToPlayback([](Playback& playback) { playback.resume(); });
    return true;
}

bool Player::stop() {
    const support::Lock lock(m_commandMutex);
    stopPlayback();
    return true;
}

bool Player::seek(int ms) {
    const support::Lock lock(m_commandMutex);
    if (!m_status.canSeekTo(ms)) {
        return false;
    }
    postToPlayback([ms](Playback& playback) { playback.seek(ms); });
    return true;
}

bool Player::setSpeed(int speed) {
    const support::Lock lock(m_commandMutex);
    if (!m_status.isRunning()) {
        return false;
    }
    postToPlayback([speed](Playback& playback) { playback.setSpeed(speed); });
    return true;
}

void Player::inject(eMEDIA_CALLBACK_EVENT event, int code) {
    const support::Lock lock(m_commandMutex);
    post(
        [event, code](Player& player) { player.m_status.report(player.m_status.playback(), event, code, "injected"); });
}

void Player::close() {
    const support::Lock lock(m_commandMutex);
    m_status.setCallback(nullptr, nullptr);
    stopPlayback();
    m_thread->quit();
    m_closed = true;
}

void Player::post(std::function<void(Player&)> task) {
    if (!m_closed) {
        m_thread->post([self = shared_from_this(), task = std::move(task)] { task(*self); });
    }
}

void Player::postToPlayback(std::function<void(Playback&)> command) {
    post([command = std::move(command)](Player& player) {
        if (player.m_playback) {
            command(*player.m_playback);
        }
    });
}

void Player::start(bool paused) {
    PlaybackSettings settings = {m_status.startPlayback(), m_source, m_televisionUserAgent, paused, 1};
    m_components.open(settings.playback, m_source);
    m_videoOutput->open(settings.playback);
    post([settings = std::move(settings)](Player& player) { player.startPlayback(settings); });
}

void Player::startPlayback(PlaybackSettings settings) {
    endPlayback();
    settings.reportedSpeed = m_reportedSpeed;
    if (!m_status.isCurrent(settings.playback)) {
        return; // stopped before it began
    }
    const auto& gstreamer = prepareGstreamer();
    if (gstreamer) {
        m_subtitleLoader.start(settings);
        m_playback = std::make_unique<Playback>(m_context, settings);
        return;
    }
    MEDIA_LOG_ERROR(gstreamer.reason());
    m_status.failPlayback(settings.playback);
    m_status.report(settings.playback, eMEDIA_CALLBACK_ERROR,
                    static_cast<int>(PlaybackErrorCode::INSUFFICIENT_RESOURCES), gstreamer.reason());
}

void Player::endPlayback() {
    if (m_playback) {
        m_reportedSpeed = m_playback->reportedSpeed();
        m_playback.reset();
    }
}

void Player::stopPlayback() {
    const bool hasFinished = m_status.hasFinished();
    const PlaybackId stopped = m_status.stopPlayback();
    if (stopped == PlaybackId::NONE) {
        m_videoOutput->clear();
        return;
    }
    if (hasFinished) {
        m_videoOutput->freeze(); // the last frame stays until another one or a second stop comes
    } else {
        m_videoOutput->clear();
    }
    m_components.close();
    post([stopped](Player& player) {
        player.m_status.report(stopped, eMEDIA_CALLBACK_STOPPED);
        player.endPlayback();
        player.m_subtitleLoader.stop();
    });
}

} // namespace media
