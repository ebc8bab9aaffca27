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
    Part &piston = mech.add(Material::Metal, glm::vec3(0.70f), roundProfile(5));
    const glm::vec3 upper = glm::mix(hip, knee, 0.7f) + glm::vec3(2.6f, 0, -0.6f);
    const glm::vec3 lower = glm::mix(knee, rig.at(leg.end), 0.62f) + glm::vec3(1.4f, 0, 1.2f);
    piston.ring(upper, {0.75f, 0.75f}, on(leg.upper)).ring(lower, {0.6f, 0.6f}, on(leg.lower));
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
    plan.elbowPole = {glm::vec3(-0.5f, -0.8f, -0.9f), glm::vec3(-0.2f, 1.0f, -0.8f)};
    plan.grip = {12.6f, -6.2f, 32.5f};
    plan.aim = {-4, -6, 50};
    Figure mech(plan);
    mech.idle.breath = 0.7f;
    mech.idle.breaths = 4;
    mech.idle.sink = 0.8f;
    mech.idle.sway = 1.0f;
    mech.idle.look = 60.0f;
    mech.idle.lookDown = 3.0f;
    addHull(mech);
    addTurret(mech);
    for (const Side side : {Right, Left}) {
        addArm(mech, side);
        addLeg(mech, side);
    }
    return mech;
}
