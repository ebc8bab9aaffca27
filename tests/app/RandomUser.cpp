#include "RandomUser.h"

#include "map/GLMapWidget.h"
#include "tests/models/StandInTree.h"
#include "tests/support/PreviewProbe.h"

#include <QColorDialog>
#include <QMenuBar>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace {

/// Pixels are what an action costs.
constexpr int smallSide = 120;

QByteArray complaint; ///< What the toolkit or OpenGL said during the action.

/// What the editor logs of files is no complaint: a random user opens files that are damaged.
void hearMessage(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    const QByteArray speaker = context.category;
    const bool ofFiles =
        speaker == "druvelk.level" || speaker == "druvelk.textures" || speaker == "druvelk.models";
    if (type != QtDebugMsg && type != QtInfoMsg && !ofFiles) {
        complaint = speaker + " says: " + text.toLocal8Bit();
    }
}

void askOpenGL(QOpenGLWidget &view) {
    view.makeCurrent();
    if (const GLenum error = glGetError(); error != GL_NO_ERROR) {
        complaint = "OpenGL error " + QByteArray::number(error);
    }
    view.doneCurrent();
}

} // namespace

RandomUser::RandomUser(quint32 chosenSeed)
    : editor([](LevelDocument &level) {
          PreviewProbe::usePictures(level);
          level.mesh->build([i = 0]() mutable { return float(i++ % 7) - 0.1F; });
          for (std::size_t i = 0; i < 18; ++i) {
              level.charSet->characters.resize(std::max(i + 1, CharSetNode::slotCount));
              if (i >= CharSetNode::slotCount) {
                  level.charSet->characters[i] = std::make_unique<CharacterNode>();
              }
              enlist(level, i, int(i % 5), int(20 * i));
          }
      }),
      steps(editor), seed(chosenSeed) {
    qInstallMessageHandler(hearMessage);
    // What else the controls offer is missing, as in a damaged data tree.
    PreviewProbe::makePictures(Qt::green, Qt::white, Qt::blue);
    StandInTree tree(QDir::current());
    tree.addCharacter(QStringLiteral("Terminator"));
    tree.addSkin(QStringLiteral("Terminator"), QStringLiteral("Blue"), qRgb(0, 0, 255));
    tree.addWeapon(QStringLiteral("Terminator"), QStringLiteral("Standard"));
    EditorDriver::writeLevel(QStringLiteral("levels/whole.xml"), [](LevelDocument &level) {
        enlist(level, 3, 2, -1);
        enlist(level, 4, 3, -1);
    });
    editor.window->mapView->setMinimumSize(smallSide, smallSide);
    editor.window->resize(smallSide, smallSide);
    QObject::connect(&dialogs, &QTimer::timeout, &dialogs, [this] { answerDialogs(); });
}

RandomUser::~RandomUser() {
    qInstallMessageHandler(nullptr);
}

QByteArray RandomUser::act(int number) {
    random.seed(seed * 1'000'003U + static_cast<quint32>(number));
    complaint.clear();
    dialogs.start(1);
    doSomething();
    closePopups();
    dialogs.stop();
    QCoreApplication::processEvents();
    askOpenGL(*editor.window->mapView);
    for (const QByteArray &fault :
         {complaint, faultOf(editor), steps.fault(), oneIn(4) ? faultOfFile(editor) : QByteArray()}) {
        if (!fault.isEmpty()) {
            return fault;
        }
    }
    return {};
}

void RandomUser::doSomething() {
    const int choice = upTo(99);
    if (choice < 35) {
        useMap();
    } else if (choice < 75) {
        useControl();
    } else if (choice < 87) {
        useCommand();
    } else if (choice < 95) {
        pressKeys();
    } else if (choice < 98) {
        damageAFile();
    } else {
        resize();
    }
}

/// A point of the widget, or up to `beside` pixels around it.
QPoint RandomUser::pointIn(const QWidget &widget, int beside) {
    return {upTo(widget.width() + 2 * beside) - beside, upTo(widget.height() + 2 * beside) - beside};
}

void RandomUser::useMap() {
    GLMapWidget &view = *editor.window->mapView;
    ViewDriver driver(view);
    const auto button = oneIn(5) ? Qt::RightButton : Qt::LeftButton;
    switch (upTo(5)) {
    case 0:
    case 1:
        action = "wheel over the map";
        driver.wheel(oneIn(4) ? upTo(480) - 240 : (oneIn(2) ? 120 : -120), oneIn(5) ? 120 : 0);
        break;
    case 2:
        action = "double click in the map";
        QTest::mouseDClick(&view, button, {}, pointIn(view));
        break;
    default:
        action = "drag in the map";
        QTest::mousePress(&view, button, {}, pointIn(view));
        for (int i = upTo(3); i > 0; --i) {
            driver.sendMove(pointIn(view, 200));
            if (oneIn(2)) {
                QCoreApplication::processEvents();
            }
        }
        if (!oneIn(20)) {
            QTest::mouseRelease(&view, button, {}, pointIn(view, 200));
        }
    }
}

/// Controls of all pages have the same chance.
void RandomUser::useControl() {
    QWidgetList controls;
    for (QWidget *const widget : editor.window->findChildren<QWidget *>()) {
        const bool isControl = qobject_cast<QAbstractButton *>(widget) != nullptr ||
                               qobject_cast<QComboBox *>(widget) != nullptr ||
                               qobject_cast<QAbstractSpinBox *>(widget) != nullptr ||
                               qobject_cast<QTabBar *>(widget) != nullptr;
        const bool exits = widget->actions().contains(editor.window->fileExitAction);
        const bool isShown = widget->isVisible() || editor.window->MainTab->isAncestorOf(widget);
        if (isControl && isShown && widget->isEnabled() && !exits) {
            controls.append(widget);
        }
    }
    QWidget &control = *controls.at(upTo(int(controls.size()) - 1));
    editor.turnTo(control);
    use(control);
}

void RandomUser::use(QWidget &control) {
    action = "use " + control.objectName().toUtf8() + " (" + control.metaObject()->className() + ')';
    if (auto *const tabs = qobject_cast<QTabBar *>(&control)) {
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(upTo(tabs->count() - 1)).center());
    } else if (qobject_cast<QAbstractSpinBox *>(&control) != nullptr) {
        control.setFocus();
        QTest::keyClick(&control, oneIn(2) ? Qt::Key_Up : Qt::Key_PageDown);
        if (oneIn(3)) {
            QTest::keyClicks(&control, QString::number(upTo(2000) - 1000));
            QTest::keyClick(&control, Qt::Key_Tab);
        }
    } else if (qobject_cast<QComboBox *>(&control) != nullptr && !oneIn(4)) {
        control.setFocus();
        QTest::keyClick(&control, oneIn(2) ? Qt::Key_Up : Qt::Key_Down);
    } else {
        QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(8, control.height() / 2));
    }
}

void RandomUser::useCommand() {
    if (oneIn(4)) {
        action = "undo and redo everything";
        steps.walkAllTheWay();
        return;
    }
    if (oneIn(2)) {
        action = "undo and redo";
        for (int i = upTo(4); i >= 0; --i) {
            steps.walk(oneIn(2));
        }
        return;
    }
    QList<QAction *> commands;
    for (QAction *const command : editor.window->findChildren<QAction *>()) {
        const bool isOwn = !command->objectName().isEmpty() && command->menu() == nullptr;
        if (isOwn && command != editor.window->fileExitAction && command->isEnabled()) {
            commands.append(command);
        }
    }
    QAction *const command = commands.at(upTo(int(commands.size()) - 1));
    action = "command " + command->objectName().toUtf8();
    command->trigger();
}

void RandomUser::pressKeys() {
    constexpr std::array keys{Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Space,    Qt::Key_Up,
                              Qt::Key_Down,  Qt::Key_Left,    Qt::Key_Right,    Qt::Key_Home,
                              Qt::Key_End,   Qt::Key_PageUp,  Qt::Key_PageDown, Qt::Key_Plus,
                              Qt::Key_Minus, Qt::Key_Escape,  Qt::Key_Return,   Qt::Key_Delete,
                              Qt::Key_5,     Qt::Key_Z,       Qt::Key_Backspace};
    action = "keys";
    if (oneIn(2)) {
        editor.window->mapView->setFocus();
    }
    for (int i = upTo(4); i >= 0; --i) {
        const Qt::Key key = keys[static_cast<std::size_t>(upTo(int(keys.size()) - 1))];
        const Qt::KeyboardModifiers held(oneIn(4) ? Qt::ShiftModifier : Qt::NoModifier);
        QWidget *const focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : editor.window.get(), key,
                        oneIn(4) ? held | Qt::ControlModifier : held);
        action += ' ' + QByteArray::number(key, 16);
    }
}

void RandomUser::resize() {
    action = "resize";
    // Nobody does that with a button held down in the map.
    QTest::mouseRelease(editor.window->mapView, Qt::LeftButton);
    const QByteArray view = viewOf(editor);
    editor.window->resize(smallSide + upTo(oneIn(4) ? 700 : 100), smallSide + upTo(oneIn(4) ? 600 : 100));
    QCoreApplication::processEvents();
    if (viewOf(editor) != view) {
        complaint = "the window's size changes selection or camera";
    }
}

/// Damages some bytes of a level that may then be opened.
void RandomUser::damageAFile() {
    action = "damage a file";
    const QStringList names = QDir(QStringLiteral("levels")).entryList(QDir::Files);
    QByteArray bytes = contentOf(QStringLiteral("levels/") + names.at(upTo(int(names.size()) - 1)));
    for (int i = upTo(20); i > 0 && !bytes.isEmpty(); --i) {
        bytes[random.bounded(bytes.size())] = static_cast<char>(upTo(oneIn(2) ? 255 : '9'));
    }
    bytes.truncate(oneIn(3) ? random.bounded(bytes.size() + 1) : bytes.size());
    if (!writeFile(QStringLiteral("levels/damaged.xml"), bytes)) {
        complaint = "the test cannot write a file";
    }
}

/// Runs from a timer, within the event loop of the dialog.
void RandomUser::answerDialogs() {
    auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) {
        return;
    }
    constexpr int patience = 3;
    answers = dialog == answered ? answers + 1 : 0;
    answered = dialog;
    // A timer does not run within its own call: what the answer opens needs another one.
    QTimer nested;
    QObject::connect(&nested, &QTimer::timeout, &nested, [this, dialog] {
        if (QApplication::activeModalWidget() != dialog) {
            answerDialogs();
        }
    });
    nested.start(1);
    if (answers > patience || oneIn(4)) {
        dialog->reject();
    } else {
        answerDialog(*dialog);
    }
}

void RandomUser::answerDialog(QDialog &dialog) {
    action += ", answer " + QByteArray(dialog.metaObject()->className());
    if (dialog.windowTitle() == QLatin1String("GL error")) {
        complaint = "a GL error was shown";
        dialog.accept();
    } else if (auto *const files = qobject_cast<QFileDialog *>(&dialog)) {
        answerFileDialog(*files);
    } else if (auto *const colors = qobject_cast<QColorDialog *>(&dialog)) {
        colors->setCurrentColor(QColor::fromRgb(random.generate()));
        colors->accept();
    } else if (auto *const box = qobject_cast<QMessageBox *>(&dialog)) {
        const auto buttons = box->buttons();
        buttons.at(upTo(int(buttons.size()) - 1))->click();
    } else {
        answerForm(dialog);
    }
}

void RandomUser::answerFileDialog(QFileDialog &dialog) {
    const std::array<QString, 8> names{QStringLiteral("whole.xml"),
                                       QStringLiteral("damaged.xml"),
                                       QStringLiteral("damaged.xml"),
                                       QStringLiteral("one"),
                                       QStringLiteral("two.XML"),
                                       QStringLiteral("no/such/folder"),
                                       QString(251, u'n') + QStringLiteral(".xml"),
                                       QStringLiteral("..")};
    auto *const edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    edit->setText(names[static_cast<std::size_t>(upTo(int(names.size()) - 1))]);
    action += ' ' + edit->text().left(20).toUtf8();
    QTest::keyClick(edit, Qt::Key_Return);
}

/// The editor's own dialogs: anything into every field, and OK.
void RandomUser::answerForm(QDialog &dialog) {
    for (QComboBox *const box : dialog.findChildren<QComboBox *>()) {
        // Large maps take their time: one in eight.
        box->setCurrentIndex(oneIn(2) ? 0 : upTo(box->count() - 1));
    }
    for (QLineEdit *const edit : dialog.findChildren<QLineEdit *>()) {
        edit->setText(oneIn(2) ? QStringLiteral("a<&\"\u00e9\U0001F600\t") : QString(upTo(300), u'n'));
    }
    for (QCheckBox *const box : dialog.findChildren<QCheckBox *>()) {
        box->setChecked(oneIn(2));
    }
    QCoreApplication::processEvents();
    for (QOpenGLWidget *const preview : dialog.findChildren<QOpenGLWidget *>()) {
        askOpenGL(*preview);
    }
    dialog.accept();
}

/// Lists and menus: something in them, or Escape.
void RandomUser::closePopups() {
    for (int i = 0; i < 10; ++i) {
        QWidget *const popup = QApplication::activePopupWidget();
        if (popup == nullptr) {
            return;
        }
        auto *const list = popup->findChild<QAbstractItemView *>();
        if (list != nullptr && i < 5 && oneIn(2)) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, pointIn(*list->viewport()));
        } else {
            // A list takes keys itself, not the frame around it.
            QTest::keyClick(list != nullptr ? static_cast<QWidget *>(list) : popup, Qt::Key_Escape);
        }
    }
    complaint = "a list does not close";
}
