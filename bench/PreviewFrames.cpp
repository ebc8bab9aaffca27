// Draws a number of preview frames of a level and ends: something to trace.
// Usage: PreviewFrames DIMENSION DENSITY FRAMES

#include "bench/BenchView.h"
#include "bench/SampleLevel.h"
#include "environment/OpenGLSetup.h"

#include <QApplication>
#include <cstdio>

int main(int argc, char **argv) {
    prepareApplication();
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: PreviewFrames DIMENSION DENSITY FRAMES\n", stderr);
        return 2;
    }
    BenchView view(600);
    auto level = std::make_unique<LevelDocument>();
    fillWithHills(*level, arguments[1].toInt(), arguments[2].toInt());
    view.showLevel(std::move(level));
    for (int frame = arguments[3].toInt(); frame > 0; --frame) {
        view.drawFrame();
    }
    return 0;
}
