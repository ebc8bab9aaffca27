#pragma once

#include "scene/LevelDocument.h"

#include <QByteArray>

/// Makes the document a whole level with hills and hollows of the given size: the shape is the
/// same for every size, and its heights have as many digits as a shaped and eroded level's.
void fillWithHills(LevelDocument &document, int dimension, int density);

/// The level's bytes as a saved file holds them.
QByteArray levelBytes(const LevelDocument &document);
