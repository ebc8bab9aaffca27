#pragma once

#include "tools/assets/pictures/Field.h"

/// Water, 512 x 512, joining itself on all sides. A water is added to what lies under it: where it is
/// black the bed shows, where it is bright a crest catches the sky.

Picture calmWater();
Picture rippledWater();
Picture roughWater();
