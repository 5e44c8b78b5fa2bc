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

// Shares of the window's height: fifteen rows and the gaps between them fill it.
constexpr double letterHeight = 1 / 17.0;
constexpr double bottomMargin = 1 / 18.0;
constexpr double sideMargin = 1 / 20.0; // of its width

// In a small window, letters that keep their share could not be read at all.
constexpr int smallestLetters = 16;

const QColor boxColour(0, 0, 0, 190);

QFont fontFor(const QSize& window) {
    QFont font(QStringLiteral("Tiresias Screenfont"));
    font.setFamilies({QStringLiteral("Tiresias Screenfont"), QStringLiteral("DejaVu Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(smallestLetters, qRound(window.height() * letterHeight)));
    return font;
}

/** @return the rectangle of the text in each line */
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

/** @return the text as an image as wide as the window without its margins, and as high as its lines */
QImage render(const QString& text, const QSize& window) {
    const QFont font = fontFor(window);
    const double padding = font.pixelSize() / 4.0;
    const double width = window.width() * (1 - 2 * sideMargin);

    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDocumentMargin(padding);
    document.setDefaultFont(font);
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);
    document.setHtml(QString(text).replace(QLatin1Char('\n'), QLatin1String("<br/>")));
    document.setTextWidth(width);

    // Whole lines are left out when they do not fit.
    const double highest = window.height() * (1 - 2 * bottomMargin);
    QVector<QRectF> lines = linesOf(document);
    while (lines.size() > 1 && lines.last().bottom() + padding > highest) {
        lines.removeLast();
    }
    const double height = std::min<double>(lines.last().bottom() + padding, window.height());

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

void SubtitlePainter::draw(QPainter& painter, int player, const QString& text, const QRect& window) {
    if (text.isEmpty() || window.isEmpty()) {
        m_rendered.remove(player);
        return;
    }
    Rendered& rendered = m_rendered[player];
    if (rendered.text != text || rendered.window != window.size()) {
        rendered = {text, window.size(), render(text, window.size())};
    }
    QRect target(QPoint(), rendered.image.size());
    target.moveCenter(window.center());
    target.moveBottom(window.bottom() - qRound(window.height() * bottomMargin));
    painter.save();
    painter.setClipRect(window, Qt::IntersectClip);
    painter.drawImage(target, rendered.image);
    painter.restore();
}

} // namespace tv
