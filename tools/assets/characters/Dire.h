#pragma once

#include "tools/assets/characters/Figure.h"

/// What the pieces of Dire share.
namespace dire {

const glm::vec3 hide(0.55f, 0.47f, 0.48f);
const glm::vec3 underside(0.72f, 0.62f, 0.56f);
const glm::vec3 horn(0.84f, 0.77f, 0.62f);
const glm::vec3 mane(0.23f, 0.18f, 0.18f);

/// Skull, jaw, teeth and horns; the jaw hangs on a bone of its own.
void addHead(Figure &beast, Bone jaw);

/// A crest of hair from the brow down the back, and locks about the neck.
void addMane(Figure &beast);

void addArm(Figure &beast, Side side);
void addPauldron(Figure &beast);

} // namespace dire
