/**
 * The picture of the page, with holes where its plug-in elements show.
 */
#ifndef PAGELAYER_H
#define PAGELAYER_H

#include <QColor>
#include <QImage>
#include <QRegion>

class QWebFrame;

namespace tv {

class PageLayer {
public:
    PageLayer();

    /**
     * Paints a part of the page anew. Runs layout, and with it whatever the engine and its plug-ins do then.
     * @param ground what the page is painted on: black, so that video shows through its elements only, or transparent
     */
    void paint(QWebFrame& mainFrame, const QRegion& region, const QColor& ground);

    /** @return the picture, premultiplied; transparent by so much as video shows */
    const QImage& image() const { return m_page; }

private:
    QImage m_page;
    QImage m_white; ///< the same with white plug-in elements
};

} // namespace tv

#endif
