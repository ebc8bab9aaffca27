#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

/// Does in the running program what a user would do by mouse and keys, one line of a file after the other.
/// Controls are named by their object names, places in them by fractions of their width and height. A step
/// that cannot be done ends the program with status 1 and a line on standard error.
///
///     window WIDTH HEIGHT             sizes the main window
///     page NUMBER                     turns to a page of the settings
///     click NAME                      a button, check box or tool
///     choose NAME ITEM                an item of a list
///     type NAME TEXT                  replaces a field's text
///     key NAME KEY                    such as Ctrl+Z
///     cells COLUMN ROW COLUMN ROW     drags over the overview, from cell to cell
///     wheel NAME NOTCHES              in the middle; positive: away from the user
///     drag NAME X Y X Y
///     double NAME X Y
///     rest NAME X Y                   leaves the pointer there
///     wait MILLISECONDS
///     grab FILE [NAME]                the main window, or one control, and what lies over it
///     colours NAME X Y X Y LEAST      the control shows at least that many colours between two places
///     quit                            closes the main window
///     kill                            ends the program as it is, whatever is open
class Steps : public QObject {
    Q_OBJECT

public:
    explicit Steps(const QString &fileName);

private:
    void next();
    void run(const QStringList &words);
    QWidget &find(const QString &name);
    void click(const QString &name);
    void choose(const QString &name, const QString &item);
    void drag(QWidget &widget, const QPoint &from, const QPoint &to);
    void dragCells(int column, int row, int toColumn, int toRow);
    /// Lets the program run in the middle of a step, without starting the next one.
    void waitWithin(int milliseconds);

    void grab(const QString &fileName, const QString &name);
    [[noreturn]] void fail(const QString &reason) const;

    QStringList lines;
    qsizetype done = 0;
    bool midStep = false;
};
