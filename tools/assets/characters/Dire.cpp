#include "tools/assets/characters/Dire.h"

#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace dire {

namespace {

/// Muscles and war paint of the trunk.
void decorateTrunk(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float front = glm::smoothstep(1.0f, 3.0f, p.x);
    crease(coat, front * band(p.y, 0.3f, 0.5f) * glm::smoothstep(45.0f, 43.0f, p.z), 0.5f);
    for (const float z : {35.2f, 32.2f, 29.4f})
        crease(coat, 0.6f * front * band(p.z - z, 0.15f, 0.5f) * band(p.y, 3.6f, 0.6f), 0.5f);
    crease(coat, 0.5f * front * band(std::abs(p.y) - 4.0f, 0.15f, 0.5f) * glm::smoothstep(37.0f, 36.0f, p.z),
           0.3f);
    paint(coat, underside * (coat.colour.g / hide.g),
          0.6f * front * band(p.y, 3.4f, 2.0f) * glm::smoothstep(38.0f, 36.0f, p.z));
    // The spine and the shoulder blades.
    const float behind = glm::smoothstep(-2.0f, -3.5f, p.x);
    crease(coat, behind * band(p.y, 0.3f, 0.6f), 0.5f);
    crease(coat,
           0.6f * behind * band(std::abs(p.y) - 5.2f + 0.12f * (p.z - 40.0f), 0.2f, 0.6f) *
               band(p.z - 41.0f, 3.0f, 1.5f),
           0.4f);
    // Broad painted claw strokes across the breast and the back.
    const float stroke = (p.y + 0.35f * (p.z - 40.0f)) / 2.6f;
    const float ragged = 0.30f + 0.08f * layeredNoise(p * 0.9f, 3);
    const float strokes = band(stroke - std::round(stroke), ragged, 0.06f) *
                          band(p.z - 41.4f, 4.2f + 0.6f * layeredNoise(p * 0.5f, 2), 0.4f) *
                          band(p.y, 9.0f, 0.3f);
    paintTeam(coat, 0.94f * strokes * (std::abs(p.x) > 1.5f ? 1.0f : 0.0f), 1.0f);
}

void addTrunk(Figure &beast) {
    const Rig &rig = beast.rig;
    Part &trunk = beast.add(Material::Hide, hide, softProfile(12, 2.3f));
    trunk.detail = 1.1f;
    columnRings(trunk, {{22.3f, -0.8f, {0, 0}, on(rig.pelvis)},
                        {22.5f, -0.8f, {5.8f, 5.0f}, on(rig.pelvis)},
                        {29.0f, -0.4f, {6.4f, 5.2f}, on(rig.waist)},
                        {34.0f, 0.3f, {7.4f, 5.8f}, between(rig.waist, rig.chest, 0.5f)},
                        {37.6f, 0.4f, {9.0f, 6.6f}, on(rig.chest)},
                        {41.0f, 0.4f, {10.4f, 7.2f}, on(rig.chest)},
                        {45.6f, -0.4f, {9.8f, 6.6f}, on(rig.chest)},
                        {48.6f, -1.2f, {6.2f, 5.0f}, on(rig.chest)},
                        {50.0f, -0.6f, {0, 0}, on(rig.chest)}});
    // The breast hangs over the belly; the shoulder blades stand out behind.
    trunk.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &) {
        const bool breast = corner == 5 || corner == 7;
        const bool blade = corner == 1 || corner == 11;
        if (breast && ring == 4)
            p += glm::vec3(-0.3f, 0, 0);
        if (breast && (ring == 5 || ring == 6))
            p += glm::vec3(1.3f, 0, ring == 5 ? -1.3f : -0.4f);
        if (corner == 6 && ring > 3)
            p.x -= 0.5f;
        if (blade && (ring == 5 || ring == 6))
            p += glm::vec3(-0.5f, 0, 0);
        if (corner == 6 && ring > 1 && ring < 4)
            p.x += 0.7f;
    };
    trunk.decorate = decorateTrunk;
}

void decorateKilt(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const bool inside = at.along > 0.66f;
    coat.height += 0.5f * std::sin(at.around * 50.3f + 0.8f * layeredNoise(p * 0.3f, 2)) *
                   glm::smoothstep(25.0f, 20.0f, p.z);
    coat.tone *= 1.0f - 0.5f * glm::smoothstep(18.5f + layeredNoise(glm::vec3(p.x, p.y, 0), 2), 16.5f, p.z);
    if (inside)
        coat.tone *= 0.5f;
    const float zig = std::abs(at.around * 16.0f - std::round(at.around * 16.0f)) * 2.4f;
    paint(coat, horn * 0.95f, inside ? 0.0f : 0.9f * band(p.z - 19.6f - zig, 0.28f, 0.1f));
    const float belt = glm::smoothstep(24.7f, 24.9f, p.z);
    paint(coat, glm::vec3(0.20f, 0.15f, 0.13f) * (1.0f + 0.3f * layeredNoise(p, 2)), belt);
    groove(coat, band(p.z - 24.8f, 0.05f, 0.15f) + 0.6f * belt * band(p.z - 26.8f, 0.04f, 0.1f));
    const float skull = p.x > 0 ? glm::length(glm::vec2(p.y, p.z - 26.0f)) : 9.0f;
    paint(coat, horn, glm::smoothstep(1.7f, 1.5f, skull));
    groove(coat, band(skull - 1.65f, 0.08f, 0.1f));
    const glm::vec2 socket(std::abs(p.y) - 0.6f, p.z - 26.2f);
    paint(coat, glm::vec3(0.08f),
          (p.x > 0 ? 1.0f : 0.0f) * glm::smoothstep(0.45f, 0.35f, glm::length(socket)));
}

/// Down outside, around the hem and up again inside; each side follows its leg.
void addKilt(Figure &beast) {
    const Rig &rig = beast.rig;
    Part &kilt = beast.add(Material::Cloth, glm::vec3(0.4f), softProfile(8, 2.3f));
    kilt.team = 1.0f;
    const Influence hips = on(rig.pelvis);
    const auto level = [&](float z, float x, const glm::vec2 &radius) {
        kilt.ring({x, 0, z}, radius, hips, {0, 0, -1});
    };
    kilt.tip({-0.5f, 0, 27.7f}, hips);
    level(27.6f, -0.5f, {7.6f, 6.2f});
    level(24.2f, -0.6f, {9.4f, 7.0f});
    level(20.5f, 0.3f, {11.6f, 9.0f});
    level(16.2f, 1.0f, {12.8f, 11.0f});
    level(16.3f, 1.0f, {12.4f, 10.6f});
    level(24.0f, -0.7f, {6.8f, 5.7f});
    const std::array<Bone, 2> thigh{rig.leg[Right].upper, rig.leg[Left].upper};
    kilt.sculpt = [thigh](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &bones) {
        if (ring < 3 || ring == 6)
            return;
        if (ring > 3 && corner % 2 == 1) // A ragged hem.
            p.z += corner % 4 == 1 ? 1.6f : 0.8f;
        // In the middle it hangs between the legs.
        bones = std::abs(p.y) < 1.0f
                    ? between(thigh[Right], thigh[Left], 0.5f)
                    : between(bones.first, thigh[p.y > 0 ? Left : Right], ring == 3 ? 0.55f : 0.85f);
    };
    kilt.decorate = decorateKilt;
}

void addFeet(Figure &beast, Side side) {
    const Limb &leg = beast.rig.leg[side];
    const Influence foot = on(leg.end);
    const glm::vec3 ankle = beast.rig.at(leg.end);
    const glm::vec3 way(turned({0, 0, side == Left ? 16.0f : -16.0f}) * glm::vec4(1, 0, 0, 0));
    const glm::vec3 left(-way.y, way.x, 0);
    Part &sole = addFoot(beast, side, Material::Hide, hide * 0.85f, {10.5f, 3.4f, 4.6f, 3.6f, 16});
    sole.decorate = nullptr;
    sole.profile = softProfile(6, 3.0f);
    for (int i = -1; i <= 1; ++i) {
        const glm::vec3 root =
            glm::vec3(ankle.x, ankle.y, 1.4f) + way * 5.2f + left * (2.1f * static_cast<float>(i));
        Part &claw = beast.add(Material::Horn, horn * 0.9f, roundProfile(4), {0, 0, 1});
        claw.lids = false; // It grows out of the toes.
        claw.ring(root, {1.15f, 1.3f}, foot).tip(root + way * 4.8f - glm::vec3(0, 0, 1.2f), foot);
    }
}

void addLeg(Figure &beast, Side side) {
    const Rig &rig = beast.rig;
    Part &flesh = beast.add(Material::Hide, hide * 0.97f, roundProfile(7));
    limbRings(flesh, beast, rig.leg[side], rig.pelvis,
              {{0.0f, {3.4f, 4.0f}},
               {0.4f, {4.0f, 4.4f}},
               {0.94f, {3.1f, 3.4f}},
               {1.34f, {3.4f, 3.8f}, {-0.6f, 0, 0}},
               {2.05f, {2.2f, 2.5f}}});
    flesh.decorate = [](const SurfacePoint &at, Coat &coat) {
        // Wound about with cloth below the knee.
        const float wrap = band(at.along - 0.76f, 0.16f, 0.004f);
        paintTeam(coat, wrap);
        const float turn = at.along * 26.0f + at.around * 1.0f;
        groove(coat, 0.8f * wrap * band(turn - std::round(turn), 0.06f, 0.1f), 0.15f);
        groove(coat, band(std::abs(at.along - 0.76f) - 0.16f, 0.004f, 0.01f));
    };
    addFeet(beast, side);
}

/// He snorts twice with a toss of the head, then rolls his shoulders one after the other.
void stand(Stance &stance, float phase) {
    const float weight = wave(phase, 1, 0.05f);
    const float breath = wave(phase, 4);
    const float rear =
        keyed(phase, {{0.02f, 0}, {0.12f, 0.8f}, {0.22f, -1}, {0.32f, 0.5f}, {0.42f, -1}, {0.54f, 0}});
    const float rolling = keyed(phase, {{0.50f, 0}, {0.60f, 0.85f}, {0.86f, 0.85f}, {0.98f, 0}});
    const float turn = wave(phase, 4, -0.1f);
    const float quarter = wave(phase, 4, 0.15f);
    stance.shift = {0.8f * rear, 1.9f * weight, -0.7f - 0.3f * breath};
    stance.pelvis = {2.5f * weight, 0, 4.0f + 4.0f * weight};
    stance.waist = {-3.0f * weight, -2.5f * rear, 3.0f * rolling * turn};
    stance.chest = {6.0f * rolling * turn, -2.2f * breath - 3.5f * rear, 6.0f * rolling * quarter};
    const float look = keyed(phase, {{0.05f, 16}, {0.45f, 18}, {0.55f, 30}, {0.75f, -12}, {0.9f, 4}});
    stance.neck = {0, -2.0f * rear, 0.4f * look};
    stance.head = {-5.0f * rolling * turn, -6.0f * rear + 3.0f * rolling, 0.6f * look};
    stance.weaponShift = {0, 0, 1.6f * rolling * turn + 0.8f * breath};
    stance.weaponTurn = {0, 2.0f * breath + 3.0f * rear, 3.0f * rolling * quarter};
}

/// The jaw falls open in a snort.
void breathe(Bone jaw, Pose &pose, float phase) {
    const float open = keyed(phase, {{0.12f, 0}, {0.22f, 1}, {0.32f, 0.2f}, {0.42f, 1}, {0.54f, 0}});
    pose.turn(jaw, {0, 17.0f * open + 1.5f * wave(phase, 4), 0});
}

RigPlan plan() {
    RigPlan plan;
    plan.pelvis = {-0.8f, 0, 24};
    plan.waist = {-0.4f, 0, 29};
    plan.chest = {0, 0, 35};
    plan.neck = {1.5f, 0, 47};
    plan.head = {3.5f, 0, 48};
    plan.shoulder = {-0.2f, 11.8f, 43.8f};
    plan.hip = {-0.6f, 4.9f, 22.5f};
    plan.ankle = {glm::vec3(-2.5f, -8.0f, 4), glm::vec3(2.5f, 8.0f, 4)};
    plan.thigh = 11.5f;
    plan.shin = 10.5f;
    plan.upperArm = 13.5f;
    plan.foreArm = 13;
    plan.weaponSize = 1.15f;
    plan.grip = {12.6f, -10.5f, 30.4f};
    plan.aim = {-4, -10, 54};
    plan.elbowPole = {glm::vec3(-0.6f, -0.8f, -0.4f), glm::vec3(-0.3f, 1.0f, -0.8f)};
    return plan;
}

} // namespace

} // namespace dire

Figure makeDire() {
    Figure beast(dire::plan());
    const Bone jaw = beast.rig.skeleton.add({5.4f, 0, 46.0f}, beast.rig.head);
    beast.stand = dire::stand;
    beast.extra = [jaw](Pose &pose, float phase) { dire::breathe(jaw, pose, phase); };
    dire::addTrunk(beast);
    dire::addKilt(beast);
    dire::addHead(beast, jaw);
    dire::addMane(beast);
    for (const Side side : {Right, Left}) {
        dire::addArm(beast, side);
        dire::addLeg(beast, side);
        addFist(beast, side, Material::Hide, dire::hide * 0.92f, 1.3f);
    }
    dire::addPauldron(beast);
    return beast;
}
