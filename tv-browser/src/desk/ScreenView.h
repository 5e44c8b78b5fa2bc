/**
 * The television's picture as a widget, in the right shape at any size.
 */
#ifndef SCREENVIEW_H
#define SCREENVIEW_H

#include <QWidget>

namespace tv {

class Compositor;

class ScreenView : public QWidget {
    Q_OBJECT
public:
    /** @param screen outlives the widget */
    explicit ScreenView(Compositor& screen, QWidget* parent = nullptr);

    QSize sizeHint() const override;

signals:
    /** The keyboard is another window's, widget's or menu's now. */
    void keyboardLost();

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF pictureArea() const;
    void updatePart(const QRegion& region);

    Compositor& m_screen;
};

} // namespace tv

#endif
