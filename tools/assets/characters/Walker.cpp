#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 frame(0.32f, 0.33f, 0.35f);
const glm::vec3 pale(0.60f, 0.60f, 0.57f);
const glm::vec3 amber(1.0f, 0.70f, 0.20f);

void rivets(Coat &coat, float across, float along, float pitch) {
    const float place = along / pitch;
    const float distance = glm::length(glm::vec2(across, (place - std::round(place)) * pitch));
    groove(coat, band(distance - 0.24f, 0.05f, 0.08f), 0.12f);
}

void decorateHull(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    for (const float x : {-4.6f, 1.6f})
        groove(coat, band(p.x - x, 0.08f, 0.14f), 0.2f);
    groove(coat, band(p.z - 41.6f, 0.08f, 0.14f) * glm::smoothstep(6.0f, 5.6f, p.x), 0.2f);
    rivets(coat, p.x + 3.7f, p.z, 1.6f);
    // A canopy of three panes.
    const bool front = p.x > 5.2f;
    const float slant = p.z - 46.0f;
    const float canopy = (front ? 1.0f : 0.0f) * band(slant, 2.1f, 0.1f) * band(p.y, 5.6f, 0.1f);
    const float rim = (front ? 1.0f : 0.0f) * band(slant, 2.6f, 0.1f) * band(p.y, 6.1f, 0.1f);
    paint(coat, glm::vec3(0.16f), rim);
    const float bars = std::max(band(std::abs(p.y) - 2.0f, 0.22f, 0.06f), 1.0f - canopy);
    const float glass = canopy * (1.0f - bars);
    const float glint =
        band(slant - 0.5f * p.y - 0.2f, 0.5f, 0.15f) + band(slant - 0.5f * p.y + 1.4f, 0.18f, 0.1f);
    paint(coat,
          glm::mix(glm::vec3(0.10f, 0.30f, 0.40f), glm::vec3(0.62f, 0.92f, 1.0f),
                   glm::smoothstep(-2.0f, 2.6f, slant) * 0.7f + 0.3f * glint),
          glass);
    coat.glow = 0.55f * glass;
    coat.gloss = glm::mix(coat.gloss, 1.0f, glass);
    coat.metal *= 1.0f - glass;
    // A pale band and hazard stripes round the rear.
    paint(coat, pale * 1.3f, 0.85f * band(p.x + 1.6f, 0.8f, 0.06f) * (1.0f - coat.metal));
    const float stripe = (p.y + p.z) / 2.2f;
    const float hazard = band(p.z - 38.4f, 0.7f, 0.06f) * (front ? 1.0f : 0.0f);
    paint(coat, stripe - std::floor(stripe) < 0.5f ? glm::vec3(0.88f, 0.68f, 0.10f) : glm::vec3(0.10f),
          0.9f * hazard);
    const float vent = p.z / 1.1f;
    groove(coat,
           (p.x < -8.6f ? 1.0f : 0.0f) * band(p.y, 4.2f, 0.1f) * band(vent - std::round(vent), 0.22f, 0.1f),
           0.3f);
}

void addHull(Figure &mech) {
    const Rig &rig = mech.rig;
    const Influence chest = on(rig.chest);
    Part &hull = mech.add(Material::Plate, glm::vec3(0.5f), softProfile(12, 3.4f), {0, 0, 1});
    hull.team = 1.0f;
    hull.sharp = true;
    hull.detail = 1.25f;
    const auto section = [&](float x, float z, float width, float height) {
        hull.ring({x, 0, z}, {width, height}, chest, {1, 0, 0});
    };
    hull.tip({-10.2f, 0, 43.2f}, chest);
    section(-10.0f, 43.2f, 5.0f, 4.0f);
    section(-8.0f, 43.0f, 7.2f, 5.8f);
    section(-1.0f, 42.8f, 8.0f, 6.6f);
    section(4.6f, 42.8f, 7.8f, 6.4f);
    section(8.8f, 41.4f, 6.2f, 4.6f);
    section(11.6f, 40.0f, 4.4f, 2.8f);
    hull.tip({11.9f, 0, 39.8f}, chest);
    hull.decorate = decorateHull;
    // Bars over the canopy's panes, and a sill below them.
    for (const float y : {-5.8f, -2.0f, 2.0f, 5.8f}) {
        Part &bar = mech.add(Material::Metal, frame, roundProfile(4), {1, 0, 1});
        bar.sharp = true;
        const float in = std::abs(y) > 4.0f ? 0.55f : 0.0f;
        barRings(bar, {4.6f, y, 49.0f - in}, {9.4f, y * 0.9f, 45.2f - in}, {0.4f, 0.5f}, 0, chest);
    }
    Part &sill = mech.add(Material::Metal, frame, roundProfile(5), {1, 0, 1});
    sill.sharp = true;
    barRings(sill, {9.0f, -5.6f, 44.6f}, {9.0f, 5.6f, 44.6f}, {0.6f, 0.7f}, 0, chest);
    Part &chin = mech.add(Material::Metal, frame, boxProfile(0.4f), {0, 0, 1});
    chin.sharp = true;
    barRings(chin, {4.0f, 0, 36.2f}, {11.0f, 0, 36.8f}, {3.2f, 1.8f}, 0, chest);
    for (const float y : {-1.6f, 1.6f}) {
        Part &lamp = mech.add(Material::Metal, frame * 0.7f, roundProfile(7), {0, 0, 1});
        lamp.sharp = true;
        barRings(lamp, {9.8f, y, 36.8f}, {11.7f, y, 36.8f}, {1.15f, 1.15f}, 0, chest);
        lamp.decorate = [](const SurfacePoint &at, Coat &coat) {
            const float lit = at.position.x > 11.65f ? glm::smoothstep(0.62f, 0.78f, at.along) : 0.0f;
            paint(coat, glm::mix(amber, glm::vec3(1.0f, 0.97f, 0.85f), glm::smoothstep(0.8f, 1.0f, at.along)),
                  lit);
            coat.glow = lit;
        };
    }
    Part &hips = mech.add(Material::Metal, frame, softProfile(8, 3.0f));
    hips.sharp = true;
    columnRings(hips, {{27.6f, -0.6f, {0, 0}, on(rig.pelvis)},
                       {27.8f, -0.6f, {4.4f, 3.4f}, on(rig.pelvis)},
                       {30.0f, -0.6f, {5.4f, 4.2f}, on(rig.pelvis)},
                       {33.4f, -0.6f, {4.8f, 3.8f}, on(rig.pelvis)},
                       {37.4f, -0.6f, {3.2f, 3.2f}, on(rig.waist)}});
    hips.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float line = at.position.z / 0.9f;
        groove(coat, (at.position.z > 33.6f ? 1.0f : 0.0f) * band(line - std::round(line), 0.16f, 0.15f),
               0.3f);
    };
}

void addTurret(Figure &mech) {
    const Rig &rig = mech.rig;
    const Influence head = on(rig.head);
    Part &base = mech.add(Material::Metal, frame, roundProfile(8));
    base.sharp = true;
    columnRings(base, {{48.4f, -2.0f, {2.8f, 2.8f}, on(rig.chest)}, {50.6f, -2.0f, {2.4f, 2.4f}, head}});
    Part &box = mech.add(Material::Plate, pale, boxProfile(0.35f), {0, 0, 1});
    box.sharp = true;
    barRings(box, {-5.0f, 0, 52.4f}, {1.6f, 0, 52.4f}, {3.4f, 2.3f}, 0.6f, head);
    box.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        paintTeam(coat, p.z > 54.2f ? 0.95f * (1.0f - coat.metal) : 0.0f);
        const float front = p.x > 0.9f ? 1.0f : 0.0f;
        const float eye = glm::length(glm::vec2(p.y, p.z - 52.4f));
        paint(coat, glm::vec3(0.08f), front * glm::smoothstep(1.75f, 1.65f, eye));
        const float lens = front * glm::smoothstep(1.35f, 1.25f, eye);
        paint(coat,
              glm::mix(glm::vec3(1.0f, 0.85f, 0.6f), glm::vec3(0.95f, 0.14f, 0.05f),
                       glm::smoothstep(0.1f, 0.8f, eye)),
              lens);
        coat.glow = lens;
        coat.metal *= 1.0f - lens;
        groove(coat, band(p.x + 2.0f, 0.07f, 0.12f));
    };
    // A hood around the lens, open ahead.
    Part &hood = mech.add(Material::Metal, frame * 0.8f, roundProfile(10), {0, 0, 1});
    hood.sharp = true;
    const auto rim = [&](float x, float radius) {
        hood.ring({x, 0, 52.4f}, glm::vec2(radius), head, {1, 0, 0});
    };
    rim(1.0f, 2.05f);
    rim(3.2f, 2.05f);
    rim(3.2f, 1.7f);
    rim(1.9f, 1.4f);
    rim(2.2f, 0.5f);
    hood.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float eye = glm::length(glm::vec2(at.position.y, at.position.z - 52.4f));
        const float lens = at.along > 0.5f ? glm::smoothstep(1.5f, 1.38f, eye) : 0.0f;
        paint(coat,
              glm::mix(glm::vec3(1.0f, 0.85f, 0.6f), glm::vec3(0.95f, 0.14f, 0.05f),
                       glm::smoothstep(0.1f, 0.9f, eye)),
              lens);
        coat.glow = lens;
        coat.metal *= 1.0f - lens;
    };
    Part &mast = mech.add(Material::Metal, frame, roundProfile(4));
    mast.ring({-5.6f, 4.6f, 47.5f}, {0.4f, 0.4f}, on(rig.chest))
        .ring({-6.6f, 4.8f, 58.5f}, {0.16f, 0.16f}, on(rig.chest))
        .tip({-6.6f, 4.8f, 58.8f}, on(rig.chest));
}

void addArm(Figure &mech, Side side) {
    const Rig &rig = mech.rig;
    const Limb &arm = rig.arm[side];
    const float y = side == Left ? 1.0f : -1.0f;
    Part &joint = mech.add(Material::Metal, frame, roundProfile(7), {0, 0, 1});
    joint.sharp = true;
    const glm::vec3 shoulder = rig.at(arm.upper);
    barRings(joint, shoulder - glm::vec3(0, 3.4f * y, 0), shoulder + glm::vec3(0, 2.4f * y, 0), {2.6f, 2.6f},
             0, on(arm.upper));
    Part &beam = mech.add(Material::Metal, frame, boxProfile(0.4f));
    beam.sharp = true;
    limbRings(beam, mech, arm, arm.upper,
              {{0.0f, {1.6f, 1.6f}}, {0.93f, {1.3f, 1.5f}}, {1.08f, {1.3f, 1.5f}}, {1.95f, {1.1f, 1.1f}}});
    Part &sleeve = mech.add(Material::Plate, glm::vec3(0.5f), boxProfile(0.4f));
    sleeve.team = 1.0f;
    sleeve.sharp = true;
    limbRings(sleeve, mech, arm, arm.upper,
              {{1.12f, {1.2f, 1.2f}}, {1.13f, {2.4f, 2.5f}}, {1.8f, {1.9f, 2.0f}}, {1.81f, {1.0f, 1.0f}}});
    sleeve.decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, band(at.along - 0.4f, 0.015f, 0.03f), 0.2f);
    };
    addFist(mech, side, Material::Metal, frame * 0.8f, 1.05f);
}

void addLeg(Figure &mech, Side side) {
    const Rig &rig = mech.rig;
    const Limb &leg = rig.leg[side];
    const float y = side == Left ? 1.0f : -1.0f;
    const glm::vec3 hip = rig.at(leg.upper);
    const glm::vec3 knee = rig.at(leg.lower);
    Part &axle = mech.add(Material::Metal, frame, roundProfile(7), {0, 0, 1});
    axle.sharp = true;
    barRings(axle, hip - glm::vec3(0, 3.0f * y, 0), hip + glm::vec3(0, 2.9f * y, 0), {2.9f, 2.9f}, 0,
             on(leg.upper));
    Part &thigh = mech.add(Material::Plate, glm::vec3(0.5f), softProfile(8, 3.2f));
    thigh.team = 1.0f;
    thigh.sharp = true;
    limbRings(thigh, mech, leg, leg.upper,
              {{0.02f, {1.6f, 1.8f}},
               {0.08f, {2.5f, 3.4f}},
               {0.5f, {2.3f, 3.0f}},
               {0.9f, {1.7f, 2.0f}},
               {0.92f, {1.0f, 1.2f}}});
    thigh.decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, band(at.along - 0.42f, 0.01f, 0.02f), 0.2f);
        paint(coat, pale * 1.3f, 0.85f * band(at.along - 0.52f, 0.035f, 0.006f) * (1.0f - coat.metal));
    };
    Part &cap = mech.add(Material::Metal, frame * 0.9f, roundProfile(7), {0, 0, 1});
    cap.sharp = true;
    barRings(cap, knee - glm::vec3(0, 2.4f * y, 0), knee + glm::vec3(0, 2.4f * y, 0), {2.3f, 2.3f}, 0,
             on(leg.lower));
    Part &shin = mech.add(Material::Metal, frame, boxProfile(0.45f));
    shin.sharp = true;
    limbRings(shin, mech, leg, leg.upper, {{1.0f, {1.5f, 1.7f}}, {1.3f, {1.7f, 2.1f}}, {2.0f, {1.3f, 1.5f}}});
    shin.rings.front().bones = on(leg.lower);
    Part &piston = mech.add(Material::Metal, glm::vec3(0.70f), roundProfile(7));
    const glm::vec3 upper = glm::mix(hip, knee, 0.7f) + glm::vec3(2.6f, 0, -0.6f);
    const glm::vec3 lower = glm::mix(knee, rig.at(leg.end), 0.62f) + glm::vec3(1.4f, 0, 1.2f);
    piston.ring(upper, {0.55f, 0.55f}, on(leg.upper)).ring(lower, {0.55f, 0.55f}, on(leg.lower));
    // The cylinder that the rod runs in, with an eye at each end.
    Part &cylinder = mech.add(Material::Metal, frame * 0.9f, roundProfile(7));
    cylinder.sharp = true;
    const glm::vec3 half = glm::mix(lower, upper, 0.55f);
    cylinder.ring(lower, {0.7f, 0.7f}, on(leg.lower))
        .ring(glm::mix(lower, upper, 0.08f), {1.0f, 1.0f}, on(leg.lower))
        .ring(glm::mix(lower, upper, 0.48f), {1.0f, 1.0f}, on(leg.lower))
        .ring(half, {0.8f, 0.8f}, on(leg.lower));
    for (const bool top : {false, true}) {
        Part &pin = mech.add(Material::Metal, frame, roundProfile(7), {0, 0, 1});
        pin.sharp = true;
        const glm::vec3 centre = top ? upper : lower;
        barRings(pin, centre - glm::vec3(0, 1.1f, 0), centre + glm::vec3(0, 1.1f, 0), {0.95f, 0.95f}, 0,
                 on(top ? leg.upper : leg.lower));
    }
    Part &guard = mech.add(Material::Plate, glm::vec3(0.5f), boxProfile(0.35f), {1, 0, 0});
    guard.team = 1.0f;
    guard.sharp = true;
    const glm::vec3 ankle = rig.at(leg.end);
    const glm::vec3 ahead(1.7f, 0, 1.4f);
    barRings(guard, glm::mix(knee, ankle, 0.32f) + ahead, glm::mix(knee, ankle, 0.86f) + ahead, {2.3f, 1.0f},
             0, on(leg.lower));
    const Influence foot = on(leg.end);
    Part &hub = mech.add(Material::Metal, frame, roundProfile(8));
    hub.sharp = true;
    hub.ring({ankle.x, ankle.y, 0}, {3.2f, 3.4f}, foot)
        .ring({ankle.x, ankle.y, 1.6f}, {3.4f, 3.6f}, foot)
        .ring({ankle.x, ankle.y, 3.4f}, {2.1f, 2.2f}, foot)
        .ring({ankle.x, ankle.y, 5.0f}, {1.6f, 1.6f}, foot)
        .tip({ankle.x, ankle.y, 5.2f}, foot);
    for (const float angle : {-34.0f, 0.0f, 34.0f, 180.0f}) {
        const glm::vec3 way(turned({0, 0, angle + 8.0f * y}) * glm::vec4(1, 0, 0, 0));
        const float reach = angle > 90.0f ? 5.4f : 8.0f;
        Part &toe = mech.add(Material::Plate, frame, softProfile(5, 2.0f), {0, 0, 1});
        toe.sharp = true;
        const glm::vec3 root(ankle.x, ankle.y, 1.3f);
        toe.ring(root + way * 1.8f, {1.5f, 1.3f}, foot)
            .ring(root + way * (reach * 0.75f) - glm::vec3(0, 0, 0.35f), {1.6f, 0.95f}, foot)
            .ring(root + way * reach - glm::vec3(0, 0, 0.8f), {0.9f, 0.45f}, foot)
            .tip(root + way * (reach + 0.2f) - glm::vec3(0, 0, 0.9f), foot);
    }
}

/// Shifts its weight from leg to leg and lifts the free foot a little; the turret looks where it will step.
void idle(Stance &stance, float phase) {
    const float weight = keyed(phase, {{0, -1}, {0.10f, -1}, {0.28f, 1}, {0.56f, 1}, {0.72f, -1}});
    const float look = keyed(
        phase,
        {{0, 0.5f}, {0.12f, 1}, {0.24f, 1}, {0.40f, -0.35f}, {0.52f, -0.35f}, {0.66f, 0.8f}, {0.84f, 0.4f}});
    const float right = keyed(phase, {{0.34f, 0}, {0.40f, 1}, {0.46f, 0.8f}, {0.52f, 0}});
    const float left = keyed(phase, {{0.78f, 0}, {0.84f, 1}, {0.90f, 0.9f}, {0.97f, 0}});
    stance.shift = {0.5f * wave(phase, 2), 2.9f * weight,
                    -1.3f + 0.9f * std::abs(weight) + 0.15f * wave(phase, 8)};
    stance.pelvis = {3.0f * weight, 0, 3.0f * weight};
    stance.waist = {-2.0f * weight, 1.5f * wave(phase, 2, 0.2f), 4.0f * look};
    stance.chest = {1.5f * weight, 1.0f * wave(phase, 3), 5.0f * look};
    stance.head = {0, 3.0f * wave(phase, 2), 50.0f * look};
    stance.foot[Right] = {{0, 0, 2.2f * right}, {0, -4.0f * right, 0}};
    stance.foot[Left] = {{0, 0, 2.2f * left}, {0, -4.0f * left, 0}};
    stance.weaponTurn = {0, 3.0f * wave(phase, 2, 0.3f), 4.0f * look};
}

} // namespace

Figure makeWalker() {
    RigPlan plan;
    plan.pelvis = {-0.6f, 0, 31};
    plan.waist = {-0.6f, 0, 34};
    plan.chest = {-0.6f, 0, 37};
    plan.neck = {-2, 0, 48.5f};
    plan.head = {-2, 0, 49.5f};
    plan.shoulder = {3.4f, 9.6f, 41.0f};
    plan.hip = {-0.6f, 6.4f, 30.5f};
    plan.ankle = {glm::vec3(-0.5f, -8.4f, 4.5f), glm::vec3(4.5f, 8.4f, 4.5f)};
    plan.kneePole = {glm::vec3(-1, -0.12f, 0), glm::vec3(-1, 0.12f, 0)};
    plan.thigh = 15.5f;
    plan.shin = 17.5f;
    plan.upperArm = 11;
    plan.foreArm = 12;
    plan.elbowPole = {glm::vec3(-0.5f, -0.8f, -0.9f), glm::vec3(-0.4f, 0.9f, -1.0f)};
    plan.grip = {12.6f, -7.0f, 33.2f};
    plan.aim = {-4, -5, 40};
    Figure mech(plan);
    mech.stand = idle;
    addHull(mech);
    addTurret(mech);
    for (const Side side : {Right, Left}) {
        addArm(mech, side);
        addLeg(mech, side);
    }
    return mech;
}
