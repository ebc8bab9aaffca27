#pragma once

#include "tools/assets/characters/Figure.h"

/// A ring of a limb: `place` runs 0 … 1 down the upper bone and 1 … 2 down the lower one.
struct LimbRing {
    float place;
    glm::vec2 radius;
    glm::vec3 offset{0.0f};
};

/// Adds rings along a limb. They bend at the middle joint and, from place 0 up, follow `above`.
void limbRings(Part &part, const Figure &figure, const Limb &limb, Bone above,
               const std::vector<LimbRing> &rings);

/// A ring of an upright tube: a torso, a head, a coat.
struct ColumnRing {
    float z;
    float x; ///< Its middle.
    glm::vec2 radius;
    Influence bones;
};
void columnRings(Part &part, const std::vector<ColumnRing> &rings);

/// Rings of a clothed limb of human measures, from the joint to the wrist or ankle.
std::vector<LimbRing> armShape(float thickness);
std::vector<LimbRing> legShape(float thickness);

/// A bar from one end to the other, closed; its ends are bevelled unless `bevel` is 0.
void barRings(Part &part, const glm::vec3 &from, const glm::vec3 &to, const glm::vec2 &radius, float bevel,
              const Influence &bones);

/// A shell over `centre`: its rim faces against `outward`, its top lies `height` away.
void domeRings(Part &part, const glm::vec3 &centre, const glm::vec3 &outward, const glm::vec2 &radius,
               float height, const Influence &bones);

/// A hand closed around the weapon: palm, thumb and fingers, the right one at the grip with a finger at the
/// trigger, the left one from below around the fore-end. `size` 1 is a human hand.
void addFist(Figure &figure, Side side, Material material, const glm::vec3 &colour, float size);

/// A foot or boot from heel to toe, flat below.
struct FootShape {
    float length = 9;
    float width = 2.1f;
    float height = 3.4f;
    float heel = 2.6f;  ///< How far it stands out behind the ankle.
    float turnOut = 12; ///< Degrees.
};
Part &addFoot(Figure &figure, Side side, Material material, const glm::vec3 &colour, const FootShape &shape);
