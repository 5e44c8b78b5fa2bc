#include "desk/ScreenView.h"

#include "base/ScreenSize.h"
#include "screen/Compositor.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTransform>

namespace tv {

ScreenView::ScreenView(Compositor& screen, QWidget* parent) : QWidget(parent), m_screen(screen) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(tvScreenSize / 5);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored); // It takes the space that the panels leave.
    connect(&screen, &Compositor::changed, this, &ScreenView::updatePart);
}

QSize ScreenView::sizeHint() const {
    return tvScreenSize;
}

QRectF ScreenView::screenArea() const {
    const QSizeF size = QSizeF(tvScreenSize).scaled(QSizeF(width(), height()), Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void ScreenView::updatePart(const QRegion& region) {
    const QRectF area = screenArea();
    const qreal scale = area.width() / tvScreenSize.width();
    const QTransform toWidget = QTransform(scale, 0, 0, scale, area.x(), area.y());
    QRegion part;
    for (const QRect& rectangle : region) {
        // Smooth scaling spreads a pixel into its neighbours.
        part += toWidget.mapRect(QRectF(rectangle)).toAlignedRect().adjusted(-1, -1, 1, 1);
    }
    update(part);
}

void ScreenView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    emit keyboardLost();
}

void ScreenView::paintEvent(QPaintEvent* event) {
    const QRectF area = screenArea();
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (area.size() != QSizeF(size())) {
        painter.fillRect(rect(), Qt::black);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, area.size() != QSizeF(tvScreenSize));
    painter.drawImage(area, m_screen.image());
}

} // namespace tv
