#include "tools/assets/characters/Arm.h"
#include "tools/assets/characters/Dire.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace dire {

namespace {

// Where along an arm its bracer begins.
constexpr float bracerBegin = 0.68f;

void decorateArm(const SurfacePoint &at, Coat &coat) {
    crease(coat, 0.5f * band(at.along - 0.36f - 0.03f * std::sin(at.around * 12.566f), 0.004f, 0.02f), 0.25f);
    coat.height += 0.25f * band(at.around - 0.5f, 0.02f, 0.2f) * band(at.along - 0.46f, 0.08f, 0.12f);
    const float bracer = glm::smoothstep(bracerBegin - 0.002f, bracerBegin + 0.002f, at.along);
    const float place = (at.along - bracerBegin) / (1.0f - bracerBegin);
    const float turn = at.around * 9.0f;
    const float stud =
        glm::length(glm::vec2((turn - std::floor(turn) - 0.5f) * 1.3f, (place - 0.42f) * 3.0f));
    paintTeam(coat, bracer);
    coat.gloss = glm::mix(coat.gloss, 0.4f, bracer);
    paint(coat, glm::vec3(0.72f, 0.70f, 0.66f), bracer * glm::smoothstep(0.3f, 0.24f, stud));
    groove(coat,
           bracer * (band(stud - 0.32f, 0.02f, 0.06f) + band(place - 0.86f, 0.015f, 0.02f) +
                     band(place - 0.05f, 0.015f, 0.02f)),
           0.15f);
}

} // namespace

void addArm(Figure &beast, Side side) {
    const Limb &arm = beast.rig.arm[side];
    Part &flesh = beast.add(Material::Hide, hide, roundProfile(7));
    const glm::vec3 joint = beast.rig.at(arm.upper);
    armRings(flesh, beast, side, joint + mirrored({-0.2f, -5.4f, 0.6f}, side), {4.5f, 4.9f},
             {{0.4f, {4.3f, 4.7f}, {0.3f, 0, 0}},
              {0.84f, {3.4f, 3.7f}},
              {1.0f, {3.2f, 3.4f}},
              {1.14f, {3.7f, 3.9f}},
              {1.34f, {4.3f, 4.5f}},
              {1.96f, {3.0f, 3.1f}}});
    flesh.tip(flesh.rings.back().centre, flesh.rings.back().bones);
    flesh.decorate = decorateArm;
}

void addPauldron(Figure &beast) {
    const Rig &rig = beast.rig;
    const Limb &arm = rig.arm[Left];
    const Influence borne = between(rig.chest, arm.upper, 0.5f);
    const glm::vec3 centre = rig.at(arm.upper) + glm::vec3(0, 0.6f, -0.4f);
    const glm::vec3 way = glm::normalize(glm::vec3(0.1f, 0.75f, 0.9f));
    Part &pad = beast.add(Material::Plate, glm::vec3(0.5f), softProfile(7, 2.4f));
    pad.team = 1.0f;
    pad.sharp = true;
    // The edge is rolled: out, over and in again.
    pad.ring(centre + way * 0.9f, {5.6f, 5.4f}, borne, way)
        .ring(centre - way * 0.2f, {7.0f, 6.8f}, borne, way)
        .ring(centre + way * 0.9f, {7.3f, 7.1f}, borne, way)
        .ring(centre + way * 1.0f, {6.6f, 6.4f}, borne, way)
        .ring(centre + way * 4.2f, {4.7f, 4.5f}, borne, way)
        .tip(centre + way * 6.2f, borne);
    pad.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float rim = glm::smoothstep(0.47f, 0.46f, at.along);
        coat.tone *= 1.0f - 0.45f * rim;
        groove(coat, band(at.along - 0.80f, 0.01f, 0.015f), 0.15f);
    };
    const glm::vec3 ahead = glm::normalize(glm::cross(glm::vec3(0, 1, 0), way));
    for (const float x : {-3.0f, 0.0f, 3.0f}) {
        Part &spike = beast.add(Material::Horn, horn, roundProfile(4));
        spike.lids = false; // It stands in the plate.
        const glm::vec3 root = centre + way * (x == 0.0f ? 4.8f : 3.6f) - ahead * x;
        spike.ring(root, {1.1f, 1.1f}, borne).tip(root + way * 4.6f - ahead * (x * 0.5f), borne);
    }
}

} // namespace dire
