/** Lets a test page see what the television shows. */
#ifndef SCREENPROBE_H
#define SCREENPROBE_H

#include <QObject>
#include <QVariantList>

class QWebFrame;

namespace tv {

class Compositor;

/** `televisionScreen` in the page's scripts. Only for pages that give a verdict, since no television has it. */
class ScreenProbe : public QObject {
    Q_OBJECT
public:
    /** @param compositor,mainFrame outlive this object */
    ScreenProbe(Compositor& compositor, QWebFrame& mainFrame);

    /**
     * Looks at the screen of this moment.
     * @param points x, y, x, y, ... in pixels
     * @return the brightness of each point, 0 to 255; -1 outside the screen
     */
    Q_INVOKABLE QVariantList brightness(const QVariantList& points);

private:
    Compositor& m_compositor;
};

} // namespace tv

#endif
