#pragma once

#include "app/LevelSnapshot.h"

#include <QUndoStack>
#include <functional>
#include <memory>

class GLMapWidget;

/// The changes of the view's level, as steps that can be taken back and done again. A step is made
/// by looking at the level before and after; one that changes nothing is none.
class LevelHistory {
public:
    /// Where a change comes from. Those of one source that follow each other without a pause are one
    /// step (of the wheel, only over the same cells), except where they come from a command.
    enum Source { command = -1, wheel, sunSpeed, birdsNumber };

    /// `showLevel` is called after the level was changed by undo or redo. The stack becomes a child
    /// of the parent, which has to outlive the history.
    LevelHistory(GLMapWidget &newView, std::function<void()> newShowLevel, QObject *parent);

    /// Forgets all steps; the level as it is becomes the first.
    void restart();

    /// To be called when the level may have changed.
    void record(Source source = command);

    void undo();
    void redo();

    /// While one lives nothing is recorded: for a command that runs others.
    class Pause {
    public:
        explicit Pause(LevelHistory &paused) : history(paused) { ++history.pauses; }
        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;
        ~Pause() { --history.pauses; }

    private:
        LevelHistory &history;
    };

private:
    using Shared = std::shared_ptr<const LevelSnapshot>;
    class Step;

    void show(const Shared &snapshot);

    GLMapWidget &view;
    std::function<void()> showLevel;
    QUndoStack &stack;
    Shared current; ///< The level as it was last seen.
    int pauses = 0;
    int walks = 0; ///< Times that undo and redo moved: what was done before is not continued.
};
