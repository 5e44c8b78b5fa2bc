#include "remote/KeyHelp.h"

#include "remote/DeskKeys.h"
#include "remote/RemoteKeys.h"

#include <QList>
#include <algorithm>

namespace tv {

namespace {

constexpr int gap = 2; ///< between cells, and before a name below its title
constexpr int longestNames = 26;

/** What a key does, or several that share their keyboard text, and which keyboard keys act as it. */
struct Entry {
    QString name;
    QString keyboard;
};

/** A line of the help: two entries; or one text, as the name of the left entry, over the whole width. */
struct Row {
    Entry left;
    Entry right;

    bool isText() const { return left.keyboard.isEmpty(); }
};

QString indented(const QString& text) {
    return QString(gap, QLatin1Char(' ')) + text;
}

QList<Entry> entriesOfRemote() {
    QList<Entry> entries;
    for (const RemoteKey& key : remoteKeys()) {
        const QString name = QString::fromLatin1(key.name);
        const QString keyboard = QString::fromLatin1(key.keyboardText);
        if (!entries.isEmpty() && entries.last().keyboard == keyboard) {
            entries.last().name += QLatin1Char(' ') + name;
        } else {
            entries.append({name, keyboard});
        }
    }
    return entries;
}

QList<Entry> entriesOfDesk() {
    QList<Entry> entries;
    for (const DeskKey& key : deskKeys) {
        entries.append({QString::fromLatin1(key.title), QString::fromLatin1(key.shortcut)});
    }
    return entries;
}

/** @return a title, the entries in two columns, and those with many names below */
QList<Row> table(const QString& title, QList<Entry> entries) {
    const auto wide = std::stable_partition(entries.begin(), entries.end(),
                                            [](const Entry& entry) { return entry.name.size() <= longestNames; });
    const int count = static_cast<int>(wide - entries.begin());
    const int half = (count + 1) / 2;
    const Entry head{title, QStringLiteral("Keyboard")};
    QList<Row> rows{{head, head}};
    for (int i = 0; i < half; ++i) {
        const Entry right = i + half < count ? entries[i + half] : Entry();
        rows.append(Row{{indented(entries[i].name), entries[i].keyboard}, {indented(right.name), right.keyboard}});
    }
    for (const Entry& entry : entries.mid(count)) {
        rows.append(Row{{indented(entry.name + indented(entry.keyboard)), {}}, {}});
    }
    return rows;
}

QString withoutSpacesAtEnd(const QString& line) {
    return line.isEmpty() || !line.back().isSpace() ? line : withoutSpacesAtEnd(line.chopped(1));
}

} // namespace

QString keyHelpText() {
    const QList<Row> rows =
        table(QStringLiteral("Remote control"), entriesOfRemote()) + table(QStringLiteral("Window"), entriesOfDesk());
    // Both tables have the same columns.
    const auto widthOf = [&rows](Entry Row::*column, QString Entry::*cell) {
        int width = 0;
        for (const Row& row : rows) {
            const QString& text = row.*column.*cell;
            width = row.isText() ? width : std::max(width, text.size());
        }
        return width + gap;
    };
    const int leftNames = widthOf(&Row::left, &Entry::name);
    const int leftKeyboard = widthOf(&Row::left, &Entry::keyboard);
    const int rightNames = widthOf(&Row::right, &Entry::name);
    QString text;
    for (const Row& row : rows) {
        const QString line = row.isText() ? row.left.name
                                          : row.left.name.leftJustified(leftNames) +
                                                row.left.keyboard.leftJustified(leftKeyboard) +
                                                row.right.name.leftJustified(rightNames) + row.right.keyboard;
        text += withoutSpacesAtEnd(line) + QLatin1Char('\n');
    }
    return text;
}

} // namespace tv
