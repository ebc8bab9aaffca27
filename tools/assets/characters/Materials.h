#pragma once

#include "tools/assets/characters/Part.h"

/// The coat of a part at a point, before the part's decoration.
Coat coatOf(const Part &part, const SurfacePoint &point);

/// Layers of noise, about -1 … 1, of features about one unit large.
float layeredNoise(const glm::vec3 &place, unsigned layers = 4);

/// 1 within `half` of zero, falling to 0 over `soft`.
float band(float distance, float half, float soft);

/// Cuts a dark seam into the coat; `amount` from 0 to 1.
void groove(Coat &coat, float amount, float depth = 0.12f);

/// A fold of flesh: deeper than it is dark.
void crease(Coat &coat, float amount, float depth);

/// Replaces the colour (and the team's) by `amount`.
void paint(Coat &coat, const glm::vec3 &colour, float amount);

/// Covers with the team's colour by `amount`.
void paintTeam(Coat &coat, float amount, float tone = 1.0f);
