#pragma once

#include "tools/assets/pictures/Field.h"

/// The picture of an overview cell, 128 x 128: nearly white with a bevelled rim, because it is
/// multiplied by the cell's colour. Its outer twentieth is never shown.
Picture cellTile();
