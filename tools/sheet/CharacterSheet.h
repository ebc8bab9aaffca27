#pragma once

#include <QString>

/// Two contact sheets of the figure in `directory`, NAME.png and NAME-moves.png below `output`: every team
/// and weapon from four directions and the hands from near; all frames. What skins are missing is left grey.
/// False where a model cannot be read or a sheet not be saved.
bool saveCharacterSheets(const QString &directory, const QString &output);

/// Prints how much of its inside a figure and its weapons show and how far the idle moves. False where a
/// model cannot be read.
bool printMeasures(const QString &directory);
