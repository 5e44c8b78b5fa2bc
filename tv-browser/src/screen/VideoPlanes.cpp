#include "screen/VideoPlanes.h"

#include "media_subtitles.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace tv {

namespace {

std::vector<MediaPictureWindow> currentWindows() {
    std::array<MediaPictureWindow, 32> windows{};
    const int count = mediaPictureWindows(windows.data(), static_cast<int>(windows.size()));
    return {windows.begin(), windows.begin() + count};
}

QRect rectangleOf(const MediaPictureWindow& window) {
    return {window.x, window.y, window.width, window.height};
}

bool isSame(const MediaPictureWindow& a, const MediaPictureWindow& b) {
    return a.player == b.player && rectangleOf(a) == rectangleOf(b);
}

bool isIn(const std::vector<MediaPictureWindow>& windows, int player) {
    return std::any_of(windows.begin(), windows.end(),
                       [player](const auto& window) { return window.player == player; });
}

QRegion regionOf(const QSet<int>& players, const std::vector<MediaPictureWindow>& windows) {
    QRegion region;
    for (const MediaPictureWindow& window : windows) {
        if (players.contains(window.player)) {
            region += rectangleOf(window);
        }
    }
    return region;
}

/** @return the rectangle that a frame of that size fills in a window when it keeps its shape */
QRect fitted(const QSize& frame, const QRect& window) {
    QRect target(QPoint(), frame.scaled(window.size(), Qt::KeepAspectRatio));
    target.moveCenter(window.center());
    return target;
}

struct FreeText {
    void operator()(char* text) const { std::free(text); }
};

} // namespace

VideoPlanes::VideoPlanes() {
    mediaPictureSetCallback(&VideoPlanes::notify, this);
}

VideoPlanes::~VideoPlanes() {
    mediaPictureSetCallback(nullptr, nullptr);
}

void VideoPlanes::notify(int player, void* planes) {
    auto* self = static_cast<VideoPlanes*>(planes);
    const support::Lock lock(self->m_mutex);
    if (self->m_notified.isEmpty()) {
        QMetaObject::invokeMethod(self, &VideoPlanes::update, Qt::QueuedConnection);
    }
    self->m_notified.insert(player);
}

void VideoPlanes::update() {
    QSet<int> players;
    {
        const support::Lock lock(m_mutex);
        players.swap(m_notified);
    }
    const std::vector<MediaPictureWindow> windows = currentWindows();
    const bool sameWindows = std::equal(windows.begin(), windows.end(), m_windows.begin(), m_windows.end(), isSame);
    const QRegion region = regionOf(players, m_windows) + regionOf(players, windows);
    const bool isAnyWithoutFrame =
        std::any_of(players.begin(), players.end(), [&windows](int player) { return !isIn(windows, player); });
    m_windows = windows;
    if (!region.isEmpty()) {
        emit changed(region);
    }
    if (!sameWindows || isAnyWithoutFrame) {
        emit windowsChanged();
    }
}

bool VideoPlanes::overlap() const {
    QRegion covered;
    for (const MediaPictureWindow& window : m_windows) {
        if (covered.intersects(rectangleOf(window))) {
            return true;
        }
        covered += rectangleOf(window);
    }
    return false;
}

void VideoPlanes::setHidden(const QSet<int>& players) {
    if (players != m_hidden) {
        const QRegion region = regionOf(m_hidden + players, m_windows);
        m_hidden = players;
        emit changed(region);
    }
}

void VideoPlanes::draw(QPainter& painter) {
    for (const MediaPictureWindow& window : m_windows) {
        MediaPicture frame{};
        if (m_hidden.contains(window.player) || !mediaPictureAcquire(window.player, &frame)) {
            continue;
        }
        const QImage image(frame.pixels, frame.width, frame.height, frame.stride, QImage::Format_RGB32);
        const QRect rectangle = rectangleOf(window);
        painter.fillRect(rectangle, Qt::black);
        painter.drawImage(fitted(image.size(), rectangle), image);
        const std::unique_ptr<char, FreeText> text(mediaSubtitlesAt(window.player, frame.timeMs));
        m_subtitlePainter.draw(painter, window.player, QString::fromUtf8(text.get()), rectangle);
        mediaPictureRelease(&frame);
    }
}

} // namespace tv
