#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelFile.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"

#include <QDomDocument>

namespace {

QByteArray player(const QByteArray &values) {
    return "<CharacterNode  name=\"a\">\n" + values + "</CharacterNode>\n";
}

/// A lone player, read from the values of its text.
std::unique_ptr<CharacterNode> playerRead(const QByteArray &values) {
    QDomDocument document;
    document.setContent(player(values));
    auto node = std::make_unique<CharacterNode>();
    return node->readXml(document.documentElement(), nullptr) ? std::move(node) : nullptr;
}

} // namespace

class PlayerNodesTest : public QObject {
    Q_OBJECT

private slots:
    void derivesNamesFromCodes_data() {
        QTest::addColumn<QByteArray>("values");
        QTest::addColumn<QStringList>("names");
        const auto row = [](const char *values, const char *model, const char *team, const char *weapon) {
            QTest::newRow(values) << QByteArray(values)
                                  << QStringList{QLatin1String(model), QLatin1String(team),
                                                 QLatin1String(weapon)};
        };
        row("0 0 0.5 0 1", "Terminator", "Blue", "Standard");
        row("1 0 0.3 1 1", "Hayden", "Green", "Small Gun");
        row("2 0 0.7 2 1", "Hunter", "Red", "Annientatore");
        row("3 0 0.51 3 1", "Rat", "Personal", "Standard");
        row("4 0 0.49 4 1", "Dire", "blue", "Standard");
        row("5 0 0.511 -1 1", "Walker", "blue", "Annientatore");
        row("7 0 -1 0 1", "Terminator", "Blue", "Small Gun");
        row("9 x y 1", "Terminator", "Green", "Standard");
    }

    void derivesNamesFromCodes() {
        QFETCH(const QByteArray, values);
        QFETCH(const QStringList, names);
        const auto node = playerRead(values);
        QVERIFY(node);
        QCOMPARE((QStringList{node->model, node->team, node->weapon}), names);
        QVERIFY(node->active);
        QVERIFY(!node->current);
    }

    void aPositionComesFromTheCell() {
        const auto placed = playerRead("9 98 0.25 3 399");
        QCOMPARE((std::array{placed->modelIndex, placed->waitFor, placed->teamIndex, placed->cell}),
                 (std::array{9, 98, 3, 399}));
        QCOMPARE(placed->weaponValue, 0.25F);
        QVERIFY(placed->placed);
        const auto anywhere = playerRead("0 0 0.5 0 -1");
        QVERIFY(!anywhere->placed && anywhere->isSaved());
        QVERIFY(!playerRead("0 0 0.5 0")->placed);
    }

    void aPlayerReadsOnlyItsOwnElement() {
        QDomDocument document;
        document.setContent(QByteArray("<CharacterNodes name='a'>1 1 1 1 1</CharacterNodes>"));
        CharacterNode node;
        QVERIFY(!node.readXml(document.documentElement(), nullptr));
        QCOMPARE(node.name, QStringLiteral("john doe"));
        document.setContent(QByteArray("<CharacterNode/>"));
        QVERIFY(node.readXml(document.documentElement(), nullptr));
        QCOMPARE(node.name, QStringLiteral("Player"));
    }

    void savesActivePlayersThatStartSomewhere() {
        for (const int cell : {CharacterNode::notPlaced, CharacterNode::randomStart, 7}) {
            for (const auto &[active, placed] :
                 {std::pair(false, false), {false, true}, {true, false}, {true, true}}) {
                LevelDocument level;
                level.complete();
                CharacterNode &node = *level.charSet->characters[15];
                node.active = active;
                node.placed = placed;
                node.cell = cell;
                const QByteArray text = "<CharacterNode  name=\"john doe\">\n 0 0 0.5 0 " +
                                        QByteArray::number(cell) + "</CharacterNode>\n";
                const bool saved = active && (placed || cell == -1);
                QVERIFY(levelBytes(level).contains("<CharSetNode>\n" + (saved ? text : QByteArray()) +
                                                   "</CharSetNode>\n"));
            }
        }
    }

    void aSetHoldsAtLeastSixteenPlayers_data() {
        QTest::addColumn<QByteArray>("children");
        QTest::addColumn<int>("players");
        QTest::addColumn<int>("active");
        const QByteArray one = player("0 0 0.5 0 -1");
        QTest::newRow("text and comments only") << QByteArray("a<!-- -->b") << 16 << 0;
        QTest::newRow("three") << one + "a" + one + "<!-- -->" + one << 16 << 3;
        QTest::newRow("twenty") << one.repeated(20) << 20 << 20;
        QTest::newRow("stopped by an unknown tag") << one + one + "<Nobody/>" + one << 16 << 2;
        QTest::newRow("a foreign node is no player") << "<MeshNode/>" + one + "<CISGGroup/>" << 16 << 1;
        QTest::newRow("a group's players are its own")
            << "<CISGGroup>" + one + "</CISGGroup>" + one << 16 << 1;
    }

    void aSetHoldsAtLeastSixteenPlayers() {
        QFETCH(const QByteArray, children);
        QFETCH(const int, players);
        QFETCH(const int, active);
        LevelDocument level;
        QVERIFY(readLevel(level, levelOf("<CharSetNode>" + children + "</CharSetNode>")));
        const auto &all = level.charSet->characters;
        QCOMPARE(int(all.size()), players);
        for (int i = 0; i < players; ++i) {
            QCOMPARE(all[std::size_t(i)]->active, i < active);
            QCOMPARE(all[std::size_t(i)]->name,
                     i < active ? QStringLiteral("a") : QStringLiteral("john doe"));
        }
    }

    void foreignNodesOfASetAreKeptBehindThePlayers() {
        LevelDocument level;
        const QByteArray mesh = "<MeshNode randomGeography=\"0\" texture=\"t\" density=\"1\" dimension=\"2\" "
                                " color=\"1 1 1\">\n1 2 3 4 </MeshNode>\n";
        const QByteArray one = player(" 0 0 0.5 0 5");
        QVERIFY(readLevel(level, levelOf("<CharSetNode>\n" + mesh + "<CharSetNode>" + one +
                                         "</CharSetNode>\n" + one + "</CharSetNode>\n")));
        QCOMPARE(level.mesh->vertices.size(), std::size_t(4));
        QCOMPARE(levelBytes(level), levelOf("<CharSetNode>\n" + one + mesh + "<CharSetNode>\n" + one +
                                            "</CharSetNode>\n</CharSetNode>\n"));
    }
};

DRUVELK_TEST_MAIN(PlayerNodesTest)
#include "PlayerNodesTest.moc"
