/** The players' video in its windows on the screen, with subtitles. */
#ifndef VIDEOPLANES_H
#define VIDEOPLANES_H

#include "GuardedMutex.h"
#include "media_picture.h"
#include "screen/SubtitlePainter.h"

#include <QObject>
#include <QRegion>
#include <QSet>
#include <vector>

class QPainter;

namespace tv {

/**
 * Observes the players while it lives, and draws the newest frame of each. One object at a time: the players report to
 * one observer only. Thread: the engine's.
 */
class VideoPlanes : public QObject {
    Q_OBJECT
public:
    VideoPlanes();
    ~VideoPlanes() override;

    /** @return true when windows overlap, so that the page's holes do not say whose video is visible */
    bool overlap() const;

    /** Sets the players whose video is not drawn. */
    void setHidden(const QSet<int>& players);

    /** Draws the newest frames with their subtitles, in the order in which the players were opened. */
    void draw(QPainter& painter);

signals:
    /** There are new frames, or windows have moved. @param region what has to be drawn anew */
    void changed(const QRegion& region);

    /** A player's window may have changed, with or without a frame to show in it. */
    void windowsChanged();

private:
    static void notify(int player, void* planes);
    void update();

    support::Mutex m_mutex;
    QSet<int> m_notified GUARDED_BY(m_mutex); ///< players that changed since the last update
    std::vector<MediaPictureWindow> m_windows;
    QSet<int> m_hidden;
    SubtitlePainter m_subtitlePainter;
};

} // namespace tv

#endif
