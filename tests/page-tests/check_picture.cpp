// Looks at places of a picture: check-picture FILE X,Y,COLOUR..., where COLOUR is RRGGBB, met within 24 of 255 for each
// of red, green and blue, or "blue" for the sky of the film.
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
        const QColor seen = picture.pixelColor(place.value(0).toInt(), place.value(1).toInt());
        const QString wanted = place.value(2);
        if (!(wanted == "blue" ? isSky(seen) : isNear(seen, QColor('#' + wanted)))) {
            std::fprintf(stderr, "%s: the picture is %s there\n", argv[i], qPrintable(seen.name()));
            ++wrong;
        }
    }
    return wrong == 0 ? 0 : 1;
}
