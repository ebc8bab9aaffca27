#pragma once

#include "tools/assets/characters/Figure.h"

/// The bones down the back of Hunter's cape, from the shoulders to the hem.
using CapeBones = std::array<Bone, 3>;

CapeBones addCapeBones(Figure &tracker);

/// Hood, the face within, the mantle over the shoulders and the cape below it; all closed, with insides of
/// their own.
void addCloak(Figure &tracker, const CapeBones &cape);
