/**
 * The television's picture as a widget, in the right shape at any size.
 */
#ifndef TVPICTURE_H
#define TVPICTURE_H

#include <QWidget>

class TvScreen;

class TvPicture : public QWidget {
    Q_OBJECT
public:
    /** @param screen outlives the widget */
    explicit TvPicture(TvScreen& screen, QWidget* parent = nullptr);

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

    TvScreen& m_screen;
};

#endif
