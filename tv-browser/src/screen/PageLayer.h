/** The page as a layer of the screen. */
#ifndef PAGELAYER_H
#define PAGELAYER_H

#include <QColor>
#include <QImage>
#include <QRegion>

class QWebFrame;

namespace tv {

/**
 * Paints the page with holes where its plug-in elements are visible. It paints the page twice, once with black and once
 * with white elements; the difference is the hole, exact also under transparent overlays, round corners and transforms.
 */
class PageLayer {
public:
    PageLayer();

    /**
     * Paints a part of the page anew. Runs layout, and with it whatever the engine and its plug-ins do then.
     * @param ground what the page is painted on: black, so that video shows through its elements only, or transparent
     */
    void paint(QWebFrame& mainFrame, const QRegion& region, const QColor& ground);

    /** @return the page, premultiplied; transparent by as much as video shows */
    const QImage& image() const { return m_page; }

private:
    QImage m_page;  ///< at first with black plug-in elements, then with holes
    QImage m_white; ///< with white plug-in elements
};

} // namespace tv

#endif
