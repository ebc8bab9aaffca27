#include "tools/assets/characters/Arm.h"
#include "tools/assets/characters/HaydenCoat.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>
#include <glm/gtc/noise.hpp>

namespace {

const glm::vec3 suit(0.20f, 0.20f, 0.23f);
const glm::vec3 linen(0.80f, 0.79f, 0.76f);
const glm::vec3 tieColour(0.13f, 0.12f, 0.14f);
const glm::vec3 skin(0.90f, 0.70f, 0.57f);
const glm::vec3 hair(0.22f, 0.14f, 0.09f);

void decorateShirt(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float tie = 0.55f + 0.035f * std::max(42.0f - p.z, 0.0f);
    paint(coat, tieColour, band(p.y, p.z > 45.6f ? 0.75f : tie, 0.06f) * (p.x > 0 ? 1.0f : 0.0f));
    groove(coat, 0.6f * band(p.z - 45.5f, 0.06f, 0.1f) * band(p.y, 0.8f, 0.1f));
    groove(coat, 0.7f * band(std::abs(p.y) - 0.5f * (p.z - 44.6f), 0.05f, 0.12f) *
                     glm::smoothstep(45.2f, 45.6f, p.z));
}

void addBody(Figure &agent) {
    const Rig &rig = agent.rig;
    Part &shirt = agent.add(Material::Cloth, linen, softProfile(8, 2.3f));
    shirt.detail = 0.8f;
    columnRings(shirt, {{33.4f, 0, {4.5f, 3.5f}, on(rig.waist)},
                        {41.4f, 0.2f, {6.1f, 4.45f}, on(rig.chest)},
                        {45.4f, 0.0f, {5.2f, 3.5f}, on(rig.chest)},
                        {48.3f, 0.2f, {1.8f, 1.9f}, between(rig.chest, rig.neck, 0.4f)}});
    shirt.decorate = decorateShirt;
    Part &hips = agent.add(Material::Cloth, suit, roundProfile(6));
    hips.detail = 0.6f;
    columnRings(hips, {{25.0f, 0, {3.0f, 2.8f}, on(rig.pelvis)},
                       {27.5f, 0, {5.4f, 4.3f}, on(rig.pelvis)},
                       {33.4f, 0, {4.9f, 3.9f}, on(rig.waist)}});
    for (const Side side : {Right, Left}) {
        Part &trousers = agent.add(Material::Cloth, suit, roundProfile(6));
        trousers.tip(rig.at(rig.leg[side].upper) + glm::vec3(0, 0, 1.5f), on(rig.pelvis));
        limbRings(trousers, agent, rig.leg[side], rig.pelvis,
                  {{0.1f, {3.1f, 3.6f}},
                   {0.97f, {2.3f, 2.5f}, {0.15f, 0, 0}},
                   {1.35f, {2.25f, 2.5f}, {-0.4f, 0, 0}},
                   {1.98f, {1.95f, 2.2f}}});
        trousers.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, 0.5f * band(at.around - 0.5f, 0.004f, 0.02f), 0.15f);
        };
        addFist(agent, side, Material::Leather, glm::vec3(0.13f), 0.92f);
        Part &shoe = addFoot(agent, side, Material::Leather, glm::vec3(0.13f), {9.6f, 1.9f, 2.9f, 2.6f, 12});
        shoe.profile = softProfile(6, 3.0f);
        shoe.decorate = [](const SurfacePoint &at, Coat &coat) {
            coat.gloss = 0.55f;
            groove(coat, band(at.position.z - 0.7f, 0.06f, 0.12f));
        };
    }
}

void decorateFace(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float front = glm::smoothstep(1.6f, 2.6f, p.x);
    const float crown = p.z - (53.9f + 0.10f * p.x + 0.5f * glm::smoothstep(1.6f, 0.0f, std::abs(p.y)));
    const float temple = std::max(crown, 0.9f - p.x + 0.35f * (p.z - 51.5f) - (p.z < 50.2f ? 2.4f : 0.0f));
    const float hairy = glm::smoothstep(0.0f, 0.35f, temple + 0.25f * layeredNoise(p * 1.2f, 2));
    coat.colour *= 1.0f - 0.10f * glm::smoothstep(50.6f, 49.2f, p.z) * front; // Shaven.
    paint(coat, glm::vec3(0.58f, 0.34f, 0.30f),
          0.8f * front * band(p.y, 1.15f, 0.2f) * band(p.z - 49.75f, 0.22f, 0.15f));
    groove(coat, front * band(p.y, 1.2f, 0.15f) * band(p.z - 49.8f, 0.03f, 0.1f), 0.1f);
    paint(coat, hair,
          front * band(std::abs(p.y) - 1.4f, 0.9f, 0.2f) *
              band(p.z - 53.1f - 0.1f * std::abs(p.y), 0.2f, 0.12f));
    paint(coat, hair * (1.0f + 0.5f * glm::simplex(glm::vec3(p.x * 0.5f, p.y * 3.0f, p.z))), hairy);
    coat.gloss = glm::mix(coat.gloss, 0.3f, hairy);
    coat.height += 0.15f * hairy + 0.05f * hairy * glm::simplex(glm::vec3(p.x * 0.5f, p.y * 3.0f, p.z));
}

void addHead(Figure &agent) {
    const Rig &rig = agent.rig;
    const Influence head = on(rig.head);
    Part &face = agent.add(Material::Skin, skin, roundProfile(12));
    face.detail = 1.7f;
    face.lids = false; // It begins in the collar.
    columnRings(face, {{45.5f, 0, {2.1f, 2.2f}, on(rig.chest)},
                       {48.2f, 0.3f, {1.95f, 2.1f}, on(rig.neck)},
                       {48.4f, 1.3f, {1.6f, 2.4f}, head},
                       {49.7f, 0.9f, {2.4f, 3.05f}, head},
                       {50.8f, 0.7f, {2.65f, 3.25f}, head},
                       {52.6f, 0.5f, {2.85f, 3.3f}, head},
                       {54.4f, 0.2f, {2.85f, 3.6f}, head},
                       {56.0f, -0.2f, {2.1f, 2.8f}, head},
                       {56.7f, -0.3f, {0, 0}, head}});
    face.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &) {
        const bool front = corner == 6;
        const bool beside = corner == 5 || corner == 7;
        const bool ear = corner == 3 || corner == 9;
        if (ring == 2 && front)
            p.x += 0.35f; // Chin,
        if (ring == 4)    // nose and cheeks,
            p.x += front ? 1.25f : beside ? -0.1f : 0.0f;
        if (ring == 5) // bridge and eyes.
            p.x += front ? 0.35f : beside ? -0.2f : 0.0f;
        if (ear && (ring == 4 || ring == 5))
            p += glm::vec3(-0.3f, p.y > 0 ? 0.4f : -0.4f, 0.1f);
    };
    face.decorate = decorateFace;
    Part &shades = agent.add(Material::Glass, glm::vec3(0.05f, 0.05f, 0.06f),
                             {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}, {0, 0, 1});
    shades.sharp = true;
    shades.ring({1.0f, 3.0f, 52.4f}, {0.35f, 0.3f}, head)
        .ring({3.3f, 2.4f, 52.3f}, {0.35f, 0.75f}, head)
        .ring({4.1f, 0.9f, 52.3f}, {0.35f, 0.75f}, head);
    shades.ring({4.2f, 0, 52.5f}, {0.3f, 0.3f}, head)
        .ring({4.1f, -0.9f, 52.3f}, {0.35f, 0.75f}, head)
        .ring({3.3f, -2.4f, 52.3f}, {0.35f, 0.75f}, head)
        .ring({1.0f, -3.0f, 52.4f}, {0.35f, 0.3f}, head);
}

/// He weighs one leg, then the other, looks about, and straightens the coat at its lapel.
void stand(const Rig &rig, Stance &stance, float phase) {
    const float weight = wave(phase, 1, 0.02f);
    const float breath = wave(phase, 4);
    const float tug = keyed(phase, {{0.26f, 0}, {0.46f, 1}, {0.56f, 1}, {0.78f, 0}});
    const float roll = tug * wave(phase, 6, 0.15f);
    stance.shift = {0.5f * wave(phase, 2), 1.6f * weight, -0.35f - 0.2f * wave(phase, 2, 0.25f)};
    stance.pelvis = {2.5f * weight, 0, 6.0f + 5.0f * wave(phase, 1, 0.2f)};
    stance.waist = {-4.5f * weight, -3.0f * tug - 0.5f * breath, 3.0f * wave(phase, 1, 0.15f)};
    stance.chest = {6.0f * roll, -4.0f * tug - 1.2f * breath, 7.0f * tug + 4.0f * roll};
    // Mostly toward his left: a long look there and a short one back; down at the lapel in between.
    const float look = keyed(phase, {{0.02f, 12},
                                     {0.10f, 34},
                                     {0.30f, 30},
                                     {0.44f, 4},
                                     {0.64f, 8},
                                     {0.74f, -16},
                                     {0.84f, -12},
                                     {0.94f, 14}});
    stance.neck = {0, 6.0f * tug, 0.35f * look};
    stance.head = {-3.0f * weight - 5.0f * roll, 3.0f * wave(phase, 3, 0.3f) + 7.0f * tug, 0.65f * look};
    stance.weaponShift = {-0.8f * tug, 0, -1.0f * tug + 0.4f * breath};
    stance.weaponTurn = {0, 10.0f * tug + breath, -4.0f * tug + 3.0f * weight};
    stance.left = {tug, {6.2f, 4.6f, 40.2f - 1.2f * roll}, {-40, -20, 40}, rig.chest};
}

/// The coat hangs, and follows late: it swings with the weight and opens in a run.
void swing(const CoatBones &coat, Pose &pose, float phase) {
    const float late = wave(phase, 1, -0.07f);
    const float flare = keyed(phase, {{0.40f, 0}, {0.56f, 1}, {0.80f, 0}});
    for (const Side side : {Right, Left}) {
        const float out = side == Left ? 1.0f : -1.0f;
        pose.turn(coat.side[side].upper,
                  {out * (2.0f + 5.0f * flare) - 4.0f * late, -4.0f * flare + 2.0f * wave(phase, 3), 0});
        pose.turn(coat.side[side].lower,
                  {out * 4.0f * flare - 4.0f * late, -4.0f * flare + 3.0f * wave(phase, 3, -0.1f), 0});
    }
    pose.turn(coat.back.upper, {-4.0f * late, 1.0f + 5.0f * flare, 0});
    pose.turn(coat.back.lower, {-4.0f * late, 5.0f * flare + 2.0f * wave(phase, 3, -0.1f), 0});
}

} // namespace

Figure makeHayden() {
    RigPlan plan;
    plan.shoulder = {0, 6.7f, 43.9f};
    plan.grip = {9.5f, -4.8f, 34.0f};
    plan.aim = {-4, 10, 42};
    plan.hip = {0, 3.2f, 28};
    plan.ankle = {glm::vec3(-2.2f, -4.2f, 3), glm::vec3(1.4f, 3.8f, 3)};
    plan.kneePole = {glm::vec3(1, -0.1f, 0), glm::vec3(1, -0.05f, 0)};
    Figure agent(plan);
    const CoatBones bones = addCoatBones(agent);
    agent.stand = [rig = agent.rig](Stance &stance, float phase) { stand(rig, stance, phase); };
    agent.extra = [bones](Pose &pose, float phase) { swing(bones, pose, phase); };
    addCoat(agent, bones);
    addBody(agent);
    addHead(agent);
    return agent;
}
