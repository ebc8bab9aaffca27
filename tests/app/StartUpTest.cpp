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

/// The child of exitEndsTheProcessAtOnce: triggers Exit in the preview, while a dialog is open.
int exitFromDialog() {
    if (!missingOpenGL().isEmpty()) {
        return 8;
    }
    const EditorDriver editor;
    editor.map().wheel(120);
    editor.clickTool("Preview");
    editor.map().paint();
    std::fputs("unflushed", stdout);
    EditorDriver::answer<InitDialog>([&] { editor.clickTool("fileNewAction"); },
                                     [&](InitDialog &) { editor.window->fileExitAction->trigger(); });
    return 7;
}

} // namespace

/// Starting, leaving, icons, languages and the keyboard.
class StartUpTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsMissingIsSaidInOneLine() {
        for (const auto &[settings, missing] :
             {std::pair(QStringList{"QT_XCB_GL_INTEGRATION=none"}, "OpenGL"),
              {{"MESA_GL_VERSION_OVERRIDE=1.4"}, "OpenGL 1.4"},
              {{"MESA_GL_VERSION_OVERRIDE=3.3FC"}, "profile"},
              {{"QT_QPA_PLATFORM=offscreen"}, "OpenGL"},
              {{"DISPLAY=:9999"}, "display"},
              {{"QT_QPA_PLATFORM=wayland", "WAYLAND_DISPLAY=none"}, "display"}}) {
            QProcess child;
            child.start(QStringLiteral("env"), settings + QStringList{DRUVELK_EDITOR});
            QVERIFY(child.waitForFinished());
            const QByteArray said = child.readAllStandardError();
            QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 1, said.constData());
            QVERIFY2(said.startsWith("druvelk-editor: ") && said.contains(missing), said.constData());
            QCOMPARE(said.count('\n'), 1);
        }
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

    void exitEndsTheProcessAtOnce() {
        QProcess child;
        // Any version from 2.1 on will do.
        child.start(QStringLiteral("env"), {"MESA_GL_VERSION_OVERRIDE=3.0",
                                            QCoreApplication::applicationFilePath(), "--exit-from-dialog"});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
        QVERIFY(child.readAllStandardOutput().endsWith("unflushed"));
    }

    void aMissingStartLevelStillGivesAnEditor() {
        const QTemporaryDir nothing;
        QDir::setCurrent(nothing.path());
        const editorMain window;
        QCOMPARE(window.mapView->document->mesh->pointsPerSide(), 240);
        QCOMPARE(window.mapView->document->charSet->characters.size(), std::size_t(16));
        QCOMPARE(window.DimensionTextLabel->text(), QStringLiteral("Medium"));
        QCOMPARE(window.AccuracyTextLabel->text(), QStringLiteral("High"));
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
        const editorMain &window = *editor.window;
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("GAME EDITOR"));
        QCOMPARE(window.dayTime->currentText(), QStringLiteral("EVENING"));
        QCOMPARE(window.waterTextureType->currentText(), QStringLiteral("WATER2"));
        QCOMPARE(window.CharID->currentIndex(), 2);
        QCOMPARE(window.textLabelName->text(), QStringLiteral("john doe"));
        QCOMPARE(window.DimensionTextLabel->text(), QStringLiteral("MEDIUM"));
        // The commands work in every language.
        editor.pick("dayTime", QStringLiteral("SUNRISE"));
        editor.pick("gravity", QStringLiteral("HIGH"));
        editor.pick("waterTextureType", QStringLiteral("WATER3"));
        QVERIFY(editor.environment().dayTime == 30 && editor.environment().gravity == 12.5F);
        QCOMPARE(editor.environment().waterTexture, QStringLiteral("./data/textures/water3.jpg"));
    }

    void theKeyboardReachesEveryControlInReadingOrder() {
        const EditorDriver editor;
        QTabWidget &tabs = *editor.window->MainTab;
        editor.activate();
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
            for (const QString &name : pages[page]) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                QWidget *const reached = QApplication::focusWidget();
                QCOMPARE(reached->objectName(), name);
                const auto *const spoken = QAccessible::queryAccessibleInterface(reached);
                QVERIFY2(!spoken->text(QAccessible::Name).isEmpty(), qPrintable(name));
            }
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
    if (argc == 2 && std::strcmp(argv[1], "--exit-from-dialog") == 0) {
        return exitFromDialog();
    }
    StartUpTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "StartUpTest.moc"
