#include "screen/PageLayer.h"

#include "base/ScreenSize.h"
#include "interpose/X11Interposition.h"

#include <QPainter>
#include <QWebFrame>
#include <algorithm>

namespace tv {

namespace {

constexpr QRgb opaqueBlack = 0xff000000;
constexpr QRgb opaqueWhite = 0xffffffff;

/** @return true when a plug-in element was painted */
bool paintWithElementsIn(QRgb colour, const QColor& ground, QWebFrame& frame, QImage& image, const QRegion& region) {
    const PluginElementColour pass(colour);
    QPainter painter(&image);
    painter.setClipRegion(region); // The engine paints a transformed element beyond it.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rectangle : region) {
        painter.fillRect(rectangle, ground);
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    frame.render(&painter, region);
    return pass.wasUsed();
}

/**
 * A pixel that differs between black and white elements shows the element: its alpha is lowered by the difference.
 * The least difference of the three channels keeps every channel at or below alpha in spite of rounding.
 */
void cutHoles(QImage& page, const QImage& whitePage, const QRect& rectangle) {
    for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
        auto* pixels = reinterpret_cast<QRgb*>(page.scanLine(y));
        const auto* whites = reinterpret_cast<const QRgb*>(whitePage.constScanLine(y));
        for (int x = rectangle.left(); x <= rectangle.right(); ++x) {
            const QRgb pixel = pixels[x];
            const QRgb white = whites[x];
            if (pixel != white) {
                const int share =
                    std::min({qRed(white) - qRed(pixel), qGreen(white) - qGreen(pixel), qBlue(white) - qBlue(pixel)});
                pixels[x] = pixel - (static_cast<QRgb>(std::max(share, 0)) << 24);
            }
        }
    }
}

} // namespace

PageLayer::PageLayer()
    : m_page(tvScreenSize, QImage::Format_ARGB32_Premultiplied),
      m_white(tvScreenSize, QImage::Format_ARGB32_Premultiplied) {
    m_page.fill(Qt::black);
}

void PageLayer::paint(QWebFrame& mainFrame, const QRegion& region, const QColor& ground) {
    if (!paintWithElementsIn(opaqueBlack, ground, mainFrame, m_page, region)) {
        return;
    }
    paintWithElementsIn(opaqueWhite, ground, mainFrame, m_white, region);
    for (const QRect& rectangle : region) {
        cutHoles(m_page, m_white, rectangle);
    }
}

} // namespace tv
