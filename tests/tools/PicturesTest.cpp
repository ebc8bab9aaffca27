#include <QDir>
#include <QImage>
#include <QtTest>
#include <array>
#include <cmath>

/// Looks at the pictures of the built data tree.
class PicturesTest : public QObject {
    Q_OBJECT

private slots:
    void everyPictureHasItsSize_data();
    void everyPictureHasItsSize();
    void groundsAndWatersWrap_data();
    void groundsAndWatersWrap();
    void groundsAreMidBrightAndEven_data();
    void groundsAreMidBrightAndEven();
    void watersAreDarkWithBrightCrests();
    void tileKeepsColorsReadable();
    void skyFacesMeet_data();
    void skyFacesMeet();
    void skiesStandUpright_data();
    void skiesStandUpright();
};

namespace {

const QStringList grounds{"grass1", "grass2",    "grass3",    "desert1", "desert2", "desert3",
                          "sand",   "vulcanic1", "vulcanic2", "snow1",   "snow2",   "daffodils"};
const QStringList waters{"water1", "water2", "water3"};
const QStringList birds{"parrot", "eagle1", "eagle2"};
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
        return std::all_of(m_faces.begin(), m_faces.end(),
                           [](const QImage &face) { return face.width() == 512; });
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

void nameRows(const QStringList &names) {
    QTest::addColumn<QString>("name");
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

} // namespace

void PicturesTest::everyPictureHasItsSize_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("side");
    const auto add = [](const QStringList &names, int side) {
        for (const QString &name : names) {
            QTest::newRow(qPrintable(name)) << textureFile(name + ".jpg") << side;
        }
    };
    add(grounds, 1024);
    add(waters, 512);
    add(birds, 256);
    QTest::newRow("tile") << textureFile("tile.png") << 128;
}

void PicturesTest::everyPictureHasItsSize() {
    QFETCH(QString, file);
    QFETCH(int, side);
    QCOMPARE(QImage(file).size(), QSize(side, side));
}

void PicturesTest::groundsAndWatersWrap_data() {
    nameRows(grounds + waters);
}

void PicturesTest::groundsAndWatersWrap() {
    QFETCH(QString, name);
    const QImage image = texture(name + ".jpg");
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
}

void PicturesTest::groundsAreMidBrightAndEven_data() {
    nameRows(grounds);
}

void PicturesTest::groundsAreMidBrightAndEven() {
    QFETCH(QString, name);
    const QImage image = texture(name + ".jpg");
    const double mean = meanGray(image, image.rect());
    QVERIFY2(mean > 0.36 && mean < 0.86, qPrintable(QString::number(mean)));
    // A corner that stands out from the rest would draw a grid over the map.
    constexpr int parts = 4;
    const int part = image.width() / parts;
    for (int i = 0; i < parts * parts; ++i) {
        const double tone = meanGray(image, QRect(i % parts * part, i / parts * part, part, part));
        QVERIFY2(std::abs(tone / mean - 1) < 0.10,
                 qPrintable(QString("part %1: %2 of the mean").arg(i).arg(tone / mean)));
    }
}

void PicturesTest::watersAreDarkWithBrightCrests() {
    QVector<double> brightest;
    for (const QString &name : waters) {
        const QImage image = texture(name + ".jpg");
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
    // The cells' rims can be told apart.
    QVERIFY(meanGray(tile, QRect(40, 119, 48, 2)) < 0.85);
}

void PicturesTest::skyFacesMeet_data() {
    nameRows(skies);
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

void PicturesTest::skiesStandUpright_data() {
    nameRows(skies);
}

void PicturesTest::skiesStandUpright() {
    QFETCH(QString, name);
    const SkyView sky(name);
    QVERIFY(sky.isComplete());
    // Below the horizon there is only haze, which is smooth; above it there is more to see.
    const auto roughness = [](const QImage &face, int from, int to) {
        double low = 255;
        double high = 0;
        for (int y = from; y < to; y += 4) {
            for (int x = 0; x < face.width(); x += 4) {
                const int red = qRed(face.pixel(x, y));
                low = std::min<double>(low, red);
                high = std::max<double>(high, red);
            }
        }
        return high - low;
    };
    for (const std::size_t side : {0U, 1U, 4U, 5U}) {
        QVERIFY(roughness(sky.face(side), 0, 256) > 1.5 * roughness(sky.face(side), 256, 512));
    }
    QVERIFY(roughness(sky.face(3), 0, 512) < 24);
    QVERIFY(roughness(sky.face(2), 0, 512) > roughness(sky.face(3), 0, 512));
}

QTEST_GUILESS_MAIN(PicturesTest)
#include "PicturesTest.moc"
