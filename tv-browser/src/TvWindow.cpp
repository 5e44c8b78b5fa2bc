#include "TvWindow.h"

#include "RemoteKeys.h"
#include "TvPage.h"
#include "TvScreen.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTransform>

TvWindow::TvWindow(TvScreen& screen) : m_screen(screen) {
    setTitle(QStringLiteral("HbbTV"));
    resize(tvScreenSize);
    setMinimumSize(tvScreenSize / 2);
    connect(&screen, &TvScreen::changed, this, &TvWindow::updatePart);
}

QRectF TvWindow::pictureArea() const {
    const QSizeF size = QSizeF(tvScreenSize).scaled(QSizeF(width(), height()), Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void TvWindow::updatePart(const QRegion& region) {
    const QRectF area = pictureArea();
    const qreal scale = area.width() / tvScreenSize.width();
    const QTransform toWindow = QTransform(scale, 0, 0, scale, area.x(), area.y());
    QRegion part;
    for (const QRect& rectangle : region) {
        // Smooth scaling spreads a pixel into its neighbours.
        part += toWindow.mapRect(QRectF(rectangle)).toAlignedRect().adjusted(-1, -1, 1, 1);
    }
    update(part);
}

void TvWindow::paintEvent(QPaintEvent* event) {
    const QRectF area = pictureArea();
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (area.size() != QSizeF(size())) {
        painter.fillRect(QRect(QPoint(), size()), Qt::black);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, area.size() != QSizeF(tvScreenSize));
    painter.drawImage(area, m_screen.picture());
}

void TvWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F11) {
        setWindowStates(windowStates() ^ Qt::WindowFullScreen);
    } else if (const RemoteKey* key = remoteKeyOfKeyboard(event->key())) {
        emit remoteKey(*key, true, event->isAutoRepeat());
    }
}

void TvWindow::keyReleaseEvent(QKeyEvent* event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event->key());
    if (key && !event->isAutoRepeat()) {
        emit remoteKey(*key, false, false);
    }
}
