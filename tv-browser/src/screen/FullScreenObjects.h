/**
 * Shows media objects that are in full-screen mode over the whole page.
 *
 * In that mode the player's window is the screen while the object keeps its place in the layout, and its z-index. So
 * the hole that the object makes in the page has to be the screen too: a transform on the element does it, which
 * changes no layout. An element that is placed absolutely also becomes a fixed one, so that its parents do not cut it.
 */
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

class FullScreenObjects {
public:
    /** @param mainFrame outlives this object */
    explicit FullScreenObjects(QWebFrame& mainFrame);

    /** Looks at all objects of the page and its frames, and stretches or restores those whose mode has changed. */
    void update();

    /** @return true while an object is in full-screen mode */
    bool any() const { return m_any; }

    /** @return true while one of them is neither hidden nor transparent: its video lies behind the whole page */
    bool anySeen() const { return m_anySeen; }

    /** @return the players of the objects that were hidden or transparent at the last update */
    const QSet<int>& hiddenPlayers() const { return m_hiddenPlayers; }

private:
    struct Stretched {
        QWebElement element;
        QStringList formerStyle; ///< the element's own values of the properties that are overridden
        QRectF place;            ///< in the layout, as the transform in force supposes
        QSizeF viewport;
        QString position; ///< the page's, as computed
    };

    static void stretch(Stretched& object);
    void updateFrame(QWebFrame& frame, QList<Stretched>& stillStretched);

    QWebFrame& m_mainFrame;
    QList<Stretched> m_stretched;
    bool m_any = false;
    bool m_anySeen = false;
    QSet<int> m_hiddenPlayers;
};

} // namespace tv

#endif
