// What keeping and taking back a change of an 80 × 4 level costs, beside a frame of its preview. Needs
// a display with OpenGL.

#include "app/LevelHistory.h"
#include "bench/BenchView.h"
#include "bench/RatioTable.h"
#include "bench/SampleLevel.h"
#include "environment/OpenGLSetup.h"

#include <QApplication>

namespace {

constexpr int dimension = 80;
constexpr int density = 4;
constexpr int viewSide = 600;

} // namespace

int main(int argc, char **argv) {
    prepareApplication();
    const QApplication application(argc, argv);
    BenchView view(viewSide);
    auto level = std::make_unique<LevelDocument>();
    fillWithHills(*level, dimension, density);
    view.showLevel(std::move(level));
    QObject owner;
    LevelHistory history(
        view, [] {}, &owner);
    view.cells->clearSelection();
    view.cells->cells[210].selected = true;
    float notch = 1;
    const auto frame = [&view] { view.drawFrame(); };

    RatioTable table;
    table.add({.name = "a notch, and its step",
               .work =
                   [&] {
                       view.cells->changeSelectedHeight(notch);
                       notch = -notch;
                       history.record();
                   },
               .floorName = "a frame",
               .floor = frame,
               .limit = 0.1,
               .prepare = frame,
               .timing = Timing::Wall});
    table.add({.name = "undo",
               .work =
                   [&history, back = false]() mutable {
                       back = !back;
                       back ? history.undo() : history.redo();
                   },
               .floorName = "a frame",
               .floor = frame,
               .limit = 0.1,
               .prepare = frame,
               .timing = Timing::Wall});
    return table.run(argc, argv);
}
