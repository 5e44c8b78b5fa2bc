/** Draws subtitles over video. */
#ifndef SUBTITLEPAINTER_H
#define SUBTITLEPAINTER_H

#include <QHash>
#include <QImage>
#include <QString>

class QPainter;
class QRect;

namespace tv {

/** Draws subtitles at the lower edge of a player's window, in letters that can be read from the sofa. */
class SubtitlePainter {
public:
    /**
     * @param player the text rendered last for it is kept
     * @param text   as mediaSubtitlesAt gives it, empty for none
     * @param window the player's; nothing is drawn outside it
     */
    void draw(QPainter& painter, int player, const QString& text, const QRect& window);

private:
    struct Rendered {
        QString text;
        QSize window;
        QImage image;
    };
    QHash<int, Rendered> m_rendered; ///< by player
};

} // namespace tv

#endif
