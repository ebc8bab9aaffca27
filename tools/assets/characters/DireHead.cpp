#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Dire.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace dire {

namespace {

const glm::vec3 gums(0.30f, 0.07f, 0.07f);

void decorateSkull(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const glm::vec2 eye(std::abs(p.y) - 2.35f, p.z - 49.3f - 0.3f * (std::abs(p.y) - 2.35f));
    const float ahead = glm::smoothstep(7.4f, 8.0f, p.x) * glm::smoothstep(10.3f, 9.7f, p.x);
    const float socket = ahead * glm::smoothstep(1.5f, 0.9f, glm::length(eye * glm::vec2(0.8f, 1.0f)));
    coat.colour *= 1.0f - 0.75f * socket;
    coat.height -= 0.4f * socket;
    const float ball = ahead * glm::smoothstep(0.80f, 0.66f, glm::length(eye * glm::vec2(0.75f, 1.15f)));
    paint(coat, glm::vec3(1.0f, 0.78f, 0.12f), ball);
    paint(coat, glm::vec3(0.08f, 0.02f, 0.0f), ball * band(eye.x, 0.12f, 0.08f));
    coat.glow = std::max(coat.glow, 0.9f * ball);
    const glm::vec2 nostril(std::abs(p.y) - 1.15f, p.z - 47.2f);
    groove(coat, glm::smoothstep(12.2f, 12.7f, p.x) * glm::smoothstep(0.75f, 0.45f, glm::length(nostril)),
           0.4f);
    // Wrinkles over the muzzle, a dark lip below it.
    crease(coat,
           0.7f * band(p.x - 10.2f - 0.3f * std::abs(p.y), 0.12f, 0.3f) * glm::smoothstep(46.6f, 47.2f, p.z),
           0.3f);
    crease(coat,
           0.7f * band(p.x - 11.3f - 0.3f * std::abs(p.y), 0.12f, 0.3f) * glm::smoothstep(46.6f, 47.2f, p.z),
           0.3f);
    const float mouth = glm::smoothstep(6.5f, 7.5f, p.x) * glm::smoothstep(-0.35f, -0.6f, at.normal.z);
    paint(coat, gums, mouth);
    paint(coat, underside * 1.05f, 0.5f * glm::smoothstep(9.6f, 11.0f, p.x) * (1.0f - mouth));
    paintTeam(coat, 0.92f * band(p.y, 1.15f + 0.2f * layeredNoise(p, 2), 0.15f) * (1.0f - mouth) *
                        glm::smoothstep(48.6f, 49.0f, p.z) * (1.0f - socket));
    const float behind = glm::smoothstep(3.4f, 2.0f, p.x + 0.5f * layeredNoise(p, 2));
    paint(coat, mane * (1.0f + 0.5f * layeredNoise(p * glm::vec3(1, 3, 1), 3)),
          behind * glm::smoothstep(44.5f, 46.5f, p.z));
}

void addSkull(Figure &beast) {
    const Influence head = on(beast.rig.head);
    Part &skull = beast.add(Material::Hide, hide, softProfile(12, 2.5f), {0, 0, 1});
    skull.detail = 1.5f;
    skull.lids = false; // It begins within the chest.
    const auto section = [&](float x, float z, float width, float height, const Influence &bones) {
        skull.ring({x, 0, z}, {width, height}, bones, {1, 0, -0.1f});
    };
    section(-2.5f, 43.8f, 5.4f, 4.8f, on(beast.rig.chest));
    section(1.6f, 47.0f, 5.0f, 5.0f, between(beast.rig.chest, beast.rig.head, 0.5f));
    section(5.0f, 49.0f, 4.7f, 4.6f, head);
    section(8.0f, 49.0f, 4.4f, 4.0f, head);
    section(9.2f, 48.0f, 3.7f, 2.9f, head);
    section(11.6f, 47.2f, 2.8f, 2.0f, head);
    section(13.0f, 47.0f, 2.5f, 1.8f, head);
    skull.tip({13.6f, 0, 46.9f}, head);
    // From the bottom: corner 6 is the top, 3 the left.
    skull.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &) {
        const bool brow = corner >= 4 && corner <= 8;
        const bool cheek = corner == 3 || corner == 9;
        if (ring == 3 && brow) // Brows hang over the eyes,
            p += glm::vec3(0.9f, 0, corner == 6 ? -0.3f : 0.3f);
        if (ring == 4 && brow && corner != 6) // which lie deep.
            p += glm::vec3(-0.5f, p.y > 0 ? -0.3f : 0.3f, -0.4f);
        if ((ring == 3 || ring == 4) && cheek)
            p += glm::vec3(0.2f, p.y > 0 ? 0.7f : -0.7f, -0.8f);
        if (ring == 6 && brow && corner != 6) // Nostrils flare.
            p += glm::vec3(0.3f, p.y > 0 ? 0.3f : -0.3f, 0.35f);
    };
    skull.decorate = decorateSkull;
}

void addJaw(Figure &beast, Bone bone) {
    const Influence hung = on(bone);
    Part &jaw = beast.add(Material::Hide, hide, softProfile(6, 2.6f), {0, 0, 1});
    jaw.ring({4.6f, 0, 45.0f}, {3.6f, 2.0f}, between(beast.rig.head, bone, 0.5f), {1, 0, 0});
    jaw.ring({9.2f, 0, 44.2f}, {3.1f, 1.2f}, hung, {1, 0, 0});
    jaw.ring({12.0f, 0, 44.2f}, {2.5f, 1.0f}, hung, {1, 0, 0});
    jaw.tip({13.2f, 0, 44.3f}, hung);
    jaw.decorate = [](const SurfacePoint &at, Coat &coat) {
        paint(coat, underside, 0.5f);
        paint(coat, gums,
              glm::smoothstep(0.35f, 0.6f, at.normal.z) * glm::smoothstep(7.0f, 8.0f, at.position.x));
    };
}

void addTooth(Figure &beast, const glm::vec3 &root, const glm::vec3 &point, float radius, Bone bone) {
    Part &tooth = beast.add(Material::Horn, horn * 1.1f, roundProfile(4));
    tooth.lids = false; // It stands in the gums.
    tooth.ring(root, glm::vec2(radius), on(bone)).tip(point, on(bone));
}

void addHorn(Figure &beast, float y) {
    const Influence head = on(beast.rig.head);
    Part &part = beast.add(Material::Horn, horn, roundProfile(6), {0.2f, 0, 1});
    part.lids = false;
    const std::array<glm::vec3, 5> path{{{5.0f, 2.6f, 51.4f},
                                         {4.6f, 7.4f, 53.0f},
                                         {5.4f, 11.6f, 53.4f},
                                         {7.8f, 12.8f, 56.6f},
                                         {9.6f, 11.2f, 60.4f}}};
    const std::array<float, 4> radius{2.0f, 1.8f, 1.4f, 0.9f};
    for (std::size_t i = 0; i < radius.size(); ++i)
        part.ring({path[i].x, path[i].y * y, path[i].z}, glm::vec2(radius[i]), head);
    part.tip({path.back().x, path.back().y * y, path.back().z}, head);
}

/// Lighter strands along the hair, dry toward its ends.
void streak(const SurfacePoint &at, Coat &coat) {
    const float strands = layeredNoise(glm::vec3(at.around * 26.0f, at.along * 2.2f, 0.0f), 3);
    coat.colour *=
        1.0f + 0.9f * glm::smoothstep(0.0f, 0.6f, strands) - 0.4f * glm::smoothstep(0.0f, -0.5f, strands);
    coat.colour *= 0.8f + 0.6f * at.along;
    coat.height += 0.25f * strands;
}

} // namespace

void addHead(Figure &beast, Bone jaw) {
    addSkull(beast);
    addJaw(beast, jaw);
    for (const float y : {-1.0f, 1.0f}) {
        addHorn(beast, y);
        addTooth(beast, {11.3f, 2.1f * y, 44.2f}, {12.6f, 2.9f * y, 48.4f}, 0.65f, jaw);
        addTooth(beast, {12.4f, 0.8f * y, 44.4f}, {12.9f, 0.8f * y, 46.0f}, 0.4f, jaw);
        addTooth(beast, {12.3f, 1.5f * y, 46.0f}, {12.5f, 1.6f * y, 43.9f}, 0.45f, beast.rig.head);
        addTooth(beast, {10.2f, 2.5f * y, 46.0f}, {10.3f, 2.7f * y, 44.2f}, 0.45f, beast.rig.head);
    }
}

void addMane(Figure &beast) {
    const Rig &rig = beast.rig;
    const Influence nape = between(rig.chest, rig.head, 0.5f);
    Part &crest = beast.add(Material::Fur, mane, softProfile(6, 2.0f), {-0.6f, 0, 1});
    crest.tip({8.4f, 0, 52.4f}, on(rig.head));
    crest.ring({6.4f, 0, 52.9f}, {1.4f, 1.1f}, on(rig.head), {-1, 0, 0.2f})
        .ring({2.6f, 0, 52.8f}, {2.6f, 1.9f}, on(rig.head), {-1, 0, -0.3f})
        .ring({-2.0f, 0, 50.8f}, {4.0f, 2.6f}, nape, {-0.8f, 0, -0.7f})
        .ring({-6.0f, 0, 46.4f}, {4.8f, 2.6f}, on(rig.chest), {-0.5f, 0, -1});
    crest.ring({-7.2f, 0, 39.4f}, {4.0f, 2.1f}, on(rig.chest), {-0.1f, 0, -1})
        .tip({-6.0f, 0, 31.0f}, on(rig.waist));
    // Tufts: the ridge stands up and trails behind each ring.
    crest.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &) {
        if (corner == 3 && ring > 0 && ring < 6)
            p += ring % 2 == 0 ? glm::vec3(-2.2f, 0, 0.5f) : glm::vec3(0.3f, 0, -0.5f);
        if ((corner == 2 || corner == 4) && ring > 2)
            p += glm::vec3(-0.3f, ring % 2 == 0 ? 0.25f * p.y : 0.0f, ring % 2 == 0 ? -1.0f : 0.0f);
    };
    crest.decorate = streak;
    struct Lock {
        glm::vec3 root, end;
        float radius;
    };
    const std::array<Lock, 3> locks{{{{1.6f, 3.0f, 49.2f}, {-2.8f, 7.8f, 48.0f}, 2.2f},
                                     {{2.2f, 3.2f, 47.0f}, {0.6f, 8.2f, 44.2f}, 2.2f},
                                     {{-2.0f, 3.4f, 47.6f}, {-7.4f, 7.2f, 43.0f}, 2.4f}}};
    for (const Lock &lock : locks) {
        for (const float y : {-1.0f, 1.0f}) {
            const glm::vec3 way(1, y, 1);
            Part &hair = beast.add(Material::Fur, mane, roundProfile(4), {0, 0, 1});
            hair.lids = false; // It grows out of the neck.
            hair.ring(lock.root * way, {lock.radius * 1.2f, lock.radius}, nape)
                .tip(lock.end * way, between(rig.chest, rig.head, 0.25f));
            hair.decorate = streak;
        }
    }
}

} // namespace dire
