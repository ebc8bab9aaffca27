#include "tools/assets/characters/Arm.h"
#include "tools/assets/characters/Materials.h"
#include "tools/assets/characters/RatHead.h"

#include <cmath>

namespace rat {

namespace {

const glm::vec3 strap(0.24f, 0.19f, 0.16f);
const glm::vec3 brass(0.80f, 0.70f, 0.44f);
constexpr float breechesTone = 0.76f;

/// Heights up the leaning trunk: breeches end and the belt begins, it ends, and where the neck comes out
/// of the jacket, which leans further.
constexpr float beltBegin = 24.75f;
constexpr float beltEnd = 26.4f;
constexpr float neckBegin = 43.4f;
float upTrunk(const glm::vec3 &p) {
    return p.z + 0.25f * p.x;
}
float upNeck(const glm::vec3 &p) {
    return p.z + 0.6f * p.x;
}

void decorateTrunk(const SurfacePoint &at, Coat &coat) {
    const float side = std::abs(at.around - 0.5f);
    const glm::vec3 hair =
        coat.colour * glm::mix(glm::vec3(1.0f), belly / fur, glm::smoothstep(0.14f, 0.06f, side));
    coat.colour = hair;
    if (upTrunk(at.position) < beltBegin) {
        paintTeam(coat, 1.0f, breechesTone);
        coat.height += 0.25f * layeredNoise(at.position * 0.5f, 3);
        return;
    }
    if (upTrunk(at.position) < beltEnd) {
        paint(coat, strap, 1.0f);
        const glm::vec2 buckle(side * 42.0f, (upTrunk(at.position) - 25.6f) * 1.9f);
        paint(coat, brass,
              band(buckle.x, 1.6f, 0.1f) * band(buckle.y, 1.2f, 0.1f) *
                  (1.0f - band(buckle.x, 1.0f, 0.1f) * band(buckle.y, 0.6f, 0.1f)));
        return;
    }
    if (upNeck(at.position) > neckBegin)
        return;
    // The vest stands open over the belly.
    const float open = glm::smoothstep(0.052f, 0.046f, side);
    paintTeam(coat, 1.0f - open);
    coat.height *= 0.4f;
    groove(coat, band(side - 0.052f, 0.006f, 0.012f) + band(at.along - 0.465f, 0.006f, 0.01f) +
                     band(at.along - 0.865f, 0.006f, 0.01f));
    const float buckle = at.along * 9.0f;
    const float buckled = band(buckle - std::round(buckle), 0.12f, 0.03f) *
                          band(at.along - 0.655f, 0.16f, 0.01f) * glm::smoothstep(0.12f, 0.115f, side);
    paint(coat, strap, buckled);
    paint(coat, brass, buckled * band(side - 0.085f, 0.012f, 0.003f));
    const float patch = band(at.around - 0.74f, 0.05f, 0.004f) * band(at.along - 0.655f, 0.075f, 0.005f);
    coat.tone *= 1.0f - 0.35f * patch;
    coat.tone *= 1.0f - 0.3f * (side > 0.4f ? 1.0f : 0.0f) * band(at.position.y, 0.9f, 0.1f);
}

/// One tube from the tail to the neck: breeches, belt and vest are steps on it.
void addTrunk(Figure &figure) {
    const Rig &rig = figure.rig;
    Part &trunk = figure.add(Material::Fur, fur, roundProfile(10), {1, 0, -0.2f});
    trunk.sharp = true;
    trunk.detail = 1.1f;
    trunk.tip({-6.4f, 0, 16.0f}, on(rig.pelvis));
    trunk.ring({-5.2f, 0, 17.6f}, {4.2f, 4.2f}, on(rig.pelvis))
        .ring({-3.9f, 0, 21.4f}, {6.7f, 6.5f}, on(rig.pelvis))
        .ring({-2.9f, 0, 25.4f}, {6.4f, 6.2f}, on(rig.pelvis))
        .ring({-2.5f, 0, 26.9f}, {6.3f, 6.1f}, on(rig.waist), {0.25f, 0, 1});
    trunk.ring({-2.4f, 0, 27.3f}, {7.2f, 7.0f}, on(rig.waist), {0.25f, 0, 1})
        .ring({0.0f, 0, 32.2f}, {7.0f, 6.6f}, between(rig.waist, rig.chest, 0.6f))
        .ring({2.8f, 0, 36.8f}, {6.9f, 6.0f}, on(rig.chest));
    trunk.ring({5.2f, 0, 40.2f}, {5.4f, 4.9f}, on(rig.chest), {0.6f, 0, 1})
        .ring({5.3f, 0, 40.3f}, {3.9f, 3.8f}, on(rig.chest), {0.6f, 0, 1})
        .ring({7.9f, 0, 44.0f}, {2.8f, 3.0f}, between(rig.chest, rig.head, 0.6f), {0.8f, 0, 1});
    trunk.decorate = decorateTrunk;
    for (const float y : {-1.0f, 1.0f}) {
        Part &pouch = figure.add(Material::Leather, strap * 1.6f, Profile{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}},
                                 {0.6f, y, 0});
        pouch.sharp = true;
        pouch.ring({1.7f, 6.3f * y, 21.8f}, {1.8f, 1.2f}, on(rig.pelvis))
            .ring({2.0f, 6.1f * y, 26.2f}, {1.6f, 1.0f}, on(rig.pelvis));
        pouch.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.position.z - 24.4f, 0.08f, 0.15f));
            const glm::vec2 stud(at.around * 4.0f - std::round(at.around * 4.0f), at.position.z - 23.8f);
            paint(coat, brass, glm::smoothstep(0.35f, 0.25f, glm::length(stud * glm::vec2(3.0f, 1.0f))));
        };
    }
}

void addTail(Figure &figure, const std::vector<Bone> &tail) {
    Part &rope = figure.add(Material::Hide, bare, roundProfile(5), {0, 1, 0});
    rope.lids = false; // It begins in the breeches.
    const Skeleton &skeleton = figure.rig.skeleton;
    rope.ring(skeleton.joint(tail[0]) + glm::vec3(2.5f, 0, 2.5f), {1.8f, 1.8f}, on(figure.rig.pelvis));
    float radius = 1.7f;
    for (std::size_t i = 0; i < tail.size(); ++i) {
        rope.ring(skeleton.joint(tail[i]), {radius, radius},
                  i == 0 ? on(figure.rig.pelvis) : between(tail[i - 1], tail[i], 0.5f));
        radius *= 0.85f;
    }
    rope.tip(skeleton.joint(tail.back()) + glm::vec3(-2.4f, 1.2f, 2.2f), on(tail.back()));
    rope.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float ring = at.along * 34.0f;
        groove(coat, 0.5f * band(ring - std::round(ring), 0.12f, 0.2f), 0.1f);
    };
}

void decorateArm(const SurfacePoint &at, Coat &coat) {
    const float sleeve = glm::smoothstep(0.375f, 0.37f, at.along);
    paintTeam(coat, sleeve);
    groove(coat, band(at.along - 0.372f, 0.004f, 0.012f) + 0.6f * band(at.along - 0.345f, 0.003f, 0.008f));
    const float cuff = band(at.along - 0.85f, 0.075f, 0.003f);
    paint(coat, strap * 1.3f, cuff);
    groove(coat, band(std::abs(at.along - 0.85f) - 0.075f, 0.003f, 0.008f));
}

void addArm(Figure &figure, Side side) {
    const Rig &rig = figure.rig;
    Part &arm = figure.add(Material::Fur, fur, roundProfile(6));
    const glm::vec3 joint = rig.at(rig.arm[side].upper);
    armRings(arm, figure, side, joint + mirrored({-0.6f, -3.4f, -0.4f}, side), {2.4f, 2.7f},
             {{0.34f, {2.4f, 2.6f}},
              {0.95f, {1.75f, 1.85f}},
              {1.12f, {1.75f, 1.85f}},
              {1.55f, {1.75f, 1.8f}},
              {1.96f, {1.15f, 1.2f}}});
    arm.tip(arm.rings.back().centre, arm.rings.back().bones);
    arm.decorate = decorateArm;
    addFist(figure, side, Material::Hide, bare * 0.95f, 0.92f);
}

void decorateLeg(const SurfacePoint &at, Coat &coat) {
    const float breeches = glm::smoothstep(0.625f, 0.622f, at.along);
    paintTeam(coat, breeches, breechesTone);
    coat.height += breeches * 0.25f * layeredNoise(at.position * 0.5f, 3);
    groove(coat, band(at.along - 0.60f, 0.004f, 0.01f));
    const float wrap = band(at.along - 0.88f, 0.07f, 0.004f);
    paintTeam(coat, wrap);
    const float turn = at.along * 36.0f + at.around;
    groove(coat, 0.7f * wrap * band(turn - std::round(turn), 0.06f, 0.12f));
}

/// A long foot that ends in three toes with claws.
void addPaw(Figure &figure, Side side) {
    const Rig &rig = figure.rig;
    const Influence foot = on(rig.leg[side].end);
    const glm::vec3 ankle = rig.at(foot.first);
    const glm::vec3 way(turned({0, 0, side == Left ? 14.0f : -14.0f}) * glm::vec4(1, 0, 0, 0));
    const glm::vec3 left(-way.y, way.x, 0);
    const glm::vec3 floor(ankle.x, ankle.y, 0);
    Part &paw = figure.add(Material::Hide, bare, softProfile(6, 2.6f), {0, 0, 1});
    paw.tip(ankle + glm::vec3(-1.6f, 0, 0.6f), foot);
    paw.ring(ankle + glm::vec3(-1.0f, 0, 0.3f), {1.3f, 1.6f}, foot, way + glm::vec3(0, 0, -0.9f))
        .ring(ankle + way * 3.0f + glm::vec3(0, 0, -2.3f), {1.9f, 1.6f}, foot, way + glm::vec3(0, 0, -0.4f))
        .ring(floor + way * 6.6f + glm::vec3(0, 0, 0.95f), {2.6f, 0.95f}, foot, way)
        .tip(floor + way * 8.6f + glm::vec3(0, 0, 0.6f), foot);
    paw.decorate = [ankle, way](const SurfacePoint &at, Coat &coat) {
        const float ahead = glm::dot(at.position - ankle, way);
        paint(coat, fur, glm::smoothstep(2.4f, 0.8f, ahead + 0.6f * layeredNoise(at.position, 2)));
    };
    for (int i = -1; i <= 1; ++i) {
        const auto aside = static_cast<float>(i);
        const glm::vec3 root = floor + way * 5.6f + left * (1.5f * aside) + glm::vec3(0, 0, 1.0f);
        const glm::vec3 toward = way + left * (0.16f * aside);
        Part &toe = figure.add(Material::Hide, bare, roundProfile(4), {0, 0, 1});
        toe.lids = false; // It grows out of the foot.
        toe.ring(root, {1.0f, 0.95f}, foot)
            .ring(root + toward * 3.2f - glm::vec3(0, 0, 0.1f), {0.95f, 0.85f}, foot)
            .tip(root + toward * 6.2f - glm::vec3(0, 0, 0.9f), foot);
        toe.decorate = [](const SurfacePoint &at, Coat &coat) {
            paint(coat, glm::vec3(0.90f, 0.84f, 0.72f), glm::smoothstep(0.72f, 0.75f, at.along));
        };
    }
}

void addLeg(Figure &figure, Side side) {
    const Rig &rig = figure.rig;
    const float y = side == Left ? 1.0f : -1.0f;
    Part &leg = figure.add(Material::Fur, fur, roundProfile(6));
    const glm::vec3 hip = rig.at(rig.leg[side].upper);
    leg.tip(hip + glm::vec3(-0.4f, 0, 3.6f), on(rig.pelvis));
    limbRings(leg, figure, rig.leg[side], rig.pelvis,
              {{-0.16f, {3.2f, 3.8f}},
               {0.15f, {4.4f, 5.3f}, {0, 0.4f * y, 0}},
               {0.6f, {3.9f, 4.4f}},
               {0.98f, {3.0f, 3.2f}},
               {1.03f, {2.1f, 2.3f}},
               {1.5f, {1.9f, 2.1f}},
               {1.98f, {1.4f, 1.5f}}});
    leg.decorate = decorateLeg;
    addPaw(figure, side);
}

/// It rises to sniff this way and that, then scratches behind the ear.
void stand(const Rig &rig, Stance &stance, float phase) {
    const float rise = keyed(phase, {{0.0f, 0.2f}, {0.12f, 1}, {0.26f, 1}, {0.40f, 0}, {0.8f, 0}});
    const float sniff = keyed(phase, {{0.0f, 0}, {0.06f, 1}, {0.28f, 1}, {0.36f, 0}});
    const float scratch = keyed(phase, {{0.20f, 0}, {0.57f, 1}, {0.68f, 1}, {0.99f, 0}});
    const float scratching = keyed(phase, {{0.50f, 0}, {0.56f, 1}, {0.68f, 1}, {0.74f, 0}});
    const float claw = scratching * wave(phase, 10);
    const float weight = wave(phase, 1, 0.55f);
    const float breath = wave(phase, 8);
    stance.shift = {1.5f * rise - 0.5f * scratch, 1.6f * weight, 1.4f * rise - 0.8f * scratch - 0.4f};
    stance.pelvis = {3.0f * weight, -3.0f * rise, 5.0f + 4.0f * weight};
    stance.waist = {-3.0f * weight, -5.0f * rise + 3.0f * scratch, 4.0f * scratch};
    stance.chest = {-3.0f * scratch, -4.0f * rise - 1.2f * breath, 6.0f * scratch};
    const float look = keyed(phase, {{0.02f, 26}, {0.11f, 31}, {0.33f, -4}, {0.48f, 4}, {0.84f, 14}});
    stance.neck = {-5.0f * scratch, -3.0f * rise, 0.35f * look};
    stance.head = {-20.0f * scratch - 2.0f * claw,
                   -4.0f * rise + 3.0f * sniff * wave(phase, 9) + 7.0f * scratch, 0.65f * look};
    stance.weaponShift = {-0.6f * scratch, 0, -1.2f * scratch + 0.3f * breath};
    stance.weaponTurn = {0, 12.0f * scratch + 1.0f * breath, -4.0f * scratch};
    const glm::vec3 ear = rig.at(rig.head) + glm::vec3(2.6f, 7.2f, 0.6f);
    stance.left = {scratch, ear + glm::vec3(0.6f, 0.2f, 0.9f) * claw, {40, -80, 30}, rig.head};
}

void wag(const std::vector<Bone> &tail, Bone jaw, Pose &pose, float phase) {
    for (std::size_t i = 0; i < tail.size(); ++i) {
        const float late = -0.07f * static_cast<float>(i);
        pose.turn(tail[i], {0, 1.4f * wave(phase, 3, late), 5.0f * wave(phase, 2, late)});
    }
    const float gape = keyed(phase, {{0.44f, 0}, {0.56f, 1}, {0.72f, 0.6f}, {0.82f, 0}});
    pose.turn(jaw, {0, 14.0f * gape + 1.5f * wave(phase, 9), 0});
}

RigPlan plan() {
    RigPlan plan;
    plan.pelvis = {-4, 0, 22};
    plan.waist = {-1.5f, 0, 29};
    plan.chest = {2.5f, 0, 35};
    plan.neck = {7.0f, 0, 42};
    plan.head = {8.2f, 0, 44};
    plan.shoulder = {4.2f, 6.2f, 37.4f};
    plan.hip = {-3.4f, 4.2f, 20.5f};
    plan.ankle = {glm::vec3(-7.5f, -6.0f, 4.6f), glm::vec3(-3.5f, 6.0f, 4.6f)};
    plan.kneePole = {glm::vec3(1, -0.35f, 0), glm::vec3(1, 0.35f, 0)};
    plan.thigh = 11.5f;
    plan.shin = 11.5f;
    plan.upperArm = 10;
    plan.foreArm = 9.5f;
    plan.weaponSize = 0.95f;
    plan.grip = {12.4f, -5.6f, 30.0f};
    plan.aim = {-8, 2, 52};
    return plan;
}

std::vector<Bone> addTailBones(Figure &figure) {
    const std::array<glm::vec3, 8> joints{{{-7.5f, 0, 18},
                                           {-11.5f, 0.2f, 13.5f},
                                           {-15.0f, 0.8f, 9.5f},
                                           {-18.5f, 2.2f, 6.5f},
                                           {-21.5f, 4.6f, 5.0f},
                                           {-23.6f, 8.0f, 5.2f},
                                           {-24.2f, 11.8f, 7.2f},
                                           {-23.2f, 15.0f, 10.4f}}};
    std::vector<Bone> tail;
    tail.reserve(joints.size());
    Bone parent = figure.rig.pelvis;
    for (const glm::vec3 &joint : joints)
        tail.push_back(parent = figure.rig.skeleton.add(joint, parent));
    return tail;
}

} // namespace

} // namespace rat

Figure makeRat() {
    Figure figure(rat::plan());
    const std::vector<Bone> tail = rat::addTailBones(figure);
    const Bone jaw = figure.rig.skeleton.add({9.5f, 0, 44.0f}, figure.rig.head);
    figure.stand = [rig = figure.rig](Stance &stance, float phase) { rat::stand(rig, stance, phase); };
    figure.extra = [tail, jaw](Pose &pose, float phase) { rat::wag(tail, jaw, pose, phase); };
    rat::addTrunk(figure);
    rat::addHead(figure, jaw);
    rat::addTail(figure, tail);
    for (const Side side : {Right, Left}) {
        rat::addArm(figure, side);
        rat::addLeg(figure, side);
    }
    return figure;
}
