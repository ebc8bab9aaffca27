#include "tools/assets/characters/HaydenCoat.h"

#include "tools/assets/characters/Arm.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 lining(0.20f, 0.20f, 0.24f);
const glm::vec3 beltLeather(0.13f, 0.11f, 0.11f);
const glm::vec3 brass(0.80f, 0.68f, 0.38f);

/// A level of the coat. The gap is the half angle, in degrees, by which it stands open in front.
struct CoatLevel {
    float z;
    float x;
    glm::vec2 radius; ///< To the side and to the front.
    float gap;
    float thickness = 0.5f;
};

constexpr std::size_t hipLevel = 4;
constexpr std::size_t collarLevel = 8;
// At both ends the inside meets the outside.
const std::array<CoatLevel, 10> levels{{{9.0f, -1.1f, {9.6f, 9.4f}, 23, 0},
                                        {9.7f, -1.1f, {9.6f, 9.4f}, 23, 0.45f},
                                        {17.5f, -0.2f, {8.7f, 8.5f}, 19},
                                        {25.0f, 0.0f, {7.4f, 6.9f}, 11},
                                        {30.6f, 0.0f, {6.3f, 5.3f}, 4},
                                        {34.0f, 0.0f, {5.3f, 4.3f}, 4, 1.0f},
                                        {41.4f, 0.2f, {7.0f, 5.0f}, 20, 1.0f},
                                        {45.0f, 0.0f, {6.7f, 4.3f}, 29, 0.8f},
                                        {47.5f, -0.1f, {3.4f, 3.2f}, 40, 0.4f},
                                        {50.2f, -0.4f, {4.1f, 4.1f}, 46, 0}}};

/// A corner of the coat's profile, in degrees from the front; an edge follows the gap, as does the
/// lapel's border beside it.
struct CoatCorner {
    enum Kind { Fixed, Border, Edge } kind = Fixed;
    float angle = 0;
    bool inside = false;
};

// From the seam at the back along the right side to the front, inside around to the left, and back.
// Inside and outside have the same corners: at the hem and the collar they meet.
constexpr CoatCorner fixedAt(float angle, bool inside = false) {
    return {CoatCorner::Fixed, angle, inside};
}
constexpr CoatCorner border(bool inside = false) {
    return {CoatCorner::Border, 0, inside};
}
constexpr CoatCorner edge(bool inside = false) {
    return {CoatCorner::Edge, 0, inside};
}
constexpr std::array<CoatCorner, 18> corners{
    fixedAt(180),       fixedAt(140),      fixedAt(95),       border(),           edge(),
    edge(true),         border(true),      fixedAt(95, true), fixedAt(140, true), fixedAt(180, true),
    fixedAt(140, true), fixedAt(95, true), border(true),      edge(true),         edge(),
    border(),           fixedAt(95),       fixedAt(140)};
constexpr float cornerCount = 18.0f;
constexpr float rightEdge = 4.0f;
constexpr float leftEdge = 14.0f;

bool onLeft(unsigned corner) {
    return corner > 9;
}

/// Around a figure that looks along x: where the outline of a level is, right being positive.
glm::vec2 onOutline(float degrees, const glm::vec2 &radius) {
    const glm::vec2 way(std::cos(glm::radians(degrees)), -std::sin(glm::radians(degrees)));
    const float norm = std::pow(std::pow(std::abs(way.x), 2.3f) + std::pow(std::abs(way.y), 2.3f), 1 / 2.3f);
    return glm::vec2(way.x * radius.y, way.y * radius.x) / norm;
}

float angleOf(std::size_t level, const CoatCorner &corner) {
    const float gap = levels[level].gap;
    if (corner.kind == CoatCorner::Edge)
        return gap;
    if (corner.kind == CoatCorner::Border)
        return gap + (level > hipLevel ? 21.0f : 32.0f);
    return corner.angle;
}

glm::vec3 coatPoint(std::size_t level, unsigned number) {
    const CoatLevel &at = levels[level];
    const CoatCorner &corner = corners[number];
    float swell = corner.inside ? -at.thickness : 0.0f;
    // Pleats grow down the skirt; lapels lie on the breast.
    if (level < hipLevel && corner.kind == CoatCorner::Fixed && corner.angle < 180.0f)
        swell += (corner.angle < 100.0f ? 0.15f : -0.15f) * static_cast<float>(hipLevel - level);
    if (level > hipLevel + 1 && level < collarLevel && corner.kind != CoatCorner::Fixed && !corner.inside)
        swell += 0.3f;
    const float angle = angleOf(level, corner);
    return {glm::vec2(at.x, 0) + onOutline(onLeft(number) ? -angle : angle, at.radius + swell), at.z};
}

/// Above the hips the coat sits on the body; below, each side follows its flap and its leg: the thigh down
/// to the knee, the shin at the hem.
Influence coatInfluence(Bone pelvis, const std::array<Limb, 2> &legs, const CoatBones &bones,
                        std::size_t level, unsigned corner, const Influence &body) {
    if (level >= hipLevel)
        return body;
    const Limb &leg = legs[onLeft(corner) ? Left : Right];
    const float angle = angleOf(level, corners[corner]);
    const bool behind = angle > 125.0f;
    const CoatBones::Flap &flap = behind ? bones.back : bones.side[onLeft(corner) ? Left : Right];
    if (level == hipLevel - 1)
        return behind ? between(pelvis, flap.upper, 0.7f) : between(flap.upper, leg.upper, 0.5f);
    const bool hem = level < hipLevel - 2;
    if (angle == 180.0f)
        return on(hem ? flap.lower : flap.upper);
    if (hem)
        return between(flap.lower, leg.lower, behind ? 0.25f : 0.6f);
    return between(flap.upper, leg.upper, behind ? 0.25f : 0.75f);
}

void decorateCoat(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float corner = at.around * cornerCount;
    const float toEdge = std::min(std::abs(corner - rightEdge), std::abs(corner - leftEdge));
    if (corner > rightEdge + 0.5f && corner < leftEdge - 0.5f && p.z < 48.4f) {
        paint(coat, lining * (0.9f + 0.25f * std::sin(p.z * 0.8f + p.y)), 1.0f);
        return;
    }
    const float breast = glm::smoothstep(34.6f, 34.7f, p.z);
    const float lapel = breast * glm::smoothstep(1.02f, 0.98f, toEdge);
    const float collar = glm::smoothstep(47.5f, 47.6f, p.z);
    coat.tone *= 1.0f - 0.34f * std::max(lapel, collar);
    groove(coat, 0.8f * breast * (1.0f - collar) * band(toEdge - 1.0f, 0.02f, 0.06f), 0.2f);
    groove(coat, 0.6f * (1.0f - breast) * band(toEdge - 0.55f, 0.02f, 0.06f), 0.1f);
    coat.height += 0.3f * std::sin(std::atan2(p.y, p.x) * 9.0f + 0.8f * layeredNoise(p * 0.2f, 2)) *
                   glm::smoothstep(30.0f, 18.0f, p.z);
    groove(coat, band(p.z - 11.2f, 0.07f, 0.12f));
    const float behind = p.x < 0 ? 1.0f : 0.0f;
    groove(coat, behind * band(p.y, 0.10f, 0.15f) * glm::smoothstep(47.2f, 46.8f, p.z),
           p.z < 24.0f ? 0.3f : 0.1f);
    groove(coat, 0.8f * behind * band(p.z - 43.0f + 0.05f * p.y * p.y, 0.06f, 0.1f));
    const glm::vec2 pocket(std::abs(p.y) - 5.9f + 0.25f * (p.z - 26.0f), p.z - 26.2f);
    groove(coat, (p.x > 0 ? 1.0f : 0.0f) * band(std::abs(pocket.y) - 0.7f, 0.08f, 0.12f) *
                     band(pocket.x, 1.7f, 0.1f));
    // Two rows of buttons below the belt and above it.
    for (const float z : {37.2f, 30.2f, 26.8f}) {
        const float button =
            p.x > 0 ? glm::length(glm::vec2(std::abs(p.y) - (z > 34 ? 2.9f : 2.2f), p.z - z)) : 9.0f;
        paint(coat, brass, glm::smoothstep(0.5f, 0.42f, button));
        groove(coat, 0.6f * band(button - 0.55f, 0.03f, 0.1f));
    }
}

void addBelt(Figure &figure) {
    const Rig &rig = figure.rig;
    Part &belt = figure.add(Material::Leather, beltLeather, softProfile(8, 2.3f));
    belt.sharp = true;
    belt.lids = false;
    columnRings(belt, {{32.6f, 0, {5.0f, 4.0f}, on(rig.waist)},
                       {32.7f, 0, {5.9f, 4.9f}, on(rig.waist)},
                       {34.3f, 0, {5.8f, 4.75f}, on(rig.waist)},
                       {34.4f, 0, {4.9f, 3.9f}, on(rig.waist)}});
    belt.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec2 buckle(std::abs(at.position.y), std::abs(at.position.z - 33.5f));
        const float front = at.position.x > 0 ? 1.0f : 0.0f;
        const float frame = band(buckle.x, 1.25f, 0.05f) *
                            (1.0f - band(buckle.x, 0.75f, 0.05f) * band(buckle.y, 0.4f, 0.05f));
        paint(coat, brass, front * frame);
        coat.gloss += 0.2f;
        groove(coat, 0.5f * band(buckle.y - 0.6f, 0.03f, 0.06f));
    };
}

void addSleeve(Figure &figure, Side side) {
    Part &sleeve = figure.add(Material::Cloth, glm::vec3(0.3f), roundProfile(6));
    sleeve.team = 1.0f;
    const glm::vec3 joint = figure.rig.at(figure.rig.arm[side].upper);
    const glm::vec3 root = joint + mirrored({0, -3.4f, 0.9f}, side);
    // Wide at the elbow, where the cloth gathers, and wider at the cuff.
    const glm::vec3 elbow = 0.35f * glm::vec3(-0.7f, side == Left ? 0.4f : -0.4f, -0.6f);
    armRings(sleeve, figure, side, root, {2.2f, 2.45f},
             {{0.85f, {2.1f, 2.2f}, elbow},
              {1.0f, {2.3f, 2.35f}, elbow * 1.6f},
              {1.2f, {2.0f, 2.1f}, elbow},
              {1.94f, {2.0f, 2.1f}}});
    sleeve.tip(sleeve.rings.back().centre, sleeve.rings.back().bones);
    sleeve.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float cuff = glm::smoothstep(0.815f, 0.82f, at.along);
        coat.tone *= 1.0f - 0.34f * cuff;
        coat.height += 0.16f * std::sin(at.along * 90.0f + 3.0f * layeredNoise(at.position * 0.4f, 2)) *
                       band(at.along - 0.52f, 0.07f, 0.08f);
    };
}

} // namespace

CoatBones addCoatBones(Figure &figure) {
    Skeleton &skeleton = figure.rig.skeleton;
    const auto flap = [&](const glm::vec3 &top, const glm::vec3 &middle) {
        CoatBones::Flap bones;
        bones.upper = skeleton.add(top, figure.rig.pelvis);
        bones.lower = skeleton.add(middle, bones.upper);
        return bones;
    };
    CoatBones bones;
    for (const Side side : {Right, Left})
        bones.side[side] = flap(mirrored({2.5f, 5.0f, 30}, side), mirrored({3.0f, 6.0f, 18}, side));
    bones.back = flap({-5, 0, 30}, {-7, 0, 18});
    return bones;
}

void addCoat(Figure &figure, const CoatBones &bones) {
    const Rig &rig = figure.rig;
    Part &coat = figure.add(Material::Cloth, glm::vec3(0.3f), Profile(corners.size(), glm::vec2(1, 0)));
    coat.team = 1.0f;
    coat.sharp = true;
    coat.lids = false;
    coat.detail = 1.1f;
    for (const CoatLevel &level : levels) {
        const Influence body = level.z < 31.0f   ? on(rig.pelvis)
                               : level.z < 35.0f ? on(rig.waist)
                               : level.z < 39.0f ? between(rig.waist, rig.chest, 0.6f)
                                                 : on(rig.chest);
        coat.ring({level.x, 0, level.z}, level.radius, body, {0, 0, 1});
    }
    coat.sculpt = [bones, legs = rig.leg, pelvis = rig.pelvis](std::size_t ring, unsigned corner,
                                                               glm::vec3 &position, Influence &influence) {
        position = coatPoint(ring, corner);
        influence = coatInfluence(pelvis, legs, bones, ring, corner, influence);
    };
    coat.decorate = decorateCoat;
    addBelt(figure);
    for (const Side side : {Right, Left})
        addSleeve(figure, side);
}
