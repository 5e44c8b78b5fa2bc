/** Composes what the television shows. */
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

/**
 * Composes black, the video planes and the page, from bottom to top. The page is painted when the event loop is idle,
 * and only where it has changed. Thread: the engine's.
 */
class Compositor : public QObject {
    Q_OBJECT
public:
    /** @param page outlives this object */
    explicit Compositor(TvPage& page);

    /** @return the screen at this moment, tvScreenSize; only what changed since the last call is composed */
    const QImage& image();

signals:
    /** A part of the screen has changed. */
    void changed(const QRegion& region);

private:
    void pageChanged(const QRect& rectangle);
    void paintPage();
    void updateObjects();
    void addStale(const QRegion& region);

    TvPage& m_page;
    PageLayer m_pageLayer;
    VideoPlanes m_planes;
    FullScreenObjects m_fullScreenObjects;
    bool m_isVideoBehindPage = false; ///< behind all of it, not only behind its plug-in elements
    QTimer m_paintTimer;
    QRegion m_pageDirty; ///< to be painted
    QRegion m_stale;     ///< to be composed
    QImage m_image;
};

} // namespace tv

#endif
