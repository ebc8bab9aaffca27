#include "scene/LevelFile.h"
#include "environment/BackgroundNode.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"

#include <QTemporaryDir>
#include <sys/stat.h>

namespace {

const QByteArray example = R"(<CISG>
<CISGGroup>
<BackgroundNode  groundTexture="./data/textures/grass1.jpg" waterTexture="./data/textures/water1.jpg" cubeTexture="./data/CubeMap/clean1/mount.jpg" birdTexture="./data/textures/parrot.jpg">
1 1 1 0.2 0.4 0.8 1 0.9 0.7 1 70 1 0 1 1 1 1 1 15 9.8 3</BackgroundNode>
<MeshNode randomGeography="1" texture="./data/textures/grass1.jpg" density="2" dimension="40"  color="1 1 1">
</MeshNode>
<CharSetNode>
<CharacterNode  name="john doe">
 0 0 0.5 0 12</CharacterNode>
<CharacterNode  name="Player">
 3 99 0.7 2 40</CharacterNode>
</CharSetNode>
</CISGGroup>
</CISG>
)";

/// A level that differs from every default and holds heights.
const QByteArray everything = R"(<CISG>
<CISGGroup>
<CharSetNode>
<CharacterNode  name="&lt;&quot;&amp;&#233;&#128512;&#10;]]>">
 -1 12345 0.25 7 -1</CharacterNode>
<BackgroundNode  groundTexture=" " waterTexture="a" cubeTexture="b" birdTexture="">
0 0.25 1e-07 -1 1e+06 0.333333 0 0 0 0.5 -30 0 1 0 0 0 0 0 -2147483648 -12.5 2147483647</BackgroundNode>
</CharSetNode>
<CISGGroup>
<MeshNode randomGeography="0" texture="" density="3" dimension="1"  color="0 0.501961 -1">
0 -1.5 2 123457 0.1 -0 1e+30 3.40282e+38 9 </MeshNode>
</CISGGroup>
<CharacterNode  name="outside">
 0 0 0.5 0 3</CharacterNode>
<MeshNode randomGeography="0" texture=" " density="0" dimension="-5"  color="1 1 1">
</MeshNode>
</CISGGroup>
</CISG>
)";

std::unique_ptr<LevelDocument> levelRead(const QByteArray &bytes, bool result = true) {
    auto level = std::make_unique<LevelDocument>();
    return readLevel(*level, bytes) == result ? std::move(level) : nullptr;
}

} // namespace

class LevelFileTest : public QObject {
    Q_OBJECT

private slots:
    void theEditorsOwnNodesWriteTheExample() {
        LevelDocument level;
        level.complete();
        level.background->sunColor = {1, 0.9F, 0.7F, 1};
        level.mesh->setSize(40, 2);
        level.mesh->setRandomGeography(true);
        level.mesh->build();
        CharacterNode &john = *level.charSet->characters[4];
        john.active = john.placed = true;
        john.cell = 12;
        CharacterNode &other = *level.charSet->characters[9];
        other.active = other.placed = true;
        other.cell = 40;
        other.name = QStringLiteral("Player");
        other.modelIndex = 3;
        other.waitFor = CharacterNode::neverShoots;
        other.weaponValue = 0.7F;
        other.teamIndex = 2;
        QCOMPARE(levelBytes(level), example);
    }

    void readsAndWritesTheSameBytes_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("worked example") << example;
        QTest::newRow("every field, nested and misplaced nodes") << everything;
        QTest::newRow("no nodes") << levelOf("");
        QTest::newRow("no players") << levelOf("<CharSetNode>\n</CharSetNode>\n");
    }

    void readsAndWritesTheSameBytes() {
        QFETCH(const QByteArray, bytes);
        const auto level = levelRead(bytes);
        QVERIFY(level);
        QCOMPARE(levelBytes(*level), bytes);
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("level.xml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        LevelDocument loaded;
        QVERIFY(loaded.load(file.fileName()));
        QCOMPARE(levelBytes(loaded), bytes);
    }

    void theReferencesNameTheLastNodeOfTheirType() {
        const auto level = levelRead(everything);
        QVERIFY(level);
        QCOMPARE(level->root.children.size(), std::size_t(4));
        QVERIFY(dynamic_cast<MeshNode *>(level->root.children.back().get()) == level->mesh);
        QVERIFY(dynamic_cast<CharSetNode *>(level->root.children.front().get()) == level->charSet);
        QVERIFY(level->charSet->others.front().get() == level->background);
    }

    void startsAndStopsWhereItMust_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("result");
        QTest::addColumn<int>("nodes");
        const auto row = [](const char *name, const QByteArray &bytes, bool result, int nodes) {
            QTest::newRow(name) << bytes << result << nodes;
        };
        const QByteArray player = "<CharacterNode name='a'/>";
        row("nothing", "", false, 0);
        row("white space", " \n", false, 0);
        row("no level", "<Other><CISGGroup>" + player + "</CISGGroup></Other>", false, 0);
        row("case of the root", "<cisg><CISGGroup/></cisg>", false, 0);
        row("root without a group", "<CISG/>", false, 0);
        row("root with text only", "<CISG>text</CISG>", false, 0);
        row("another node first", "<CISG>" + player + "<CISGGroup/></CISG>", false, 0);
        row("comment before the group", "<CISG><!-- --><CISGGroup>" + player + "</CISGGroup></CISG>", false,
            0);
        row("things around the root",
            "<?xml version='1.0'?><!-- < -->\n<!DOCTYPE CISG><?a <b> ?>" + levelOf(player) + "<!-- -->", true,
            1);
        row("a document type elsewhere", "<!DOCTYPE CISG SYSTEM '[>'>" + levelOf(player), true, 1);
        row("nothing after the group is read",
            "<CISG>\n <CISGGroup>" + player + "</CISGGroup>text<Nobody/></CISG>", true, 1);
        row("not well-formed behind the group", "<CISG><CISGGroup>" + player + "</CISGGroup>", false, 0);
        row("text, comments, CDATA between nodes",
            levelOf("a" + player + "<!-- <x> --><![CDATA[<x>]]><?x <y>?>" + player + "&lt;"), true, 2);
        row("unknown tag between nodes", levelOf(player + "<Nobody/>" + player), false, 1);
        row("case of a tag", levelOf(player + "<meshNode/>" + player), false, 1);
        row("unknown tag in an inner group", levelOf("<CISGGroup><Nobody/></CISGGroup>" + player), true, 2);
        row("unknown tag among the players", levelOf("<CharSetNode><Nobody/></CharSetNode>" + player), true,
            2);
        row("unknown tag within a leaf", levelOf("<CharacterNode><Nobody/></CharacterNode>"), true, 1);
    }

    void startsAndStopsWhereItMust() {
        QFETCH(const QByteArray, bytes);
        QFETCH(const bool, result);
        QFETCH(const int, nodes);
        const auto level = levelRead(bytes, result);
        QVERIFY(level);
        QCOMPARE(int(level->root.children.size()), nodes);
    }

    void aFileThatIsNotThereIsNotRead() {
        LevelDocument level;
        QVERIFY(!level.load(QStringLiteral("./no/such/file")));
        QVERIFY(!level.load(QStringLiteral(".")));
        QVERIFY(!level.load({}));
        const QTemporaryDir folder;
        const QString fifo = folder.filePath(QStringLiteral("a\n\u001bfifo"));
        QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
        // The name of a file may hold what would rule a terminal.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^cannot open \"[ -~]*\" ")));
        QVERIFY(!level.load(fifo));
    }

    void readsNamesOfManyEncodings_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("read");
        const auto row = [](const char *name, const QByteArray &before, const QByteArray &bytes,
                            const QString &read) { QTest::newRow(name) << before << bytes << read; };
        row("UTF-8", "", "\xc3\xa9\xf0\x9f\x98\x80", QString::fromUcs4(U"\u00e9\U0001F600"));
        row("UTF-8 with a mark", "\xef\xbb\xbf", "\xc3\xa9", QStringLiteral("\u00e9"));
        row("Latin-1", "", "caf\xe9", QStringLiteral("caf\u00e9"));
        row("Latin-1, declared", "<?xml version='1.0' encoding='ISO-8859-1'?>", "\xe9",
            QStringLiteral("\u00e9"));
        row("UTF-8, declared otherwise", "<?xml version='1.0' encoding='UTF-16'?>", "\xc3\xa9",
            QStringLiteral("\u00e9"));
        row("an encoding nobody knows", "<?xml version='1.0' encoding='x-what'?>", "a", QStringLiteral("a"));
        row("a surrogate in UTF-8 is Latin-1", "", "\xed\xb0\x80", QStringLiteral("\u00ed\u00b0\u0080"));
        row("entities", "", "&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;",
            QString::fromUcs4(U"<>&\"'A\U0001F600"));
        row("white space of an attribute", "", "a\tb\r\nc&#10;", QStringLiteral("a b c\n"));
    }

    void readsNamesOfManyEncodings() {
        QFETCH(const QByteArray, before);
        QFETCH(const QByteArray, name);
        QFETCH(const QString, read);
        const auto level = levelRead(before + levelOf("<CharacterNode name=\"" + name + "\"/>"));
        QVERIFY(level);
        const auto *player = dynamic_cast<CharacterNode *>(level->root.children.front().get());
        QVERIFY(player != nullptr);
        QCOMPARE(player->name, read);
    }

    void completesWhatIsMissing() {
        const auto empty = levelRead("rubbish", false);
        QVERIFY(empty);
        empty->complete();
        QVERIFY(dynamic_cast<BackgroundNode *>(empty->root.children.front().get()) == empty->background);
        QCOMPARE(empty->root.children.size(), std::size_t(3));
        QCOMPARE(empty->mesh->vertices.size(), std::size_t(240 * 240));
        QCOMPARE(empty->mesh->texture, QStringLiteral("./data/textures/grass1.jpg"));
        QCOMPARE(empty->charSet->characters.size(), CharSetNode::slotCount);

        const auto whole = levelRead(everything);
        const QByteArray before = levelBytes(*whole);
        whole->complete();
        QCOMPARE(levelBytes(*whole), before);
    }
};

DRUVELK_TEST_MAIN(LevelFileTest)
#include "LevelFileTest.moc"
