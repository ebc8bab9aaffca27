#include "EditorDriver.h"

#include "app/InitDialog.h"

#include <QAccessible>
#include <QProcess>
#include <QTranslator>
#include <array>
#include <cstring>
#include <unistd.h>

namespace {

/// Answers every text of the window in capitals.
class CapitalTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override {
        const bool ours = std::strcmp(context, "editorMain") == 0 || std::strcmp(context, "InitDialog") == 0;
        return ours ? QString::fromUtf8(source).toUpper() : QString();
    }
};

/// The child of exitEndsTheProcessAtOnce: gets the window into a state and triggers Exit.
int exitWhile(const QByteArray &state) {
    const EditorDriver editor;
    const auto leave = [&] { editor.find<QAction>("fileExitAction").trigger(); };
    editor.map().wheel(120);
    std::fputs("unflushed", stdout);
    if (state == "preview") {
        editor.clickTool("Preview");
        editor.map().paint();
    } else if (state == "dialog") {
        EditorDriver::answer<InitDialog>([&] { editor.clickTool("fileNewAction"); },
                                         [&](InitDialog &) { leave(); });
    }
    leave();
    return 7;
}

} // namespace

/// Starting, leaving, icons, languages and the keyboard.
class StartUpTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsMissingIsSaidInOneLine_data() {
        QTest::addColumn<QByteArrayList>("setting");
        QTest::addColumn<QByteArray>("missing");
        QTest::newRow("no OpenGL") << QByteArrayList{"QT_XCB_GL_INTEGRATION=none"} << QByteArray("OpenGL");
        QTest::newRow("old OpenGL") << QByteArrayList{"MESA_GL_VERSION_OVERRIDE=1.4"}
                                    << QByteArray("OpenGL 1.4");
        QTest::newRow("core profile")
            << QByteArrayList{"MESA_GL_VERSION_OVERRIDE=3.3FC"} << QByteArray("profile");
        QTest::newRow("offscreen") << QByteArrayList{"QT_QPA_PLATFORM=offscreen"} << QByteArray("OpenGL");
        QTest::newRow("no display") << QByteArrayList{"DISPLAY=:9999"} << QByteArray("display");
        QTest::newRow("no Wayland") << QByteArrayList{"QT_QPA_PLATFORM=wayland", "WAYLAND_DISPLAY=none"}
                                    << QByteArray("display");
    }

    void whatIsMissingIsSaidInOneLine() {
        QFETCH(QByteArrayList, setting);
        QFETCH(QByteArray, missing);
        QProcess child;
        child.start(QStringLiteral("env"), QStringList{QString::fromLatin1(setting.first()),
                                                       QString::fromLatin1(setting.last()), DRUVELK_EDITOR});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 1);
        const QByteArray said = child.readAllStandardError();
        QVERIFY2(said.startsWith("druvelk-editor: ") && said.contains(missing), said.constData());
        QCOMPARE(said.count('\n'), 1);
    }

    void aLogThatNobodyReadsDoesNotEndTheEditor() {
        std::array<int, 2> ends{};
        QVERIFY(pipe(ends.data()) == 0 && close(ends[0]) == 0);
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
        child.setProcessEnvironment(environment);
        child.setChildProcessModifier([ends] { dup2(ends[1], STDERR_FILENO); });
        child.start(QStringLiteral(DRUVELK_EDITOR), {});
        QVERIFY(child.waitForFinished() && close(ends[1]) == 0);
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 1);
    }

    void exitEndsTheProcessAtOnce_data() {
        QTest::addColumn<QString>("state");
        for (const char *state : {"overview", "preview", "dialog"}) {
            QTest::newRow(state) << QString::fromLatin1(state);
        }
    }

    void exitEndsTheProcessAtOnce() {
        QFETCH(QString, state);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--exit-while"), state});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
        QVERIFY(child.readAllStandardOutput().endsWith("unflushed"));
    }

    void aMissingStartLevelStillGivesAnEditor() {
        const QTemporaryDir nothing;
        QDir::setCurrent(nothing.path());
        const editorMain window;
        QCOMPARE(window.size(), QSize(602, 719).expandedTo(window.minimumSizeHint()));
        QCOMPARE(window.mapView->document->mesh->pointsPerSide(), 240);
        QCOMPARE(window.mapView->document->charSet->characters.size(), std::size_t(16));
        QCOMPARE(window.DimensionTextLabel->text(), QStringLiteral("Medium"));
        QCOMPARE(window.AccuracyTextLabel->text(), QStringLiteral("High"));
        QVERIFY(window.TerrainColor->icon().pixmap(36, 14).toImage().pixelColor(10, 7) == Qt::white);
    }

    void wiredAndCenterShowInThePreviewOnly() {
        const EditorDriver editor;
        GLMapWidget &view = *editor.window->mapView;
        QVERIFY(!editor.find<QAction>("Wired").isVisible());
        // Nothing could bring back a tool bar that its own menu has hidden.
        editor.window->toolBar->toggleViewAction()->trigger();
        editor.clickTool("Preview");
        QVERIFY(view.preview);
        editor.clickTool("Wired");
        QCOMPARE(editor.level().mesh->wired, 1);
        view.center = {1, 2, 3};
        editor.clickTool("centerTrack");
        QVERIFY(view.center.x == 30 && view.center.y == 6 && view.center.z == 30);
        editor.clickTool("Preview");
        QVERIFY(!view.preview && !editor.find<QAction>("Wired").isVisible());
    }

    void aChangeOfLanguageKeepsWhatIsSelected() {
        const EditorDriver editor([](LevelDocument &level) {
            enlist(level, 0, 0, 1);
            level.background->dayTime = 151;
            level.background->waterTexture = QStringLiteral("./data/textures/water2.jpg");
        });
        editor.pick("CharID", QStringLiteral("3"));
        CapitalTranslator capitals;
        QCoreApplication::installTranslator(&capitals);
        QTRY_COMPARE(editor.window->windowTitle(), QStringLiteral("GAME EDITOR"));
        QCOMPARE(editor.find<QComboBox>("dayTime").currentText(), QStringLiteral("EVENING"));
        QCOMPARE(editor.find<QComboBox>("waterTextureType").currentText(), QStringLiteral("WATER2"));
        QCOMPARE(editor.find<QComboBox>("CharID").currentIndex(), 2);
        QCOMPARE(editor.find<QLabel>("textLabelName").text(), QStringLiteral("john doe"));
        QCOMPARE(editor.find<QLabel>("DimensionTextLabel").text(), QStringLiteral("MEDIUM"));
        // The commands work in every language.
        editor.pick("dayTime", QStringLiteral("SUNRISE"));
        QCOMPARE(editor.environment().dayTime, 30);
        editor.pick("gravity", QStringLiteral("HIGH"));
        QCOMPARE(editor.environment().gravity, 12.5F);
        editor.pick("waterTextureType", QStringLiteral("WATER3"));
        QCOMPARE(editor.environment().waterTexture, QStringLiteral("./data/textures/water3.jpg"));
    }

    void theKeyboardReachesEveryControlInReadingOrder() {
        const EditorDriver editor;
        auto &tabs = editor.find<QTabWidget>("MainTab");
        editor.window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(editor.window.get()));
        const std::array<QStringList, 4> pages{
            {{"TerrainColor", "SunColor", "WaterColor", "dayTime", "Fog", "water", "randomGeo",
              "SmoothTerrain"},
             {"TerrainTextureType", "SkyTextureType", "waterTextureType", "birdTextureType"},
             {"CharID", "activeNow", "EditChar", "Place", "randomStart"},
             {"gravity", "sunSpeed", "birdsNumber", "waterWalking", "craters", "bengala", "deathTouch",
              "DynamicTime"}}};
        for (std::size_t page = 0; page < pages.size(); ++page) {
            tabs.setCurrentIndex(int(page));
            tabs.tabBar()->setFocus();
            QStringList reached;
            for (qsizetype i = 0; i < pages[page].size(); ++i) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                reached.append(QApplication::focusWidget()->objectName());
                QVERIFY(!QAccessible::queryAccessibleInterface(QApplication::focusWidget())
                             ->text(QAccessible::Name)
                             .isEmpty());
            }
            QCOMPARE(reached, pages[page]);
            // After the last, the map, and then the tool bar, which is where the window begins.
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QVERIFY(editor.window->mapView->hasFocus());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(),
                     editor.window->toolBar->widgetForAction(editor.window->fileNewAction));
        }
    }
};

int main(int argc, char **argv) {
    prepareApplication();
    QApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], "--exit-while") == 0) {
        return exitWhile(argv[2]);
    }
    StartUpTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "StartUpTest.moc"
