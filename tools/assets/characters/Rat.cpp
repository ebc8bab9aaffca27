#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 fur(0.55f, 0.46f, 0.38f);
const glm::vec3 belly(0.66f, 0.58f, 0.48f);
const glm::vec3 bare(0.82f, 0.56f, 0.52f);
const glm::vec3 strap(0.26f, 0.18f, 0.12f);

void addTrunk(Figure &rat) {
    const Rig &rig = rat.rig;
    Part &trunk = rat.add(Material::Fur, fur, roundProfile(10), {1, 0, -0.2f});
    trunk.ring({-5.4f, 0, 17.2f}, {3.0f, 3.0f}, on(rig.pelvis))
        .ring({-4.2f, 0, 20.5f}, {6.2f, 6.0f}, on(rig.pelvis))
        .ring({-2.6f, 0, 26.0f}, {6.6f, 6.4f}, between(rig.pelvis, rig.waist, 0.4f));
    trunk.ring({-0.4f, 0, 31.5f}, {6.2f, 5.9f}, on(rig.waist))
        .ring({2.6f, 0, 36.6f}, {6.0f, 5.4f}, on(rig.chest))
        .ring({5.6f, 0, 40.6f}, {4.6f, 4.2f}, on(rig.chest))
        .ring({8.0f, 0, 43.4f}, {3.0f, 3.0f}, between(rig.chest, rig.head, 0.6f));
    trunk.decorate = [](const SurfacePoint &at, Coat &coat) {
        paint(coat, belly * (coat.colour.g / fur.g),
              glm::smoothstep(0.12f, 0.05f, std::abs(at.around - 0.5f)) * 0.85f);
    };
    Part &vest = rat.add(Material::Leather, glm::vec3(0.4f), roundProfile(10), {1, 0, -0.2f});
    vest.team = 1.0f;
    vest.sharp = true;
    vest.ring({-2.3f, 0, 27.4f}, {6.4f, 6.2f}, on(rig.waist))
        .ring({-2.0f, 0, 28.0f}, {7.1f, 6.9f}, on(rig.waist))
        .ring({0.1f, 0, 32.4f}, {6.9f, 6.5f}, between(rig.waist, rig.chest, 0.6f));
    vest.ring({2.8f, 0, 36.8f}, {6.7f, 6.0f}, on(rig.chest))
        .ring({5.3f, 0, 40.2f}, {5.3f, 4.8f}, on(rig.chest))
        .ring({5.6f, 0, 40.6f}, {4.4f, 4.0f}, on(rig.chest));
    vest.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float side = std::abs(at.around - 0.5f);
        const float open = glm::smoothstep(0.055f, 0.045f, side);
        paint(coat, belly * (0.85f + 0.2f * layeredNoise(at.position * glm::vec3(1.5f, 1.5f, 0.5f), 3)),
              open);
        groove(coat, band(side - 0.055f, 0.006f, 0.012f) + band(at.along - 0.2f, 0.008f, 0.015f) +
                         band(at.along - 0.86f, 0.008f, 0.015f));
        const float buckle = at.along * 5.0f;
        paint(coat, strap,
              band(buckle - std::round(buckle), 0.11f, 0.03f) * glm::smoothstep(0.13f, 0.12f, side));
        const float patch = band(at.around - 0.74f, 0.05f, 0.004f) * band(at.along - 0.5f, 0.15f, 0.01f);
        coat.tone *= 1.0f - 0.35f * patch;
        groove(coat, band(std::abs(at.around - 0.74f) - 0.05f, 0.004f, 0.006f) *
                         band(at.along - 0.5f, 0.15f, 0.01f));
        coat.tone *= 1.0f + 0.25f * band(at.position.y, 1.0f, 0.1f) * (side > 0.4f ? 1.0f : 0.0f);
    };
    Part &belt = rat.add(Material::Leather, strap, roundProfile(8), {1, 0, -0.2f});
    belt.ring({-3.0f, 0, 24.4f}, {6.6f, 6.4f}, on(rig.pelvis))
        .ring({-3.0f, 0, 24.5f}, {7.2f, 7.0f}, on(rig.pelvis))
        .ring({-2.4f, 0, 26.6f}, {7.2f, 7.0f}, on(rig.waist))
        .ring({-2.4f, 0, 26.7f}, {6.4f, 6.2f}, on(rig.waist));
    for (const float y : {-1.0f, 1.0f}) {
        Part &pouch = rat.add(Material::Leather, strap * 1.5f, boxProfile(0.35f), {0.6f, y, 0});
        barRings(pouch, {1.6f, 6.2f * y, 21.8f}, {2.0f, 6.0f * y, 26.0f}, {1.6f, 1.0f}, 0, on(rig.pelvis));
        pouch.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.position.z - 24.6f, 0.08f, 0.15f));
        };
    }
}

void decorateSnout(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    paint(coat, belly * (coat.colour.g / fur.g),
          0.8f * glm::smoothstep(43.6f, 42.4f, p.z - (p.x - 14.0f) * -0.15f));
    paint(coat, bare, glm::smoothstep(19.4f, 20.2f, p.x));
    coat.gloss = glm::mix(coat.gloss, 0.6f, glm::smoothstep(19.8f, 20.4f, p.x));
    groove(coat, band(p.y, 0.06f, 0.12f) * glm::smoothstep(20.6f, 20.8f, p.x), 0.2f);
    const float mouth = band(p.z - 42.5f + 0.12f * (p.x - 15.0f), 0.10f, 0.14f) *
                        glm::smoothstep(13.6f, 14.2f, p.x) * glm::smoothstep(20.2f, 19.8f, p.x);
    groove(coat, mouth, 0.3f);
    const glm::vec2 eye(p.x - 13.6f, p.z - 47.0f);
    const float out = glm::smoothstep(1.4f, 1.8f, std::abs(p.y));
    const float ball = out * glm::smoothstep(0.95f, 0.82f, glm::length(eye));
    const float lid = out * band(glm::length(eye) - 1.05f, 0.16f, 0.12f);
    paint(coat, fur * 0.45f, lid);
    paint(coat, glm::vec3(0.78f, 0.10f, 0.05f), ball);
    paint(coat, glm::vec3(0.05f), out * glm::smoothstep(0.5f, 0.4f, glm::length(eye - glm::vec2(0.15f, 0))));
    paint(coat, glm::vec3(1.0f),
          out * glm::smoothstep(0.28f, 0.18f, glm::length(eye - glm::vec2(0.3f, 0.35f))));
    coat.glow = std::max(coat.glow, 0.8f * ball);
    const float spot = glm::length(glm::vec2(std::fmod(p.x * 1.1f, 1.0f) - 0.5f,
                                             (p.z - 43.6f) * 1.1f - std::round((p.z - 43.6f) * 1.1f)));
    paint(coat, fur * 0.4f,
          0.8f * glm::smoothstep(0.2f, 0.12f, spot) * band(p.z - 43.8f, 1.0f, 0.2f) *
              band(p.x - 18.0f, 1.2f, 0.3f));
}

void addHead(Figure &rat) {
    const Rig &rig = rat.rig;
    const Influence head = on(rig.head);
    Part &skull = rat.add(Material::Fur, fur, roundProfile(12), {0, 0, 1});
    skull.detail = 1.5f;
    const auto section = [&](float x, float z, float width, float height) {
        skull.ring({x, 0, z}, {width, height}, head, {1, 0, -0.15f});
    };
    skull.tip({5.4f, 0, 45.6f}, head);
    section(6.0f, 45.6f, 2.6f, 2.8f);
    section(8.8f, 46.2f, 4.1f, 4.0f);
    section(11.8f, 46.0f, 3.8f, 3.7f);
    section(14.6f, 45.0f, 2.5f, 2.8f);
    section(17.8f, 44.1f, 1.7f, 1.9f);
    section(20.2f, 43.7f, 1.15f, 1.2f);
    skull.tip({21.1f, 0, 43.9f}, head);
    skull.decorate = decorateSnout;
    for (const float y : {-1.0f, 1.0f}) {
        Part &ear = rat.add(Material::Hide, bare, roundProfile(8), {0, 0, 1});
        ear.detail = 1.3f;
        const glm::vec3 at(8.0f, 3.8f * y, 50.6f);
        const glm::vec3 way = glm::normalize(glm::vec3(1.0f, 0.55f * y, 0.1f));
        ear.tip(at - way * 0.5f, head);
        ear.ring(at - way * 0.3f, {2.6f, 2.9f}, head, way)
            .ring(at + way * 0.3f, {2.9f, 3.2f}, head, way)
            .ring(at + way * 0.3f, {2.3f, 2.6f}, head, way)
            .tip(at - way * 0.25f, head);
        ear.decorate = [](const SurfacePoint &p, Coat &coat) {
            const float rim = glm::smoothstep(0.72f, 0.66f, p.along);
            paint(coat, fur * 0.85f, rim);
            coat.colour *= 1.0f - 0.35f * glm::smoothstep(0.8f, 1.0f, p.along);
        };
        Part &tooth =
            rat.add(Material::Horn, glm::vec3(0.90f, 0.84f, 0.62f), {{0, -1}, {1, 0}, {0, 1}, {-1, 0}});
        tooth.ring({18.9f, 0.42f * y, 43.0f}, {0.45f, 0.3f}, head)
            .ring({19.1f, 0.42f * y, 41.2f}, {0.4f, 0.22f}, head)
            .tip({19.1f, 0.42f * y, 41.1f}, head);
    }
}

void addTail(Figure &rat, const std::vector<Bone> &tail) {
    Part &rope = rat.add(Material::Hide, bare, roundProfile(6), {0, 1, 0});
    const Skeleton &skeleton = rat.rig.skeleton;
    float radius = 1.7f;
    for (std::size_t i = 0; i < tail.size(); ++i) {
        rope.ring(skeleton.joint(tail[i]), {radius, radius},
                  i == 0 ? on(rat.rig.pelvis) : between(tail[i - 1], tail[i], 0.5f));
        radius *= 0.85f;
    }
    rope.tip(skeleton.joint(tail.back()) + glm::vec3(-2.4f, 1.2f, 2.2f), on(tail.back()));
    rope.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float ring = at.along * 34.0f;
        groove(coat, 0.5f * band(ring - std::round(ring), 0.12f, 0.2f), 0.1f);
    };
}

void addLimbs(Figure &rat) {
    const Rig &rig = rat.rig;
    for (const Side side : {Right, Left}) {
        Part &arm = rat.add(Material::Fur, fur, roundProfile(8));
        limbRings(arm, rat, rig.arm[side], rig.chest, armShape(0.92f));
        Part &cuff = rat.add(Material::Leather, glm::vec3(0.4f), roundProfile(8));
        cuff.team = 1.0f;
        limbRings(
            cuff, rat, rig.arm[side], rig.chest,
            {{1.52f, {1.2f, 1.2f}}, {1.53f, {1.8f, 1.8f}}, {1.9f, {1.5f, 1.5f}}, {1.91f, {1.0f, 1.0f}}});
        addFist(rat, side, Material::Hide, bare * 0.95f, 0.92f);
        Part &leg = rat.add(Material::Fur, fur, roundProfile(7));
        const float y = side == Left ? 1.0f : -1.0f;
        limbRings(leg, rat, rig.leg[side], rig.pelvis,
                  {{-0.2f, {2.8f, 3.6f}},
                   {0.15f, {4.2f, 5.2f}, {0, 0.4f * y, 0}},
                   {0.6f, {3.7f, 4.2f}},
                   {0.95f, {2.6f, 2.8f}},
                   {1.2f, {2.2f, 2.4f}},
                   {1.6f, {1.6f, 1.7f}},
                   {1.98f, {1.4f, 1.5f}}});
        Part &wrap = rat.add(Material::Cloth, glm::vec3(0.4f), roundProfile(8));
        wrap.team = 1.0f;
        limbRings(
            wrap, rat, rig.leg[side], rig.pelvis,
            {{1.35f, {1.6f, 1.7f}}, {1.37f, {2.2f, 2.4f}}, {1.85f, {1.8f, 1.9f}}, {1.87f, {1.3f, 1.3f}}});
        wrap.decorate = [](const SurfacePoint &at, Coat &coat) {
            const float turn = at.along * 6.0f + at.around * 2.0f;
            groove(coat, 0.7f * band(turn - std::round(turn), 0.06f, 0.12f));
        };
        const Influence foot = on(rig.leg[side].end);
        const glm::vec3 ankle = rig.at(foot.first);
        Part &paw = rat.add(Material::Hide, bare, softProfile(8, 2.6f), {0, 0, 1});
        const glm::vec3 way(turned({0, 0, 14.0f * y}) * glm::vec4(1, 0, 0, 0));
        paw.tip(ankle + glm::vec3(-1.6f, 0, 0.4f), foot);
        paw.ring(ankle + glm::vec3(-1.2f, 0, 0.2f), {1.3f, 1.5f}, foot, way + glm::vec3(0, 0, -0.9f))
            .ring(ankle + way * 3.0f + glm::vec3(0, 0, -2.4f), {1.8f, 1.5f}, foot,
                  way + glm::vec3(0, 0, -0.4f));
        paw.ring(glm::vec3(ankle.x, ankle.y, 0.9f) + way * 6.8f, {2.7f, 0.9f}, foot, way)
            .ring(glm::vec3(ankle.x, ankle.y, 0.5f) + way * 9.6f, {2.5f, 0.5f}, foot, way)
            .tip(glm::vec3(ankle.x, ankle.y, 0.3f) + way * 10.6f, foot);
        paw.decorate = [ankle, way](const SurfacePoint &at, Coat &coat) {
            const glm::vec3 off = at.position - ankle;
            const float across = glm::dot(off, glm::vec3(-way.y, way.x, 0)) / 1.25f + 0.5f;
            const float ahead = glm::dot(off, way);
            groove(coat, glm::smoothstep(5.2f, 6.2f, ahead) * band(across - std::round(across), 0.08f, 0.12f),
                   0.25f);
            paint(coat, glm::vec3(0.25f, 0.20f, 0.16f), glm::smoothstep(9.2f, 9.5f, ahead));
            paint(coat, fur, glm::smoothstep(2.4f, 0.8f, ahead + 0.6f * layeredNoise(at.position, 2)));
        };
    }
}

} // namespace

Figure makeRat() {
    RigPlan plan;
    plan.pelvis = {-4, 0, 22};
    plan.waist = {-1.5f, 0, 29};
    plan.chest = {2.5f, 0, 35};
    plan.neck = {7.0f, 0, 42};
    plan.head = {8.2f, 0, 44};
    plan.shoulder = {4.2f, 5.6f, 38.4f};
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
    Figure rat(plan);
    std::vector<Bone> tail;
    Bone parent = rat.rig.pelvis;
    const std::array<glm::vec3, 8> joints{{{-7.5f, 0, 18},
                                           {-11.5f, 0.2f, 13.5f},
                                           {-15.0f, 0.8f, 9.5f},
                                           {-18.5f, 2.2f, 6.5f},
                                           {-21.5f, 4.6f, 5.0f},
                                           {-23.6f, 8.0f, 5.2f},
                                           {-24.2f, 11.8f, 7.2f},
                                           {-23.2f, 15.0f, 10.4f}}};
    tail.reserve(tail.size() + joints.size());
    for (const glm::vec3 &joint : joints)
        tail.push_back(parent = rat.rig.skeleton.add(joint, parent));
    rat.idle.breaths = 8;
    rat.idle.breath = 1.4f;
    rat.idle.look = 30.0f;
    rat.idle.sway = 0.5f;
    rat.extra = [tail](Pose &pose, float phase) {
        for (std::size_t i = 0; i < tail.size(); ++i) {
            const float late = -0.07f * static_cast<float>(i);
            pose.turn(tail[i], {0, 1.4f * wave(phase, 3, late), 5.0f * wave(phase, 2, late)});
        }
    };
    addTrunk(rat);
    addHead(rat);
    addTail(rat, tail);
    addLimbs(rat);
    return rat;
}
