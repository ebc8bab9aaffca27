#include "environment/BackgroundNode.h"
#include "support/druvelkTest.h"

#include <QDomDocument>
#include <QTextStream>

namespace {

bool read(BackgroundNode &node, const QString &text) {
    QDomDocument document;
    return document.setContent(text) && node.readXml(document.documentElement(), nullptr);
}

} // namespace

class BackgroundNodeTest : public QObject {
    Q_OBJECT

private slots:
    void writesWhatItRead() {
        const QString text =
            "<BackgroundNode  groundTexture=\"./data/textures/grass1.jpg\" waterTexture=\"w &amp; &quot;\" "
            "cubeTexture=\"./data/CubeMap/&#1085;/mount.jpg\" birdTexture=\"parrot\">\n"
            "0.501961 1 0.25 0.2 0.4 0.8 1 0.9 0.7 1 171 0 1 0 1 0 1 0 15 6.4 3</BackgroundNode>\n";
        BackgroundNode node;
        QVERIFY(read(node, text));
        QCOMPARE(node.dayTime, 171);
        QVERIFY(!node.water && node.fog && !node.waterWalking && node.craters && !node.bengala &&
                node.deathTouch && !node.dynamicTime);
        QCOMPARE(node.getCubeTexture(), QString::fromUtf8("./data/CubeMap/н/mount.jpg"));
        QString written;
        QTextStream out(&written);
        node.writeXml(out);
        QCOMPARE(written, text);
        QVERIFY(read(node, "<BackgroundNode groundTexture='g'/>"));
        QCOMPARE(node.groundTexture + node.waterTexture + node.cubeTexture + node.birdTexture, "g   ");
    }

    void skyTintFollowsTheHeightOfTheSun() {
        constexpr std::array<std::array<float, 3>, 5> tints{
            {{0.1F, 0.1F, 0.3F}, {0.3F, 0.3F, 0.4F}, {0.65F, 0.45F, 0.3F}, {0.8F, 0.7F, 0.6F}, {1, 1, 1}}};
        BackgroundNode node;
        for (node.dayTime = -90; node.dayTime < 270; ++node.dayTime) {
            const int height = std::min(node.dayTime, 180 - node.dayTime);
            const int step = int(height >= 10) + int(height >= 30) + int(height >= 50) + int(height >= 70);
            node.updateSkyTint();
            QVERIFY2(node.skyTint == tints[std::size_t(step)], qPrintable(QString::number(node.dayTime)));
        }
    }
};

DRUVELK_TEST_MAIN(BackgroundNodeTest)
#include "BackgroundNodeTest.moc"
