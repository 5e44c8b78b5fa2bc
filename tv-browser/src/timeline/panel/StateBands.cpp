#include "timeline/panel/StateBands.h"

#include "base/MonotonicTime.h"
#include "timeline/ObservedText.h"
#include "timeline/TimelineText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <array>

namespace tv {

namespace {

constexpr int64_t longestSpanUs = 60'000'000;
constexpr int64_t shortestSpanUs = 10'000'000;
constexpr int64_t tickUs = 10'000'000;
constexpr int refreshMs = 250;
constexpr int mostBands = 6;
constexpr int rowHeight = 26;
constexpr int legendHeight = 22;
constexpr int scaleHeight = 16;
constexpr int labelWidth = 26;

const QColor background(0x14, 0x16, 0x1b);
const QColor gridColour(0x3a, 0x3f, 0x47);
const QColor textColour(0xc8, 0xcc, 0xd2);
const QColor errorColour(0xff, 0x52, 0x52);
const QColor stallColour(0xff, 0xca, 0x4f);

} // namespace

QColor playStateColour(PlayState state) {
    static const std::array<QColor, playStateCount> colours = {
        QColor(0x3a, 0x3f, 0x47), QColor(0x2e, 0x9d, 0x4f), QColor(0x8a, 0x93, 0xa3), QColor(0x3b, 0x7d, 0xe0),
        QColor(0xe0, 0xb4, 0x00), QColor(0x8e, 0x5f, 0xc9), QColor(0xd3, 0x2f, 0x2f)};
    const auto number = static_cast<size_t>(state);
    return number < colours.size() ? colours[number] : background;
}

StateBands::StateBands(int64_t startUs) : m_startUs(startUs) {
    m_timer.setInterval(refreshMs);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_nowUs = monotonicUs() - m_startUs;
        forgetOld(m_nowUs - longestSpanUs);
        update();
    });
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

void StateBands::append(const TimelineEntries& entries) {
    const int before = m_bands.size();
    for (const TimelineEntry& entry : entries) {
        if (entry.object == 0) {
            continue;
        }
        if (entry.as<timeline::Created>()) {
            m_bands[entry.object].changes.append({entry.timeUs, PlayState::STOPPED});
        } else if (const auto* state = entry.as<timeline::State>()) {
            m_bands[entry.object].changes.append({entry.timeUs, state->state});
        } else if (entry.as<timeline::Gone>()) {
            m_bands[entry.object].changes.append({entry.timeUs, std::nullopt});
        } else if (entry.as<timeline::Error>()) {
            addMarker(entry, errorColour);
        } else if (entry.as<timeline::Stall>()) {
            addMarker(entry, stallColour);
        }
        m_nowUs = qMax(m_nowUs, entry.timeUs);
    }
    forgetOld(m_nowUs - longestSpanUs);
    if (m_bands.size() != before) {
        updateGeometry();
    }
}

void StateBands::addMarker(const TimelineEntry& entry, const QColor& colour) {
    m_bands[entry.object].markers.append(
        {entry.timeUs, colour, QLatin1String(timelineKindName(entry.kind())) + QLatin1Char(' ') + timelineText(entry)});
}

/** Removes states that ended, and markers that were set, before that time. */
void StateBands::forgetOld(int64_t beforeUs) {
    for (auto it = m_bands.begin(); it != m_bands.end();) {
        QVector<Change>& changes = it->changes;
        while (changes.size() > 1 && changes[1].timeUs < beforeUs) {
            changes.removeFirst();
        }
        while (!it->markers.isEmpty() && it->markers.constFirst().timeUs < beforeUs) {
            it->markers.removeFirst();
        }
        const bool isOver = !changes.isEmpty() && !changes.constFirst().state && changes.constFirst().timeUs < beforeUs;
        it = isOver ? m_bands.erase(it) : it + 1;
    }
}

QSize StateBands::sizeHint() const {
    return {400, legendHeight + scaleHeight + rowHeight * qBound(1, m_bands.size(), mostBands)};
}

QSize StateBands::minimumSizeHint() const {
    return {0, legendHeight + scaleHeight + rowHeight};
}

/** @return the newest objects, as many as fit: people rarely look for older ones */
QList<int> StateBands::shownObjects() const {
    const int room = qBound(1, (height() - legendHeight - scaleHeight) / rowHeight, mostBands);
    return m_bands.keys().mid(qMax(0, m_bands.size() - room));
}

/** The chart begins at the program's start, or a minute ago when that is later. */
int64_t StateBands::spanUs() const {
    return qBound(shortestSpanUs, m_nowUs, longestSpanUs);
}

double StateBands::xOf(int64_t timeUs) const {
    const double share = 1 - static_cast<double>(m_nowUs - timeUs) / static_cast<double>(spanUs());
    return labelWidth + qMax(0.0, share) * (width() - labelWidth);
}

QRectF StateBands::areaOf(int row) const {
    return {double(labelWidth), double(legendHeight + row * rowHeight + 3), double(width() - labelWidth),
            double(rowHeight - 6)};
}

void StateBands::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), background);
    paintLegend(painter);
    const QList<int> objects = shownObjects();
    paintScale(painter, legendHeight + rowHeight * qMax(1, objects.size()));
    for (int row = 0; row < objects.size(); ++row) {
        painter.setPen(textColour);
        painter.drawText(QRectF(0, areaOf(row).top(), labelWidth - 6, areaOf(row).height()),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(objects[row]));
        paintBand(painter, areaOf(row), m_bands[objects[row]]);
    }
}

void StateBands::paintLegend(QPainter& painter) {
    int x = labelWidth;
    for (int number = 0; number < playStateCount; ++number) {
        const PlayState state{number};
        const QString name = playStateName(state);
        painter.fillRect(x, 7, 9, 9, playStateColour(state));
        painter.setPen(textColour);
        painter.drawText(x + 13, 16, name);
        x += 13 + painter.fontMetrics().horizontalAdvance(name) + 12;
    }
}

/** @param bottom lower edge of the last band */
void StateBands::paintScale(QPainter& painter, int bottom) const {
    for (int64_t time = m_nowUs / tickUs * tickUs; time > m_nowUs - spanUs() && time >= 0; time -= tickUs) {
        painter.setPen(gridColour);
        painter.drawLine(QPointF(xOf(time), legendHeight), QPointF(xOf(time), bottom));
        painter.setPen(textColour);
        painter.drawText(QPointF(xOf(time) + 3, bottom + scaleHeight - 3),
                         QStringLiteral("%1 s").arg(time / 1'000'000));
    }
}

void StateBands::paintBand(QPainter& painter, const QRectF& area, const Band& band) const {
    for (int i = 0; i < band.changes.size(); ++i) {
        const Change& change = band.changes[i];
        if (!change.state) {
            continue;
        }
        const double left = xOf(change.timeUs);
        const double right = i + 1 < band.changes.size() ? xOf(band.changes[i + 1].timeUs) : area.right();
        painter.fillRect(QRectF(left, area.top(), qMax(1.0, right - left), area.height()),
                         playStateColour(*change.state));
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(background, 1.5));
    for (const Marker& marker : band.markers) {
        painter.setBrush(marker.colour);
        const double x = xOf(marker.timeUs);
        painter.drawPolygon(QPolygonF({{x - 7, area.top() - 2}, {x + 7, area.top() - 2}, {x, area.top() + 10}}));
    }
    painter.restore();
}

bool StateBands::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

QString StateBands::toolTipAt(const QPoint& point) const {
    const QList<int> objects = shownObjects();
    const int row = (point.y() - legendHeight) / rowHeight;
    if (point.y() < legendHeight || row >= objects.size()) {
        return {};
    }
    const Band& band = m_bands.find(objects[row]).value();
    for (const Marker& marker : band.markers) {
        if (qAbs(xOf(marker.timeUs) - point.x()) < 8) {
            return marker.text;
        }
    }
    QString found;
    for (const Change& change : band.changes) {
        if (xOf(change.timeUs) <= point.x()) {
            found = !change.state ? QString()
                                  : QStringLiteral("%1 since %2 s")
                                        .arg(playStateName(*change.state))
                                        .arg(static_cast<double>(change.timeUs) / 1e6, 0, 'f', 3);
        }
    }
    return found;
}

void StateBands::showEvent(QShowEvent*) {
    m_timer.start();
}

void StateBands::hideEvent(QHideEvent*) {
    m_timer.stop();
}

} // namespace tv
