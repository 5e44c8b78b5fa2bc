#include "remote/KeyHelp.h"

#include "remote/DeskKeys.h"
#include "remote/RemoteKeys.h"

#include <QList>
#include <algorithm>

namespace tv {

namespace {

constexpr int gap = 2;
constexpr int longestNames = 20; ///< longer ones get a line of their own below

struct Line {
    QString name;
    QString keyboard;
};

/** Neighbours of the table that share their text share a line. */
QList<Line> linesOfRemote() {
    QList<Line> lines;
    for (const RemoteKey& key : remoteKeys()) {
        const QString name = QString::fromLatin1(key.name);
        const QString keyboard = QString::fromLatin1(key.keyboardText);
        if (!lines.isEmpty() && lines.last().keyboard == keyboard) {
            lines.last().name += QLatin1Char(' ') + name;
        } else {
            lines.append({name, keyboard});
        }
    }
    return lines;
}

QList<Line> linesOfDesk() {
    QList<Line> lines;
    for (const DeskKey& key : deskKeys) {
        lines.append({QString::fromLatin1(key.title), QString::fromLatin1(key.shortcut)});
    }
    return lines;
}

/** @return one column of a table, its lines padded to the same width */
QStringList columnOf(const QString& title, const QList<Line>& lines) {
    int names = title.size() - gap;
    int keyboards = 8; // of the title
    for (const Line& line : lines) {
        names = std::max(names, line.name.size());
        keyboards = std::max(keyboards, line.keyboard.size());
    }
    QStringList column{title.leftJustified(names + 2 * gap) + QStringLiteral("Keyboard").leftJustified(keyboards)};
    for (const Line& line : lines) {
        column.append(QString(gap, QLatin1Char(' ')) + line.name.leftJustified(names + gap) +
                      line.keyboard.leftJustified(keyboards));
    }
    return column;
}

/** @return the lines in two columns, of which the first is the longer one */
QStringList tableOf(const QString& title, const QList<Line>& lines) {
    const int half = (lines.size() + 1) / 2;
    const QStringList left = columnOf(title, lines.mid(0, half));
    const QStringList right = columnOf(title, lines.mid(half));
    QStringList table;
    for (int i = 0; i < left.size(); ++i) {
        table.append(left[i] + QString(gap, QLatin1Char(' ')) + right.value(i));
    }
    return table;
}

} // namespace

QString keyHelpText() {
    QList<Line> remote = linesOfRemote();
    const auto isWide = [](const Line& line) { return line.name.size() > longestNames; };
    const auto wide =
        std::stable_partition(remote.begin(), remote.end(), [&](const Line& line) { return !isWide(line); });
    const QList<Line> wideLines(wide, remote.end());
    remote.erase(wide, remote.end());

    QStringList text = tableOf(QStringLiteral("Remote control"), remote);
    for (const Line& line : wideLines) {
        text.append(QStringLiteral("  %1  %2").arg(line.name, line.keyboard));
    }
    text += tableOf(QStringLiteral("Window"), linesOfDesk());
    QString trimmed;
    for (const QString& line : text) {
        int length = line.size();
        while (length > 0 && line[length - 1].isSpace()) {
            --length;
        }
        trimmed += line.left(length) + QLatin1Char('\n');
    }
    return trimmed;
}

} // namespace tv
