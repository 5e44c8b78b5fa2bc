/**
 * The television's window: its picture in the right shape at any size, and the keyboard as remote control.
 */
#ifndef TVWINDOW_H
#define TVWINDOW_H

#include <QRasterWindow>

class TvScreen;
struct RemoteKey;

class TvWindow : public QRasterWindow {
    Q_OBJECT
public:
    /** @param screen outlives the window */
    explicit TvWindow(TvScreen& screen);

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    QRectF pictureArea() const;
    void updatePart(const QRegion& region);

    TvScreen& m_screen;
};

#endif
