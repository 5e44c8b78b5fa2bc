#include "screen/ScreenProbe.h"

#include "screen/Compositor.h"

#include <QWebFrame>

namespace tv {

ScreenProbe::ScreenProbe(Compositor& compositor, QWebFrame& mainFrame) : m_compositor(compositor) {
    connect(&mainFrame, &QWebFrame::javaScriptWindowObjectCleared, this,
            [this, &mainFrame] { mainFrame.addToJavaScriptWindowObject(QStringLiteral("televisionScreen"), this); });
}

QVariantList ScreenProbe::brightness(const QVariantList& points) {
    const QImage& screen = m_compositor.image();
    QVariantList result;
    for (int i = 0; i + 1 < points.size(); i += 2) {
        const QPoint point(points[i].toInt(), points[i + 1].toInt());
        result.append(screen.valid(point) ? qGray(screen.pixel(point)) : -1);
    }
    return result;
}

} // namespace tv
