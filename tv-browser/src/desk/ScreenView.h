/** The television's screen as a widget. */
#ifndef SCREENVIEW_H
#define SCREENVIEW_H

#include <QWidget>

namespace tv {

class Compositor;

/** Shows the screen at any size, in its own aspect ratio. */
class ScreenView : public QWidget {
    Q_OBJECT
public:
    /** @param screen outlives the widget */
    explicit ScreenView(Compositor& screen, QWidget* parent = nullptr);

    QSize sizeHint() const override;

signals:
    /** Another window, widget or menu has the keyboard now. */
    void keyboardLost();

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF screenArea() const;
    void updatePart(const QRegion& region);

    Compositor& m_screen;
};

} // namespace tv

#endif
