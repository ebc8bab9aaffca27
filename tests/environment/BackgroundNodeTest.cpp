#include "environment/BackgroundNode.h"
#include "support/druvelkTest.h"

#include <QDomDocument>
#include <QTextStream>

namespace {

QString written(const BackgroundNode &node) {
    QString text;
    QTextStream out(&text);
    node.writeXml(out);
    return text;
}

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
        QCOMPARE(written(node), text);
    }

    void onlyOneIsTrue() {
        BackgroundNode node;
        node.water = node.fog = false;
        QVERIFY(read(node, "<BackgroundNode>1 1 1 1 1 1 1 1 1 1 70 2 1 -1 +1 x</BackgroundNode>"));
        QVERIFY(!node.water && node.fog && !node.waterWalking && node.craters);
    }

    void missingAttributesAreOneSpace() {
        BackgroundNode node;
        node.setBirdTexture("old");
        QVERIFY(read(node, "<BackgroundNode groundTexture='g'/>"));
        QCOMPARE(node.getGroundTexture() + node.getWaterTexture() + node.getCubeTexture() +
                     node.getBirdTexture(),
                 "g   ");
        QVERIFY(!read(node, "<backgroundNode groundTexture='other'/>"));
        QCOMPARE(node.getGroundTexture(), "g");
    }

    void skyTintFollowsTheDayTime() {
        using Tint = std::array<float, 3>;
        const Tint night{0.1F, 0.1F, 0.3F};
        const Tint dusk{0.3F, 0.3F, 0.4F};
        const Tint low{0.65F, 0.45F, 0.3F};
        const Tint slanting{0.8F, 0.7F, 0.6F};
        const Tint high{1, 1, 1};
        const std::vector<std::pair<int, Tint>> rows{
            {-90, night},   {9, night},     {10, dusk},  {29, dusk},  {30, low},       {49, low},
            {50, slanting}, {69, slanting}, {70, high},  {110, high}, {111, slanting}, {130, slanting},
            {131, low},     {150, low},     {151, dusk}, {170, dusk}, {171, night}};
        for (const auto &[dayTime, tint] : rows) {
            BackgroundNode node;
            node.dayTime = dayTime;
            node.updateSkyTint();
            QVERIFY2(node.skyTint == tint, qPrintable(QString::number(dayTime)));
            node.setMapSize(2, 40);
            QCOMPARE(node.skyTint, high);
        }
    }

    void scrollOffsetIsDrawnWithEveryConstruction() {
        QSet<int> drawn;
        for (int i = 0; i < 3000; ++i) {
            const BackgroundNode node;
            drawn << BackgroundRenderer::waterScrollOffset;
        }
        QCOMPARE(drawn.size(), 100);
        QCOMPARE(*std::min_element(drawn.begin(), drawn.end()), -49999);
        QCOMPARE(*std::max_element(drawn.begin(), drawn.end()), 48999);
    }
};

DRUVELK_TEST_MAIN(BackgroundNodeTest)
#include "BackgroundNodeTest.moc"
