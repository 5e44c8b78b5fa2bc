#include "desk/KeyboardHelp.h"

#include <QFontDatabase>

namespace tv {

const char* keyboardHelpText() {
    return R"(Remote control          Keyboard              Remote control    Keyboard
  LEFT UP RIGHT DOWN    arrow keys            RED               F2 or r
  ENTER                 Enter                 GREEN             F3 or g
  BACK                  Backspace or Escape   YELLOW            F4 or y
  0 to 9                0 to 9                BLUE              F5 or b
  PLAY                  p                     REWIND            , (comma)
  PAUSE                 Space                 FAST_FWD          . (full stop)
  STOP                  s                     INFO              i
  TELETEXT              t                     SUBTITLE          u
  PLAY_PAUSE, TRACK_PREV, TRACK_NEXT          the keyboard's own media keys
Window                  Keyboard              Window            Keyboard
  menu                  F10                   timeline          F9
  reload                F7                    inspector         F12
  as at first start     Shift+F7              screenshot        F8
  address               Ctrl+L                remote control    F6
  back, forward         Alt+Left, Alt+Right   full screen       F11
  this table            F1
)";
}

KeyboardHelp::KeyboardHelp(QWidget* window) : QLabel(QString::fromLatin1(keyboardHelpText()).trimmed(), window) {
    setTextFormat(Qt::PlainText);
    setMargin(16);
    setStyleSheet(QStringLiteral("background: rgba(20, 22, 28, 235); color: white;"));
    hide();
}

void KeyboardHelp::toggle() {
    constexpr qreal leastPoints = 4;
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
