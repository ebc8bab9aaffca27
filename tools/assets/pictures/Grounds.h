#pragma once

#include "tools/assets/pictures/Field.h"

/// Grounds, 1024 x 1024, seen from straight above and joining themselves on all sides. A ground is
/// multiplied by the ground's colour and by the light, so its form comes from contrast without a light
/// direction. Brightness and evenness are given to it afterwards, by the list in PictureJobs.cpp.

inline constexpr int groundSide = 1024;

Picture lushGrass();
Picture dryGrass();
Picture mossyGrass();
Picture daffodilMeadow();
Picture crackedEarth();
Picture stonyDesert();
Picture windRipples();
Picture fineSand();
Picture glowingBasalt();
Picture ashAndCinders();
Picture freshSnow();
Picture packedSnow();
