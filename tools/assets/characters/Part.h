#pragma once

#include "tools/assets/characters/Skeleton.h"

#include <functional>
#include <vector>

/// A point of a figure follows `first`, or partly `second`.
struct Influence {
    Bone first = 0;
    Bone second = 0;
    float toSecond = 0.0f;
};

inline Influence on(Bone bone) {
    return {bone, bone, 0.0f};
}
inline Influence between(Bone first, Bone second, float toSecond) {
    return {first, second, toSecond};
}

/// Outline of a cross section: x to the side, y to the front, within -1 … 1, counter-clockwise
/// seen against the part's direction. The first point lies at the back, where the seam is.
using Profile = std::vector<glm::vec2>;

Profile roundProfile(unsigned corners);
/// A square with its corners cut off: 8 points, `cut` from 0 (square) to 1.
Profile boxProfile(float cut);
/// Between a circle (2) and a square (large).
Profile softProfile(unsigned corners, float exponent);

struct Ring {
    glm::vec3 centre;
    glm::vec2 radius; ///< To the side and to the front; both 0 makes a tip.
    Influence bones;
    glm::vec3 along{0.0f}; ///< Normal of the ring's plane; zero: from the neighbouring rings.
};

enum class Material { Plate, Metal, Cloth, Leather, Hide, Skin, Fur, Horn, Glass };

/// What a texel of a skin is made of.
struct Coat {
    glm::vec3 colour{0.5f}; ///< As seen in an image, 0 … 1.
    float team = 0.0f;      ///< How far the team's colour replaces the colour.
    float tone = 1.0f;      ///< Brightness of the team's colour.
    float height = 0.0f;    ///< Relief, in units.
    float metal = 0.0f;     ///< Reflects in its own colour instead of scattering.
    float gloss = 0.0f;
    float glow = 0.0f; ///< Shown as it is, whatever the light.
};

/// A place on a figure's surface at rest.
struct SurfacePoint {
    glm::vec3 position;
    glm::vec3 normal;
    float around = 0.0f; ///< 0 … 1 from the seam; 0.5 is the part's front.
    float along = 0.0f;  ///< 0 … 1 from the first ring to the last.
    float edge = 0.0f;   ///< Distance to the nearest sharp edge of the part, in units.
};

using Decoration = std::function<void(const SurfacePoint &, Coat &)>;

/// Moves a point of the tube at rest, and may choose the bones that it follows: how a nose comes
/// out of a ring, or a flap of a coat swings by itself. Rings and corners are counted from 0.
using Sculpting =
    std::function<void(std::size_t ring, unsigned corner, glm::vec3 &position, Influence &bones)>;

/// A tube through rings: limbs, torsos, plates and helmets are all made of these.
struct Part {
    Material material = Material::Cloth;
    glm::vec3 colour{0.5f};
    float team = 0.0f;
    Profile profile;
    glm::vec3 front{1, 0, 0}; ///< Where the profile's y points, made perpendicular to the tube.
    std::vector<Ring> rings;
    bool lids = true;    ///< Closes an end that is not a tip; false where a last ring closes itself.
    bool sharp = false;  ///< Keeps edges in the light instead of rounding them.
    float detail = 1.0f; ///< Share of the skin compared to other parts of the size.
    Sculpting sculpt;
    Decoration decorate;

    Part &ring(const glm::vec3 &centre, const glm::vec2 &radius, const Influence &bones,
               const glm::vec3 &along = glm::vec3(0.0f));
    Part &tip(const glm::vec3 &centre, const Influence &bones);
};
