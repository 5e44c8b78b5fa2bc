/**
 * What the television shows: black, the video planes, and the page on top.
 */
#ifndef COMPOSITOR_H
#define COMPOSITOR_H

#include "screen/FullScreenObjects.h"
#include "screen/PageLayer.h"
#include "screen/VideoPlanes.h"

#include <QImage>
#include <QObject>
#include <QRegion>
#include <QTimer>

namespace tv {

class TvPage;

class Compositor : public QObject {
    Q_OBJECT
public:
    /** @param page outlives this object */
    explicit Compositor(TvPage& page);

    /** @return the picture of this moment, 1280x720; only what changed since the last call is composed */
    const QImage& picture();

signals:
    /** A part of the picture has changed. */
    void changed(const QRegion& region);

private:
    void pageChanged(const QRect& rectangle);
    void paintPage();
    void updateObjects();
    void addStale(const QRegion& region);

    TvPage& m_page;
    PageLayer m_pagePicture;
    VideoPlanes m_planes;
    FullScreenObjects m_fullScreenObjects;
    bool m_isVideoBehindPage = false; ///< behind all of it, not only behind its elements
    QTimer m_paintTimer;
    QRegion m_pageDirty;
    QRegion m_stale; ///< of the composed picture
    QImage m_picture;
};

} // namespace tv

#endif
