#include "desk/KeyboardHelp.h"

#include "remote/KeyHelp.h"

#include <QFontDatabase>

namespace tv {

namespace {

constexpr qreal leastPoints = 4;

} // namespace

KeyboardHelp::KeyboardHelp(QWidget* window) : QLabel(keyHelpText().trimmed(), window) {
    setTextFormat(Qt::PlainText);
    setMargin(16);
    setStyleSheet(QStringLiteral("background: rgba(20, 22, 28, 235); color: white;"));
    hide();
}

void KeyboardHelp::toggle() {
    QFont letters = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    setFont(letters);
    while (sizeHint().boundedTo(parentWidget()->size()) != sizeHint() && letters.pointSizeF() > leastPoints) {
        letters.setPointSizeF(letters.pointSizeF() - 0.5);
        setFont(letters);
    }
    adjustSize();
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
    raise();
    setVisible(!isVisible());
}

void KeyboardHelp::mousePressEvent(QMouseEvent*) {
    hide();
}

} // namespace tv
