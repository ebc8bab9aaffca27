#pragma once

#include "EditorFaults.h"

#include <QRandomGenerator>

/// A user who does anything at all with the editor's window: clicks, drags, wheels, keys and
/// commands, with every dialog answered or cancelled. What action n of a seed is depends on nothing
/// else, so a failing row of actions can be repeated, and shortened.
class RandomUser {
public:
    explicit RandomUser(quint32 chosenSeed);
    ~RandomUser();

    /// Does the action of this number; what is wrong with the editor after it, or nothing.
    QByteArray act(int number);

    /// What the last action was.
    QByteArray lastAction() const { return action; }

private:
    void doSomething();
    void useMap();
    void useControl();
    void useCommand();
    void pressKeys();
    void resize();
    void damageAFile();

    void answerDialogs();
    void answerDialog(QDialog &dialog);
    void answerFileDialog(QFileDialog &dialog);
    void answerForm(QDialog &dialog);
    void closePopups();

    int upTo(int most) { return random.bounded(most + 1); }
    bool oneIn(int chances) { return random.bounded(chances) == 0; }
    QPoint pointIn(const QWidget &widget, int beside = 0);
    void use(QWidget &control);

    EditorDriver editor;
    StepMemory steps;
    quint32 seed;
    QRandomGenerator random;
    QByteArray action;
    QTimer dialogs;
    QPointer<QDialog> answered; ///< The dialog that was answered last, and how often.
    int answers = 0;
};
