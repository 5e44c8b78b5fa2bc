#include "TvWindow.h"

#include "RemoteKeys.h"
#include "TvPicture.h"

#include <QKeyEvent>
#include <QScreen>

TvWindow::TvWindow(TvScreen& screen) : m_layout(this), m_picture(new TvPicture(screen, this)) {
    setWindowTitle(QStringLiteral("HbbTV"));
    m_layout.setContentsMargins(0, 0, 0, 0);
    m_layout.setSpacing(0);
    m_layout.addWidget(m_picture, 1);
    resize(m_picture->sizeHint());
    m_picture->setFocus();
}

void TvWindow::addPanel(QWidget* panel, Side side) {
    panel->hide();
    m_layout.insertWidget(side == Side::LEFT ? 0 : m_layout.count(), panel);
}

void TvWindow::showPanel(QWidget& panel, bool visible) {
    if (panel.isVisibleTo(this) == visible) {
        return;
    }
    const int width = panel.sizeHint().width();
    panel.setVisible(visible);
    if (!isMaximized() && !isFullScreen()) {
        resize(qMin(this->width() + (visible ? width : -width), QWidget::screen()->availableGeometry().width()),
               height());
    }
    if (!visible) {
        m_picture->setFocus();
    }
}

void TvWindow::toggleFullScreen() {
    setWindowState(windowState() ^ Qt::WindowFullScreen);
}

void TvWindow::keyPressEvent(QKeyEvent* event) {
    if (const RemoteKey* key = remoteKeyOfKeyboard(event->key())) {
        emit remoteKey(*key, true, event->isAutoRepeat());
    }
}

void TvWindow::keyReleaseEvent(QKeyEvent* event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event->key());
    if (key && !event->isAutoRepeat()) {
        emit remoteKey(*key, false, false);
    }
}
