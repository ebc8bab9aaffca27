#include "app/LevelHistory.h"

#include "map/GLMapWidget.h"

#include <QUndoCommand>
#include <bitset>
#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

/// A pause of that length ends what a person feels as one action.
constexpr std::chrono::seconds longestPause{2};

/// More than anyone goes back; keeps a day's work from filling the memory.
constexpr int mostSteps = 2000;

using Selection = std::bitset<CellGrid::cellCount>;

Selection selectionOf(const GLMapWidget &view) {
    Selection selection;
    for (const MapCell &cell : view.cells->cells) {
        selection.set(static_cast<std::size_t>(cell.index), cell.selected);
    }
    return selection;
}

} // namespace

class LevelHistory::Step : public QUndoCommand {
public:
    Step(LevelHistory &newHistory, Shared newBefore, Shared newAfter, Source newSource)
        : history(newHistory), before(std::move(newBefore)), after(std::move(newAfter)), source(newSource),
          walk(newHistory.walks), last(Clock::now()) {
        if (source == wheel) {
            selection = selectionOf(history.view);
        }
    }

    int id() const override { return source; }

    bool mergeWith(const QUndoCommand *command) override {
        const auto *next = static_cast<const Step *>(command);
        if (next->walk != walk || next->selection != selection || next->last - last > longestPause) {
            return false;
        }
        after = next->after;
        last = next->last;
        setObsolete(*before == *after);
        return true;
    }

    void undo() override { history.show(before); }

    // The stack runs this for a new step, too, whose change is there already.
    void redo() override {
        if (history.current != after) {
            history.show(after);
        }
    }

private:
    LevelHistory &history;
    Shared before;
    Shared after;
    Source source;
    int walk;
    Clock::time_point last;
    Selection selection;
};

LevelHistory::LevelHistory(GLMapWidget &newView, std::function<void()> newShowLevel, QObject *parent)
    : view(newView), showLevel(std::move(newShowLevel)), stack(*new QUndoStack(parent)) {
    stack.setUndoLimit(mostSteps);
    restart();
}

void LevelHistory::restart() {
    stack.clear();
    current = std::make_shared<const LevelSnapshot>(snapshotOf(view));
}

void LevelHistory::record(Source source) {
    if (pauses > 0) {
        return;
    }
    auto now = std::make_shared<const LevelSnapshot>(snapshotOf(view, *current));
    if (*now != *current) {
        const Shared before = std::exchange(current, std::move(now));
        stack.push(new Step(*this, before, current, source));
    }
}

void LevelHistory::undo() {
    record();
    ++walks;
    stack.undo();
}

void LevelHistory::redo() {
    record();
    ++walks;
    stack.redo();
}

void LevelHistory::show(const Shared &snapshot) {
    const Pause pause(*this);
    restore(view, *current, *snapshot);
    current = snapshot;
    showLevel();
}
