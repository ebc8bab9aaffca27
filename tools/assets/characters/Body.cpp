#include "tools/assets/characters/Body.h"

#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

/// 0 before the joint, 1 after it, over `reach` of a bone to each side.
float across(float place, float joint, float reach) {
    return glm::smoothstep(joint - reach, joint + reach, place);
}

Influence limbInfluence(const Limb &limb, Bone above, float place) {
    if (place < 0.5f)
        return between(above, limb.upper, across(place, 0.0f, 0.22f));
    if (place < 1.5f)
        return between(limb.upper, limb.lower, across(place, 1.0f, 0.16f));
    return between(limb.lower, limb.end, across(place, 2.0f, 0.12f));
}

} // namespace

void limbRings(Part &part, const Figure &figure, const Limb &limb, Bone above,
               const std::vector<LimbRing> &rings) {
    const std::array<glm::vec3, 3> joints{figure.rig.at(limb.upper), figure.rig.at(limb.lower),
                                          figure.rig.at(limb.end)};
    for (const LimbRing &ring : rings) {
        const glm::vec3 centre = ring.place <= 1.0f ? glm::mix(joints[0], joints[1], ring.place)
                                                    : glm::mix(joints[1], joints[2], ring.place - 1.0f);
        part.ring(centre + ring.offset, ring.radius, limbInfluence(limb, above, ring.place));
    }
}

void columnRings(Part &part, const std::vector<ColumnRing> &rings) {
    for (const ColumnRing &ring : rings)
        part.ring({ring.x, 0, ring.z}, ring.radius, ring.bones);
}

std::vector<LimbRing> armShape(float thickness) {
    const float s = thickness;
    return {{-0.12f, {1.5f * s, 1.6f * s}}, {0.05f, {2.3f * s, 2.5f * s}},  {0.45f, {2.0f * s, 2.25f * s}},
            {0.9f, {1.65f * s, 1.75f * s}}, {1.08f, {1.7f * s, 1.75f * s}}, {1.32f, {1.8f * s, 1.85f * s}},
            {1.97f, {1.15f * s, 1.2f * s}}};
}

std::vector<LimbRing> legShape(float thickness) {
    const float s = thickness;
    return {{-0.06f, {3.3f * s, 3.9f * s}}, {0.2f, {3.4f * s, 4.0f * s}},
            {0.55f, {2.9f * s, 3.3f * s}},  {0.92f, {2.35f * s, 2.6f * s}},
            {1.1f, {2.2f * s, 2.4f * s}},   {1.38f, {2.35f * s, 2.65f * s}, {-0.4f, 0, 0}},
            {1.97f, {1.5f * s, 1.7f * s}}};
}

void barRings(Part &part, const glm::vec3 &from, const glm::vec3 &to, const glm::vec2 &radius, float bevel,
              const Influence &bones) {
    const glm::vec3 way = glm::normalize(to - from);
    const glm::vec2 small = glm::max(radius - bevel, radius * 0.35f);
    part.tip(from, bones);
    if (bevel > 0.0f)
        part.ring(from, small, bones, way);
    part.ring(from + way * bevel, radius, bones, way);
    part.ring(to - way * bevel, radius, bones, way);
    if (bevel > 0.0f)
        part.ring(to, small, bones, way);
    part.tip(to, bones);
    // A tip on its ring's plane has no direction of its own.
    part.rings.front().along = part.rings.back().along = way;
}

void domeRings(Part &part, const glm::vec3 &centre, const glm::vec3 &outward, const glm::vec2 &radius,
               float height, const Influence &bones) {
    const glm::vec3 way = glm::normalize(outward);
    part.ring(centre, radius, bones, way);
    part.ring(centre + way * (height * 0.58f), radius * 0.8f, bones, way);
    part.ring(centre + way * (height * 0.92f), radius * 0.38f, bones, way);
    part.tip(centre + way * height, bones);
}

Part &addFoot(Figure &figure, Side side, Material material, const glm::vec3 &colour, const FootShape &shape) {
    const Rig &rig = figure.rig;
    const Influence foot = on(rig.leg[side].end);
    const glm::vec3 ankle = rig.at(foot.first);
    const glm::vec3 way(turned({0, 0, side == Left ? shape.turnOut : -shape.turnOut}) *
                        glm::vec4(1, 0, 0, 0));
    const glm::vec3 heel = glm::vec3(ankle.x, ankle.y, 0) - way * shape.heel;
    Part &boot = figure.add(material, colour, softProfile(8, 3.2f), {0, 0, 1});
    boot.detail = 0.85f;
    const auto section = [&](float place, float width, float height) {
        boot.ring(heel + way * (shape.length * place) + glm::vec3(0, 0, height * 0.5f),
                  {shape.width * width, height * 0.5f}, foot, way);
    };
    const float h = shape.height;
    boot.tip(heel + glm::vec3(0, 0, 0.4f * h), foot);
    section(0.04f, 0.8f, 1.05f * h);
    section(0.45f, 0.92f, 1.05f * h);
    section(0.8f, 1.02f, 0.6f * h);
    section(0.98f, 0.62f, 0.38f * h);
    boot.tip(heel + way * shape.length + glm::vec3(0, 0, 0.2f * h), foot);
    boot.decorate = [=](const SurfacePoint &at, Coat &coat) {
        const float sole = 1.0f - glm::smoothstep(0.55f, 0.7f, at.position.z);
        paint(coat, glm::vec3(0.09f), sole);
        groove(coat, band(at.position.z - 0.75f, 0.06f, 0.15f));
    };
    return boot;
}
