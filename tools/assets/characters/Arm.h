#pragma once

#include "tools/assets/characters/Body.h"

/// Rings of a whole arm: it begins at `root` within the chest, comes over the shoulder and ends
/// with the last of `rings`. `shoulder` is the radius at the joint.
void armRings(Part &part, const Figure &figure, Side side, const glm::vec3 &root, const glm::vec2 &shoulder,
              const std::vector<LimbRing> &rings);
