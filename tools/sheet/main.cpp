#include "environment/OpenGLSetup.h"
#include "scene/CharacterNames.h"
#include "tools/sheet/CharacterSheet.h"
#include "tools/sheet/LevelSheet.h"
#include "tools/sheet/PictureSheet.h"

#include <QApplication>
#include <QDir>
#include <algorithm>
#include <cstdio>

/// Draws contact sheets of everything below a workspace, or one: textures, skies, levels, eye-levels or
/// characters.
/// Usage: druvelk-sheet WORKSPACE OUTPUT_DIRECTORY [SHEET]
int main(int argc, char **argv) {
    prepareApplication();
    const QApplication application(argc, argv);
    if (argc < 3) {
        std::fputs("usage: druvelk-sheet WORKSPACE OUTPUT_DIRECTORY [SHEET]\n", stderr);
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
    const QString only = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
    const auto wanted = [&only](const char *sheet) { return only.isEmpty() || only == QLatin1String(sheet); };
    const auto file = [&output](const char *sheet) {
        return output.filePath(QLatin1String(sheet) + QStringLiteral(".png"));
    };
    const auto saveCharacter = [&](const char *name) {
        return saveCharacterSheets(QStringLiteral("data/") + QLatin1String(name), output.path());
    };
    const bool saved =
        (!wanted("textures") || saveTextureSheet(file("textures"))) &&
        (!wanted("skies") || saveSkySheet(file("skies"))) &&
        (!wanted("levels") || saveLevelSheet(file("levels"))) &&
        (!wanted("eye-levels") || saveEyeLevelSheet(file("eye-levels"))) &&
        (!wanted("characters") || std::all_of(characterNames.begin(), characterNames.end(), saveCharacter));
    return saved ? 0 : 1;
}
