#include "EditorDriver.h"

#include "app/InitDialog.h"
#include "models/PlayerDialog.h"

/// New, Open and Save through their dialogs, and what a level shows when it is read back.
class FileCommandsTest : public QObject {
    Q_OBJECT

    static bool makeMap(const EditorDriver &editor, const QString &dimension, const QString &accuracy) {
        return EditorDriver::answer<InitDialog>([&] { editor.clickTool("fileNewAction"); },
                                                [&](InitDialog &form) {
                                                    EditorDriver::pickFrom(*form.mapDimension, dimension);
                                                    EditorDriver::pickFrom(*form.mapScale, accuracy);
                                                    QTest::mouseClick(form.buttonOk, Qt::LeftButton);
                                                });
    }

    static QString sizeTexts(const EditorDriver &editor) {
        return editor.find<QLabel>("DimensionTextLabel").text() + u' ' +
               editor.find<QLabel>("AccuracyTextLabel").text();
    }

    static void twoTeams(LevelDocument &level) {
        enlist(level, 0, 0, 17);
        enlist(level, 1, 1, 18);
    }

private slots:
    void newMapsComeInTheirSizes_data() {
        QTest::addColumn<QString>("dimension");
        QTest::addColumn<QString>("accuracy");
        QTest::addColumn<int>("points");
        const auto row = [](const char *dimension, const char *accuracy, int points) {
            QTest::addRow("%s %s", dimension, accuracy)
                << QString::fromLatin1(dimension) << QString::fromLatin1(accuracy) << points;
        };
        row("Small", "Low", 80);
        row("Medium", "High", 240);
        row("Large", "High", 320);
    }

    void newMapsComeInTheirSizes() {
        QFETCH(QString, dimension);
        QFETCH(QString, accuracy);
        QFETCH(int, points);
        const EditorDriver editor(twoTeams);
        editor.selectCell(0, 0);
        editor.map().wheel(120);
        QVERIFY(makeMap(editor, dimension, accuracy));
        const MeshNode &mesh = *editor.level().mesh;
        QCOMPARE(mesh.pointsPerSide(), points);
        QVERIFY(std::all_of(mesh.vertices.begin(), mesh.vertices.end(),
                            [](const TerrainVertex &vertex) { return vertex.position.y == 0; }));
        QCOMPARE(sizeTexts(editor), QString::fromLatin1(QTest::currentDataTag()));
        const GLMapWidget &view = *editor.window->mapView;
        QCOMPARE(view.center.x, view.dimension / 2);
        QCOMPARE(view.cells->pointsPerSide, points);
        QCOMPARE(editor.environment().dimension * editor.environment().density, points);
    }

    void aNewMapResetsOptionsAndPlayersAndKeepsTheDress() {
        const EditorDriver editor([](LevelDocument &level) {
            twoTeams(level);
            for (std::size_t i = 2; i < 20; ++i) {
                if (i >= 16) {
                    level.charSet->characters.push_back(std::make_unique<CharacterNode>());
                }
                enlist(level, i, i < 16 ? 0 : 2, 20);
            }
            level.mesh->randomGeography = true;
            BackgroundNode &environment = *level.background;
            environment.water = environment.waterWalking = environment.craters = environment.bengala = false;
            environment.deathTouch = environment.dynamicTime = false;
            environment.fog = true;
            environment.birdsNumber = 0;
            environment.dayTime = 171;
            environment.gravity = 6.4F;
            environment.sunSpeed = 4;
        });
        editor.pick("CharID", QStringLiteral("5"));
        // Of the twenty players only sixteen count, and only they stay.
        QCOMPARE(editor.find<QSpinBox>("numTeams").value(), 2);
        QCOMPARE(editor.level().charSet->characters.size(), std::size_t(20));
        QVERIFY(makeMap(editor, QStringLiteral("Small"), QStringLiteral("Low")));
        QCOMPARE(editor.level().charSet->characters.size(), std::size_t(16));
        for (const char *box : {"water", "waterWalking", "craters", "bengala", "deathTouch", "DynamicTime"}) {
            QVERIFY2(editor.find<QCheckBox>(box).isChecked(), box);
        }
        for (const char *box : {"Fog", "randomGeo", "activeNow"}) {
            QVERIFY2(!editor.find<QCheckBox>(box).isChecked(), box);
        }
        QVERIFY(!editor.level().mesh->randomGeography && !editor.window->mapView->randomGeo);
        QCOMPARE(editor.find<QSpinBox>("birdsNumber").value(), 3);
        QVERIFY(!editor.player(0).active && !editor.player(0).placed && editor.player(0).cell == 17);
        QCOMPARE(editor.find<QSpinBox>("numPlayer").value(), 0);
        QCOMPARE(editor.find<QSpinBox>("numTeams").value(), 0);
        QCOMPARE(editor.find<QComboBox>("dayTime").currentText(), QStringLiteral("night"));
        QVERIFY(editor.environment().gravity == 6.4F && editor.environment().sunSpeed == 4);
        QVERIFY(std::all_of(editor.window->mapView->cells->cells.begin(),
                            editor.window->mapView->cells->cells.end(),
                            [](const MapCell &cell) { return cell.vacant; }));
    }

    void cancelledDialogsChangeNothing() {
        const EditorDriver editor(twoTeams);
        const LevelDocument *const before = &editor.level();
        for (const char *action : {"fileNewAction", "fileOpenAction", "fileSaveAction"}) {
            QVERIFY(EditorDriver::answer<QDialog>(
                [&] { editor.clickTool(action); },
                [](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }));
        }
        QCOMPARE(&editor.level(), before);
        QCOMPARE(editor.level().mesh->pointsPerSide(), 80);
        QVERIFY(QDir(QStringLiteral("levels")).isEmpty());
    }

    void savingNeedsTwoTeams() {
        const EditorDriver editor([](LevelDocument &level) {
            enlist(level, 0, 0, 17);
            enlist(level, 1, 0, 18);
        });
        const auto refused = [&] {
            return EditorDriver::answer<QMessageBox>(
                [&] { editor.clickTool("fileSaveAction"); },
                [](QMessageBox &box) {
                    QCOMPARE(box.windowTitle(), QStringLiteral("Cannot Save File"));
                    QCOMPARE(box.text(), QStringLiteral("You have to choose at least 2 "
                                                        "teams and 2 players"));
                    QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
                });
        };
        QVERIFY(refused());
        editor.player(1).teamIndex = 7;
        QVERIFY(refused());
        QVERIFY(QDir(QStringLiteral("levels")).isEmpty());
    }

    void namesAreCompletedBeforeTheyAreAskedAbout() {
        const EditorDriver editor(twoTeams);
        for (const char *name : {"loud.XML", "my.v2"}) {
            QVERIFY(editor.answerFile("fileSaveAction", QLatin1String(name)));
        }
        QCOMPARE(QDir(QStringLiteral("levels")).entryList(QDir::Files),
                 (QStringList{"loud.XML", "my.v2.xml"}));
        const QString file = QStringLiteral("levels/my.v2.xml");
        QFile mark(file);
        QVERIFY(mark.open(QIODevice::WriteOnly) && mark.write("precious") == 8);
        mark.close();
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            bool asked = false;
            const auto saveAs = [&](QFileDialog &dialog) {
                asked = EditorDriver::answer<QMessageBox>(
                    [&] { EditorDriver::enterFile(dialog, QStringLiteral("my.v2")); },
                    [&](QMessageBox &box) {
                        QVERIFY(box.text().contains(QStringLiteral("my.v2.xml")));
                        QTest::mouseClick(box.button(button), Qt::LeftButton);
                    });
            };
            QVERIFY(EditorDriver::answer<QFileDialog>([&] { editor.clickTool("fileSaveAction"); }, saveAs));
            QVERIFY(asked);
            QCOMPARE(EditorDriver::contentOf(file) == "precious", button == QMessageBox::No);
        }
    }

    void openingShowsTheLevelsSize_data() {
        QTest::addColumn<int>("dimension");
        QTest::addColumn<int>("density");
        QTest::addColumn<QString>("labels");
        QTest::addColumn<int>("viewDimension");
        QTest::addColumn<int>("viewAccuracy");
        QTest::newRow("small") << 40 << 2 << QStringLiteral("Small Low") << 40 << 2;
        QTest::newRow("large") << 80 << 4 << QStringLiteral("Large High") << 80 << 4;
        QTest::newRow("odd") << 50 << 3 << QStringLiteral("Medium High") << 60 << 4;
    }

    void openingShowsTheLevelsSize() {
        QFETCH(int, dimension);
        QFETCH(int, density);
        const EditorDriver editor;
        EditorDriver::writeLevel(QStringLiteral("levels/a.xml"), [&](LevelDocument &level) {
            level.mesh->setSize(dimension, density);
            level.mesh->build([] { return 2.0F; });
            enlist(level, 0, 2, 210);
        });
        editor.clickTool("Preview");
        editor.clickTool("Wired");
        QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("a.xml")));
        QTEST(sizeTexts(editor), "labels");
        QTEST(editor.window->mapView->dimension, "viewDimension");
        QTEST(editor.window->mapView->accuracy, "viewAccuracy");
        QCOMPARE(editor.window->mapView->cells->terrain, editor.level().mesh);
        QCOMPARE(editor.find<QSpinBox>("numPlayer").value(), 1);
        QCOMPARE(editor.level().mesh->wired, 1);
        editor.clickTool("Preview");
        ViewDriver map = editor.map();
        QVERIFY(shows(map.pixel(map.cellAt(10, 10)), 1, 0, 0));
    }

    void readBackMendsOddValues() {
        const EditorDriver editor([](LevelDocument &level) {
            level.background->dayTime = 100;
            level.background->gravity = 9.81F;
            level.background->sunSpeed = 40;
            level.background->birdsNumber = -2;
            level.background->water = false;
            level.background->waterWalking = true;
        });
        QCOMPARE(editor.find<QComboBox>("dayTime").currentText(), QStringLiteral("noon"));
        QCOMPARE(editor.environment().dayTime, 70);
        QCOMPARE(editor.find<QComboBox>("gravity").currentText(), QStringLiteral("normal"));
        QCOMPARE(editor.environment().gravity, 9.8F);
        QCOMPARE(editor.environment().sunSpeed, 18);
        QCOMPARE(editor.environment().birdsNumber, 0);
        QVERIFY(!editor.find<QGroupBox>("birdTextureGroup").isEnabled());
        QVERIFY(!editor.environment().waterWalking);
        // A value that is out of range reaches the level only if what is shown changes.
        editor.environment().sunSpeed = 99;
        editor.window->readBackLevel();
        QCOMPARE(editor.environment().sunSpeed, 99);
    }

    void damagedLevelsLeaveTheEditorUsable_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("not XML") << QByteArray("nonsense");
        QTest::newRow("no nodes") << QByteArray("<CISG><CISGGroup/></CISG>");
        QTest::newRow("unknown tag") << QByteArray("<CISG><CISGGroup><CharSetNode><Foe/></CharSetNode>"
                                                   "</CISGGroup></CISG>");
    }

    void damagedLevelsLeaveTheEditorUsable() {
        QFETCH(QByteArray, bytes);
        const EditorDriver editor(twoTeams);
        QFile file(QStringLiteral("levels/bad.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("bad.xml")));
        QCOMPARE(editor.find<QSpinBox>("numPlayer").value(), 0);
        for (const char *slot : {"1", "2"}) {
            editor.pick("CharID", QLatin1String(slot));
            editor.click("activeNow");
        }
        editor.player(1).teamIndex = 1;
        editor.click("randomStart");
        editor.click("SmoothTerrain");
        QVERIFY(editor.answerFile("fileSaveAction", QStringLiteral("mended")));
        QVERIFY(EditorDriver::contentOf(QStringLiteral("levels/mended.xml")).contains("<MeshNode"));
    }

    void aLevelMadeWithTheMouseOpensAgainIdentical() {
        const EditorDriver editor;
        QVERIFY(makeMap(editor, QStringLiteral("Small"), QStringLiteral("Low")));
        ViewDriver map = editor.map();
        map.drag(map.cellAt(2, 2), map.cellAt(6, 5));
        map.wheel(480);
        map.drag(map.cellAt(12, 12), map.cellAt(15, 14));
        map.wheel(-360);
        editor.click("SmoothTerrain");
        editor.pick("TerrainTextureType", QStringLiteral("sand"));
        editor.pick("dayTime", QStringLiteral("sunset"));
        editor.click("Fog");
        for (int i = 0; i < 6; ++i) {
            editor.pick("CharID", QString::number(i + 1));
            editor.click("activeNow");
            const auto joinTeam = [i](PlayerDialog &dialog) {
                const QStringList teams{"Blue", "Green", "Red"};
                EditorDriver::pickFrom(*dialog.TeamBox, teams[i % 3]);
                QTest::mouseClick(dialog.buttonOk, Qt::LeftButton);
            };
            QVERIFY(EditorDriver::answer<PlayerDialog>([&] { editor.click("EditChar"); }, joinTeam));
            editor.selectCell(3 * i, i);
            editor.click("Place");
        }
        QCOMPARE(editor.find<QSpinBox>("numTeams").value(), 3);
        QVERIFY(editor.answerFile("fileSaveAction", QStringLiteral("made")));
        const QByteArray made = EditorDriver::contentOf(QStringLiteral("levels/made.xml"));
        QCOMPARE(made.count("<CharacterNode"), 6);
        QVERIFY(makeMap(editor, QStringLiteral("Large"), QStringLiteral("High")));
        QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("made.xml")));
        QVERIFY(editor.answerFile("fileSaveAction", QStringLiteral("again")));
        QCOMPARE(EditorDriver::contentOf(QStringLiteral("levels/again.xml")), made);
        QVERIFY(shows(map.pixel(map.cellAt(15, 5)), 1, 0, 0));
    }
};

DRUVELK_TEST_MAIN(FileCommandsTest)
#include "FileCommandsTest.moc"
