// Build step: renders a vector drawing to a square PNG picture.
// Usage: renderIcon drawing.svg size picture
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char **argv) {
    if (argc != 4) {
        std::fputs("usage: renderIcon drawing.svg size picture\n", stderr);
        return 2;
    }
    const QString drawing = QString::fromLocal8Bit(argv[1]);
    const int size = QString::fromLocal8Bit(argv[2]).toInt();
    QSvgRenderer renderer(drawing);
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    if (!renderer.isValid() || picture.isNull()) {
        std::fprintf(stderr, "renderIcon: cannot render %s at %s\n", argv[1], argv[2]);
        return 1;
    }
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter);
    painter.end();
    // The forms know some pictures under names with other endings; the content is PNG in all.
    if (!picture.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "renderIcon: cannot write %s\n", argv[3]);
        return 1;
    }
    return 0;
}
