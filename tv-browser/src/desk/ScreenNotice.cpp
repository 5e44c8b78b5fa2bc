#include "desk/ScreenNotice.h"

#include "timeline/ObservedText.h"
#include "timeline/TimelineText.h"

#include <QEvent>

namespace tv {

namespace {

constexpr int shownMs = 8'000;
constexpr int distance = 12; ///< from the picture's edges
constexpr int padding = 10;

} // namespace

ScreenNotice::ScreenNotice(QWidget* picture) : QLabel(picture) {
    setTextFormat(Qt::PlainText);
    setMargin(padding);
    setStyleSheet(QStringLiteral("background: rgba(20, 22, 28, 235); color: white; border-radius: 6px;"));
    m_end.setSingleShot(true);
    m_end.setInterval(shownMs);
    connect(&m_end, &QTimer::timeout, this, &QWidget::hide);
    picture->installEventFilter(this);
    hide();
}

void ScreenNotice::tell(const QString& what, const QString& advice) {
    show(0, advice.isEmpty() ? QStringList(what) : QStringList{what, advice});
}

void ScreenNotice::clearPage() {
    if (m_object == 0) {
        hide();
    }
}

void ScreenNotice::append(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        const QString advice = QStringLiteral("F9 shows the requests and the player's reports that led to it.");
        const auto* state = entry.as<timeline::State>();
        if (const auto* error = entry.as<timeline::Error>()) {
            const QString cause = playerText(error->cause);
            show(entry.object, {QStringLiteral("Object %1, error %2: %3%4")
                                    .arg(entry.object)
                                    .arg(error->code)
                                    .arg(playbackErrorName(error->code),
                                         cause.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(cause)),
                                playerText(error->url), advice});
        } else if (entry.as<timeline::Stall>()) {
            show(entry.object, {QStringLiteral("Object %1: %2").arg(entry.object).arg(timelineText(entry)), advice});
        } else if (entry.object > 0 && entry.object == m_object) {
            if (entry.as<timeline::Gone>() || (state && state->state == PlayState::PLAYING)) {
                hide();
            }
        }
    }
}

void ScreenNotice::show(int object, const QStringList& lines) {
    m_object = object;
    m_lines = lines;
    m_end.start();
    place();
    raise();
    setVisible(true);
}

/** Of an address that is too long, server and file name are what counts. */
void ScreenNotice::place() {
    const int room = parentWidget()->width() - 2 * (distance + padding);
    QStringList lines;
    for (const QString& line : m_lines) {
        lines.append(fontMetrics().elidedText(line, Qt::ElideMiddle, room));
    }
    setText(lines.join(QLatin1Char('\n')));
    adjustSize();
    move(distance, parentWidget()->height() - height() - distance);
}

bool ScreenNotice::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) {
        place();
    }
    return false;
}

void ScreenNotice::mousePressEvent(QMouseEvent*) {
    hide();
}

} // namespace tv
