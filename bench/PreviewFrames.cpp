// Draws a number of frames of a level, of the preview or of the overview, and ends: something to trace.
// Usage: PreviewFrames DIMENSION DENSITY FRAMES [overview]

#include "bench/BenchView.h"
#include "bench/SampleLevel.h"
#include "environment/OpenGLSetup.h"

#include <QApplication>
#include <cstdio>

int main(int argc, char **argv) {
    prepareApplication();
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool overview = arguments.value(4) == QLatin1String("overview");
    if (arguments.size() != (overview ? 5 : 4)) {
        std::fputs("usage: PreviewFrames DIMENSION DENSITY FRAMES [overview]\n", stderr);
        return 2;
    }
    BenchView view(600);
    auto level = std::make_unique<LevelDocument>();
    fillWithHills(*level, arguments[1].toInt(), arguments[2].toInt());
    view.showLevel(std::move(level));
    if (overview) {
        view.changePreview();
    }
    for (int frame = arguments[3].toInt(); frame > 0; --frame) {
        view.drawFrame();
    }
    return 0;
}
