#include "screen/PageLayer.h"

#include "interpose/X11Interposition.h"
#include "page/TvPage.h"

#include <QPainter>
#include <QWebFrame>
#include <algorithm>

namespace tv {

namespace {

constexpr QRgb black = 0xff000000;
constexpr QRgb white = 0xffffffff;

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
 * Where black and white elements make a difference, the element shows: by so much the page's alpha is lowered.
 * The least of the three differences keeps each colour at or below alpha, whatever was rounded on the way.
 */
void cutHoles(QImage& page, const QImage& whitePage, const QRect& rectangle) {
    for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
        auto* pixels = reinterpret_cast<QRgb*>(page.scanLine(y));
        const auto* whites = reinterpret_cast<const QRgb*>(whitePage.constScanLine(y));
        for (int x = rectangle.left(); x <= rectangle.right(); ++x) {
            const QRgb pixel = pixels[x];
            const QRgb bright = whites[x];
            if (pixel != bright) {
                const int shows = std::min(
                    {qRed(bright) - qRed(pixel), qGreen(bright) - qGreen(pixel), qBlue(bright) - qBlue(pixel)});
                pixels[x] = pixel - (static_cast<QRgb>(std::max(shows, 0)) << 24);
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
    if (!paintWithElementsIn(black, ground, mainFrame, m_page, region)) {
        return;
    }
    paintWithElementsIn(white, ground, mainFrame, m_white, region);
    for (const QRect& rectangle : region) {
        cutHoles(m_page, m_white, rectangle);
    }
}

} // namespace tv
