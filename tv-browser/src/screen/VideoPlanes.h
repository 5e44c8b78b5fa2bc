/**
 * The players' pictures at their places on the screen, with their subtitles.
 */
#ifndef VIDEOPLANES_H
#define VIDEOPLANES_H

#include "media_picture.h"
#include "screen/SubtitlePainter.h"

#include <QObject>
#include <QRegion>
#include <QSet>
#include <mutex>
#include <vector>

class QPainter;

namespace tv {

class VideoPlanes : public QObject {
    Q_OBJECT
public:
    /** Watches the players from now on. One object at a time: the players tell only one. */
    VideoPlanes();
    ~VideoPlanes() override;

    /** @return true when players show pictures in the same place, so that the page's holes do not tell whose is seen */
    bool overlap() const;

    /** Sets the players whose pictures are not drawn. */
    void setHidden(const QSet<int>& players);

    /** Draws the newest pictures with their subtitles, in the order in which the players were opened. */
    void draw(QPainter& painter);

signals:
    /** New pictures, or pictures moved: what has to be drawn anew. */
    void changed(const QRegion& region);

    /** A player's place may have changed, with or without a picture to show there. */
    void placesChanged();

private:
    static void notify(int player, void* planes);
    void update();

    std::mutex m_mutex;
    QSet<int> m_notified; ///< players that changed since the last update; guarded by the mutex
    std::vector<MediaPictureWindow> m_windows;
    QSet<int> m_hidden;
    SubtitlePainter m_subtitlePainter;
};

} // namespace tv

#endif
