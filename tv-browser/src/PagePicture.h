/**
 * The picture of the page, with holes where its plug-in elements show.
 */
#ifndef PAGEPICTURE_H
#define PAGEPICTURE_H

#include <QImage>
#include <QRegion>

class QWebFrame;

class PagePicture {
public:
    PagePicture();

    /** Paints a part of the page anew. Runs layout, and with it whatever the engine and its plug-ins do then. */
    void paint(QWebFrame& mainFrame, const QRegion& region);

    /** @return the picture, premultiplied; transparent where nothing of the page covers the video */
    const QImage& image() const { return m_page; }

private:
    QImage m_page;
    QImage m_white; ///< the same with white plug-in elements
};

#endif
