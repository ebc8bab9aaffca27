#include "EditorDriver.h"

#include "app/InitDialog.h"

#include <QUndoStack>
#include <malloc.h>

namespace {

void press(const EditorDriver &editor, Qt::Key key, Qt::KeyboardModifiers more = {}) {
    editor.activate();
    QTest::keyClick(editor.window.get(), key, Qt::ControlModifier | more);
}

} // namespace

/// Taking changes of the level back.
class UndoTest : public QObject {
    Q_OBJECT

    static int steps(const EditorDriver &editor) { return editor.window->findChild<QUndoStack *>()->index(); }

private slots:
    // The directory has no pictures.
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("druvelk.*=false")); }

    void whatFeelsAsOneActionIsOneStep() {
        const EditorDriver editor;
        editor.activate();
        ViewDriver map = editor.map();
        auto &speed = editor.find<QSpinBox>("sunSpeed");
        editor.selectCell(3, 3);
        map.wheel(120);
        map.wheel(240);
        QCOMPARE(steps(editor), 1);
        editor.selectCell(4, 3);
        map.wheel(120);
        QCOMPARE(steps(editor), 2);
        QTest::qWait(2100);
        map.wheel(120);
        QCOMPARE(steps(editor), 3);
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(&speed, Qt::Key_Down);
        }
        QCOMPARE(steps(editor), 4);
        // A number half typed is a text, and its own undo comes first.
        speed.selectAll();
        QTest::keyClick(&speed, Qt::Key_1);
        QCOMPARE(speed.cleanText(), QStringLiteral("1"));
        QTest::keyClick(&speed, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(speed.cleanText(), QStringLiteral("9"));
        QCOMPARE(editor.environment().sunSpeed, 9);
        QTest::keyClick(&speed, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.environment().sunSpeed, 15);
        // What was taken back ends there: the next notch is a step of its own.
        press(editor, Qt::Key_Z);
        QCOMPARE(map.height(12, 16), 0.6666667F);
        map.wheel(120);
        QCOMPARE(steps(editor), 3);
        // There and back is no step.
        QTest::keyClick(&speed, Qt::Key_Down);
        QTest::keyClick(&speed, Qt::Key_Up);
        QCOMPARE(steps(editor), 3);
        EditorDriver::writeLevel(QStringLiteral("levels/a.xml"), [](LevelDocument &) {});
        QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("a.xml")));
        const LevelDocument *const opened = &editor.level();
        press(editor, Qt::Key_Z);
        QCOMPARE(map.height(12, 12), 0.0F);
        QCOMPARE(&editor.level(), opened);
    }

    void thePreviewShowsIt() {
        const EditorDriver editor;
        editor.activate();
        ViewDriver map = editor.map();
        QStringList files{QStringLiteral("textures/grass1"), QStringLiteral("textures/snow1"),
                          QStringLiteral("textures/water3")};
        for (const char *const face : {"negx", "posx", "negy", "posy", "negz", "posz"}) {
            files.append(QStringLiteral("CubeMap/cirri/mount_%1").arg(QLatin1String(face)));
        }
        for (const QString &file : std::as_const(files)) {
            QImage picture(8, 8, QImage::Format_RGB32);
            picture.fill(QColor::fromHsv(int(file.size()) * 12, 200, 200));
            const QFileInfo place(QStringLiteral("data/%1.jpg").arg(file));
            QVERIFY(QDir().mkpath(place.path()) && picture.save(place.filePath()));
        }
        map.drag(map.cellAt(4, 4), map.cellAt(15, 15));
        map.wheel(-360);
        editor.selectCell(10, 10);
        map.wheel(960);
        editor.clickTool("Preview");
        const auto newMap = [&] {
            QVERIFY(EditorDriver::answer<InitDialog>([&] { press(editor, Qt::Key_N); },
                                                     [](InitDialog &dialog) {
                                                         dialog.mapDimension->setCurrentIndex(2);
                                                         dialog.accept();
                                                     }));
        };
        const std::vector<std::pair<const char *, std::function<void()>>> actions{
            {"texture", [&] { editor.pick("TerrainTextureType", QStringLiteral("snow1")); }},
            {"sky", [&] { editor.pick("SkyTextureType", QStringLiteral("cirri")); }},
            {"water's texture", [&] { editor.pick("waterTextureType", QStringLiteral("water3")); }},
            {"day time", [&] { editor.pick("dayTime", QStringLiteral("night")); }},
            {"fog", [&] { editor.click("Fog"); }},
            {"no water", [&] { editor.click("water"); }},
            {"erosion", [&] { editor.click("SmoothTerrain"); }},
            {"new map", newMap}};
        // A new map moves the camera, and undo leaves it there.
        const auto picture = [&, center = editor.window->mapView->center] {
            editor.window->mapView->center = center;
            return map.picture();
        };
        std::vector<QImage> pictures{picture()};
        for (const auto &[name, act] : actions) {
            act();
            pictures.push_back(picture());
            QVERIFY2(pictures.back() != pictures[pictures.size() - 2], name);
        }
        for (std::size_t i = actions.size(); i-- > 0;) {
            press(editor, Qt::Key_Z);
            QVERIFY2(picture() == pictures[i], actions[i].first);
        }
        for (std::size_t i = 0; i < actions.size(); ++i) {
            press(editor, Qt::Key_Y);
            QVERIFY2(picture() == pictures[i + 1], actions[i].first);
        }
    }

    void aHundredStepsOfALargeMapTakeLittleMemory() {
        const EditorDriver editor([](LevelDocument &level) {
            level.mesh->setSize(80, 4);
            level.mesh->build();
        });
        ViewDriver map = editor.map();
        const auto inUse = [] {
            const auto info = mallinfo2();
            return info.uordblks + info.hblkhd;
        };
        map.wheel(120);
        const std::size_t before = inUse();
        for (std::size_t i = 1; i <= 100; ++i) {
            editor.window->mapView->cells->clearSelection();
            editor.window->mapView->cells->cells[i].selected = true;
            map.wheel(120);
        }
        QCOMPARE(steps(editor), 101);
        QVERIFY2(inUse() < before + 50'000'000, qPrintable(QString::number(inUse() - before)));
    }
};

DRUVELK_TEST_MAIN(UndoTest)
#include "UndoTest.moc"
