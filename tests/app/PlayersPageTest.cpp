#include "EditorFaults.h"

#include "models/PlayerDialog.h"

#include <QToolTip>

/// The page "Players": slots, activity, start positions, placing and counting.
class PlayersPageTest : public QObject {
    Q_OBJECT

    static std::pair<int, int> shownCounts(const EditorDriver &editor) {
        return {editor.window->numPlayer->value(), editor.window->numTeams->value()};
    }

private slots:
    void thePanelShowsTheSelectedPlayer() {
        const EditorDriver editor([](LevelDocument &level) {
            enlist(level, 0, 1, 5);
            enlist(level, 1, 2, 399);
            level.charSet->characters[1]->name = QStringLiteral("Zoë the Long ").repeated(20);
            level.charSet->characters[1]->waitFor = 99;
        });
        QVERIFY(editor.player(0).current && editor.window->textLabelName->toolTip().isEmpty());
        for (const char *slot : {"1", "2", "16"}) {
            editor.pick("CharID", QLatin1String(slot));
            QCOMPARE(faultOf(editor), QByteArray());
            QVERIFY(editor.player(std::size_t(atoi(slot)) - 1).current);
            QVERIFY(editor.player(0).active && editor.player(1).active);
            // What has no room can be read in a tool tip.
            const QString &name = editor.player(1).name;
            QCOMPARE(editor.window->textLabelName->toolTip(), *slot == '2' ? name : QString());
        }
        QVERIFY(!editor.player(0).current && !editor.player(1).current);
    }

    void aPlayerCountsOnceItIsActiveAndPlaced() {
        const EditorDriver editor;
        editor.click("activeNow");
        QVERIFY(editor.player(0).active);
        QCOMPARE(shownCounts(editor), std::pair(0, 0));
        editor.selectCell(7, 2);
        editor.click("Place");
        QCOMPARE(editor.player(0).cell, 47);
        QCOMPARE(shownCounts(editor), std::pair(1, 1));
        // The cell is taken: the next player finds no place in it.
        editor.pick("CharID", QStringLiteral("2"));
        editor.click("activeNow");
        editor.click("Place");
        QCOMPARE(editor.player(1).cell, CharacterNode::notPlaced);
        QCOMPARE(QToolTip::text(), QStringLiteral("No selected cell is free"));
        QVERIFY(!editor.window->Place->isChecked());
        QCOMPARE(faultOf(editor), QByteArray());
        editor.selectCell(8, 2);
        editor.click("Place");
        QCOMPARE(editor.player(1).cell, 48);
        // Both on the team Blue.
        QCOMPARE(shownCounts(editor), std::pair(2, 1));
        QCOMPARE(faultOf(editor), QByteArray());
        ViewDriver map = editor.map();
        QVERIFY(shows(map.pixel(map.cellAt(8, 2)), 0, 0, 1));
        editor.click("activeNow");
        QCOMPARE(shownCounts(editor), std::pair(1, 1));
        QVERIFY(!shows(map.pixel(map.cellAt(8, 2)), 0, 0, 1));
    }

    void randomStartTakesEverybodyOffTheMap() {
        const EditorDriver editor([](LevelDocument &level) {
            enlist(level, 0, 0, 17);
            enlist(level, 1, 3, 18);
        });
        for (const int cell : {CharacterNode::randomStart, CharacterNode::notPlaced}) {
            const bool isRandom = cell == CharacterNode::randomStart;
            editor.click("randomStart");
            QCOMPARE(editor.window->Place->isEnabled(), !isRandom);
            for (std::size_t i = 0; i < 16; ++i) {
                QVERIFY(editor.player(i).cell == cell && !editor.player(i).placed);
            }
            QCOMPARE(shownCounts(editor), isRandom ? std::pair(2, 2) : std::pair(0, 0));
            QCOMPARE(faultOf(editor), QByteArray());
        }
    }

    void editingChangesTheSelectedPlayerOnly() {
        const EditorDriver editor([](LevelDocument &level) {
            enlist(level, 0, 0, 17);
            enlist(level, 1, 0, 18);
        });
        editor.pick("CharID", QStringLiteral("2"));
        const auto open = [&] { editor.click("EditChar"); };
        QVERIFY(EditorDriver::answer<PlayerDialog>(open, [](PlayerDialog &form) {
            QTest::keyClick(form.TeamBox, Qt::Key_Down);
            QTest::mouseClick(form.buttonCancel, Qt::LeftButton);
            QVERIFY(!form.isVisible());
        }));
        QCOMPARE(editor.player(1).teamIndex, 0);
        QVERIFY(EditorDriver::answer<PlayerDialog>(open, [](PlayerDialog &form) {
            QCOMPARE(form.Name->selectedText(), QStringLiteral("john doe"));
            QTest::keyClicks(form.Name, QStringLiteral("Ada"));
            QTest::keyClick(form.TeamBox, Qt::Key_Down);
            QTest::keyClick(form.WeaponBox, Qt::Key_Up);
            QTest::keyClick(form.ifWait, Qt::Key_Space);
            QTest::mouseClick(form.buttonOk, Qt::LeftButton);
        }));
        const CharacterNode &edited = editor.player(1);
        QCOMPARE(edited.name, QStringLiteral("Ada"));
        QVERIFY(edited.teamIndex == 1 && edited.waitFor == 99 && edited.weaponValue == 0.7F);
        QVERIFY(edited.active && edited.placed && edited.cell == 18);
        QCOMPARE(editor.player(0).teamIndex, 0);
        QCOMPARE(faultOf(editor), QByteArray());
    }
};

DRUVELK_TEST_MAIN(PlayersPageTest)
#include "PlayersPageTest.moc"
