#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 hide(0.60f, 0.40f, 0.30f);
const glm::vec3 underside(0.62f, 0.46f, 0.36f);
const glm::vec3 horn(0.78f, 0.70f, 0.55f);
const glm::vec3 mane(0.20f, 0.14f, 0.11f);

/// Muscles and war paint of the trunk.
void decorateTrunk(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float front = glm::smoothstep(1.0f, 3.0f, p.x);
    const float middle = front * band(p.y, 0.3f, 0.5f);
    const float breast =
        front * band(p.z - 38.2f + 0.10f * std::abs(p.y), 0.2f, 0.6f) * band(p.y, 9.0f, 1.0f);
    crease(coat, middle * glm::smoothstep(45.0f, 43.0f, p.z), 0.5f);
    crease(coat, breast, 0.8f);
    for (const float z : {34.6f, 31.4f, 28.4f})
        crease(coat, 0.6f * front * band(p.z - z, 0.15f, 0.5f) * band(p.y, 3.6f, 0.6f), 0.5f);
    crease(coat, 0.5f * front * band(std::abs(p.y) - 4.0f, 0.15f, 0.5f) * glm::smoothstep(37.5f, 36.5f, p.z),
           0.3f);
    paint(coat, underside * (coat.colour.g / hide.g),
          0.45f * front * band(p.y, 3.2f, 2.0f) * glm::smoothstep(38.0f, 36.0f, p.z));
    // Broad painted claw strokes across the breast and the back.
    const float stroke = (p.y + 0.35f * (p.z - 40.0f)) / 2.6f;
    const float ragged = 0.27f + 0.10f * layeredNoise(p * 0.9f, 3);
    const float strokes = band(stroke - std::round(stroke), ragged, 0.06f) *
                          band(p.z - 41.2f, 3.9f + 0.6f * layeredNoise(p * 0.5f, 2), 0.4f) *
                          band(p.y, 9.0f, 0.3f);
    paintTeam(coat, 0.92f * strokes * (std::abs(p.x) > 1.5f ? 1.0f : 0.0f), 1.0f);
    const float shag = glm::smoothstep(-2.0f, -4.5f, p.x + 0.8f * layeredNoise(p * 0.5f, 2)) *
                       glm::smoothstep(7.0f, 4.5f, std::abs(p.y)) * glm::smoothstep(30.0f, 36.0f, p.z);
    paint(coat, mane * (1.0f + 0.5f * layeredNoise(glm::vec3(p.x, p.y * 3.0f, p.z * 0.5f), 3)), shag);
}

void addTrunk(Figure &beast) {
    const Rig &rig = beast.rig;
    Part &trunk = beast.add(Material::Hide, hide, softProfile(12, 2.3f));
    trunk.detail = 1.1f;
    columnRings(trunk, {{20.0f, -1.0f, {3.6f, 3.4f}, on(rig.pelvis)},
                        {24.0f, -0.8f, {6.8f, 5.6f}, on(rig.pelvis)},
                        {29.5f, -0.4f, {6.9f, 5.6f}, on(rig.waist)},
                        {35.0f, 0.4f, {8.6f, 6.6f}, between(rig.waist, rig.chest, 0.5f)},
                        {40.5f, 0.8f, {11.4f, 8.0f}, on(rig.chest)},
                        {45.5f, 0.2f, {11.0f, 7.4f}, on(rig.chest)},
                        {49.0f, -0.2f, {7.0f, 5.2f}, on(rig.chest)},
                        {50.4f, 0.6f, {0, 0}, on(rig.chest)}});
    trunk.decorate = decorateTrunk;
    Part &belt = beast.add(Material::Leather, glm::vec3(0.24f, 0.16f, 0.10f), softProfile(10, 2.3f));
    columnRings(belt, {{24.4f, -0.8f, {6.7f, 5.5f}, on(rig.pelvis)},
                       {24.5f, -0.8f, {7.4f, 6.3f}, on(rig.pelvis)},
                       {27.2f, -0.6f, {7.4f, 6.2f}, on(rig.pelvis)},
                       {27.3f, -0.6f, {6.6f, 5.4f}, on(rig.pelvis)}});
    belt.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float skull =
            at.position.x > 0 ? glm::length(glm::vec2(at.position.y, at.position.z - 25.9f)) : 9.0f;
        paint(coat, horn, glm::smoothstep(1.6f, 1.4f, skull));
        groove(coat, band(skull - 1.55f, 0.08f, 0.1f));
    };
    for (const float x : {1.0f, -1.0f}) {
        Part &cloth = beast.add(Material::Cloth, glm::vec3(0.4f), boxProfile(0.3f));
        cloth.team = 1.0f;
        cloth.ring({-0.8f + 5.9f * x, 0, 26.0f}, {4.4f, 0.6f}, on(rig.pelvis))
            .ring({-0.8f + 7.2f * x, 0, 19.0f}, {4.2f, 0.5f}, on(rig.pelvis))
            .ring({-0.8f + 7.6f * x, 0, 11.5f}, {3.6f, 0.4f}, on(rig.pelvis))
            .tip({-0.8f + 7.6f * x, 0, 11.0f}, on(rig.pelvis));
        cloth.decorate = [](const SurfacePoint &at, Coat &coat) {
            coat.height += 0.3f * std::sin(at.position.y * 1.9f + layeredNoise(at.position * 0.3f, 2));
            coat.tone *=
                1.0f - 0.5f * glm::smoothstep(14.0f + layeredNoise(glm::vec3(at.position.y, 0, 0), 2), 12.0f,
                                              at.position.z);
            const float zig = std::abs(at.position.y * 0.5f - std::round(at.position.y * 0.5f)) * 2.0f;
            paint(coat, horn * 0.9f, 0.85f * band(at.position.z - 15.8f - zig, 0.25f, 0.1f));
        };
    }
}

void decorateHead(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const glm::vec2 eye(std::abs(p.y) - 2.2f, p.z - 49.9f - 0.35f * (std::abs(p.y) - 2.2f));
    const float ahead = glm::smoothstep(8.0f, 8.8f, p.x);
    const float socket = ahead * glm::smoothstep(1.5f, 0.9f, glm::length(eye * glm::vec2(0.75f, 1.0f)));
    coat.colour *= 1.0f - 0.75f * socket;
    coat.height -= 0.5f * socket;
    const float ball = ahead * glm::smoothstep(0.72f, 0.58f, glm::length(eye * glm::vec2(0.7f, 1.15f)));
    paint(coat, glm::vec3(1.0f, 0.80f, 0.15f), ball);
    paint(coat, glm::vec3(0.08f, 0.02f, 0.0f), ball * band(eye.x, 0.10f, 0.08f));
    coat.glow = std::max(coat.glow, 0.9f * ball);
    const float mouth =
        glm::smoothstep(7.0f, 8.0f, p.x) * band(p.z - 45.0f + 0.05f * p.y * p.y, 0.65f, 0.12f);
    paint(coat, glm::vec3(0.12f, 0.02f, 0.02f), mouth);
    coat.height -= 0.3f * mouth;
    const float tooth = p.y / 1.05f;
    const float point = std::abs(tooth - std::round(tooth));
    paint(coat, glm::vec3(0.90f, 0.85f, 0.68f),
          mouth * std::max(
                      glm::smoothstep(0.04f, 0.0f, point * 1.2f - 0.5f * (p.z - 44.5f + 0.05f * p.y * p.y)),
                      glm::smoothstep(0.04f, 0.0f, point * 1.2f + 0.5f * (p.z - 45.6f + 0.05f * p.y * p.y))));
    const glm::vec2 nostril(std::abs(p.y) - 0.9f, p.z - 46.9f);
    groove(coat, glm::smoothstep(11.0f, 11.6f, p.x) * glm::smoothstep(0.55f, 0.35f, glm::length(nostril)),
           0.3f);
    crease(coat, 0.7f * ahead * band(p.z - 51.2f - 0.2f * std::abs(p.y), 0.12f, 0.4f), 0.3f);
    paintTeam(coat, 0.92f * band(p.y, 1.0f + 0.2f * layeredNoise(p, 2), 0.15f) *
                        glm::smoothstep(47.6f, 48.2f, p.z) * (1.0f - socket));
    paint(coat, mane, glm::smoothstep(4.5f, 3.0f, p.x + 0.5f * layeredNoise(p, 2)));
}

void addHorn(Figure &beast, float y) {
    const Influence head = on(beast.rig.head);
    Part &part = beast.add(Material::Horn, horn, roundProfile(7), {0.2f, 0, 1});
    const std::array<glm::vec3, 6> path{{{5.0f, 3.0f, 51.0f},
                                         {4.6f, 6.6f, 52.6f},
                                         {4.6f, 9.8f, 52.6f},
                                         {6.0f, 12.2f, 54.2f},
                                         {8.0f, 12.6f, 57.4f},
                                         {9.4f, 11.4f, 60.6f}}};
    const std::array<float, 5> radius{1.9f, 1.8f, 1.5f, 1.15f, 0.7f};
    for (std::size_t i = 0; i < radius.size(); ++i)
        part.ring({path[i].x, path[i].y * y, path[i].z}, glm::vec2(radius[i]), head);
    part.tip({path.back().x, path.back().y * y, path.back().z}, head);
}

void addHead(Figure &beast) {
    const Influence head = on(beast.rig.head);
    Part &skull = beast.add(Material::Hide, hide, softProfile(12, 2.4f), {0, 0, 1});
    skull.detail = 1.5f;
    const auto section = [&](float x, float z, float width, float height, const Influence &bones) {
        skull.ring({x, 0, z}, {width, height}, bones, {1, 0, -0.1f});
    };
    section(1.0f, 46.5f, 5.0f, 5.0f, on(beast.rig.chest));
    section(4.2f, 48.4f, 4.7f, 4.9f, head);
    section(7.4f, 48.6f, 4.6f, 4.5f, head);
    section(9.4f, 47.6f, 4.0f, 4.2f, head);
    section(11.6f, 46.2f, 3.1f, 2.9f, head);
    section(12.6f, 45.8f, 2.2f, 2.0f, head);
    skull.tip({12.9f, 0, 45.8f}, head);
    skull.decorate = decorateHead;
    for (const float y : {-1.0f, 1.0f}) {
        addHorn(beast, y);
        Part &tusk = beast.add(Material::Horn, horn * 1.1f, roundProfile(5), {1, 0, 0});
        tusk.ring({11.4f, 2.5f * y, 44.0f}, {0.6f, 0.6f}, head)
            .ring({12.4f, 3.0f * y, 45.8f}, {0.5f, 0.5f}, head)
            .tip({12.5f, 3.0f * y, 48.0f}, head);
    }
}

void addArm(Figure &beast, Side side) {
    const Rig &rig = beast.rig;
    const Limb &arm = rig.arm[side];
    const float y = side == Left ? 1.0f : -1.0f;
    Part &flesh = beast.add(Material::Hide, hide, roundProfile(8));
    limbRings(flesh, beast, arm, rig.chest,
              {{-0.15f, {3.6f, 3.8f}},
               {0.08f, {4.9f, 5.0f}},
               {0.45f, {4.0f, 4.4f}, {0.3f, 0, 0}},
               {0.9f, {3.0f, 3.1f}},
               {1.1f, {3.2f, 3.3f}},
               {1.38f, {3.6f, 3.7f}},
               {1.95f, {2.1f, 2.3f}}});
    flesh.decorate = [](const SurfacePoint &at, Coat &coat) {
        crease(coat, 0.5f * band(at.along - 0.30f - 0.05f * std::sin(at.around * 12.566f), 0.004f, 0.02f),
               0.25f);
        coat.height += 0.25f * band(std::abs(at.around - 0.5f) - 0.0f, 0.02f, 0.2f) *
                       band(at.along - 0.4f, 0.08f, 0.12f);
    };
    Part &bracer = beast.add(Material::Plate, glm::vec3(0.5f), softProfile(9, 2.6f));
    bracer.team = 1.0f;
    bracer.sharp = true;
    limbRings(bracer, beast, arm, rig.chest,
              {{1.45f, {2.8f, 2.8f}}, {1.46f, {3.9f, 4.0f}}, {1.86f, {3.0f, 3.1f}}, {1.87f, {2.0f, 2.0f}}});
    bracer.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float stud = glm::length(glm::vec2(
            (at.around * 9.0f - std::floor(at.around * 9.0f) - 0.5f) * 1.3f, (at.along - 0.5f) * 3.2f));
        paint(coat, glm::vec3(0.65f), glm::smoothstep(0.3f, 0.24f, stud));
        groove(coat, band(stud - 0.32f, 0.02f, 0.06f), 0.15f);
    };
    if (side == Left) {
        Part &pad = beast.add(Material::Plate, glm::vec3(0.5f), softProfile(9, 2.4f));
        pad.team = 1.0f;
        pad.sharp = true;
        domeRings(pad, rig.at(arm.upper) + glm::vec3(0, 0.6f * y, -0.6f), {0.1f, 0.75f * y, 0.9f},
                  {6.6f, 6.4f}, 5.6f, between(rig.chest, arm.upper, 0.5f));
        for (const float x : {-2.6f, 0.4f, 3.2f}) {
            Part &spike = beast.add(Material::Horn, horn, roundProfile(5));
            const glm::vec3 root = rig.at(arm.upper) + glm::vec3(x, 2.6f * y, 2.6f);
            spike.ring(root, {0.9f, 0.9f}, between(rig.chest, arm.upper, 0.5f))
                .tip(root + glm::vec3(x * 0.4f, 3.0f * y, 4.0f), between(rig.chest, arm.upper, 0.5f));
        }
    }
}

/// The free hand: a half-open claw.
void addClaw(Figure &beast) {
    const Rig &rig = beast.rig;
    const Limb &arm = rig.arm[Left];
    const Influence hand = on(arm.end);
    const glm::vec3 wrist = rig.at(arm.end);
    const glm::vec3 way = glm::normalize(wrist - rig.at(arm.lower));
    const float s = 1.35f;
    Part &palm = beast.add(Material::Hide, hide * 0.9f, softProfile(8, 2.8f), {1, 0, 0});
    palm.ring(wrist - way, glm::vec2(1.9f, 2.1f), between(arm.lower, arm.end, 0.5f))
        .ring(wrist + way * 2.2f * s, glm::vec2(1.5f, 2.9f) * s, hand)
        .ring(wrist + way * 4.0f * s, glm::vec2(1.4f, 2.8f) * s, hand)
        .tip(wrist + way * 4.8f * s, hand);
    for (int i = 0; i < 4; ++i) {
        const bool thumb = i == 3;
        const glm::vec3 root =
            wrist + s * (thumb ? way * 1.6f + glm::vec3(2.4f, 0, 0)
                               : way * 3.8f + glm::vec3(1.9f - 1.9f * static_cast<float>(i), 0.3f, 0));
        const glm::vec3 bend = thumb ? s * glm::vec3(1.0f, -0.6f, 0) : s * glm::vec3(0.4f, 0.3f, 0);
        Part &finger = beast.add(Material::Hide, hide * 0.85f, roundProfile(4), {0.3f, 1, 0.2f});
        finger.ring(root, glm::vec2(0.9f * s), hand)
            .ring(root + way * 2.0f * s + bend, glm::vec2(0.8f * s), hand)
            .tip(root + way * 4.6f * s + bend + s * glm::vec3(0.3f, -1.6f, 0), hand);
        finger.decorate = [](const SurfacePoint &at, Coat &coat) {
            paint(coat, horn * 0.6f, glm::smoothstep(0.55f, 0.62f, at.along));
        };
    }
}

void addLeg(Figure &beast, Side side) {
    const Rig &rig = beast.rig;
    const Limb &leg = rig.leg[side];
    const float y = side == Left ? 1.0f : -1.0f;
    Part &flesh = beast.add(Material::Hide, hide * 0.95f, roundProfile(8));
    limbRings(flesh, beast, leg, rig.pelvis,
              {{-0.1f, {3.6f, 4.2f}},
               {0.2f, {4.8f, 5.4f}, {0, 0.3f * y, 0}},
               {0.6f, {4.1f, 4.5f}},
               {0.95f, {3.2f, 3.5f}},
               {1.35f, {3.2f, 3.6f}, {-0.5f, 0, 0}},
               {1.95f, {2.3f, 2.5f}}});
    flesh.decorate = [](const SurfacePoint &at, Coat &coat) {
        paint(coat, mane * (1.0f + 0.5f * layeredNoise(at.position * glm::vec3(2.5f, 2.5f, 0.7f), 3)),
              glm::smoothstep(0.56f, 0.72f, at.along + 0.06f * layeredNoise(at.position * 0.8f, 2)));
    };
    const Influence foot = on(leg.end);
    const glm::vec3 ankle = rig.at(leg.end);
    const glm::vec3 way(turned({0, 0, 16.0f * y}) * glm::vec4(1, 0, 0, 0));
    const glm::vec3 left(-way.y, way.x, 0);
    addFoot(beast, side, Material::Hide, hide * 0.8f, {10.5f, 3.4f, 4.6f, 3.6f, 16}).decorate = nullptr;
    for (int i = -1; i <= 1; ++i) {
        const glm::vec3 root =
            glm::vec3(ankle.x, ankle.y, 1.3f) + way * 5.6f + left * (2.1f * static_cast<float>(i));
        Part &claw = beast.add(Material::Horn, horn * 0.8f, roundProfile(4), {0, 0, 1});
        claw.ring(root, {1.1f, 1.2f}, foot)
            .ring(root + way * 2.0f, {0.85f, 0.85f}, foot)
            .tip(root + way * 4.4f - glm::vec3(0, 0, 1.2f), foot);
    }
}

} // namespace

Figure makeDire() {
    RigPlan plan;
    plan.pelvis = {-0.8f, 0, 24};
    plan.waist = {-0.4f, 0, 29};
    plan.chest = {0, 0, 35};
    plan.neck = {1.5f, 0, 47};
    plan.head = {3.5f, 0, 48};
    plan.shoulder = {0.4f, 12.6f, 44.5f};
    plan.hip = {-0.6f, 5.2f, 22.5f};
    plan.ankle = {glm::vec3(-2.5f, -8.0f, 4), glm::vec3(2.5f, 8.0f, 4)};
    plan.thigh = 11.5f;
    plan.shin = 10.5f;
    plan.upperArm = 13.5f;
    plan.foreArm = 13;
    plan.weaponSize = 1.15f;
    plan.grip = {12.5f, -13.5f, 29.0f};
    plan.aim = {4, -8, 22};
    // The left hand hangs free: far from the weapon, in its units.
    plan.leftWrist = {5.0f, 30.0f, -4.0f};
    plan.elbowPole = {glm::vec3(-0.6f, -0.8f, -0.4f), glm::vec3(-0.5f, 1.0f, 0.1f)};
    Figure beast(plan);
    beast.idle.leftHandOnWeapon = false;
    beast.idle.breath = 2.2f;
    beast.idle.breaths = 4;
    beast.idle.look = 26.0f;
    beast.idle.sway = 0.9f;
    addTrunk(beast);
    addHead(beast);
    for (const Side side : {Right, Left}) {
        addArm(beast, side);
        addLeg(beast, side);
    }
    addFist(beast, Right, Material::Hide, hide * 0.9f, 1.3f);
    addClaw(beast);
    return beast;
}
