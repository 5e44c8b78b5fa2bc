#include "timeline/panel/ObjectTable.h"

#include "medialib_components.h"
#include "timeline/ObservedText.h"
#include "timeline/panel/StateBands.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <array>

namespace tv {

namespace {

constexpr int refreshMs = 500;

enum Column { OBJECT, STATE, POSITION, SPEED, BUFFER, MEDIA, VIDEO, SOUND, SUBTITLES, WINDOW, COLUMNS };

QString seconds(int64_t ms) {
    return ms < 0 ? QStringLiteral("-") : QString::number(static_cast<double>(ms) / 1000, 'f', 1);
}

/** @return the tracks of a type, the active one in brackets */
QString tracks(int player, int type) {
    std::array<Hbbtv_AL_ComponentInfo, 16> infos{};
    const int count = Hbbtv_AL_MediaPlayerGetComponents(player, type, infos.data(), static_cast<int>(infos.size()));
    QStringList names;
    for (int i = 0; i < qMin(count, static_cast<int>(infos.size())); ++i) {
        const Hbbtv_AL_ComponentInfo& info = infos[static_cast<size_t>(i)];
        const QString name = QString::fromUtf8(type == AV_COMPONENT_TYPE_VIDEO ? info.encoding : info.language);
        names.append(info.active ? QStringLiteral("[%1]").arg(name) : name);
    }
    return names.join(QLatin1Char(' '));
}

} // namespace

ObjectTable::ObjectTable() {
    setColumnCount(COLUMNS);
    setHorizontalHeaderLabels({QStringLiteral("Object"), QStringLiteral("State"), QStringLiteral("Position, s"),
                               QStringLiteral("Speed"), QStringLiteral("Buffer"), QStringLiteral("Media"),
                               QStringLiteral("Video"), QStringLiteral("Sound"), QStringLiteral("Subtitles"),
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
    setToolTip(QStringLiteral("Click an object, or press Enter, to see its entries only; once more to see all"));
    m_timer.setInterval(refreshMs);
    connect(&m_timer, &QTimer::timeout, this, &ObjectTable::refresh);
    connect(this, &QTableWidget::cellClicked, this, [this, last = 0](int row, int) mutable {
        const int object = item(row, OBJECT)->text().toInt();
        last = last == object ? 0 : object;
        if (last == 0) {
            clearSelection();
        }
        emit chosen(last);
    });
}

void ObjectTable::append(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        if (entry.object == 0) {
            continue;
        }
        if (entry.as<timeline::Gone>()) {
            m_objects.remove(entry.object);
            continue;
        }
        Object& object = m_objects[entry.object];
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
    if (isVisible() && m_objects.size() != rowCount()) {
        refresh();
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
        setCell(row, OBJECT, QString::number(it.key()));
        setCell(row, STATE, QStringLiteral("%1 %2").arg(static_cast<int>(it->state)).arg(playStateName(it->state)));
        item(row, STATE)
            ->setForeground(it->state == PlayState::STOPPED ? QColor(Qt::lightGray)
                                                            : playStateColour(it->state).lighter(140));
        setCell(row, MEDIA, it->url.section(QLatin1Char('/'), -1));
        item(row, MEDIA)->setToolTip(it->url);
        setCell(row, WINDOW, it->window);
        setCell(row, BUFFER, QStringLiteral("%1 %").arg(it->bufferPercent));
        if (it->player < 0) {
            continue;
        }
        setCell(row, POSITION,
                QStringLiteral("%1 / %2").arg(seconds(Hbbtv_AL_MediaPlayerGetPosition(it->player)),
                                              seconds(Hbbtv_AL_MediaPlayerGetDuration(it->player))));
        setCell(row, SPEED, QString::number(Hbbtv_AL_MediaPlayerGetSpeed(it->player)));
        setCell(row, VIDEO, tracks(it->player, AV_COMPONENT_TYPE_VIDEO));
        setCell(row, SOUND, tracks(it->player, AV_COMPONENT_TYPE_AUDIO));
        setCell(row, SUBTITLES, tracks(it->player, AV_COMPONENT_TYPE_SUBTITLE));
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
