#include "desk/AddressLine.h"

#include <QKeyEvent>

namespace tv {

namespace {

constexpr int margin = 12;
constexpr int lineHeight = 36;

} // namespace

AddressLine::AddressLine(QWidget* screenView) : QLineEdit(screenView) {
    setPlaceholderText(QStringLiteral("Address, file or folder"));
    setStyleSheet(QStringLiteral("background: rgba(20, 22, 28, 235); color: white; border: 1px solid #5b6472;"
                                 "border-radius: 6px; padding: 0 10px;"));
    hide();
    connect(this, &QLineEdit::returnPressed, this, [this] {
        const QString address = text().trimmed();
        close();
        if (!address.isEmpty()) {
            emit entered(address);
        }
    });
}

void AddressLine::toggle(const QString& address) {
    if (isVisible()) {
        close();
        return;
    }
    setGeometry(margin, margin, parentWidget()->width() - 2 * margin, lineHeight);
    setText(address);
    selectAll();
    raise();
    show();
    setFocus();
}

void AddressLine::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QLineEdit::keyPressEvent(event);
    event->accept(); // A key that the line does not use must not become one of the remote control.
}

void AddressLine::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    hide();
}

void AddressLine::close() {
    hide();
    parentWidget()->setFocus();
}

} // namespace tv
