#include "EditorFaults.h"

#include "app/InitDialog.h"

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

private slots:
    void newMapsComeInTheirSizes() {
        const EditorDriver editor(twoTeams);
        editor.selectCell(0, 0);
        for (const auto &[dimension, accuracy, points] :
             {std::tuple("Small", "Low", 80), {"Medium", "High", 240}, {"Large", "High", 320}}) {
            editor.map().wheel(120);
            QVERIFY(makeMap(editor, QLatin1String(dimension), QLatin1String(accuracy)));
            const MeshNode &mesh = *editor.level().mesh;
            QCOMPARE(mesh.pointsPerSide(), points);
            QVERIFY(std::all_of(mesh.vertices.begin(), mesh.vertices.end(),
                                [](const TerrainVertex &vertex) { return vertex.position.y == 0; }));
            const GLMapWidget &view = *editor.window->mapView;
            QCOMPARE(view.center.x, view.dimension / 2);
            QCOMPARE(view.cells->pointsPerSide, points);
            QCOMPARE(editor.environment().dimension * editor.environment().density, points);
            QCOMPARE(faultOf(editor), QByteArray());
        }
    }

    void aNewMapResetsOptionsAndPlayersAndKeepsTheDress() {
        const EditorDriver editor([](LevelDocument &level) {
            for (std::size_t i = 0; i < 20; ++i) {
                level.charSet->characters.resize(20);
                level.charSet->characters[i] = std::make_unique<CharacterNode>();
                enlist(level, i, i < 16 ? int(i % 2) : 2, int(i));
            }
            level.mesh->randomGeography = true;
            BackgroundNode &environment = *level.background;
            environment.water = environment.waterWalking = environment.craters = environment.bengala = false;
            environment.deathTouch = environment.dynamicTime = false;
            environment.fog = true;
            environment.birdsNumber = 0;
            environment.birdTexture = QStringLiteral("./data/textures/eagle2.jpg");
            environment.dayTime = 171;
            environment.gravity = 6.4F;
            environment.sunSpeed = 4;
        });
        editor.pick("CharID", QStringLiteral("5"));
        // Of the twenty players only sixteen count, and only they stay.
        QCOMPARE(editor.window->numTeams->value(), 2);
        QCOMPARE(editor.level().charSet->characters.size(), std::size_t(20));
        QVERIFY(makeMap(editor, QStringLiteral("Small"), QStringLiteral("Low")));
        QCOMPARE(editor.level().charSet->characters.size(), std::size_t(16));
        const BackgroundNode &made = editor.environment();
        QVERIFY(made.water && made.waterWalking && made.craters && made.bengala && made.deathTouch);
        QVERIFY(made.dynamicTime && !made.fog && made.birdsNumber == 3);
        QVERIFY(made.dayTime == 171 && made.gravity == 6.4F && made.sunSpeed == 4);
        QVERIFY(!editor.level().mesh->randomGeography && !editor.window->mapView->randomGeo);
        QVERIFY(!editor.player(0).active && !editor.player(0).placed && editor.player(0).cell == 0);
        const auto &cells = editor.window->mapView->cells->cells;
        QVERIFY(std::all_of(cells.begin(), cells.end(), [](const MapCell &cell) { return cell.vacant; }));
        QCOMPARE(faultOf(editor), QByteArray());
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
        for (const int team : {0, 7}) {
            editor.player(1).teamIndex = team;
            QVERIFY(EditorDriver::answer<QMessageBox>(
                [&] { editor.clickTool("fileSaveAction"); },
                [](QMessageBox &box) {
                    QCOMPARE(box.text(), QStringLiteral("You have to choose at least 2 teams and 2 players"));
                    QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
                }));
        }
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
        QVERIFY(writeFile(file, "precious"));
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
            QCOMPARE(contentOf(file) == "precious", button == QMessageBox::No);
        }
    }

    void openingShowsTheLevelsSize() {
        const EditorDriver editor;
        editor.clickTool("Preview");
        editor.clickTool("Wired");
        // A size that has no name leaves what is shown.
        for (const auto &[dimension, density, shownDimension, shownDensity] :
             {std::tuple(50, 3, 60, 4), {40, 2, 40, 2}, {80, 4, 80, 4}}) {
            EditorDriver::writeLevel(QStringLiteral("levels/a.xml"),
                                     [side = dimension, points = density](LevelDocument &level) {
                                         level.mesh->setSize(side, points);
                                         level.mesh->build([] { return 2.0F; });
                                         enlist(level, 0, 2, 210);
                                     });
            editor.click("randomStart");
            QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("a.xml")));
            QCOMPARE(editor.window->mapView->dimension, shownDimension);
            QCOMPARE(editor.window->mapView->accuracy, shownDensity);
            QCOMPARE(editor.window->mapView->cells->terrain, editor.level().mesh);
            QCOMPARE(editor.window->numPlayer->value(), 1);
            QCOMPARE(editor.level().mesh->wired, 1);
            QCOMPARE(faultOf(editor), QByteArray());
        }
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
        const BackgroundNode &mended = editor.environment();
        QVERIFY(mended.dayTime == 70 && mended.gravity == 9.8F && mended.sunSpeed == 18);
        QVERIFY(mended.birdsNumber == 0 && !mended.waterWalking);
        QCOMPARE(faultOf(editor), QByteArray());
        // A value that is out of range reaches the level only if what is shown changes.
        editor.environment().sunSpeed = 99;
        editor.window->readBackLevel();
        QCOMPARE(editor.environment().sunSpeed, 99);
    }
};

DRUVELK_TEST_MAIN(FileCommandsTest)
#include "FileCommandsTest.moc"
