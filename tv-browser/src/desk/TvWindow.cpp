#include "desk/TvWindow.h"

#include "desk/ScreenView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScreen>

namespace tv {

TvWindow::TvWindow(Compositor& screen) : m_layout(this), m_screenView(new ScreenView(screen, this)) {
    setWindowTitle(QStringLiteral("HbbTV"));
    m_layout.setContentsMargins(0, 0, 0, 0);
    m_layout.setSpacing(0);
    m_layout.addWidget(m_screenView, 1);
    resize(m_screenView->sizeHint().boundedTo(QWidget::screen()->availableSize()));
    m_screenView->setFocus();
    connect(&m_keyboard, &KeyboardRemote::remoteKey, this, &TvWindow::remoteKey);
    connect(m_screenView, &ScreenView::keyboardLost, &m_keyboard, &KeyboardRemote::leave);
}

void TvWindow::addPanel(QWidget* panel, Side side) {
    panel->hide();
    m_layout.insertWidget(side == Side::LEFT ? 0 : m_layout.count(), panel);
}

void TvWindow::showPanel(QWidget& panel, bool visible) {
    if (panel.isVisibleTo(this) == visible) {
        return;
    }
    const int before = width();
    panel.setVisible(visible);
    m_layout.activate(); // The window then knows its minimum size.
    if (!isMaximized() && !isFullScreen()) {
        const int wanted = before + (visible ? panel.sizeHint().width() : -m_grownFor.value(&panel));
        resize(qMin(wanted, QWidget::screen()->availableGeometry().width()), height());
    }
    m_grownFor[&panel] = visible ? width() - before : 0;
    if (!visible) {
        m_screenView->setFocus();
    }
}

void TvWindow::toggleFullScreen() {
    setWindowState(windowState() ^ Qt::WindowFullScreen);
}

/** While a panel has the focus, the keys are the panel's and not the remote control's. */
void TvWindow::keyPressEvent(QKeyEvent* event) {
    if (!m_screenView->hasFocus()) {
        if (event->key() == Qt::Key_Escape) {
            m_screenView->setFocus();
        }
        return;
    }
    m_keyboard.press(*event);
}

void TvWindow::keyReleaseEvent(QKeyEvent* event) {
    m_keyboard.release(*event);
}

/** Other windows, such as the inspector's, do not keep the television on. */
void TvWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    QCoreApplication::exit(0);
}

} // namespace tv
