#include "screen/SubtitlePainter.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPainterPath>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>

namespace tv {

namespace {

// Shares of the picture's height. Fifteen rows fill a picture with room for the gaps between them.
constexpr double letterHeight = 1 / 17.0;
constexpr double bottomMargin = 1 / 18.0;
constexpr double sideMargin = 1 / 20.0; // of its width

// In a small window, letters that keep their share could not be read at all.
constexpr int smallestLetters = 16;

const QColor boxColour(0, 0, 0, 190);

QFont fontFor(const QSize& room) {
    QFont font(QStringLiteral("Tiresias Screenfont"));
    font.setFamilies({QStringLiteral("Tiresias Screenfont"), QStringLiteral("DejaVu Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(smallestLetters, qRound(room.height() * letterHeight)));
    return font;
}

/** @return the written part of each line */
QVector<QRectF> linesOf(const QTextDocument& document) {
    QVector<QRectF> lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QPointF origin = document.documentLayout()->blockBoundingRect(block).topLeft();
        for (int i = 0; i < block.layout()->lineCount(); ++i) {
            lines.append(block.layout()->lineAt(i).naturalTextRect().translated(origin));
        }
    }
    return lines;
}

QImage write(const QString& text, const QSize& room) {
    const QFont font = fontFor(room);
    const double padding = font.pixelSize() / 4.0;
    const double width = room.width() * (1 - 2 * sideMargin);

    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDocumentMargin(padding);
    document.setDefaultFont(font);
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);
    document.setHtml(QString(text).replace(QLatin1Char('\n'), QLatin1String("<br/>")));
    document.setTextWidth(width);

    // What does not fit is left out as whole lines.
    const double highest = room.height() * (1 - 2 * bottomMargin);
    QVector<QRectF> lines = linesOf(document);
    while (lines.size() > 1 && lines.last().bottom() + padding > highest) {
        lines.removeLast();
    }
    const double height = std::min<double>(lines.last().bottom() + padding, room.height());

    QImage image(qCeil(width), qCeil(height), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(boxColour);
    QPainterPath boxes;
    boxes.setFillRule(Qt::WindingFill);
    for (const QRectF& line : lines) {
        boxes.addRoundedRect(line.adjusted(-padding, -padding / 3, padding, padding / 3), padding / 2, padding / 2);
    }
    painter.drawPath(boxes.simplified());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::white);
    context.clip = QRectF(0, 0, width, lines.last().bottom());
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    return image;
}

} // namespace

void SubtitlePainter::draw(QPainter& painter, int player, const QString& text, const QRect& picture) {
    if (text.isEmpty() || picture.isEmpty()) {
        m_written.remove(player);
        return;
    }
    Written& written = m_written[player];
    if (written.text != text || written.room != picture.size()) {
        written = {text, picture.size(), write(text, picture.size())};
    }
    QRect place(QPoint(), written.image.size());
    place.moveCenter(picture.center());
    place.moveBottom(picture.bottom() - qRound(picture.height() * bottomMargin));
    painter.save();
    painter.setClipRect(picture, Qt::IntersectClip);
    painter.drawImage(place, written.image);
    painter.restore();
}

} // namespace tv
