/** The television's window. */
#ifndef TVWINDOW_H
#define TVWINDOW_H

#include "remote/KeyboardRemote.h"

#include <QHBoxLayout>
#include <QHash>
#include <QWidget>

namespace tv {

class Compositor;
class ScreenView;
struct RemoteKey;

/** Holds the screen and panels beside it, and makes the keyboard a remote control. */
class TvWindow : public QWidget {
    Q_OBJECT
public:
    enum class Side { LEFT, RIGHT };

    /** @param screen outlives the window */
    explicit TvWindow(Compositor& screen);

    /** Adds a hidden panel beside the screen, and owns it. Its size policy decides whether it stretches. */
    void addPanel(QWidget* panel, Side side);

    /** Shows or hides a panel. The window grows or shrinks by as much, so that the screen keeps its size. */
    void showPanel(QWidget& panel, bool visible);

    ScreenView& screenView() { return *m_screenView; }

    void toggleFullScreen();

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QHBoxLayout m_layout;
    QHash<const QWidget*, int> m_grownFor; ///< pixels in width, by panel
    ScreenView* m_screenView;
    KeyboardRemote m_keyboard;
};

} // namespace tv

#endif
