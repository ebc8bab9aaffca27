#include <QDir>
#include <QImage>
#include <QtTest>
#include <array>
#include <cmath>

/// Looks at the pictures of the built data tree.
class PicturesTest : public QObject {
    Q_OBJECT

private slots:
    void everyPictureHasItsSize();
    void groundsAndWatersRepeat_data();
    void groundsAndWatersRepeat();
    void groundsAreMidBright();
    void watersAreDarkWithBrightCrests();
    void tileKeepsColorsReadable();
    void skyFacesMeet_data();
    void skyFacesMeet();
    void landLiesBelowSkies();
};

namespace {

const QStringList grounds{"grass1.jpg",    "grass2.jpg",  "grass3.jpg", "desert1.jpg",
                          "desert2.jpg",   "desert3.jpg", "sand.jpg",   "vulcanic1.jpg",
                          "vulcanic2.jpg", "snow1.jpg",   "snow2.jpg",  "daffodils.jpg"};
const QStringList waters{"water1.jpg", "water2.jpg", "water3.jpg"};
const QStringList birds{"parrot.jpg", "eagle1.jpg", "eagle2.jpg"};
const QStringList skies{"clean1", "clean2", "cloud1", "cloud2", "cirri"};

QString textureFile(const QString &name) {
    return DRUVELK_DATA_TREE "/textures/" + name;
}

QImage texture(const QString &name) {
    return QImage(textureFile(name)).convertToFormat(QImage::Format_RGB32);
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

/// A sky as OpenGL samples its cube map.
class SkyView {
public:
    explicit SkyView(const QString &name) {
        for (std::size_t face = 0; face < suffixes.size(); ++face) {
            m_faces[face] = QImage(DRUVELK_DATA_TREE "/CubeMap/" + name + "/mount_" + suffixes[face] + ".jpg")
                                .convertToFormat(QImage::Format_RGB32);
        }
    }

    bool isComplete() const {
        return std::all_of(m_faces.begin(), m_faces.end(), [this](const QImage &face) {
            return face.width() >= 512 && face.size() == QSize(m_faces[0].width(), m_faces[0].width());
        });
    }
    const QImage &face(std::size_t index) const { return m_faces[index]; }

    /// The colour toward a world direction: the texel of the map's opposite direction.
    QRgb toward(const std::array<double, 3> &d) const {
        const double x = -d[0];
        const double y = -d[1];
        const double z = -d[2];
        const double ax = std::abs(x);
        const double ay = std::abs(y);
        const double az = std::abs(z);
        // OpenGL's table of major axis, sc and tc.
        if (ax >= ay && ax >= az) {
            return x > 0 ? texel(1, -z, -y, ax) : texel(0, z, -y, ax);
        }
        if (ay >= az) {
            return y > 0 ? texel(3, x, z, ay) : texel(2, x, -z, ay);
        }
        return z > 0 ? texel(5, x, -y, az) : texel(4, -x, -y, az);
    }

private:
    QRgb texel(std::size_t face, double sc, double tc, double major) const {
        const int side = m_faces[face].width();
        const auto index = [&](double c) {
            return qBound(0, static_cast<int>((c / major + 1) / 2 * side), side - 1);
        };
        // The picture's bottom row is uploaded first.
        return m_faces[face].pixel(index(sc), side - 1 - index(tc));
    }

    static constexpr std::array<const char *, 6> suffixes{"negx", "posx", "negy", "posy", "negz", "posz"};
    std::array<QImage, 6> m_faces;
};

/// Mean difference between the two sides of the edge where axis `i` is `si` and axis `j` is `sj`, at
/// `gap` texels from it (or, within the first face, between texels `gap` apart).
double edgeStep(const SkyView &sky, std::size_t i, double si, std::size_t j, double sj, bool across) {
    constexpr int samples = 512;
    constexpr double texel = 2.0 / samples;
    double sum = 0;
    for (int k = 0; k < samples; ++k) {
        std::array<double, 3> first{};
        std::array<double, 3> second{};
        const std::size_t along = 3 - i - j;
        first[along] = second[along] = (k + 0.5) * texel - 1;
        first[i] = si;
        first[j] = sj * (1 - 0.5 * texel);
        second[i] = across ? si * (1 - 0.5 * texel) : si;
        second[j] = across ? sj : sj * (1 - 1.5 * texel);
        sum += difference(sky.toward(first), sky.toward(second));
    }
    return sum / samples;
}

} // namespace

void PicturesTest::everyPictureHasItsSize() {
    const auto check = [](const QStringList &names, int side) {
        for (const QString &name : names) {
            QVERIFY2(QImage(textureFile(name)).size() == QSize(side, side), qPrintable(name));
        }
    };
    check(grounds, 1024);
    check(waters, 512);
    check(birds, 256);
    check({"tile.png"}, 128);
}

void PicturesTest::groundsAndWatersRepeat_data() {
    QTest::addColumn<QString>("name");
    for (const QString &name : grounds + waters) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void PicturesTest::groundsAndWatersRepeat() {
    QFETCH(QString, name);
    const QImage image = texture(name);
    const int last = image.width() - 1;
    for (const bool rows : {true, false}) {
        double inside = 0;
        for (int line = 0; line < last; ++line) {
            inside += stepAfter(image, line, rows) / last;
        }
        QVERIFY(inside > 0.5);
        const double across = stepAfter(image, last, rows);
        QVERIFY2(across <= 1.2 * inside, qPrintable(QString("%1 across, %2 inside").arg(across).arg(inside)));
    }
    // Uncorrelated patches differ four times as much when they are a quarter as wide. Where wide ones differ
    // more than that, something large stands out, and again in every repeat.
    const double wide = patchDeviation(image, 8);
    const double narrow = patchDeviation(image, 32);
    QVERIFY2(wide < narrow / 4, qPrintable(QString("%1 to %2").arg(wide).arg(narrow)));
    // Spots that are few but strong stand in rows.
    const double middle = patchDeviation(image, 16);
    QVERIFY2(middle < 0.14, qPrintable(QString::number(middle)));
}

void PicturesTest::groundsAreMidBright() {
    for (const QString &name : grounds) {
        const QImage image = texture(name);
        const double mean = meanGray(image, image.rect());
        QVERIFY2(mean > 0.33 && mean < 0.86, qPrintable(QString("%1: %2").arg(name).arg(mean)));
    }
}

void PicturesTest::watersAreDarkWithBrightCrests() {
    QVector<double> brightest;
    for (const QString &name : waters) {
        const QImage image = texture(name);
        const double mean = meanGray(image, image.rect());
        QVERIFY2(mean > 0.05 && mean < 0.35, qPrintable(QString("%1: %2").arg(name).arg(mean)));
        int crests = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                crests += qGray(image.pixel(x, y)) > 2.0 * 255 * mean ? 1 : 0;
            }
        }
        const double share = static_cast<double>(crests) / (image.width() * image.height());
        QVERIFY2(share > 0.001 && share < 0.2, qPrintable(QString("%1: %2").arg(name).arg(share)));
    }
}

void PicturesTest::tileKeepsColorsReadable() {
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

void PicturesTest::skyFacesMeet_data() {
    QTest::addColumn<QString>("name");
    for (const QString &name : skies) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void PicturesTest::skyFacesMeet() {
    QFETCH(QString, name);
    const SkyView sky(name);
    QVERIFY(sky.isComplete());
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = i + 1; j < 3; ++j) {
            for (const int signs : {0, 1, 2, 3}) {
                const double si = (signs & 1) != 0 ? 1 : -1;
                const double sj = (signs & 2) != 0 ? 1 : -1;
                const double across = edgeStep(sky, i, si, j, sj, true);
                const double inside = edgeStep(sky, i, si, j, sj, false);
                QVERIFY2(across <= 1.3 * inside + 1.5,
                         qPrintable(QString("axes %1 %2 signs %3: %4 across, %5 inside")
                                        .arg(i)
                                        .arg(j)
                                        .arg(signs)
                                        .arg(across)
                                        .arg(inside)));
            }
        }
    }
}

void PicturesTest::landLiesBelowSkies() {
    const auto blueness = [](const QImage &image, const QRect &area) {
        const QImage mean = image.copy(area).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        return static_cast<double>(qBlue(mean.pixel(0, 0))) / qRed(mean.pixel(0, 0));
    };
    for (const QString &name : skies) {
        const SkyView sky(name);
        const int side = sky.face(0).width();
        const QRect all(0, 0, side, side);
        QVERIFY2(blueness(sky.face(2), all) > 1.05 * blueness(sky.face(3), all), qPrintable(name));
        for (const std::size_t face : {0U, 1U, 4U, 5U}) {
            const auto gray = [&](double from) {
                return meanGray(sky.face(face), QRect(0, static_cast<int>(from * side), side, side / 32));
            };
            // Away from the horizon the land gets darker: its edge meets a distance, not a wall.
            QVERIFY2(gray(0.51) > gray(0.6) + 0.04 && gray(0.6) > gray(0.9), qPrintable(name));
        }
    }
}

QTEST_GUILESS_MAIN(PicturesTest)
#include "PicturesTest.moc"
