#pragma once

#include "EditorDriver.h"

#include <QUndoStack>
#include <map>

/// What is wrong with the editor between two actions, whatever they were, or nothing: the level is
/// whole, the counts are right, and every control shows what the level holds.
QByteArray faultOf(const EditorDriver &editor);

/// Whether the level does not open again as it is saved.
QByteArray faultOfFile(const EditorDriver &editor);

/// What undo must not touch: camera, mode and selection.
QByteArray viewOf(const EditorDriver &editor);

/// Knows the level after each step of the history, and looks whether undo and redo return to it.
class StepMemory {
public:
    explicit StepMemory(const EditorDriver &driven);

    /// To be asked after each action: what has been wrong with the history since, or nothing.
    QByteArray fault();

    /// Takes a step back or does it again, by the keys.
    void walk(bool back);

    /// Takes everything back and does it again.
    void walkAllTheWay();

private:
    void seeStep();
    void startAgainWithAnotherLevel();

    const EditorDriver &editor;
    QUndoStack &stack;
    const LevelDocument *document = nullptr;
    std::map<const QUndoCommand *, QByteArray> levels; ///< After each step; null stands for the start.
    const QUndoCommand *last = nullptr;
    QByteArray complaint;
    QObject listener; ///< Goes before the window, which clears the history.
};
