/**
 * The television's window: its picture, panels beside it, and the keyboard as remote control.
 */
#ifndef TVWINDOW_H
#define TVWINDOW_H

#include "remote/KeyboardRemote.h"

#include <QHBoxLayout>
#include <QHash>
#include <QWidget>

namespace tv {

class ScreenView;
class Compositor;
struct RemoteKey;

class TvWindow : public QWidget {
    Q_OBJECT
public:
    enum class Side { LEFT, RIGHT };

    /** @param screen outlives the window */
    explicit TvWindow(Compositor& screen);

    /** Puts a panel beside the picture; the window takes it. Its size policy decides whether it stretches. */
    void addPanel(QWidget* panel, Side side);

    /** Shows or hides a panel, and gives the window the room for it, so that the picture keeps its size. */
    void showPanel(QWidget& panel, bool visible);

    ScreenView& picture() { return *m_picture; }

    void toggleFullScreen();

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QHBoxLayout m_layout;
    QHash<const QWidget*, int> m_grownFor; ///< pixels, by panel
    ScreenView* m_picture;
    KeyboardRemote m_keyboard;
};

} // namespace tv

#endif
