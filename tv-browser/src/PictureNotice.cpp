#include "PictureNotice.h"

#include <QEvent>

namespace {

using Kind = TimelineEntry::Kind;

constexpr int shownMs = 8'000;
constexpr int distance = 12; ///< from the picture's edges
constexpr int padding = 10;
constexpr int playing = 1;

} // namespace

PictureNotice::PictureNotice(QWidget* picture) : QLabel(picture) {
    setTextFormat(Qt::PlainText);
    setMargin(padding);
    setStyleSheet(QStringLiteral("background: rgba(20, 22, 28, 235); color: white; border-radius: 6px;"));
    m_end.setSingleShot(true);
    m_end.setInterval(shownMs);
    connect(&m_end, &QTimer::timeout, this, &QWidget::hide);
    picture->installEventFilter(this);
    hide();
}

void PictureNotice::tell(const QString& what, const QString& advice) {
    show(0, what, advice);
}

void PictureNotice::clearPage() {
    if (m_object == 0) {
        hide();
    }
}

void PictureNotice::append(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        if (entry.kind == Kind::ERROR || entry.kind == Kind::STALL) {
            show(entry.object,
                 QStringLiteral("Object %1%2 %3")
                     .arg(entry.object)
                     .arg(QLatin1String(entry.kind == Kind::ERROR ? ", error" : ":"), entry.text),
                 QStringLiteral("F9 shows the requests and the player's reports that led to it."));
        } else if (entry.object > 0 && entry.object == m_object) {
            const bool plays =
                entry.kind == Kind::STATE && entry.fields.value(QLatin1String("state")).toInt() == playing;
            if (plays || entry.kind == Kind::GONE) {
                hide();
            }
        }
    }
}

void PictureNotice::show(int object, const QString& what, const QString& advice) {
    m_object = object;
    m_what = what;
    m_advice = advice;
    m_end.start();
    place();
    raise();
    setVisible(true);
}

/** The cause at the beginning and the file's name at the end are what counts of a long one. */
void PictureNotice::place() {
    const int room = parentWidget()->width() - 2 * (distance + padding);
    const QString what = fontMetrics().elidedText(m_what, Qt::ElideMiddle, room);
    const QString advice = fontMetrics().elidedText(m_advice, Qt::ElideRight, room);
    setText(advice.isEmpty() ? what : what + QLatin1Char('\n') + advice);
    adjustSize();
    move(distance, parentWidget()->height() - height() - distance);
}

bool PictureNotice::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) {
        place();
    }
    return false;
}

void PictureNotice::mousePressEvent(QMouseEvent*) {
    hide();
}
