/**
 * Lets a test page see what the television shows, as `televisionScreen` in its scripts: only for pages that say a
 * verdict, since no television has it.
 */
#ifndef SCREENPROBE_H
#define SCREENPROBE_H

#include <QObject>
#include <QVariantList>

class QWebFrame;

namespace tv {

class Compositor;

class ScreenProbe : public QObject {
    Q_OBJECT
public:
    /** @param screen,mainFrame outlive this object */
    ScreenProbe(Compositor& screen, QWebFrame& mainFrame);

    /**
     * Looks at one picture of this moment, 1280x720.
     * @param points x, y, x, y, ... in pixels
     * @return the brightness of each point, 0 to 255; -1 outside the screen
     */
    Q_INVOKABLE QVariantList brightness(const QVariantList& points);

private:
    Compositor& m_screen;
};

} // namespace tv

#endif
