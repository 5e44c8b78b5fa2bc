#include "desk/ScreenNotice.h"

#include "timeline/ObservedText.h"
#include "timeline/TimelineText.h"

#include <QEvent>

namespace tv {

namespace {

constexpr int shownMs = 8'000;
constexpr int distance = 12; ///< from the screen's edges
constexpr int padding = 10;

} // namespace

ScreenNotice::ScreenNotice(QWidget* screenView) : QLabel(screenView) {
    setTextFormat(Qt::PlainText);
    setMargin(padding);
    setStyleSheet(QStringLiteral("background: rgba(20, 22, 28, 235); color: white; border-radius: 6px;"));
    m_end.setSingleShot(true);
    m_end.setInterval(shownMs);
    connect(&m_end, &QTimer::timeout, this, &QWidget::hide);
    screenView->installEventFilter(this);
    hide();
}

void ScreenNotice::notify(const QString& what, const QString& advice) {
    show(0, advice.isEmpty() ? QStringList(what) : QStringList{what, advice});
}

void ScreenNotice::clearPage() {
    if (m_object == 0) {
        hide();
    }
}

void ScreenNotice::showProblems(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        const QString advice = QStringLiteral("Press F9 to see the requests and player reports that led to it.");
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
    reposition();
    raise();
    setVisible(true);
}

/** Shortens long addresses in the middle: the server and the file name stay. */
void ScreenNotice::reposition() {
    const int availableWidth = parentWidget()->width() - 2 * (distance + padding);
    QStringList lines;
    for (const QString& line : m_lines) {
        lines.append(fontMetrics().elidedText(line, Qt::ElideMiddle, availableWidth));
    }
    setText(lines.join(QLatin1Char('\n')));
    adjustSize();
    move(distance, parentWidget()->height() - height() - distance);
}

bool ScreenNotice::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) {
        reposition();
    }
    return false;
}

void ScreenNotice::mousePressEvent(QMouseEvent*) {
    hide();
}

} // namespace tv
