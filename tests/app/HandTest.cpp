#include "EditorDriver.h"

#include "app/InitDialog.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWindow>
#include <csignal>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

constexpr float notch = 0.6666667F;

/// The tool tip that resting on a place of the map shows.
QString hintAt(const EditorDriver &editor, QPoint position) {
    GLMapWidget &view = *editor.window->mapView;
    QToolTip::hideText();
    QHelpEvent rest(QEvent::ToolTip, position, view.mapToGlobal(position));
    QApplication::sendEvent(&view, &rest);
    return rest.isAccepted() ? QToolTip::text() : QString();
}

/// Turns the wheel over a control as the window system does, which may give the control the focus.
void wheelOver(const QWidget &control, int units) {
    const QPoint middle = control.mapTo(control.window(), control.rect().center());
    QWheelEvent event(middle, control.window()->mapToGlobal(middle), {}, {0, units}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(control.window()->windowHandle(), &event);
}

/// What a file dialog says about the name in its field, if the name stands there selected.
QString complaintOf(const QFileDialog &dialog) {
    const auto *const field = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    const bool said = QTest::qWaitFor([] { return QToolTip::isVisible(); }, 1000);
    const bool selected = !field->text().isEmpty() && field->selectedText() == field->text();
    return dialog.isVisible() && said && selected ? QToolTip::text() : QString();
}

} // namespace

/// How the editor lies in the hand: wheel, keys, pointer, and names that cannot be saved under.
class HandTest : public QObject {
    Q_OBJECT

private slots:
    void partsOfANotchAddUp() {
        const EditorDriver editor;
        ViewDriver map = editor.map();
        const auto wheel = [&](int times, int units) {
            for (int i = 0; i < times; ++i) {
                map.wheel(units);
            }
        };
        editor.selectCell(3, 3);
        QVERIFY(!map.wheel(0, 120));
        // The other direction drops what was gathered, and so does another selection.
        wheel(7, -15);
        wheel(1, 15);
        wheel(7, -15);
        QVERIFY(!map.cell(3, 3).water && map.height(12, 12) == 0);
        wheel(7, 15);
        editor.selectCell(4, 4);
        wheel(7, 15);
        QVERIFY(map.height(12, 12) == 0 && map.height(16, 16) == 0);
        wheel(9, 15);
        QCOMPARE(map.height(16, 16), 2 * notch);
        QVERIFY(std::abs(map.cell(4, 4).color[0] - 0.85F) < 1e-5F);
        // An event of several notches moves the colour once.
        map.wheel(300);
        QCOMPARE(map.height(16, 16), 4 * notch);
        QVERIFY(std::abs(map.cell(4, 4).color[0] - 0.8F) < 1e-5F);
        editor.clickTool("Preview");
        wheel(16, 15);
        QCOMPARE(editor.window->mapView->zoom, 0.8333333F * 0.8333333F);
    }

    void theWheelTurnsOnlyControlsThatHaveTheFocus() {
        const EditorDriver editor(twoTeams);
        editor.activate();
        QTabWidget &tabs = *editor.window->MainTab;
        QWidget &map = *editor.window->mapView;
        const QByteArray before = levelBytes(editor.level());
        for (int page = 0; page < tabs.count(); ++page) {
            tabs.setCurrentIndex(page);
            map.setFocus();
            for (const auto *const control : tabs.currentWidget()->findChildren<QWidget *>()) {
                const auto *const box = qobject_cast<const QComboBox *>(control);
                const int index = box != nullptr ? box->currentIndex() : 0;
                wheelOver(*control, 120);
                wheelOver(*control, -120);
                wheelOver(*control, -120);
                QVERIFY2(map.hasFocus() && (box == nullptr || box->currentIndex() == index),
                         qPrintable(control->objectName()));
            }
            wheelOver(*tabs.tabBar(), page == 0 ? -120 : 120);
            QCOMPARE(tabs.currentIndex(), page);
        }
        QCOMPARE(levelBytes(editor.level()), before);
        editor.turnTo(*editor.window->sunSpeed);
        editor.window->sunSpeed->setFocus();
        wheelOver(*editor.window->sunSpeed, -120);
        QCOMPARE(editor.environment().sunSpeed, 14);
        const auto overTheForm = [&](InitDialog &form) {
            QVERIFY(editor.window->frameGeometry().contains(form.frameGeometry().center()));
            form.mapScale->setFocus();
            wheelOver(*form.mapDimension, -120);
            QCOMPARE(form.mapDimension->currentIndex(), 0);
        };
        QVERIFY(EditorDriver::answer<InitDialog>([&] { editor.clickTool("fileNewAction"); }, overTheForm));
    }

    void keysShapeTheOverview() {
        const EditorDriver editor;
        GLMapWidget &view = *editor.window->mapView;
        ViewDriver map = editor.map();
        QVERIFY(editor.window->tab->isAncestorOf(editor.window->focusWidget()));
        const auto press = [&view](std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers with = {}) {
            for (const Qt::Key key : keys) {
                QTest::keyClick(&view, key, with);
            }
        };
        // The cell that is selected at the start, at the map's corner.
        press({Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up});
        QCOMPARE(map.selectedCells(), std::vector<int>{21});
        editor.selectCell(18, 5);
        press({Qt::Key_Left, Qt::Key_Left, Qt::Key_Down}, Qt::ShiftModifier);
        QCOMPARE(map.selectedCells(), (std::vector<int>{98, 99, 118, 119}));
        press({Qt::Key_Right, Qt::Key_Right}, Qt::ShiftModifier);
        QCOMPARE(map.selectedCells(), (std::vector<int>{97, 98, 117, 118}));
        press({Qt::Key_Right});
        QCOMPARE(map.selectedCells(), (std::vector<int>{96, 97, 116, 117}));
        press({Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageDown});
        QCOMPARE(map.height(16, 64), notch);
        QCOMPARE(map.height(23, 71), notch);
        QCOMPARE(map.height(24, 64), 0.0F);
        editor.click("randomGeo");
        QVERIFY(editor.level().mesh->randomGeography);
        press({Qt::Key_PageUp});
        map.wheel(120);
        QCOMPARE(map.height(16, 64), notch);
        editor.click("SmoothTerrain");
        QVERIFY(map.height(15, 64) > 0 && map.height(16, 64) < notch);
    }

    void keysMoveTheCamera() {
        const EditorDriver editor;
        GLMapWidget &view = *editor.window->mapView;
        // Nothing could bring back a tool bar that its own menu has hidden.
        editor.window->toolBar->toggleViewAction()->trigger();
        editor.clickTool("Preview");
        const float turn = view.viewRotation[2];
        QTest::keyClick(&view, Qt::Key_Right);
        // As a drag to the right: the side that is near comes along, by some degrees.
        const float byKey = view.viewRotation[2];
        QVERIFY(std::abs(std::abs(std::asin(byKey)) - 0.087F) < 0.03F);
        QTest::keyClick(&view, Qt::Key_Left);
        QVERIFY(std::abs(view.viewRotation[2] - turn) < 1e-6F);
        QTest::mousePress(&view, Qt::LeftButton, {}, {100, 100});
        editor.map().sendMove({120, 100});
        QVERIFY((view.viewRotation[2] > 0) == (byKey > 0));
        QTest::keyClick(&view, Qt::Key_Up);
        QCOMPARE(view.eyeHeight, 21.0F);
        for (int i = 0; i < 30; ++i) {
            QTest::keyClick(&view, Qt::Key_Down);
        }
        QCOMPARE(view.eyeHeight, 1.0F);
        QTest::keyClick(&view, Qt::Key_PageDown);
        QCOMPARE(view.zoom, 1.2F);
        QTest::keyClick(&view, Qt::Key_PageUp);
        QVERIFY(std::abs(view.zoom - 1) < 1e-5F);
        for (const bool fromKey : {true, false}) {
            view.center = {1, 2, 3};
            fromKey ? QTest::keyClick(&view, Qt::Key_Home) : editor.clickTool("centerTrack");
            QVERIFY(view.center.x == 30 && view.center.y == 6 && view.center.z == 30);
        }
    }

    void restingOnTheMapTellsWhatIsThere() {
        const EditorDriver editor([](LevelDocument &level) {
            level.background->water = false;
            enlist(level, 0, 2, 21);
            level.charSet->characters[0]->name = QStringLiteral("<b>Zoë</b>");
            enlist(level, 1, 0, 22);
            level.charSet->characters[1]->name = QString(300, u'n');
        });
        ViewDriver map = editor.map();
        editor.selectCell(1, 1);
        map.wheel(120);
        QCOMPARE(hintAt(editor, map.cellAt(1, 1)),
                 QStringLiteral("Cell 21\nLowest point: 0.67\nHighest point: 0.67\nLake: no\nPlayer: "
                                "<b>Zoë</b> (Red)"));
        QVERIFY(!Qt::mightBeRichText(QToolTip::text()));
        QVERIFY(hintAt(editor, map.cellAt(2, 1)).size() < 150);
        editor.selectCell(19, 19);
        map.wheel(-120);
        QCOMPARE(hintAt(editor, map.cellAt(19, 19)),
                 QStringLiteral("Cell 399\nLowest point: -0.67\nHighest point: -0.67\nLake: yes"));
        QVERIFY(hintAt(editor, {1, 1}).isEmpty());
        map.drag(map.cellAt(5, 2), map.cellAt(12, 5));
        map.wheel(120);
        editor.clickTool("Preview");
        GLMapWidget &view = *editor.window->mapView;
        view.center = {17.5, 1 / 3.0, 3.75}; // Half way up the slope.
        QVERIFY(map.paint());
        const QString hint = hintAt(editor, view.rect().center());
        const QRegularExpression wanted(
            QStringLiteral("^Position: 17\\.\\d+, 3\\.\\d+\nHeight: 0\\.[2-4]\\d$"));
        QVERIFY2(wanted.match(hint).hasMatch(), qPrintable(hint));
        QVERIFY(hintAt(editor, {view.width() / 2, 1}).isEmpty());
    }

    void thePointerShowsWhatAPressDoes() {
        const EditorDriver editor([](LevelDocument &level) { level.background->water = false; });
        GLMapWidget &view = *editor.window->mapView;
        QCOMPARE(view.cursor().shape(), Qt::CrossCursor);
        editor.click("randomGeo");
        QCOMPARE(view.cursor().shape(), Qt::ForbiddenCursor);
        editor.clickTool("Preview");
        QCOMPARE(view.cursor().shape(), Qt::OpenHandCursor);
        QTest::mousePress(&view, Qt::LeftButton, {}, {50, 50});
        QCOMPARE(view.cursor().shape(), Qt::ClosedHandCursor);
        QTest::mouseRelease(&view, Qt::LeftButton, {}, {50, 50});
        QCOMPARE(view.cursor().shape(), Qt::OpenHandCursor);
        // New switches the water on while it works.
        std::optional<Qt::CursorShape> working;
        QObject::connect(editor.window->water, &QCheckBox::toggled, editor.window.get(), [&working] {
            const QCursor *const cursor = QApplication::overrideCursor();
            working = cursor != nullptr ? cursor->shape() : Qt::ArrowCursor;
        });
        QVERIFY(EditorDriver::answer<InitDialog>(
            [&] { editor.clickTool("fileNewAction"); },
            [](InitDialog &form) { QTest::mouseClick(form.buttonOk, Qt::LeftButton); }));
        QCOMPARE(working, Qt::WaitCursor);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void namesThatCannotBeWrittenAreRefusedAtTheField() {
        const EditorDriver editor(twoTeams);
        const auto saveAs = [&](const std::function<void(QFileDialog &)> &reply) {
            return EditorDriver::answer<QFileDialog>([&] { editor.clickTool("fileSaveAction"); }, reply);
        };
        QVERIFY(QDir().mkpath(QStringLiteral("levels/folder.xml")));
        QVERIFY(mkfifo("levels/pipe.xml", 0600) == 0);
        QVERIFY(QFile::link(QStringLiteral("/dev/null"), QStringLiteral("levels/null.xml")));
        QVERIFY(QFile::link(QStringLiteral("good.xml"), QStringLiteral("levels/soon.xml")));
        QVERIFY(saveAs([](QFileDialog &dialog) {
            // A desktop's own dialog could not explain itself.
            QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
            QVERIFY(dialog.selectedFiles().isEmpty() || !dialog.selectedFiles().first().contains("default"));
            for (const auto &[name, word] : {std::pair(QStringLiteral("nowhere/a"), "folder"),
                                             {QStringLiteral("nowhere/"), "folder"},
                                             {QStringLiteral("folder"), "folder"},
                                             {QStringLiteral("pipe"), "ordinary"},
                                             {QStringLiteral("null"), "ordinary"},
                                             {QString(252, u'n'), "long"}}) {
                QToolTip::hideText();
                EditorDriver::enterFile(dialog, name);
                const QString complaint = complaintOf(dialog);
                QVERIFY2(complaint.contains(QLatin1String(word)), qPrintable(name + u' ' + complaint));
            }
            EditorDriver::enterFile(dialog, QStringLiteral("soon"));
        }));
        QVERIFY(contentOf(QStringLiteral("levels/good.xml")).startsWith("<CISG>"));
        QCOMPARE(QDir(QStringLiteral("levels")).entryList(QDir::Files | QDir::Hidden | QDir::System),
                 (QStringList{"good.xml", "null.xml", "pipe.xml", "soon.xml"}));
        struct stat status {};
        QVERIFY(lstat("levels/pipe.xml", &status) == 0 && S_ISFIFO(status.st_mode));
        // What was saved last is proposed, and opens by its name alone.
        QVERIFY(saveAs([](QFileDialog &dialog) {
            QCOMPARE(dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->selectedText(),
                     QStringLiteral("soon.xml"));
        }));
        const LevelDocument *const before = &editor.level();
        editor.selectCell(5, 5);
        QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("good")));
        QVERIFY(&editor.level() != before && editor.player(1).cell == 18);
        EditorDriver::writeLevel(QStringLiteral("levels/good"), [](auto &level) { enlist(level, 0, 0, 1); });
        QVERIFY(editor.answerFile("fileOpenAction", QStringLiteral("good")));
        QVERIFY(editor.player(0).cell == 1 && !editor.player(1).active);
        // A new document selects the map's corner, too.
        QCOMPARE(editor.map().selectedCells(), (std::vector<int>{0, 105}));
    }

    void aSaveThatFailsAsksAgain() {
        const EditorDriver editor(twoTeams);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Cannot save .*a\\.xml")));
        QString complaint;
        const auto answerAgain = [&complaint] {
            EditorDriver::answer<QFileDialog>(
                [&complaint] { QVERIFY(QTest::qWaitFor([&complaint] { return !complaint.isEmpty(); })); },
                [&complaint](QFileDialog &dialog) { complaint = complaintOf(dialog); });
        };
        // Writing beyond a limit fails as it does on a full disk.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        QVERIFY(getrlimit(RLIMIT_FSIZE, &before) == 0);
        const rlimit tiny{1000, before.rlim_max};
        const auto bringBack = qScopeGuard([&before] { setrlimit(RLIMIT_FSIZE, &before); });
        QVERIFY(setrlimit(RLIMIT_FSIZE, &tiny) == 0);
        QVERIFY(EditorDriver::answer<QFileDialog>([&] { editor.clickTool("fileSaveAction"); },
                                                  [&](QFileDialog &dialog) {
                                                      EditorDriver::enterFile(dialog, QStringLiteral("a"));
                                                      QTimer::singleShot(0, QCoreApplication::instance(),
                                                                         answerAgain);
                                                  }));
        QVERIFY(complaint.contains(QLatin1String("disk")));
        QVERIFY(QDir(QStringLiteral("levels")).isEmpty(QDir::Files | QDir::Hidden));
    }
};

DRUVELK_TEST_MAIN(HandTest)
#include "HandTest.moc"
