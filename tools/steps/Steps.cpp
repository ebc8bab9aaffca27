#include "tools/steps/Steps.h"

#include "tools/steps/Picture.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QMainWindow>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QWheelEvent>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int betweenSteps = 150; ///< ms, time for the program to answer.
constexpr int cellsPerSide = 20;

QMainWindow *mainWindow() {
    for (QWidget *const widget : QApplication::topLevelWidgets()) {
        if (auto *const window = qobject_cast<QMainWindow *>(widget)) {
            return window;
        }
    }
    return nullptr;
}

QPoint place(const QWidget &widget, const QString &x, const QString &y) {
    return {qRound((widget.width() - 1) * x.toDouble()), qRound((widget.height() - 1) * y.toDouble())};
}

/// The middle of a cell in the overview, whose square is as large as the widget lets it be: column 0 stands
/// at the right, row 0 below.
QPoint cellPlace(const QWidget &view, int column, int row) {
    const double cell = double(std::min(view.width(), view.height())) / cellsPerSide;
    const auto fromCenter = [cell](int index) { return cell * (cellsPerSide / 2.0 - 0.5 - index); };
    return {qRound(view.width() / 2.0 + fromCenter(column)), qRound(view.height() / 2.0 + fromCenter(row))};
}

void turnWheel(QWidget &widget, int notches) {
    const QPointF at = QRectF(widget.rect()).center();
    for (int i = 0; i < std::abs(notches); ++i) {
        QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, notches > 0 ? 120 : -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }
}

} // namespace

Steps::Steps(const QString &fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(QStringLiteral("cannot read %1").arg(fileName));
    }
    lines = QString::fromUtf8(file.readAll()).split(u'\n');
    // The program has no window yet. It needs longer for the first picture than for those that follow.
    constexpr int start = 2000;
    QTimer::singleShot(start, this, &Steps::next);
}

void Steps::next() {
    if (done >= lines.size()) {
        return;
    }
    if (midStep) {
        QTimer::singleShot(betweenSteps, this, &Steps::next);
        return;
    }
    const QStringList words = lines[done++].split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || words.first().startsWith(u'#')) {
        next();
        return;
    }
    if (words.first() == QLatin1String("wait")) {
        QTimer::singleShot(words.value(1).toInt(), this, &Steps::next);
        return;
    }
    // Set before the step: one that opens a dialog returns when later steps have closed the dialog.
    QTimer::singleShot(betweenSteps, this, &Steps::next);
    run(words);
}

void Steps::run(const QStringList &words) {
    const QString &step = words.first();
    const QString name = words.value(1);
    const auto number = [&words](int i) { return words.value(i).toInt(); };
    const auto rest = [&words](int from) { return words.mid(from).join(u' '); };
    if (step == QLatin1String("window")) {
        mainWindow()->setGeometry(0, 0, number(1), number(2));
    } else if (step == QLatin1String("page")) {
        auto *const tabs = mainWindow()->findChild<QTabWidget *>()->tabBar();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(number(1) - 1).center());
    } else if (step == QLatin1String("click")) {
        click(name);
    } else if (step == QLatin1String("choose")) {
        choose(name, rest(2));
    } else if (step == QLatin1String("type")) {
        QWidget &field = find(name);
        field.setFocus();
        QTest::keySequence(&field, QKeySequence::SelectAll);
        QTest::keyClicks(&field, rest(2));
    } else if (step == QLatin1String("key")) {
        QTest::keySequence(&find(name), QKeySequence(rest(2)));
    } else if (step == QLatin1String("cells")) {
        dragCells(number(1), number(2), number(3), number(4));
    } else if (step == QLatin1String("wheel")) {
        turnWheel(find(name), number(2));
    } else if (step == QLatin1String("drag")) {
        QWidget &widget = find(name);
        drag(widget, place(widget, words.value(2), words.value(3)),
             place(widget, words.value(4), words.value(5)));
    } else if (step == QLatin1String("double")) {
        QWidget &widget = find(name);
        QTest::mouseDClick(&widget, Qt::LeftButton, {}, place(widget, words.value(2), words.value(3)));
    } else if (step == QLatin1String("rest")) {
        QWidget &widget = find(name);
        QCursor::setPos(widget.mapToGlobal(place(widget, words.value(2), words.value(3))));
    } else if (step == QLatin1String("grab")) {
        grab(name, words.value(2));
    } else if (step == QLatin1String("colours")) {
        const QWidget &widget = find(name);
        const QRect part(place(widget, words.value(2), words.value(3)),
                         place(widget, words.value(4), words.value(5)));
        const QRect onScreen = part.translated(widget.mapToGlobal(QPoint()));
        const int colours =
            countColours(widget.screen()
                             ->grabWindow(0, onScreen.x(), onScreen.y(), onScreen.width(), onScreen.height())
                             .toImage());
        if (colours < number(6)) {
            fail(QStringLiteral("%1 colours").arg(colours));
        }
    } else if (step == QLatin1String("quit")) {
        mainWindow()->close();
    } else if (step == QLatin1String("kill")) {
        std::_Exit(0);
    } else {
        fail(QStringLiteral("no such step"));
    }
}

/// A visible control of the dialog that is open, else of the main window.
QWidget &Steps::find(const QString &name) {
    QWidget *const modal = QApplication::activeModalWidget();
    QWidget *const window = modal != nullptr ? modal : mainWindow();
    if (window == nullptr) {
        fail(QStringLiteral("no window"));
    }
    auto *const widget = window->findChild<QWidget *>(name);
    if (widget == nullptr || !widget->isVisible()) {
        fail(QStringLiteral("no such control"));
    }
    return *widget;
}

void Steps::click(const QString &name) {
    QMainWindow &window = *mainWindow();
    auto *const action = window.findChild<QAction *>(name);
    if (action != nullptr) {
        QTest::mouseClick(window.findChild<QToolBar *>()->widgetForAction(action), Qt::LeftButton);
        return;
    }
    QWidget &button = find(name);
    // Near the left edge: the rest of a wide check box is no part of what answers.
    constexpr int intoTheBox = 8;
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(intoTheBox, button.height() / 2));
}

void Steps::choose(const QString &name, const QString &item) {
    auto *const box = qobject_cast<QComboBox *>(&find(name));
    const int index = box != nullptr ? box->findText(item) : -1;
    if (index < 0) {
        fail(QStringLiteral("no such item"));
    }
    box->setFocus();
    box->showPopup();
    waitWithin(betweenSteps);
    QWidget *const list = box->view();
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < index; ++i) {
        QTest::keyClick(list, Qt::Key_Down);
    }
    QTest::keyClick(list, Qt::Key_Return);
}

void Steps::waitWithin(int milliseconds) {
    midStep = true;
    QTest::qWait(milliseconds);
    midStep = false;
}

void Steps::drag(QWidget &widget, const QPoint &from, const QPoint &to) {
    // Slowly enough for the view to paint in between, where it looks up what is below the pointer.
    constexpr int parts = 8;
    QTest::mousePress(&widget, Qt::LeftButton, {}, from);
    for (int i = 0; i <= parts; ++i) {
        QTest::mouseMove(&widget, from + (to - from) * i / parts);
        waitWithin(betweenSteps / parts);
    }
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, to);
}

void Steps::dragCells(int column, int row, int toColumn, int toRow) {
    QWidget &view = find(QStringLiteral("mapView"));
    drag(view, cellPlace(view, column, row), cellPlace(view, toColumn, toRow));
}

void Steps::grab(const QString &fileName, const QString &name) {
    const QWidget &widget = name.isEmpty() ? *mainWindow() : find(name);
    const QRect onScreen(widget.mapToGlobal(QPoint()), widget.size());
    constexpr int fine = 88; // of 100, where the format has a quality
    const QPixmap picture =
        widget.screen()->grabWindow(0, onScreen.x(), onScreen.y(), onScreen.width(), onScreen.height());
    if (!picture.save(fileName, nullptr, fine)) {
        fail(QStringLiteral("cannot be written"));
    }
}

void Steps::fail(const QString &reason) const {
    const QString step = done > 0 ? lines.value(done - 1) : QString();
    std::fprintf(stderr, "steps: line %lld: \"%s\": %s\n", static_cast<long long>(done), qPrintable(step),
                 qPrintable(reason));
    std::_Exit(1);
}
