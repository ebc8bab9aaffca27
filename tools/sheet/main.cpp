#include "environment/OpenGLSetup.h"
#include "tools/sheet/CharacterSheet.h"
#include "tools/sheet/LevelSheet.h"
#include "tools/sheet/PictureSheet.h"

#include <QApplication>
#include <QDir>
#include <cstdio>

/// Draws contact sheets of everything below a workspace.
/// Usage: druvelk-sheet WORKSPACE OUTPUT_DIRECTORY
int main(int argc, char **argv) {
    prepareApplication();
    const QApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: druvelk-sheet WORKSPACE OUTPUT_DIRECTORY\n", stderr);
        return 2;
    }
    const QString missing = missingOpenGL();
    if (!missing.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(missing));
        return 1;
    }
    const QDir output(QDir(QFile::decodeName(argv[2])).absolutePath());
    if (!output.mkpath(QStringLiteral(".")) || !QDir::setCurrent(QFile::decodeName(argv[1]))) {
        std::fputs("a directory cannot be made or entered\n", stderr);
        return 1;
    }
    const bool saved = saveTextureSheet(output.filePath(QStringLiteral("textures.png"))) &&
                       saveSkySheet(output.filePath(QStringLiteral("skies.png"))) &&
                       saveLevelSheet(output.filePath(QStringLiteral("levels.png"))) &&
                       saveCharacterSheets(output.path());
    return saved ? 0 : 1;
}
