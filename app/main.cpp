#include "app/HeldMessages.h"
#include "app/editorMain.h"
#include "environment/OpenGLSetup.h"

#include <QApplication>
#include <csignal>
#include <memory>

int main(int argc, char **argv) {
    // Whoever reads the log may go at any time; the level must not go with it.
    std::signal(SIGPIPE, SIG_IGN);
    HeldMessages messages;
    prepareApplication();
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.druvelk.Editor"));
    if (const QString missing = missingOpenGL(); !missing.isEmpty()) {
        printCannotStart(qPrintable(missing));
        return 1;
    }
    messages.release();
    auto window = std::make_unique<editorMain>(nullptr, QString(), Qt::Window);
    window->show();
    QObject::connect(&application, &QApplication::lastWindowClosed, &application, &QApplication::quit);
    const int result = QApplication::exec();
    window.reset();
    return result;
}
