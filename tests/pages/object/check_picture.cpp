// Looks at places of a picture: check-picture FILE X,Y,COLOUR..., where COLOUR is RRGGBB, met within 24 of 255 for each
// of red, green and blue, or "blue" for the sky of the film; X,Y,WIDTH,HEIGHT,text for a rectangle in which there are
// letters of subtitles on their dark ground, X,Y,WIDTH,HEIGHT,bare for one without.
#include <QColor>
#include <QImage>
#include <QStringList>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int TOLERANCE = 24;

bool isNear(const QColor& seen, const QColor& wanted) {
    return std::abs(seen.red() - wanted.red()) <= TOLERANCE && std::abs(seen.green() - wanted.green()) <= TOLERANCE &&
           std::abs(seen.blue() - wanted.blue()) <= TOLERANCE;
}

bool isSky(const QColor& seen) {
    return seen.blue() > seen.red() + 40 && seen.blue() > seen.green() + 20;
}

/** White letters cover some of their lines, the ground most of the rest; a film has neither where it is looked for. */
bool isText(const QImage& rectangle) {
    int white = 0;
    int dark = 0;
    for (int y = 0; y < rectangle.height(); ++y) {
        for (int x = 0; x < rectangle.width(); ++x) {
            const QColor seen = rectangle.pixelColor(x, y);
            white += isNear(seen, Qt::white) ? 1 : 0;
            dark += seen.lightness() < 60 ? 1 : 0;
        }
    }
    const int all = rectangle.width() * rectangle.height();
    return white * 50 > all && dark * 3 > all;
}

bool isAsWanted(const QImage& picture, const QStringList& place) {
    if (place.size() == 5) {
        const QImage rectangle = picture.copy(place[0].toInt(), place[1].toInt(), place[2].toInt(), place[3].toInt());
        return isText(rectangle) == (place[4] == "text");
    }
    const QColor seen = picture.pixelColor(place.value(0).toInt(), place.value(1).toInt());
    const QString wanted = place.value(2);
    return wanted == "blue" ? isSky(seen) : isNear(seen, QColor('#' + wanted));
}

} // namespace

int main(int argc, char* argv[]) {
    const QImage picture(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (picture.isNull() || argc < 3) {
        std::fprintf(stderr, "check-picture: no picture, or no place to look at\n");
        return 2;
    }
    int wrong = 0;
    for (int i = 2; i < argc; ++i) {
        const QStringList place = QString::fromLocal8Bit(argv[i]).split(',');
        if (!isAsWanted(picture, place)) {
            const QColor seen = picture.pixelColor(place.value(0).toInt(), place.value(1).toInt());
            std::fprintf(stderr, "%s: the picture is %s there\n", argv[i], qPrintable(seen.name()));
            ++wrong;
        }
    }
    return wrong == 0 ? 0 : 1;
}
