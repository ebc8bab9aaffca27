#include <QDir>
#include <QImage>
#include <QtTest>
#include <array>
#include <cmath>

namespace {

const QStringList grounds{"grass1.jpg",    "grass2.jpg",  "grass3.jpg", "desert1.jpg",
                          "desert2.jpg",   "desert3.jpg", "sand.jpg",   "vulcanic1.jpg",
                          "vulcanic2.jpg", "snow1.jpg",   "snow2.jpg",  "daffodils.jpg"};
const QStringList waters{"water1.jpg", "water2.jpg", "water3.jpg"};
const QStringList birds{"parrot.jpg", "eagle1.jpg", "eagle2.jpg"};
const QStringList skies{"clean1", "clean2", "cloud1", "cloud2", "cirri"};

QImage texture(const QString &name) {
    return QImage(DRUVELK_DATA_TREE "/textures/" + name).convertToFormat(QImage::Format_RGB32);
}

double difference(QRgb a, QRgb b) {
    return (std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b))) /
           3.0;
}

/// Mean difference between row (or column) `line` and the next one, around the picture's edge.
double stepAfter(const QImage &image, int line, bool rows) {
    const int side = image.width();
    double sum = 0;
    for (int i = 0; i < side; ++i) {
        const int next = (line + 1) % side;
        sum += rows ? difference(image.pixel(i, line), image.pixel(i, next))
                    : difference(image.pixel(line, i), image.pixel(next, i));
    }
    return sum / side;
}

double meanGray(const QImage &image, const QRect &area) {
    double sum = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb c = image.pixel(x, y);
            sum += 0.299 * qRed(c) + 0.587 * qGreen(c) + 0.114 * qBlue(c);
        }
    }
    return sum / 255.0 / (area.width() * area.height());
}

/// How much the means of `count` × `count` patches deviate, over the picture's mean.
double patchDeviation(const QImage &image, int count) {
    const int side = image.width() / count;
    const double mean = meanGray(image, image.rect());
    double squares = 0;
    for (int patch = 0; patch < count * count; ++patch) {
        const QRect area(patch % count * side, patch / count * side, side, side);
        squares += std::pow(meanGray(image, area) / mean - 1, 2);
    }
    return std::sqrt(squares) / count;
}

QImage skyFace(const QString &sky, const QString &suffix) {
    return QImage(DRUVELK_DATA_TREE "/CubeMap/" + sky + "/mount_" + suffix + ".jpg")
        .convertToFormat(QImage::Format_RGB32);
}

enum Edge { Top, Bottom, Left, Right };

/// Pixel `i` of the line that lies `depth` pixels inside of an edge, from the left or the top.
QRgb edgePixel(const QImage &face, Edge edge, int i, int depth) {
    const int last = face.width() - 1;
    switch (edge) {
    case Top:
        return face.pixel(i, depth);
    case Bottom:
        return face.pixel(i, last - depth);
    case Left:
        return face.pixel(depth, i);
    default:
        return face.pixel(last - depth, i);
    }
}

/// Where two faces of a sky meet, as a cube map of OpenGL puts them together.
struct Seam {
    const char *face;
    Edge edge;
    const char *other;
    Edge otherEdge;
    bool reversed; ///< One edge runs against the other.
};
constexpr std::array seams{
    Seam{"negx", Top, "negy", Left, false},   Seam{"negx", Bottom, "posy", Left, true},
    Seam{"negx", Left, "negz", Right, false}, Seam{"negx", Right, "posz", Left, false},
    Seam{"posx", Top, "negy", Right, true},   Seam{"posx", Bottom, "posy", Right, false},
    Seam{"posx", Left, "posz", Right, false}, Seam{"posx", Right, "negz", Left, false},
    Seam{"negy", Top, "negz", Top, true},     Seam{"negy", Bottom, "posz", Top, false},
    Seam{"posy", Top, "posz", Bottom, false}, Seam{"posy", Bottom, "negz", Bottom, true}};

} // namespace

/// Looks at the pictures of the built data tree.
class PicturesTest : public QObject {
    Q_OBJECT

private slots:
    void picturesHaveTheirSizeAndBrightness() {
        const auto check = [](const QStringList &names, int side, double darkest, double brightest) {
            for (const QString &name : names) {
                const QImage image = texture(name);
                QVERIFY2(image.size() == QSize(side, side), qPrintable(name));
                const double mean = meanGray(image, image.rect());
                QVERIFY2(mean > darkest && mean < brightest,
                         qPrintable(QString("%1: %2").arg(name).arg(mean)));
            }
        };
        check(grounds, 1024, 0.33, 0.86);
        check(waters, 512, 0.05, 0.35);
        check(birds, 256, 0, 1);
        check({"tile.png"}, 128, 0.7, 1);
    }

    void groundsAndWatersRepeat() {
        for (const QString &name : grounds + waters) {
            const QImage image = texture(name);
            const int last = image.width() - 1;
            const auto report = [&](double measured, double limit) {
                return QStringLiteral("%1: %2, limit %3").arg(name).arg(measured).arg(limit).toUtf8();
            };
            for (const bool rows : {true, false}) {
                double inside = 0;
                for (int line = 0; line < last; ++line) {
                    inside += stepAfter(image, line, rows) / last;
                }
                const double across = stepAfter(image, last, rows);
                QVERIFY2(inside > 0.5 && across <= 1.2 * inside, report(across, 1.2 * inside));
            }
            // Uncorrelated patches differ four times as much when they are a quarter as wide. Where wide ones
            // differ more than that, something large stands out, and again in every repeat.
            const double wide = patchDeviation(image, 8);
            const double narrow = patchDeviation(image, 32);
            QVERIFY2(wide < narrow / 4, report(wide, narrow / 4));
            // Spots that are few but strong stand in rows.
            const double middle = patchDeviation(image, 16);
            QVERIFY2(middle < 0.14, report(middle, 0.14));
        }
    }

    void watersHaveBrightCrests() {
        for (const QString &name : waters) {
            const QImage image = texture(name);
            const double mean = meanGray(image, image.rect());
            int crests = 0;
            for (int pixel = 0; pixel < image.width() * image.height(); ++pixel) {
                const QRgb seen = image.pixel(pixel % image.width(), pixel / image.width());
                crests += qGray(seen) > 2.0 * 255 * mean ? 1 : 0;
            }
            const double share = static_cast<double>(crests) / (image.width() * image.height());
            QVERIFY2(share > 0.001 && share < 0.2, qPrintable(QString("%1: %2").arg(name).arg(share)));
        }
    }

    void tileKeepsColorsReadable() {
        const QImage tile = texture("tile.png");
        const QRect shown(7, 7, 114, 114);
        QVERIFY(meanGray(tile, shown) > 0.88);
        QVERIFY(meanGray(tile, QRect(16, 16, 96, 96)) > 0.92);
        // Its rim is as wide and as dark on all four sides, and ends within what is shown.
        const double left = meanGray(tile, QRect(7, 32, 7, 64));
        QVERIFY(left < 0.75);
        for (const QRect &side : {QRect(114, 32, 7, 64), QRect(32, 7, 64, 7), QRect(32, 114, 64, 7)}) {
            QVERIFY(std::abs(meanGray(tile, side) - left) < 0.01);
        }
    }

    void skyFacesMeet() {
        for (const QString &sky : skies) {
            for (const auto &[face, edge, other, otherEdge, reversed] : seams) {
                const QImage one = skyFace(sky, face);
                const QImage two = skyFace(sky, other);
                const int side = one.width();
                QVERIFY(side >= 512 && one.size() == QSize(side, side) && two.size() == one.size());
                double across = 0;
                double inside = 0;
                for (int i = 0; i < side; ++i) {
                    const QRgb here = edgePixel(one, edge, i, 0);
                    across +=
                        difference(here, edgePixel(two, otherEdge, reversed ? side - 1 - i : i, 0)) / side;
                    inside += difference(here, edgePixel(one, edge, i, 1)) / side;
                }
                QVERIFY2(across <= 1.3 * inside + 1.5,
                         qPrintable(QString("%1: %2 and %3, %4 across, %5 inside")
                                        .arg(sky, face, other)
                                        .arg(across)
                                        .arg(inside)));
            }
        }
    }

    void landLiesBelowSkies() {
        const auto blueness = [](const QImage &face) {
            const QImage mean = face.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            return static_cast<double>(qBlue(mean.pixel(0, 0))) / qRed(mean.pixel(0, 0));
        };
        for (const QString &sky : skies) {
            QVERIFY2(blueness(skyFace(sky, "negy")) > 1.05 * blueness(skyFace(sky, "posy")), qPrintable(sky));
            for (const char *suffix : {"negx", "posx", "negz", "posz"}) {
                const QImage face = skyFace(sky, suffix);
                const auto gray = [&](double from) {
                    const int side = face.width();
                    return meanGray(face, QRect(0, static_cast<int>(from * side), side, side / 32));
                };
                // Away from the horizon the land gets darker: its edge meets a distance, not a wall.
                QVERIFY2(gray(0.51) > gray(0.6) + 0.04 && gray(0.6) > gray(0.9), qPrintable(sky));
            }
        }
    }
};

QTEST_GUILESS_MAIN(PicturesTest)
#include "PicturesTest.moc"
