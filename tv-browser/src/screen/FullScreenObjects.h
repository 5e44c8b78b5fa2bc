/** Shows media objects that are in full-screen mode over the whole page. */
#ifndef FULLSCREENOBJECTS_H
#define FULLSCREENOBJECTS_H

#include <QList>
#include <QRectF>
#include <QSet>
#include <QSizeF>
#include <QStringList>
#include <QWebElement>

class QWebFrame;

namespace tv {

/**
 * Stretches the elements of media objects in full-screen mode to their frame's viewport.
 *
 * In that mode the player's window is the screen, while the object keeps its rectangle in the layout and its z-index.
 * So the hole that the object makes in the page must become the screen too. A transform on the element does that
 * without changing the layout. An element that is positioned absolutely also becomes a fixed one, so that its parents
 * do not clip it. Thread: the engine's.
 */
class FullScreenObjects {
public:
    /** @param mainFrame outlives this object */
    explicit FullScreenObjects(QWebFrame& mainFrame);

    /** Looks at all objects of the page and its frames, and stretches or restores those whose mode has changed. */
    void update();

    /** @return true when an object was in full-screen mode at the last update */
    bool isAny() const { return m_isAny; }

    /** @return true when one of them was neither hidden nor transparent: its video is behind the whole page */
    bool isAnyVisible() const { return m_isAnyVisible; }

    /** @return the players of the objects that were hidden or transparent at the last update */
    const QSet<int>& hiddenPlayers() const { return m_hiddenPlayers; }

private:
    struct Stretched {
        QWebElement element;
        QStringList formerStyle; ///< the element's own values of the properties that are overridden
        QString position;        ///< the page's, as computed
        QRectF box;              ///< in the layout, as the transform in force assumes
        QSizeF viewport;         ///< as the transform in force assumes
    };

    static Stretched stretch(QWebElement element, const QSizeF& viewport);
    static void fit(Stretched& object, const QRectF& box, const QSizeF& viewport);
    void updateFrame(QWebFrame& frame, QList<Stretched>& stillStretched);
    void updateElement(const QWebElement& element, QList<Stretched>& stillStretched);

    QWebFrame& m_mainFrame;
    QList<Stretched> m_stretched;
    bool m_isAny = false;
    bool m_isAnyVisible = false;
    QSet<int> m_hiddenPlayers;
};

} // namespace tv

#endif
