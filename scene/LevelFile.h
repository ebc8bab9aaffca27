#pragma once

#include <QString>

class CISG;

/// Writes the level to a file, created or replaced. The earlier file stays whole until the new
/// one is; only where the folder can not be written but the file can, it is written in place.
/// False, with a line in the log category "druvelk.levels", where that fails.
bool saveLevel(const CISG &level, const QString &fileName);
