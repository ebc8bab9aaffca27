#include "EditorDriver.h"
#include "models/PlayerDialog.h"

#include <QToolTip>

/// The page "Players": slots, activity, start positions, placing and counting.
class PlayersPageTest : public QObject {
    Q_OBJECT

    static QString text(const EditorDriver &editor, const char *label) {
        return editor.find<QLabel>(label).text();
    }

    static std::pair<int, int> shownCounts(const EditorDriver &editor) {
        return {editor.find<QSpinBox>("numPlayer").value(), editor.find<QSpinBox>("numTeams").value()};
    }

private slots:
    void thePanelShowsTheSelectedPlayer() {
        const EditorDriver editor([](LevelDocument &level) {
            enlist(level, 0, 1, 5);
            enlist(level, 1, 2, 399);
            level.charSet->characters[1]->name = QStringLiteral("<b>Zoë</b>");
            level.charSet->characters[1]->waitFor = 99;
            level.charSet->characters[1]->weaponValue = 0.3F;
            level.charSet->characters[1]->modelIndex = 4;
        });
        QCOMPARE(shownCounts(editor), std::pair(2, 2));
        QVERIFY(editor.player(0).current);
        QCOMPARE(text(editor, "textLabelPlaced"), QStringLiteral("yes"));
        editor.pick("CharID", QStringLiteral("2"));
        QVERIFY(editor.player(1).current && !editor.player(0).current);
        QCOMPARE(text(editor, "textLabelName"), QStringLiteral("<b>Zoë</b>"));
        QCOMPARE(text(editor, "textLabelCharacter"), QStringLiteral("Dire"));
        QCOMPARE(text(editor, "textLabelWeapon"), QStringLiteral("Small Gun"));
        QCOMPARE(text(editor, "textLabelTeam"), QStringLiteral("Red"));
        QCOMPARE(text(editor, "textLabelWait"), QStringLiteral("99"));
        QVERIFY(editor.find<QGroupBox>("groupBox4").isEnabled());
        auto &name = editor.find<QLabel>("textLabelName");
        QVERIFY(name.toolTip().isEmpty());
        const QString endless = QStringLiteral("Zoë the Long ").repeated(20);
        editor.player(1).name = endless;
        editor.window->readBackLevel();
        QCOMPARE(name.text(), endless);
        QCOMPARE(name.toolTip(), endless);
        editor.pick("CharID", QStringLiteral("16"));
        QVERIFY(!editor.find<QGroupBox>("groupBox4").isEnabled());
        QVERIFY(!editor.find<QCheckBox>("activeNow").isChecked());
        QVERIFY(editor.player(0).active && editor.player(1).active);
        QCOMPARE(text(editor, "textLabelPlaced"), QStringLiteral("no"));
    }

    void aPlayerCountsOnceItIsActiveAndPlaced() {
        const EditorDriver editor;
        editor.click("activeNow");
        QVERIFY(editor.player(0).active);
        QCOMPARE(shownCounts(editor), std::pair(0, 0));
        editor.selectCell(7, 2);
        editor.click("Place");
        QCOMPARE(editor.player(0).cell, 47);
        QVERIFY(editor.player(0).placed);
        QCOMPARE(text(editor, "textLabelPlaced"), QStringLiteral("yes"));
        QCOMPARE(shownCounts(editor), std::pair(1, 1));
        // The cell is taken: the next player finds no place in it.
        editor.pick("CharID", QStringLiteral("2"));
        editor.click("activeNow");
        editor.click("Place");
        QCOMPARE(editor.player(1).cell, CharacterNode::notPlaced);
        const auto middleOfDot = [&] {
            return editor.find<QComboBox>("CharID").itemIcon(1).pixmap(16, 16).toImage().pixelColor(8, 8);
        };
        QCOMPARE(middleOfDot().alpha(), 0);
        QCOMPARE(QToolTip::text(), QStringLiteral("No selected cell is free"));
        QVERIFY(!editor.find<QPushButton>("Place").isChecked());
        editor.selectCell(8, 2);
        editor.click("Place");
        QCOMPARE(editor.player(1).cell, 48);
        QCOMPARE(middleOfDot(), QColor(Qt::blue));
        // Both on the team Blue.
        QCOMPARE(shownCounts(editor), std::pair(2, 1));
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
        editor.click("randomStart");
        QVERIFY(!editor.find<QPushButton>("Place").isEnabled());
        for (std::size_t i = 0; i < 16; ++i) {
            QVERIFY(editor.player(i).cell == CharacterNode::randomStart && !editor.player(i).placed);
        }
        QCOMPARE(shownCounts(editor), std::pair(2, 2));
        QCOMPARE(text(editor, "textLabelPlaced"), QStringLiteral("no"));
        editor.click("randomStart");
        QVERIFY(editor.find<QPushButton>("Place").isEnabled());
        for (std::size_t i = 0; i < 16; ++i) {
            QCOMPARE(editor.player(i).cell, CharacterNode::notPlaced);
        }
        QCOMPARE(shownCounts(editor), std::pair(0, 0));
    }

    void switchingRandomStartOffLeavesPlacedPlayers() {
        const EditorDriver editor([](LevelDocument &level) { enlist(level, 0, 0, -1); });
        QVERIFY(editor.find<QCheckBox>("randomStart").isChecked());
        editor.player(0).cell = 3;
        editor.player(1).cell = 4;
        editor.click("randomStart");
        QCOMPARE(editor.player(0).cell, 3);
        QCOMPARE(editor.player(1).cell, 4);
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
        }));
        QCOMPARE(editor.player(1).teamIndex, 0);
        QVERIFY(EditorDriver::answer<PlayerDialog>(open, [](PlayerDialog &form) {
            QCOMPARE(form.Name->text(), QStringLiteral("john doe"));
            QCOMPARE(form.Name->selectedText(), form.Name->text());
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
        QCOMPARE(text(editor, "textLabelName"), QStringLiteral("Ada"));
        QCOMPARE(shownCounts(editor), std::pair(2, 2));
    }
};

DRUVELK_TEST_MAIN(PlayersPageTest)
#include "PlayersPageTest.moc"
