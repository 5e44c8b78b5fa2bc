#include "timeline/panel/ObjectTable.h"

#include "media_state.h"
#include "timeline/ObservedText.h"
#include "timeline/panel/StateBands.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <array>

namespace tv {

namespace {

constexpr int refreshMs = 500;
constexpr int trackTypes = 3;

/** The columns of the tracks stand in the order of AVComponentType. */
enum Column { OBJECT, STATE, POSITION, SPEED, BUFFER, MEDIA, VIDEO, AUDIO, SUBTITLES, WINDOW, COLUMNS };

QString seconds(int64_t ms) {
    return ms < 0 ? QStringLiteral("-") : QString::number(static_cast<double>(ms) / 1000, 'f', 1);
}

/** @return the names of the tracks by type, those of active tracks in brackets */
std::array<QStringList, trackTypes> tracks(int player) {
    std::array<MediaStateTrack, 48> found{};
    const int count = mediaStateTracks(player, found.data(), static_cast<int>(found.size()));
    std::array<QStringList, trackTypes> names;
    const auto end = found.begin() + qMin(count, static_cast<int>(found.size()));
    for (auto track = found.begin(); track != end; ++track) {
        const bool isVideo = track->type == AV_COMPONENT_TYPE_VIDEO;
        const QString name = QString::fromUtf8(isVideo ? track->encoding : track->language);
        names[static_cast<size_t>(track->type)].append(track->active ? QStringLiteral("[%1]").arg(name) : name);
    }
    return names;
}

} // namespace

ObjectTable::ObjectTable() {
    setColumnCount(COLUMNS);
    setHorizontalHeaderLabels({QStringLiteral("Object"), QStringLiteral("State"), QStringLiteral("Position (s)"),
                               QStringLiteral("Speed"), QStringLiteral("Buffer"), QStringLiteral("Media"),
                               QStringLiteral("Video"), QStringLiteral("Audio"), QStringLiteral("Subtitles"),
                               QStringLiteral("Window")});
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(22);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setSizeAdjustPolicy(AdjustIgnored);
    setToolTip(QStringLiteral("Click an object or press Enter to show only its entries; again to show all"));
    m_timer.setInterval(refreshMs);
    connect(&m_timer, &QTimer::timeout, this, &ObjectTable::refresh);
    connect(this, &QTableWidget::cellClicked, this,
            [this](int row, int) { toggle(item(row, OBJECT)->text().toInt()); });
}

void ObjectTable::toggle(int object) {
    m_chosen = m_chosen == object ? 0 : object;
    if (m_chosen == 0) {
        clearSelection();
    }
    emit chosen(m_chosen);
}

void ObjectTable::append(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        if (entry.as<timeline::Gone>()) {
            m_objects.remove(entry.object);
        } else if (entry.object > 0) {
            follow(m_objects[entry.object], entry);
        }
    }
    if (isVisible() && m_objects.size() != rowCount()) {
        refresh();
    }
}

void ObjectTable::follow(Object& object, const TimelineEntry& entry) {
    if (entry.player >= 0) {
        object.player = entry.player;
    }
    if (const auto* state = entry.as<timeline::State>()) {
        object.state = state->state;
    } else if (const auto* buffer = entry.as<timeline::Buffer>()) {
        object.bufferPercent = buffer->percent;
    } else if (const auto* command = entry.as<timeline::Command>()) {
        if (command->function == MEDIA_FUNCTION_SET_SOURCE) {
            object.url = commandArguments(*command);
        } else if (command->function == MEDIA_FUNCTION_SET_WINDOW) {
            object.window = commandArguments(*command);
        }
    }
}

void ObjectTable::setCell(int row, int column, const QString& text) {
    if (!item(row, column)) {
        setItem(row, column, new QTableWidgetItem);
    }
    item(row, column)->setText(text);
}

void ObjectTable::refresh() {
    setRowCount(m_objects.size());
    int row = 0;
    for (auto it = m_objects.cbegin(); it != m_objects.cend(); ++it, ++row) {
        showObject(row, it.key(), *it);
    }
}

void ObjectTable::showObject(int row, int number, const Object& object) {
    setCell(row, OBJECT, QString::number(number));
    setCell(row, STATE, QStringLiteral("%1 %2").arg(static_cast<int>(object.state)).arg(playStateName(object.state)));
    item(row, STATE)
        ->setForeground(object.state == PlayState::STOPPED ? QColor(Qt::lightGray)
                                                           : playStateColour(object.state).lighter(140));
    setCell(row, MEDIA, object.url.section(QLatin1Char('/'), -1));
    item(row, MEDIA)->setToolTip(object.url);
    setCell(row, WINDOW, object.window);
    setCell(row, BUFFER, QStringLiteral("%1 %").arg(object.bufferPercent));
    if (object.player >= 0) {
        showPlayer(row, object.player);
    }
}

void ObjectTable::showPlayer(int row, int player) {
    MediaState state{MEDIA_STATE_STOPPED, 0, -1, -1, 100};
    mediaStateRead(player, &state);
    setCell(row, POSITION, QStringLiteral("%1 / %2").arg(seconds(state.positionMs), seconds(state.durationMs)));
    setCell(row, SPEED, QString::number(state.speed));
    std::array<QStringList, trackTypes> names = tracks(player);
    for (int type = 0; type < trackTypes; ++type) {
        setCell(row, VIDEO + type, names[static_cast<size_t>(type)].join(QLatin1Char(' ')));
    }
}

void ObjectTable::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentRow() >= 0) {
        emit cellClicked(currentRow(), OBJECT);
        return;
    }
    QTableWidget::keyPressEvent(event);
}

void ObjectTable::showEvent(QShowEvent* event) {
    QTableWidget::showEvent(event);
    refresh();
    m_timer.start();
}

void ObjectTable::hideEvent(QHideEvent* event) {
    QTableWidget::hideEvent(event);
    m_timer.stop();
}

} // namespace tv
