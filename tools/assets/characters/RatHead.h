#pragma once

#include "tools/assets/characters/Figure.h"

namespace rat {

const glm::vec3 fur(0.60f, 0.57f, 0.56f);
const glm::vec3 belly(0.80f, 0.75f, 0.70f);
const glm::vec3 bare(0.88f, 0.62f, 0.60f);

/// Skull, snout, ears and whiskers; the jaw hangs on a bone of its own.
void addHead(Figure &figure, Bone jaw);

} // namespace rat
