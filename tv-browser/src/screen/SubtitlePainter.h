/**
 * Writes subtitles over pictures, at their lower edge, in a size that can be read from the sofa.
 */
#ifndef SUBTITLEPAINTER_H
#define SUBTITLEPAINTER_H

#include <QHash>
#include <QImage>
#include <QString>

class QPainter;
class QRect;

namespace tv {

class SubtitlePainter {
public:
    /**
     * @param player  whose picture it is: what was written for it last is kept
     * @param text    as mediaSubtitlesAt gives it, empty for none
     * @param picture where the picture is; nothing is written outside it
     */
    void draw(QPainter& painter, int player, const QString& text, const QRect& picture);

private:
    struct Written {
        QString text;
        QSize room;
        QImage image; ///< as wide as the room, as high as its lines
    };
    QHash<int, Written> m_written;
};

} // namespace tv

#endif
