#pragma once

#include "app/editorMain.h"
#include "environment/BackgroundNode.h"
#include "scene/LevelFile.h"
#include "tests/support/ViewDriver.h"
#include "tests/support/druvelkTest.h"
#include "tests/support/files.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolBar>
#include <functional>

/// The shown editor in a directory of its own, driven by object names as a user does it by eye.
class EditorDriver {
public:
    using Preparation = std::function<void(LevelDocument &)>;

    /// `prepare` changes a flat 40 × 2 level, which becomes the start level "default".
    explicit EditorDriver(const Preparation &prepare = [](LevelDocument &) {}) {
        QDir::setCurrent(scratch.path());
        QDir().mkpath(QStringLiteral("levels"));
        writeLevel(QStringLiteral("default"), prepare);
        // The toolkit takes a release soon after the press that opened a list for the same click,
        // see pickFrom.
        QApplication::setDoubleClickInterval(50);
        // The real pointer would select what appears below it.
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
        window = std::make_unique<editorMain>();
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get())) {
            qFatal("The editor's window does not appear");
        }
    }

    static void writeLevel(const QString &fileName, const Preparation &prepare) {
        LevelDocument level;
        level.complete();
        level.mesh->setSize(40, 2);
        level.mesh->build();
        prepare(level);
        if (!saveLevel(level, fileName)) {
            qFatal("Cannot write a level for a test");
        }
    }

    template <typename Widget>
    Widget &find(const char *name) const {
        auto *const widget = window->findChild<Widget *>(QLatin1String(name));
        if (widget == nullptr) {
            qFatal("No such control: %s", name);
        }
        return *widget;
    }

    /// Keys reach the window's shortcuts only where it is active, which, without a window manager, it
    /// is not after a dialog.
    void activate() const {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    /// Brings the page that holds the control to the front, by a click on its tab.
    void turnTo(QWidget &control) const {
        auto &tabs = find<QTabWidget>("MainTab");
        for (int i = 0; i < tabs.count(); ++i) {
            if (tabs.widget(i)->isAncestorOf(&control)) {
                QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(i).center());
            }
        }
    }

    /// Clicks a button, or the box of a check box.
    void click(const char *name) const {
        auto &button = find<QAbstractButton>(name);
        turnTo(button);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }

    /// Opens a combo box of the window and clicks an item.
    void pick(const char *name, const QString &item) const {
        auto &box = find<QComboBox>(name);
        turnTo(box);
        pickFrom(box, item);
    }

    static void pickFrom(QComboBox &box, const QString &item) {
        QAbstractItemView &list = *box.view();
        const QModelIndex index = box.model()->index(box.findText(item), 0);
        QVERIFY(QTest::qWaitFor([&] {
            // A late change of the focus may close a list that has just opened.
            if (!list.isVisible()) {
                QTest::mouseClick(&box, Qt::LeftButton);
            }
            if (QTest::qWaitForWindowExposed(list.window(), 500)) {
                QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
            }
            return !list.isVisible() && box.currentText() == item;
        }));
    }

    /// Clicks an action's button in the tool bar.
    void clickTool(const char *action) const {
        QWidget *const button = window->toolBar->widgetForAction(&find<QAction>(action));
        if (!QTest::qWaitFor([button] { return button->isVisible(); })) {
            qFatal("%s is not in the tool bar", action);
        }
        QTest::mouseClick(button, Qt::LeftButton);
    }

    /// Does what opens a modal dialog of the type, and answers the dialog; one that is still open
    /// after the answer is cancelled. False where none appeared.
    template <typename Dialog>
    static bool answer(const std::function<void()> &open, const std::function<void(Dialog &)> &reply) {
        bool answered = false;
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, &waiting, [&] {
            const QPointer<Dialog> dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (dialog != nullptr && dialog->isVisible()) {
                waiting.stop();
                answered = true;
                reply(*dialog);
                if (dialog != nullptr && dialog->isVisible()) {
                    dialog->reject();
                }
            }
        });
        waiting.start(20);
        open();
        return answered;
    }

    /// The same with the file dialog of an action: types a name and presses the button.
    bool answerFile(const char *action, const QString &name) const {
        return answer<QFileDialog>([&] { clickTool(action); },
                                   [&](QFileDialog &dialog) { enterFile(dialog, name); });
    }

    static void enterFile(QFileDialog &dialog, const QString &name) {
        auto *const edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->selectAll();
        QTest::keyClicks(edit, name);
        auto &buttons = *dialog.findChild<QDialogButtonBox *>();
        QTest::mouseClick(buttons.button(dialog.acceptMode() == QFileDialog::AcceptOpen
                                             ? QDialogButtonBox::Open
                                             : QDialogButtonBox::Save),
                          Qt::LeftButton);
    }

    LevelDocument &level() const { return *window->mapView->document; }
    BackgroundNode &environment() const { return *level().background; }
    CharacterNode &player(std::size_t number) const { return *level().charSet->characters.at(number); }
    ViewDriver map() const { return ViewDriver(*window->mapView); }

    /// Selects a cell of the map by a click.
    void selectCell(int column, int row) const {
        ViewDriver driver = map();
        driver.drag(driver.cellAt(column, row), driver.cellAt(column, row));
    }

    QTemporaryDir scratch;
    std::unique_ptr<editorMain> window;
};

/// Adds an active player of the team to a level's slot: on a cell, or with -1 anywhere.
inline void enlist(LevelDocument &level, std::size_t slot, int team, int cell) {
    CharacterNode &player = *level.charSet->characters.at(slot);
    player.active = true;
    player.teamIndex = team;
    player.cell = cell;
    player.placed = cell >= 0;
}

/// What a level needs to be saved.
inline void twoTeams(LevelDocument &level) {
    enlist(level, 0, 0, 17);
    enlist(level, 1, 1, 18);
}
