#include "app/editorMain.h"
#include "environment/OpenGLSetup.h"

#include <QApplication>
#include <csignal>
#include <cstdio>
#include <memory>

int main(int argc, char **argv) {
    // Whoever reads the log may go at any time; the level must not go with it.
    std::signal(SIGPIPE, SIG_IGN);
    prepareApplication();
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.druvelk.Editor"));
    if (const QString missing = missingOpenGL(); !missing.isEmpty()) {
        std::fprintf(stderr, "druvelk-editor: cannot start: %s\n", qPrintable(missing));
        return 1;
    }
    auto window = std::make_unique<editorMain>(nullptr, QString(), Qt::Window);
    window->show();
    QObject::connect(&application, &QApplication::lastWindowClosed, &application, &QApplication::quit);
    const int result = QApplication::exec();
    window.reset();
    return result;
}
