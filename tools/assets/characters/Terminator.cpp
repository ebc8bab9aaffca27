#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 frame(0.30f, 0.31f, 0.34f);
const glm::vec3 chrome(0.62f, 0.64f, 0.68f);
const glm::vec3 armour(0.5f);
const glm::vec3 ember(1.0f, 0.16f, 0.06f);

Part &plate(Figure &machine, Profile profile, const glm::vec3 &front = {1, 0, 0}) {
    Part &part = machine.add(Material::Plate, armour, std::move(profile), front);
    part.team = 1.0f;
    part.sharp = true;
    return part;
}

void glowAt(Coat &coat, float amount) {
    paint(coat, ember, amount);
    coat.glow = std::max(coat.glow, amount);
    coat.metal *= 1.0f - amount;
}

/// Leaves the team's colour only where `amount` is 0.
void machineGrey(Coat &coat, float amount) {
    paint(coat, glm::vec3(0.34f, 0.35f, 0.38f) * coat.tone, amount * (1.0f - coat.metal));
}

void decorateChest(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const bool front = p.x > 0;
    groove(coat, (front ? 1.0f : 0.0f) * band(p.y, 0.12f, 0.15f), 0.2f);
    groove(coat, band(p.z - 40.2f + 0.30f * std::abs(p.y), 0.12f, 0.15f), 0.2f);
    groove(coat, band(std::abs(p.y) - 7.4f, 0.1f, 0.15f), 0.2f);
    // A furnace behind a round grate.
    const float core = glm::length(glm::vec2(p.y, p.z - 42.2f));
    const float ring = (front ? 1.0f : 0.0f) * band(core, 2.0f, 0.1f);
    paint(coat, glm::vec3(0.14f), ring);
    coat.metal *= 1.0f - ring;
    const float bars = band(p.z * 1.1f - std::round(p.z * 1.1f), 0.22f, 0.06f);
    glowAt(coat, (front ? 1.0f : 0.0f) * band(core, 1.5f, 0.1f) * bars);
    const glm::vec2 bolt(std::abs(p.y) - 6.2f, p.z - 44.0f);
    groove(coat, band(glm::length(bolt) - 0.45f, 0.08f, 0.1f), 0.15f);
    const float vent = p.z / 0.9f;
    groove(coat,
           (front ? 0.0f : 1.0f) * band(p.y, 4.0f, 0.1f) * band(p.z - 41.0f, 2.4f, 0.1f) *
               band(vent - std::round(vent), 0.2f, 0.1f),
           0.25f);
}

void addTorso(Figure &machine) {
    const Rig &rig = machine.rig;
    Part &hips = machine.add(Material::Metal, frame, softProfile(8, 3.0f));
    hips.sharp = true;
    columnRings(hips, {{24.5f, 0, {2.6f, 2.6f}, on(rig.pelvis)},
                       {27.0f, 0, {6.2f, 4.6f}, on(rig.pelvis)},
                       {31.0f, 0, {6.8f, 5.0f}, on(rig.pelvis)},
                       {32.6f, 0, {5.0f, 3.8f}, on(rig.pelvis)}});
    Part &codpiece = plate(machine, boxProfile(0.35f));
    codpiece.ring({5.0f, 0, 32.4f}, {3.0f, 0.8f}, on(rig.pelvis))
        .ring({5.4f, 0, 29.5f}, {3.2f, 0.9f}, on(rig.pelvis));
    codpiece.ring({4.2f, 0, 25.0f}, {1.2f, 0.8f}, on(rig.pelvis)).tip({4.2f, 0, 24.9f}, on(rig.pelvis));
    Part &spine = machine.add(Material::Metal, frame, roundProfile(8));
    columnRings(spine, {{31.5f, 0, {4.2f, 3.4f}, on(rig.pelvis)},
                        {34.5f, 0, {3.9f, 3.2f}, on(rig.waist)},
                        {38.5f, 0, {5.0f, 3.8f}, on(rig.chest)}});
    spine.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float line = at.position.z / 1.1f;
        groove(coat, band(line - std::round(line), 0.14f, 0.2f), 0.35f);
    };
    Part &chest = plate(machine, softProfile(10, 2.8f));
    const Influence on_ = on(rig.chest);
    columnRings(chest, {{36.8f, 0.4f, {4.0f, 3.4f}, on_},
                        {37.2f, 0.5f, {6.2f, 5.2f}, on_},
                        {41.0f, 1.0f, {9.4f, 6.8f}, on_},
                        {44.6f, 0.6f, {9.8f, 6.6f}, on_},
                        {47.4f, -0.2f, {7.2f, 4.8f}, on_},
                        {48.4f, -0.2f, {4.0f, 3.4f}, on_}});
    chest.decorate = decorateChest;
    for (const float y : {-1.0f, 1.0f}) {
        Part &exhaust = machine.add(Material::Metal, frame, roundProfile(6));
        barRings(exhaust, {-6.2f, 3.6f * y, 38.0f}, {-7.4f, 4.4f * y, 51.5f}, {1.3f, 1.3f}, 0, on_);
        exhaust.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.position.z - 48.6f, 0.15f, 0.2f), 0.3f);
            coat.colour *= 1.0f - 0.5f * glm::smoothstep(48.0f, 51.5f, at.position.z);
        };
    }
}

void decorateSkull(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float front = glm::smoothstep(2.4f, 3.2f, p.x);
    const glm::vec2 eye(std::abs(p.y) - 1.65f, p.z - 53.1f - 0.25f * (std::abs(p.y) - 1.65f));
    const float socket = front * band(eye.x, 1.25f, 0.2f) * band(eye.y, 0.75f, 0.2f);
    paint(coat, glm::vec3(0.05f), socket);
    coat.metal *= 1.0f - socket;
    coat.height -= 0.4f * socket;
    glowAt(coat, front * (1.0f - glm::smoothstep(0.35f, 0.72f, glm::length(eye * glm::vec2(0.62f, 1.0f)))));
    const float teeth = p.y / 0.72f;
    const float mouth = front * band(p.z - 49.6f, 0.75f, 0.1f) * band(p.y, 2.2f, 0.1f);
    paint(coat, glm::vec3(0.06f), mouth);
    paint(coat, chrome,
          mouth * band(teeth - std::round(teeth), 0.3f, 0.08f) * (1.0f - band(p.z - 49.6f, 0.06f, 0.08f)));
    const float nose = front * band(p.y, 0.25f + 0.3f * (52.0f - p.z), 0.1f) * band(p.z - 51.4f, 0.6f, 0.1f);
    paint(coat, glm::vec3(0.07f), nose);
    groove(coat, front * band(std::abs(p.y) - 2.8f, 0.07f, 0.12f) * glm::smoothstep(51.5f, 51.0f, p.z), 0.2f);
    const float crest = band(p.y, 1.0f, 0.1f) * glm::smoothstep(55.2f, 55.5f, p.z);
    paintTeam(coat, crest);
    coat.metal *= 1.0f - crest;
    groove(coat, band(p.z - 54.9f, 0.06f, 0.1f));
}

void addHead(Figure &machine) {
    const Rig &rig = machine.rig;
    Part &neck = machine.add(Material::Metal, frame * 0.7f, roundProfile(8));
    columnRings(neck,
                {{46.5f, 0.2f, {2.6f, 2.6f}, on(rig.chest)}, {50.5f, 0.6f, {2.3f, 2.3f}, on(rig.head)}});
    neck.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float line = at.around * 8.0f;
        groove(coat, band(line - std::round(line), 0.2f, 0.2f), 0.3f);
    };
    Part &skull = machine.add(Material::Metal, chrome, softProfile(12, 2.4f));
    skull.detail = 1.6f;
    const Influence head = on(rig.head);
    columnRings(skull, {{48.3f, 2.0f, {0, 0}, head},
                        {48.4f, 2.0f, {2.0f, 2.3f}, head},
                        {49.1f, 1.9f, {2.5f, 2.8f}, head},
                        {50.2f, 1.5f, {2.7f, 3.0f}, head},
                        {51.5f, 1.0f, {3.3f, 3.4f}, head},
                        {52.9f, 0.75f, {3.5f, 3.75f}, head},
                        {54.3f, 0.6f, {3.7f, 4.0f}, head},
                        {56.2f, 0.2f, {3.1f, 3.5f}, head},
                        {57.3f, 0.0f, {1.5f, 1.8f}, head},
                        {57.6f, 0.0f, {0, 0}, head}});
    // Cheekbones, a brow, sockets below it and a jaw that stands out.
    skull.sculpt = [](std::size_t, unsigned, glm::vec3 &point, Influence &) {
        if (point.x < 1.2f)
            return;
        const float side = std::abs(point.y);
        point.x += 0.75f * band(point.z - 54.3f, 0.3f, 0.9f) * band(side, 2.4f, 1.2f);
        point.x -= 0.95f * band(point.z - 52.9f, 0.4f, 0.7f) * band(side - 1.8f, 0.9f, 0.8f);
        point.x += 0.5f * band(point.z - 51.4f, 0.5f, 0.8f) * band(side - 2.6f, 0.8f, 0.8f);
        point.x += 0.8f * band(point.z - 48.9f, 0.6f, 0.8f) * band(side, 1.8f, 1.0f);
        point.y *= 1.0f - 0.16f * band(point.z - 50.0f, 0.4f, 0.8f);
    };
    skull.decorate = decorateSkull;
}

void addArm(Figure &machine, Side side) {
    const Rig &rig = machine.rig;
    const float y = side == Left ? 1.0f : -1.0f;
    const Limb &arm = rig.arm[side];
    Part &rod = machine.add(Material::Metal, frame, roundProfile(7));
    limbRings(rod, machine, arm, rig.chest,
              {{-0.1f, {2.2f, 2.2f}},
               {0.3f, {2.3f, 2.4f}},
               {0.75f, {1.9f, 2.0f}},
               {0.96f, {2.2f, 2.2f}},
               {1.12f, {2.1f, 2.1f}},
               {1.95f, {1.4f, 1.4f}}});
    rod.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float line = at.along * 14.0f;
        groove(coat, band(line - std::round(line), 0.12f, 0.15f), 0.25f);
    };
    Part &shoulder = plate(machine, softProfile(8, 2.6f));
    domeRings(shoulder, rig.at(arm.upper) + glm::vec3(0, 0.4f * y, -1.6f), {0.12f, 0.62f * y, 1.0f},
              {5.2f, 5.0f}, 5.2f, between(rig.chest, arm.upper, 0.4f));
    shoulder.decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, band(at.along - 0.38f, 0.015f, 0.02f), 0.2f);
        const glm::vec2 bolt(at.around * 8.0f - std::round(at.around * 8.0f), (at.along - 0.16f) * 10.0f);
        groove(coat, band(glm::length(bolt) - 0.16f, 0.05f, 0.05f), 0.12f);
    };
    Part &guard = plate(machine, softProfile(8, 3.0f));
    limbRings(guard, machine, arm, rig.chest,
              {{1.16f, {2.0f, 2.0f}},
               {1.18f, {2.9f, 3.0f}},
               {1.55f, {2.8f, 2.9f}},
               {1.92f, {2.1f, 2.1f}},
               {1.93f, {1.4f, 1.4f}}});
    guard.decorate = [](const SurfacePoint &at, Coat &coat) {
        machineGrey(coat, 1.0f - band(at.along - 0.32f, 0.10f, 0.005f));
        groove(coat, band(at.along - 0.56f, 0.012f, 0.02f), 0.2f);
    };
    addFist(machine, side, Material::Metal, frame, 1.15f);
}

void addLeg(Figure &machine, Side side) {
    const Rig &rig = machine.rig;
    const float y = side == Left ? 1.0f : -1.0f;
    const Limb &leg = rig.leg[side];
    Part &rod = machine.add(Material::Metal, frame, roundProfile(7));
    limbRings(rod, machine, leg, rig.pelvis,
              {{-0.08f, {3.2f, 3.4f}},
               {0.3f, {2.6f, 2.9f}},
               {0.85f, {2.1f, 2.2f}},
               {1.0f, {2.6f, 2.8f}},
               {1.15f, {2.2f, 2.4f}},
               {2.0f, {1.9f, 1.9f}}});
    rod.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float line = at.along * 12.0f;
        groove(coat, band(line - std::round(line), 0.1f, 0.15f), 0.25f);
    };
    Part &thigh = plate(machine, softProfile(8, 2.8f));
    limbRings(thigh, machine, leg, rig.pelvis,
              {{0.12f, {2.8f, 3.2f}},
               {0.15f, {4.0f, 4.3f}, {0, 0.3f * y, 0}},
               {0.5f, {3.7f, 4.1f}, {0.2f, 0.2f * y, 0}},
               {0.78f, {2.7f, 3.0f}, {0.3f, 0, 0}},
               {0.8f, {2.0f, 2.2f}}});
    thigh.decorate = [](const SurfacePoint &at, Coat &coat) {
        machineGrey(coat, 1.0f - band(at.along - 0.30f, 0.12f, 0.005f));
        groove(coat, band(at.around - 0.5f, 0.006f, 0.01f), 0.2f);
    };
    // A hinge across the knee, and a cap over it.
    Part &hinge = machine.add(Material::Metal, frame, roundProfile(10), {0, 0, 1});
    hinge.sharp = true;
    const glm::vec3 across(0.2f * y, -1, 0);
    barRings(hinge, rig.at(leg.lower) - across * 2.9f, rig.at(leg.lower) + across * 2.9f, {2.3f, 2.3f}, 0.3f,
             between(leg.upper, leg.lower, 0.5f));
    hinge.decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, band(at.along - 0.2f, 0.03f, 0.02f) + band(at.along - 0.8f, 0.03f, 0.02f), 0.2f);
    };
    Part &knee = machine.add(Material::Metal, chrome, softProfile(8, 2.8f), {0, 0, 1});
    knee.sharp = true;
    domeRings(knee, rig.at(leg.lower) + glm::vec3(1.0f, 0, 0), {1, 0.2f * y, 0.1f}, {2.5f, 3.3f}, 2.7f,
              between(leg.upper, leg.lower, 0.5f));
    Part &shin = plate(machine, softProfile(8, 2.8f));
    limbRings(shin, machine, leg, rig.pelvis,
              {{1.14f, {2.0f, 2.2f}},
               {1.17f, {3.0f, 3.4f}, {0.2f, 0, 0}},
               {1.5f, {3.3f, 3.9f}, {-0.2f, 0, 0}},
               {1.98f, {3.1f, 3.5f}, {0.3f, 0, 0}},
               {2.05f, {2.2f, 2.4f}, {0.3f, 0, 0}}});
    shin.decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, band(std::abs(at.around - 0.5f) - 0.11f, 0.006f, 0.01f), 0.2f);
    };
    addFoot(machine, side, Material::Metal, frame, {11.5f, 3.3f, 4.2f, 4.0f, 10}).sharp = true;
}

/// The head sweeps from side to side and stops; the body follows, then the weapon.
void idle(Stance &stance, float phase) {
    const float sweep = keyed(
        phase,
        {{0, 1}, {0.12f, 1}, {0.30f, -0.4f}, {0.42f, -0.4f}, {0.56f, 0.45f}, {0.66f, 0.4f}, {0.86f, 1}});
    const float follow =
        keyed(phase, {{0.04f, 1}, {0.16f, 1}, {0.36f, -0.6f}, {0.48f, -0.6f}, {0.64f, 0.3f}, {0.90f, 1}});
    const float sink =
        keyed(phase, {{0, 0}, {0.3f, 1}, {0.42f, 0.9f}, {0.5f, 0}, {0.7f, 0.8f}, {0.9f, 0.2f}});
    stance.shift = {-0.5f * sink, 1.9f * follow, -0.9f * sink};
    stance.pelvis = {1.6f * follow, 0, 4.0f * follow};
    stance.waist = {-1.6f * follow, 2.0f * sink, 6.0f * follow};
    stance.chest = {0, -1.0f * sink, 7.0f * follow};
    stance.neck.z = 12.0f * sweep;
    stance.head = {0, 5.0f * sink, 32.0f * sweep};
    stance.weaponTurn = {0, 5.0f - 10.0f * sink, 5.0f * follow};
    stance.weaponShift = {0, 0, 1.2f * sink};
}

} // namespace

Figure makeTerminator() {
    RigPlan plan;
    plan.shoulder = {0, 10.8f, 44.6f};
    plan.hip = {0, 4.4f, 28.5f};
    plan.ankle = {glm::vec3(-2.5f, -7.0f, 3.6f), glm::vec3(2.5f, 7.0f, 3.6f)};
    plan.upperArm = 12.5f;
    plan.foreArm = 12;
    plan.grip = {8.2f, -8.2f, 35.2f};
    plan.aim = {-5, -7, 44};
    plan.neck = {0, 0, 47.5f};
    plan.head = {0.6f, 0, 49.5f};
    plan.elbowPole = {glm::vec3(-0.4f, -0.9f, -0.7f), glm::vec3(-0.3f, 0.9f, -0.8f)};
    Figure machine(plan);
    machine.stand = idle;
    addTorso(machine);
    addHead(machine);
    for (const Side side : {Right, Left}) {
        addArm(machine, side);
        addLeg(machine, side);
    }
    return machine;
}
