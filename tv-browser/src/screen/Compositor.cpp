#include "screen/Compositor.h"

#include "base/ScreenSize.h"
#include "page/TvPage.h"

#include <QPainter>
#include <QWebFrame>

namespace tv {

namespace {

const QRect wholeScreen(QPoint(), tvScreenSize);

} // namespace

Compositor::Compositor(TvPage& page)
    : m_page(page), m_fullScreenObjects(*page.mainFrame()), m_stale(wholeScreen),
      m_image(tvScreenSize, QImage::Format_RGB32) {
    m_paintTimer.setSingleShot(true);
    connect(&m_paintTimer, &QTimer::timeout, this, &Compositor::paintPage);
    connect(&page, &QWebPage::repaintRequested, this, &Compositor::pageChanged);
    connect(&page, &QWebPage::scrollRequested, this,
            [this](int, int, const QRect& rectangle) { pageChanged(rectangle); });
    connect(&m_planes, &VideoPlanes::changed, this, &Compositor::addStale);
    connect(&m_planes, &VideoPlanes::windowsChanged, this, &Compositor::updateObjects);
    pageChanged(wholeScreen);
}

void Compositor::pageChanged(const QRect& rectangle) {
    m_pageDirty += rectangle & wholeScreen;
    if (!m_pageDirty.isEmpty() && !m_paintTimer.isActive()) {
        m_paintTimer.start(0);
    }
}

void Compositor::paintPage() {
    QRegion dirty;
    dirty.swap(m_pageDirty);
    m_pageLayer.paint(*m_page.mainFrame(), dirty, m_isVideoBehindPage ? Qt::transparent : Qt::black);
    if (m_fullScreenObjects.isAny() || m_planes.overlap()) {
        updateObjects(); // The page may have moved or hidden one of them.
    }
    addStale(dirty);
}

void Compositor::updateObjects() {
    m_fullScreenObjects.update();
    m_planes.setHidden(m_planes.overlap() ? m_fullScreenObjects.hiddenPlayers() : QSet<int>());
    // A parent that clips the object in the layout must not clip the screen: the whole page becomes transparent.
    if (m_fullScreenObjects.isAnyVisible() != m_isVideoBehindPage) {
        m_isVideoBehindPage = !m_isVideoBehindPage;
        pageChanged(wholeScreen);
    }
}

void Compositor::addStale(const QRegion& region) {
    const QRegion visible = region & wholeScreen;
    if (!visible.isEmpty()) {
        m_stale += visible;
        emit changed(visible);
    }
}

const QImage& Compositor::image() {
    if (!m_stale.isEmpty()) {
        QPainter painter(&m_image);
        painter.setClipRegion(m_stale);
        painter.fillRect(wholeScreen, Qt::black);
        m_planes.draw(painter);
        for (const QRect& rectangle : m_stale) {
            painter.drawImage(rectangle.topLeft(), m_pageLayer.image(), rectangle);
        }
        m_stale = QRegion();
    }
    return m_image;
}

} // namespace tv
