#include "tools/sheet/CharacterSheet.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <cstdio>

/// Measures one figure and draws its contact sheets. Needs no OpenGL and with QT_QPA_PLATFORM=offscreen no
/// display. Without skins the figure is grey; insides are magenta.
/// Usage: druvelk-figure CHARACTER_DIRECTORY OUTPUT_DIRECTORY
int main(int argc, char **argv) {
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: druvelk-figure CHARACTER_DIRECTORY OUTPUT_DIRECTORY\n", stderr);
        return 2;
    }
    const QString character = QDir(QFile::decodeName(argv[1])).absolutePath();
    if (!printMeasures(character) || !saveCharacterSheets(character, QFile::decodeName(argv[2]))) {
        std::fputs("a model cannot be read or a sheet not be saved\n", stderr);
        return 1;
    }
    return 0;
}
