#include "tools/assets/characters/Arm.h"
#include "tools/assets/characters/HunterCloak.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 leather(0.64f, 0.56f, 0.48f);
const glm::vec3 darkLeather(0.25f, 0.21f, 0.19f);
const glm::vec3 linen(0.66f, 0.64f, 0.58f);
const glm::vec3 bone(0.86f, 0.81f, 0.68f);

void decorateTunic(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    if (at.along < 0.225f) {
        paint(coat, darkLeather, 1.0f);
        return;
    }
    const float skirt = glm::smoothstep(29.0f, 27.0f, p.z);
    const float strips = at.around * 16.0f + 0.5f;
    groove(coat, skirt * band(strips - std::round(strips), 0.035f, 0.07f), 0.3f);
    const float stud = glm::length(
        glm::vec2((at.around * 32.0f - std::floor(at.around * 32.0f) - 0.5f) * 1.3f, p.z - 21.2f));
    paint(coat, glm::vec3(0.80f, 0.72f, 0.50f), skirt * glm::smoothstep(0.45f, 0.35f, stud));
    const float belt = band(p.z - 31.2f, 1.0f, 0.08f);
    paint(coat, darkLeather, belt);
    coat.height += 0.12f * belt;
    const float buckle = belt * (p.x > 0 ? 1.0f : 0.0f) * band(p.y, 1.3f, 0.08f);
    paint(coat, glm::vec3(0.80f, 0.72f, 0.50f), buckle);
    coat.metal = 0.7f * buckle;
    // A strap from shoulder to hip.
    paint(coat, darkLeather,
          band(p.y - (p.z - 38.0f) * 0.75f, 0.9f, 0.1f) * glm::smoothstep(32.0f, 32.3f, p.z));
}

/// It begins inside the skirt, turns around its hem and rises into the mantle.
void addTunic(Figure &tracker) {
    const Rig &rig = tracker.rig;
    Part &tunic = tracker.add(Material::Leather, leather, softProfile(10, 2.6f));
    const auto level = [&](float z, float x, const glm::vec2 &radius, Bone followed) {
        tunic.ring({x, 0, z}, radius, on(followed), {0, 0, 1});
    };
    level(28.0f, 0.0f, {5.0f, 4.0f}, rig.pelvis);
    level(19.6f, 0.7f, {8.2f, 7.4f}, rig.pelvis);
    level(19.4f, 0.7f, {8.7f, 7.9f}, rig.pelvis);
    level(25.0f, 0.4f, {7.2f, 6.3f}, rig.pelvis);
    level(31.5f, 0.0f, {5.4f, 4.3f}, rig.waist);
    level(38.0f, 0.1f, {6.2f, 4.4f}, rig.chest);
    level(44.5f, 0.0f, {5.0f, 3.4f}, rig.chest);
    const std::array<Bone, 2> thigh{rig.leg[Right].upper, rig.leg[Left].upper};
    tunic.sculpt = [thigh](std::size_t ring, unsigned, glm::vec3 &p, Influence &bones) {
        if (ring > 0 && ring < 4) {
            // In the middle it hangs between the legs.
            bones = std::abs(p.y) < 1.0f
                        ? between(thigh[Right], thigh[Left], 0.5f)
                        : between(bones.first, thigh[p.y > 0 ? Left : Right], ring == 3 ? 0.55f : 0.85f);
        }
    };
    tunic.decorate = decorateTunic;
    Part &sash = tracker.add(Material::Cloth, glm::vec3(0.4f), Profile{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
    sash.team = 1.0f;
    sash.sharp = true;
    sash.ring({4.6f, 0, 31.8f}, {1.9f, 0.4f}, on(rig.waist))
        .ring({8.4f, 0, 22.0f}, {2.3f, 0.35f}, on(rig.pelvis))
        .ring({9.3f, 0, 14.6f}, {2.5f, 0.3f}, on(rig.pelvis));
    sash.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec2 ring(at.position.y, at.position.z - 18.2f);
        paint(coat, bone, 0.9f * band(glm::length(ring) - 1.1f, 0.25f, 0.1f));
        groove(coat, band(at.position.z - 15.6f, 0.06f, 0.12f));
    };
}

void addQuiver(Figure &tracker) {
    const Influence chest = on(tracker.rig.chest);
    Part &quiver = tracker.add(Material::Leather, darkLeather * 1.3f, roundProfile(7));
    const glm::vec3 foot(-7.9f, 5.5f, 31.0f);
    const glm::vec3 mouth(-7.3f, -6.5f, 50.0f);
    const glm::vec3 way = mouth - foot;
    quiver.ring(foot, {1.7f, 1.7f}, chest, way)
        .ring(mouth, {2.1f, 2.1f}, chest, way)
        .ring(mouth, {1.7f, 1.7f}, chest, way)
        .tip(mouth - 0.08f * way, chest);
    quiver.decorate = [](const SurfacePoint &at, Coat &coat) {
        paint(coat, leather, band(at.along - 0.25f, 0.03f, 0.01f) + band(at.along - 0.66f, 0.03f, 0.01f));
        paint(coat, glm::vec3(0.06f), glm::smoothstep(0.875f, 0.88f, at.along));
    };
    const std::array<glm::vec2, 3> shafts{{{0.9f, 0.2f}, {-0.6f, 0.8f}, {-0.3f, -0.8f}}};
    for (const glm::vec2 &shaft : shafts) {
        const glm::vec3 root = mouth + glm::vec3(shaft.x, shaft.y, 0) - 0.05f * way;
        Part &bolt = tracker.add(Material::Cloth, bone, Profile{{0, -1}, {1, 0}, {0, 1}, {-1, 0}});
        bolt.lids = false; // It stands in the quiver.
        bolt.ring(root, {0.3f, 0.3f}, chest)
            .ring(root + 0.17f * way, {0.85f, 0.85f}, chest)
            .tip(root + 0.30f * way, chest);
        bolt.decorate = [](const SurfacePoint &at, Coat &coat) {
            paintTeam(coat, glm::smoothstep(0.50f, 0.52f, at.along));
        };
    }
}

void decorateSleeve(const SurfacePoint &at, Coat &coat) {
    const float bracer = glm::smoothstep(0.708f, 0.712f, at.along);
    const float strap = at.along * 16.0f;
    paint(coat, leather * (0.9f + 0.15f * layeredNoise(at.position, 3)), bracer);
    paint(coat, darkLeather, bracer * band(strap - std::round(strap), 0.12f, 0.04f));
    groove(coat, band(at.along - 0.71f, 0.004f, 0.01f));
}

void decorateLeg(const SurfacePoint &at, Coat &coat) {
    const float boot = glm::smoothstep(0.555f, 0.56f, at.along);
    const float cuff = boot * glm::smoothstep(0.68f, 0.675f, at.along);
    paint(coat, darkLeather * 1.15f * (1.0f + 0.2f * layeredNoise(at.position * 0.8f, 3)), boot);
    paint(coat, bone * (1.0f + 0.25f * layeredNoise(at.position * 1.6f, 3)), cuff);
    coat.height += 0.2f * cuff * layeredNoise(at.position * 2.0f, 2);
    const float strap = at.along * 12.0f;
    paint(coat, leather * 0.9f, boot * (1.0f - cuff) * band(strap - std::round(strap), 0.09f, 0.04f));
}

void addLimbs(Figure &tracker) {
    const Rig &rig = tracker.rig;
    for (const Side side : {Right, Left}) {
        Part &sleeve = tracker.add(Material::Cloth, linen, roundProfile(6));
        const glm::vec3 joint = rig.at(rig.arm[side].upper);
        armRings(sleeve, tracker, side, joint + mirrored({0, -3.0f, 0.3f}, side), {1.9f, 2.1f},
                 {{0.5f, {1.95f, 2.1f}},
                  {0.97f, {1.8f, 1.9f}},
                  {1.24f, {1.75f, 1.85f}},
                  {1.26f, {2.25f, 2.35f}},
                  {1.96f, {1.6f, 1.7f}}});
        sleeve.tip(sleeve.rings.back().centre, sleeve.rings.back().bones);
        sleeve.decorate = decorateSleeve;
        addFist(tracker, side, Material::Leather, darkLeather * 1.1f, 0.95f);
        Part &leg = tracker.add(Material::Cloth, linen * 0.75f, roundProfile(7));
        limbRings(leg, tracker, rig.leg[side], rig.pelvis,
                  {{0.1f, {2.5f, 2.9f}},
                   {0.97f, {2.2f, 2.4f}},
                   {1.19f, {2.0f, 2.2f}},
                   {1.21f, {2.9f, 3.1f}},
                   {1.4f, {2.6f, 2.9f}, {-0.2f, 0, 0}},
                   {2.06f, {1.8f, 2.1f}}});
        leg.decorate = decorateLeg;
        addFoot(tracker, side, Material::Leather, darkLeather * 1.1f, {9.2f, 2.0f, 3.2f, 2.6f, 14}).profile =
            softProfile(6, 3.0f);
    }
}

/// Scans from side to side under the hood, and stoops to listen.
void stand(Stance &stance, float phase) {
    const float weight = wave(phase, 1, 0.1f);
    const float breath = wave(phase, 5);
    const float stoop = keyed(phase, {{0.36f, 0}, {0.48f, 1}, {0.64f, 1}, {0.76f, 0}});
    const float look =
        keyed(phase, {{0.04f, 44}, {0.16f, 40}, {0.36f, -12}, {0.46f, -26}, {0.60f, -18}, {0.86f, 34}});
    stance.shift = {1.1f * stoop, 1.5f * weight, -0.4f - 1.5f * stoop - 0.15f * breath};
    stance.pelvis = {2.5f * weight, 3.0f * stoop, 2.0f + 0.12f * look};
    stance.waist = {-3.5f * weight, 5.0f * stoop, 0.12f * look};
    stance.chest = {0, 5.0f * stoop - 1.2f * breath, 0.14f * look};
    stance.neck = {0, 3.0f - 2.0f * stoop, 0.25f * look};
    stance.head = {6.0f * stoop, 5.0f - 6.0f * stoop + 2.0f * wave(phase, 3), 0.45f * look};
    stance.weaponShift = {0, 0, 0.3f * breath + 0.8f * stoop};
    stance.weaponTurn = {0, -5.0f * stoop + 1.2f * breath, 3.0f * wave(phase, 1, 0.3f)};
}

/// Each part of the cape follows the one above it.
void sway(const CapeBones &cape, Pose &pose, float phase) {
    for (unsigned i = 0; i < cape.size(); ++i) {
        const float late = -0.08f * static_cast<float>(i);
        pose.turn(cape[i], {2.6f * wave(phase, 2, late) + 1.6f * wave(phase, 1, late),
                            1.5f + 2.2f * wave(phase, 3, late), 2.0f * wave(phase, 2, 0.3f + late)});
    }
}

} // namespace

Figure makeHunter() {
    RigPlan plan;
    plan.shoulder = {-0.2f, 6.2f, 43.4f};
    plan.grip = {9.8f, -5.4f, 33.0f};
    plan.aim = {-6, -34, 52};
    plan.head = {0.8f, 0, 48.5f};
    plan.ankle = {glm::vec3(-3.6f, -4.4f, 3), glm::vec3(2.6f, 4.2f, 3)};
    Figure tracker(plan);
    const CapeBones cape = addCapeBones(tracker);
    tracker.stand = stand;
    tracker.extra = [cape](Pose &pose, float phase) { sway(cape, pose, phase); };
    addCloak(tracker, cape);
    addTunic(tracker);
    addQuiver(tracker);
    addLimbs(tracker);
    return tracker;
}
