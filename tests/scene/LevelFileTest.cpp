#include "scene/LevelFile.h"
#include "scene/RandomLevel.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"
#include "support/randomSeed.h"

#include <QTemporaryDir>
#include <clocale>
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

QByteArray player(const QByteArray &values) {
    return "<CharacterNode  name=\"a\">\n" + values + "</CharacterNode>\n";
}

std::unique_ptr<LevelDocument> levelRead(const QByteArray &bytes, bool result = true) {
    auto level = std::make_unique<LevelDocument>();
    return readLevel(*level, bytes) == result ? std::move(level) : nullptr;
}

} // namespace

class LevelFileTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        // The decimal comma of a locale must not reach the file, nor be asked for when reading.
        QLocale::setDefault(QLocale(QLocale::German));
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }

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
        static_cast<PlayerContent &>(other) = john;
        other.cell = 40;
        other.name = QStringLiteral("Player");
        other.modelIndex = 3;
        other.waitFor = CharacterNode::neverShoots;
        other.weaponValue = 0.7F;
        other.teamIndex = 2;
        QCOMPARE(levelBytes(level), example);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("level.xml"));
        LevelDocument loaded;
        QVERIFY(saveLevel(level, file) && loaded.load(file));
        QCOMPARE(levelBytes(loaded), example);
    }

    /// Also whatever a few damaged bytes make of it: what is saved of that reads back the same.
    void anyLevelIsWrittenAndReadBack() {
        const quint32 seed = randomSeed();
        QRandomGenerator random(seed);
        int readDamaged = 0;
        for (quint32 i = 0; i < 500; ++i) {
            const RandomLevel made(seed + i);
            QCOMPARE(levelBytes(made.level), made.text());
            const auto level = levelRead(made.text());
            QVERIFY2(level, made.text());
            QCOMPARE(levelBytes(*level), made.text());
            level->complete();
            QCOMPARE(level->mesh->texture, made.level.mesh->texture);
            QCOMPARE(level->background->dayTime, made.level.background->dayTime);
            const auto &players = level->charSet->characters;
            QCOMPARE(int(players.size()), std::max(16, made.savedPlayers));
            for (int slot = 0; slot < int(players.size()); ++slot) {
                const CharacterNode &one = *players[std::size_t(slot)];
                QCOMPARE(one.active, slot < made.savedPlayers);
                QCOMPARE(one.placed, one.active && one.cell != -1);
            }

            QByteArray bytes = made.text();
            for (int damage = 0; damage < 3; ++damage) {
                const QByteArray marks("\x00<>&'\"/!]9 -\xc3", 13);
                bytes[random.bounded(bytes.size())] = marks[random.bounded(marks.size())];
                LevelDocument damaged;
                readDamaged += readLevel(damaged, bytes) ? 1 : 0;
                const QByteArray saved = levelBytes(damaged);
                const auto again = levelRead(saved);
                QVERIFY2(again, bytes);
                QCOMPARE(levelBytes(*again), saved);
            }
        }
        QVERIFY(readDamaged > 100);
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
        row("no level", "<Other><CISGGroup>" + player + "</CISGGroup></Other>", false, 0);
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
        row("case of a tag", levelOf(player + "<meshNode/>" + player), false, 1);
        row("unknown tag in an inner group", levelOf("<CISGGroup><Nobody/></CISGGroup>" + player), true, 2);
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
        row("UTF-8, declared otherwise", "<?xml version='1.0' encoding='UTF-16'?>", "\xc3\xa9",
            QStringLiteral("\u00e9"));
        row("an encoding nobody knows", "<?xml version='1.0' encoding='x-what'?>", "a", QStringLiteral("a"));
        row("a surrogate in UTF-8 is Latin-1", "", "\xed\xb0\x80", QStringLiteral("\u00ed\u00b0\u0080"));
        row("entities", "", "&gt;&apos;&#65;&#x1F600;", QString::fromUcs4(U">'A\U0001F600"));
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

    void playersAreNamedByTheirCodes() {
        const auto level =
            levelRead(levelOf("<CharSetNode>" + player("1 0 0.3 1 1") + player("6 0 0.7 2 1") +
                              player("3 0 0.51 3 1") + player("4 0 0.49 4 1") + player("7 0 0.511 -1 1") +
                              player("9 x y 1") + "<CharacterNode/></CharSetNode>"));
        QVERIFY(level);
        QStringList names;
        for (const auto &one : level->charSet->characters) {
            names += one->model + u' ' + one->team + u' ' + one->weapon;
        }
        QCOMPARE(names.first(6), QStringList({"Hayden Green Small Gun", "Marine Red Annientatore",
                                              "Rat Personal Standard", "Dire blue Standard",
                                              "Terminator blue Annientatore", "Terminator Green Standard"}));
        QVERIFY(!level->charSet->characters[5]->placed);
        QCOMPARE(level->charSet->characters[6]->name, QStringLiteral("Player"));
    }

    void aSetKeepsItsPlayersInFrontOfOtherNodes() {
        const QByteArray one = player(" 0 0 0.5 0 5");
        const QByteArray two = player(" 0 0 0.5 0 -1");
        const QByteArray group = "<CISGGroup>\n" + one + "</CISGGroup>\n";
        const auto level = levelRead(levelOf("<CharSetNode>a<!-- -->" + group + one + "a" + two +
                                             "<Nobody/>" + one + "</CharSetNode>" + one));
        QVERIFY(level);
        QCOMPARE(levelBytes(*level),
                 levelOf("<CharSetNode>\n" + one + two + group + "</CharSetNode>\n" + one));
        QCOMPARE(level->charSet->characters.size(), CharSetNode::slotCount);
    }

    void completesWhatIsMissing() {
        const auto empty = levelRead("rubbish", false);
        QVERIFY(empty);
        empty->complete();
        QCOMPARE(empty->root.children.front().get(), empty->background);
        QCOMPARE(empty->root.children.size(), std::size_t(3));
        QCOMPARE(empty->mesh->vertices.size(), std::size_t(240 * 240));
        QCOMPARE(empty->charSet->characters.size(), CharSetNode::slotCount);
    }
};

DRUVELK_TEST_MAIN(LevelFileTest)
#include "LevelFileTest.moc"
