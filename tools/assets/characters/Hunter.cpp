#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 leather(0.48f, 0.32f, 0.19f);
const glm::vec3 darkLeather(0.29f, 0.20f, 0.13f);
const glm::vec3 wool(0.50f, 0.48f, 0.38f);
const glm::vec3 bone(0.80f, 0.74f, 0.60f);

void addCloak(Figure &tracker, const std::array<Bone, 3> &cape) {
    const Rig &rig = tracker.rig;
    Part &mantle = tracker.add(Material::Cloth, wool, softProfile(12, 2.2f));
    mantle.team = 1.0f;
    columnRings(mantle, {{37.8f, -0.6f, {8.6f, 6.0f}, on(rig.chest)},
                         {38.4f, -0.6f, {9.3f, 6.8f}, on(rig.chest)},
                         {43.6f, -0.4f, {8.6f, 5.8f}, on(rig.chest)},
                         {46.4f, -0.2f, {5.6f, 4.4f}, on(rig.chest)},
                         {48.6f, 0.2f, {3.4f, 3.6f}, on(rig.chest)}});
    mantle.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        const float folds = std::sin(at.around * 69.0f + 1.5f * layeredNoise(p * 0.2f, 2));
        coat.height += 0.3f * folds * glm::smoothstep(46.5f, 40.0f, p.z);
        groove(coat, band(p.z - 39.6f, 0.08f, 0.15f));
        const float zig = std::abs(at.around * 30.0f - std::round(at.around * 30.0f)) * 1.6f;
        paint(coat, bone * 0.95f, 0.8f * band(p.z - 40.6f - zig, 0.22f, 0.1f));
    };
    Part &cloak = tracker.add(Material::Cloth, wool * 0.9f, softProfile(10, 4.0f));
    cloak.team = 1.0f;
    cloak.sharp = true;
    cloak.ring({-4.2f, 0, 43.0f}, {6.4f, 0.5f}, on(rig.chest))
        .ring({-6.8f, 0, 35.0f}, {7.4f, 0.5f}, between(rig.chest, cape[0], 0.6f));
    cloak.ring({-7.8f, 0, 26.0f}, {8.4f, 0.5f}, between(cape[0], cape[1], 0.5f))
        .ring({-9.2f, 0, 16.0f}, {9.2f, 0.5f}, between(cape[1], cape[2], 0.5f));
    cloak.ring({-10.6f, 0, 7.5f}, {9.8f, 0.4f}, on(cape[2])).tip({-10.7f, 0, 7.2f}, on(cape[2]));
    cloak.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        const float folds = std::sin(p.y * 1.5f + 1.6f * layeredNoise(p * 0.15f, 2));
        coat.height += 0.4f * folds;
        coat.tone *= 1.0f + 0.08f * folds;
        const float hem = 9.5f + 1.2f * layeredNoise(glm::vec3(p.y * 0.6f, 0, 0), 3);
        coat.tone *= 1.0f - 0.55f * glm::smoothstep(hem + 1.5f, hem - 1.5f, p.z);
        const float emblem = glm::length(glm::vec2(p.y, p.z - 26.0f) * glm::vec2(1.0f, 0.75f));
        paint(coat, bone * 0.95f, 0.85f * band(emblem - 3.6f, 0.35f, 0.1f));
        paint(coat, bone * 0.95f, 0.85f * band(p.y, 0.35f, 0.1f) * band(p.z - 26.0f, 6.2f, 0.1f));
    };
}

void decorateHood(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float folds = layeredNoise(glm::vec3(p.x * 0.3f, p.y * 0.6f, p.z * 0.3f), 2);
    coat.height += 0.3f * folds;
    const glm::vec2 face(p.y / 2.55f, (p.z - 50.8f) / 3.5f);
    const float opening = (p.x > 2.2f ? 1.0f : 0.0f) * glm::smoothstep(1.06f, 0.98f, glm::length(face));
    const float rim = (p.x > 2.0f ? 1.0f : 0.0f) * band(glm::length(face) - 1.15f, 0.09f, 0.08f);
    coat.tone *= 1.0f + 0.35f * rim;
    paint(coat, glm::vec3(0.035f, 0.03f, 0.03f), opening);
    coat.height -= 0.9f * opening;
    coat.glow = std::max(coat.glow, 0.6f * opening);
    // Below the hood a mask, above it two eyes.
    const float mask = opening * glm::smoothstep(50.5f, 50.2f, p.z + 0.10f * p.y * p.y);
    paint(coat, darkLeather * 1.25f, mask);
    coat.glow *= 1.0f - mask;
    groove(coat, mask * band(p.z - 48.8f, 0.06f, 0.12f) * band(p.y, 1.4f, 0.1f));
    const glm::vec2 eye((std::abs(p.y) - 1.05f) * 0.75f, p.z - 51.5f - 0.35f * (std::abs(p.y) - 1.05f));
    const float shine = opening * (1.0f - glm::smoothstep(0.26f, 0.5f, glm::length(eye)));
    paint(coat,
          glm::mix(glm::vec3(1.0f, 0.72f, 0.15f), glm::vec3(1.0f, 0.97f, 0.75f),
                   glm::smoothstep(0.3f, 0.0f, glm::length(eye))),
          shine);
    coat.glow = std::max(coat.glow, shine);
}

void addHood(Figure &tracker) {
    const Rig &rig = tracker.rig;
    const Influence head = on(rig.head);
    Part &hood = tracker.add(Material::Cloth, wool, softProfile(12, 2.2f));
    hood.team = 1.0f;
    hood.detail = 1.5f;
    columnRings(hood, {{46.2f, 0.4f, {3.6f, 3.8f}, between(rig.chest, rig.head, 0.5f)},
                       {48.6f, 0.4f, {3.6f, 4.2f}, head},
                       {51.4f, 0.2f, {3.9f, 4.6f}, head},
                       {54.0f, -0.4f, {3.5f, 4.6f}, head},
                       {56.2f, -1.8f, {2.2f, 3.6f}, head},
                       {57.4f, -3.6f, {1.0f, 1.7f}, head},
                       {57.4f, -5.6f, {0, 0}, head}});
    hood.rings[4].along = {-0.5f, 0, 1};
    hood.rings[5].along = {-1, 0, 0.6f};
    hood.decorate = decorateHood;
}

void addTunic(Figure &tracker) {
    const Rig &rig = tracker.rig;
    Part &tunic = tracker.add(Material::Leather, leather, softProfile(12, 2.9f));
    columnRings(tunic, {{19.4f, 0.7f, {8.1f, 7.3f}, on(rig.pelvis)},
                        {19.8f, 0.7f, {8.5f, 7.7f}, on(rig.pelvis)},
                        {24.0f, 0.5f, {7.2f, 6.4f}, on(rig.pelvis)},
                        {30.0f, 0, {5.6f, 4.4f}, on(rig.pelvis)},
                        {33.5f, 0, {5.1f, 4.0f}, on(rig.waist)},
                        {38.0f, 0.1f, {6.2f, 4.4f}, on(rig.chest)},
                        {43.5f, 0, {6.8f, 4.4f}, on(rig.chest)},
                        {46.0f, 0, {4.4f, 3.2f}, on(rig.chest)}});
    tunic.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        const float skirt = glm::smoothstep(29.0f, 27.0f, p.z);
        const float strips = at.around * 12.0f + 0.5f;
        groove(coat, skirt * band(strips - std::round(strips), 0.03f, 0.06f), 0.3f);
        const float stud = glm::length(
            glm::vec2((at.around * 24.0f - std::floor(at.around * 24.0f) - 0.5f) * 1.6f, p.z - 21.2f));
        paint(coat, glm::vec3(0.62f, 0.55f, 0.38f), skirt * glm::smoothstep(0.45f, 0.35f, stud));
        const float belt = band(p.z - 31.2f, 1.0f, 0.08f);
        paint(coat, darkLeather, belt);
        coat.height += 0.12f * belt;
        const float buckle = belt * (p.x > 0 ? 1.0f : 0.0f) * band(p.y, 1.3f, 0.08f);
        paint(coat, glm::vec3(0.70f, 0.62f, 0.42f), buckle);
        coat.metal = 0.7f * buckle;
        // A strap from shoulder to hip, laced in front.
        paint(coat, darkLeather * 0.8f,
              band(p.y - (p.z - 38.0f) * 0.75f, 0.9f, 0.1f) * glm::smoothstep(32.0f, 32.3f, p.z));
        const float lace = p.z / 1.5f;
        paint(coat, bone * 0.8f,
              (p.x > 0 ? 1.0f : 0.0f) *
                  band(std::abs(p.y) - 0.9f * std::abs(lace - std::round(lace)) * 2.0f, 0.14f, 0.1f) *
                  band(p.z - 27.0f, 2.6f, 0.1f));
        coat.tone = std::max(coat.tone, 0.1f);
    };
    Part &sash = tracker.add(Material::Cloth, wool, boxProfile(0.3f));
    sash.team = 1.0f;
    sash.ring({4.9f, 0, 30.4f}, {1.9f, 0.5f}, on(rig.pelvis))
        .ring({8.2f, 0, 22.0f}, {2.2f, 0.4f}, on(rig.pelvis))
        .ring({9.3f, 0, 15.2f}, {2.3f, 0.3f}, on(rig.pelvis))
        .tip({9.3f, 0, 15.0f}, on(rig.pelvis));
    sash.decorate = [](const SurfacePoint &at, Coat &coat) {
        paint(coat, bone * 0.95f,
              0.85f * band(glm::length(glm::vec2(at.position.y, at.position.z - 18.4f)) - 1.0f, 0.22f, 0.1f));
        groove(coat, band(at.position.z - 16.0f, 0.06f, 0.12f));
    };
}

void addQuiver(Figure &tracker) {
    const Rig &rig = tracker.rig;
    const Influence chest = on(rig.chest);
    Part &quiver = tracker.add(Material::Leather, darkLeather * 1.2f, roundProfile(8));
    barRings(quiver, {-7.8f, 5.5f, 31.0f}, {-7.6f, -6.5f, 50.0f}, {2.0f, 2.0f}, 0, chest);
    quiver.decorate = [](const SurfacePoint &at, Coat &coat) {
        paint(coat, leather * 1.3f,
              band(at.along - 0.3f, 0.03f, 0.01f) + band(at.along - 0.78f, 0.03f, 0.01f));
        if (at.along > 0.94f)
            paint(coat, glm::vec3(0.06f), 1.0f);
    };
    const std::array<glm::vec2, 3> shafts{{{0.8f, 0.2f}, {-0.6f, 0.7f}, {-0.2f, -0.8f}}};
    for (const glm::vec2 &shaft : shafts) {
        const glm::vec3 foot(-7.6f + shaft.x, -6.3f + shaft.y, 49.6f);
        Part &bolt = tracker.add(Material::Cloth, bone, boxProfile(0.9f));
        bolt.profile = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
        bolt.team = 0.0f;
        bolt.ring(foot, {0.22f, 0.22f}, chest).ring(foot + glm::vec3(0, -1.6f, 2.6f), {0.22f, 0.22f}, chest);
        bolt.ring(foot + glm::vec3(0, -1.9f, 3.0f), {0.75f, 0.75f}, chest)
            .ring(foot + glm::vec3(0, -3.4f, 5.4f), {0.6f, 0.6f}, chest)
            .tip(foot + glm::vec3(0, -3.4f, 5.5f), chest);
        bolt.decorate = [](const SurfacePoint &at, Coat &coat) {
            paintTeam(coat, at.along > 0.45f ? 1.0f : 0.0f);
        };
    }
}

void addLimbs(Figure &tracker) {
    const Rig &rig = tracker.rig;
    for (const Side side : {Right, Left}) {
        Part &sleeve = tracker.add(Material::Cloth, wool, roundProfile(8));
        limbRings(sleeve, tracker, rig.arm[side], rig.chest, armShape(0.98f));
        sleeve.rings.pop_back();
        Part &bracer = tracker.add(Material::Leather, leather * 0.9f, roundProfile(8));
        limbRings(bracer, tracker, rig.arm[side], rig.chest,
                  {{1.2f, {1.5f, 1.5f}}, {1.22f, {2.1f, 2.1f}}, {1.9f, {1.5f, 1.5f}}, {1.93f, {1.1f, 1.1f}}});
        bracer.decorate = [](const SurfacePoint &at, Coat &coat) {
            const float strap = at.along * 4.0f;
            paint(coat, darkLeather * 0.8f, band(strap - std::round(strap), 0.1f, 0.04f));
        };
        addFist(tracker, side, Material::Leather, darkLeather, 0.95f);
        Part &trousers = tracker.add(Material::Cloth, wool * 0.75f, roundProfile(8));
        limbRings(trousers, tracker, rig.leg[side], rig.pelvis, legShape(0.9f));
        // The rest is below the tunic and in the boot.
        trousers.rings.erase(trousers.rings.begin(), trousers.rings.begin() + 2);
        trousers.rings.pop_back();
        Part &boot = tracker.add(Material::Leather, leather * 0.8f, roundProfile(8));
        limbRings(boot, tracker, rig.leg[side], rig.pelvis,
                  {{1.2f, {2.0f, 2.2f}},
                   {1.22f, {2.9f, 3.1f}},
                   {1.34f, {2.8f, 3.0f}, {-0.2f, 0, 0}},
                   {2.04f, {1.9f, 2.2f}}});
        boot.decorate = [](const SurfacePoint &at, Coat &coat) {
            const float strap = at.along * 5.0f + 0.35f;
            paint(coat, darkLeather * 0.7f,
                  at.along > 0.3f ? band(strap - std::round(strap), 0.09f, 0.04f) : 0.0f);
            paint(coat, bone * 0.85f, at.along < 0.22f ? 1.0f : 0.0f);
            coat.height += at.along < 0.22f ? 0.15f * layeredNoise(at.position * 2.0f, 2) : 0.0f;
        };
        addFoot(tracker, side, Material::Leather, leather * 0.75f, {9.2f, 2.0f, 3.2f, 2.6f, 14});
    }
}

} // namespace

Figure makeHunter() {
    RigPlan plan;
    plan.shoulder = {-0.2f, 6.8f, 43.6f};
    plan.grip = {9.8f, -5.4f, 33.0f};
    plan.aim = {-6, -34, 52};
    plan.head = {0.8f, 0, 48.5f};
    plan.ankle = {glm::vec3(-3.6f, -4.4f, 3), glm::vec3(2.6f, 4.2f, 3)};
    Figure tracker(plan);
    std::array<Bone, 3> cape{};
    cape[0] = tracker.rig.skeleton.add({-5, 0, 42}, tracker.rig.chest);
    cape[1] = tracker.rig.skeleton.add({-7.2f, 0, 30}, cape[0]);
    cape[2] = tracker.rig.skeleton.add({-8.6f, 0, 19}, cape[1]);
    tracker.idle.look = 42.0f;
    tracker.idle.lookDown = 10.0f;
    tracker.extra = [cape](Pose &pose, float phase) {
        for (unsigned i = 0; i < 3; ++i) {
            const float late = -0.09f * static_cast<float>(i);
            pose.turn(cape[i], {1.6f * wave(phase, 2, late), 1.5f + 2.2f * wave(phase, 3, late),
                                1.5f * wave(phase, 2, 0.3f + late)});
        }
    };
    addCloak(tracker, cape);
    addHood(tracker);
    addTunic(tracker);
    addQuiver(tracker);
    addLimbs(tracker);
    return tracker;
}
