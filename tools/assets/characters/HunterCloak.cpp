#include "tools/assets/characters/HunterCloak.h"

#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 wool(0.50f, 0.48f, 0.38f);
const glm::vec3 trim(0.86f, 0.81f, 0.68f);
const glm::vec3 shade(0.05f, 0.045f, 0.05f);

/// Pushes a point out of a tube around the line from `a` to `b`.
glm::vec3 outOf(const glm::vec3 &point, const glm::vec3 &a, const glm::vec3 &b, float radius) {
    const glm::vec3 span = b - a;
    const float t = glm::clamp(glm::dot(point - a, span) / glm::dot(span, span), 0.0f, 1.0f);
    const glm::vec3 off = point - a - span * t;
    const float distance = glm::length(off);
    return distance < radius && distance > 0.01f ? point + off * (radius / distance - 1.0f) : point;
}

void decorateMantle(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float inside = glm::smoothstep(0.36f, 0.35f, at.along);
    coat.tone *= 1.0f - 0.55f * inside;
    const float folds = std::sin(at.around * 62.8f + 1.5f * layeredNoise(p * 0.2f, 2));
    coat.height += 0.3f * folds * glm::smoothstep(46.5f, 41.0f, p.z);
    const float down = 1.0f - (at.along - 0.36f) / 0.64f; // 1 at the hem.
    groove(coat, (1.0f - inside) * band(down - 0.90f, 0.006f, 0.012f), 0.15f);
    const float zig = std::abs(at.around * 30.0f - std::round(at.around * 30.0f)) * 0.14f;
    paint(coat, trim, (1.0f - inside) * 0.9f * band(down - 0.82f + zig, 0.018f, 0.008f));
}

/// It begins inside, turns around the hem and rises to the neck; over the arms it lies on them.
void addMantle(Figure &tracker) {
    const Rig &rig = tracker.rig;
    const Influence chest = on(rig.chest);
    Part &mantle = tracker.add(Material::Cloth, wool, softProfile(10, 2.2f));
    mantle.team = 1.0f;
    const auto level = [&](float z, float x, const glm::vec2 &radius) {
        mantle.ring({x, 0, z}, radius, chest, {0, 0, 1});
    };
    level(43.5f, -0.2f, {5.6f, 3.8f});
    level(38.3f, -0.4f, {8.8f, 6.6f});
    level(38.0f, -0.4f, {9.4f, 7.2f});
    level(43.4f, -0.3f, {8.4f, 5.9f});
    level(46.6f, -0.2f, {5.4f, 4.4f});
    level(46.9f, -0.4f, {3.2f, 3.2f});
    struct Arm {
        glm::vec3 from, to;
        Bone bone;
    };
    std::array<Arm, 2> arms;
    for (const Side side : {Right, Left}) {
        const Limb &arm = rig.arm[side];
        arms[side] = {rig.at(arm.upper), glm::mix(rig.at(arm.upper), rig.at(arm.lower), 0.8f), arm.upper};
    }
    mantle.sculpt = [arms](std::size_t ring, unsigned, glm::vec3 &p, Influence &bones) {
        const Arm &arm = arms[p.y > 0 ? Left : Right];
        const float aside = glm::smoothstep(2.5f, 6.5f, std::abs(p.y));
        const bool hem = ring == 1 || ring == 2;
        if (ring == 5) // Behind and aside it reaches up into the hood, in front it stays below the chin.
            p.z += 0.3f * std::abs(p.y) - (p.x > 0 ? 0.2f : 0.5f) * p.x;
        if (hem || ring == 3) {
            p = outOf(p, arm.from, arm.to, ring == 1 ? 3.5f : 4.2f);
            bones = between(bones.first, arm.bone, aside * (hem ? 0.55f : 0.4f));
        }
    };
    mantle.decorate = decorateMantle;
}

/// The cape's outline from its right edge around the back to its left, in degrees from the back.
constexpr std::array<float, 7> capeAngles{82, 58, 30, 0, -30, -58, -82};

struct CapeLevel {
    float z;
    float x;
    glm::vec2 radius;
    float thickness = 0.5f;
};
constexpr std::array<CapeLevel, 5> capeLevels{{{7.0f, -4.4f, {10.6f, 8.2f}, 0},
                                               {7.9f, -4.3f, {10.5f, 8.1f}},
                                               {18.0f, -2.6f, {9.4f, 7.4f}},
                                               {30.5f, -1.1f, {8.2f, 6.2f}},
                                               {43.6f, -0.4f, {6.4f, 4.4f}}}};

glm::vec3 capePoint(std::size_t ring, unsigned corner) {
    const CapeLevel &level = capeLevels[ring];
    // From the seam at the back over the right edge, inside to the left edge and back.
    const bool inside = corner > 3 && corner < 11;
    const std::size_t place = inside ? corner - 4 : corner < 4 ? 3 - corner : 17 - corner;
    const float angle = glm::radians(capeAngles[place]);
    const float fold = place % 2 == 0 ? 0.35f : -0.35f;
    const float out = fold * static_cast<float>(std::min<std::size_t>(3, 4 - ring)) * 0.6f -
                      (inside ? level.thickness : 0.0f);
    const glm::vec2 radius = level.radius + out;
    return {level.x - radius.y * std::cos(angle), -radius.x * std::sin(angle), level.z};
}

void decorateCape(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const bool inside = at.around > 3.5f / 14.0f && at.around < 10.5f / 14.0f;
    coat.height += 0.4f * std::sin(p.y * 1.5f + 1.6f * layeredNoise(p * 0.15f, 2));
    const float hem = 9.5f + 1.2f * layeredNoise(glm::vec3(p.y * 0.6f, 0, 0), 3);
    coat.tone *= 1.0f - 0.5f * glm::smoothstep(hem + 1.5f, hem - 1.5f, p.z);
    if (inside) {
        coat.tone *= 0.5f;
        return;
    }
    const float emblem = glm::length(glm::vec2(p.y, p.z - 25.0f) * glm::vec2(1.0f, 0.75f));
    paint(coat, trim, 0.9f * band(emblem - 3.6f, 0.4f, 0.1f));
    paint(coat, trim, 0.9f * band(p.y, 0.4f, 0.1f) * band(p.z - 25.0f, 6.4f, 0.1f));
    groove(coat, 0.7f * band(std::abs(emblem - 3.6f) - 0.6f, 0.05f, 0.1f));
    const float edge = std::min(std::abs(at.around * 14.0f - 3.0f), std::abs(at.around * 14.0f - 11.0f));
    groove(coat, band(edge - 0.3f, 0.03f, 0.06f), 0.15f);
}

void addCape(Figure &tracker, const CapeBones &bones) {
    Part &cape = tracker.add(Material::Cloth, wool * 0.9f, Profile(14, glm::vec2(1, 0)));
    cape.team = 1.0f;
    cape.sharp = true;
    cape.lids = false; // The hem closes itself; the top lies under the mantle.
    const std::array<Influence, 5> follows{on(bones[2]), on(bones[2]), between(bones[1], bones[2], 0.5f),
                                           between(bones[0], bones[1], 0.5f), on(tracker.rig.chest)};
    for (std::size_t i = 0; i < capeLevels.size(); ++i)
        cape.ring({capeLevels[i].x, 0, capeLevels[i].z}, capeLevels[i].radius, follows[i], {0, 0, 1});
    cape.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &position, Influence &) {
        position = capePoint(ring, corner);
    };
    cape.decorate = decorateCape;
}

/// From the tail behind to the rim, and from there back in: a hollow for the face.
void addHood(Figure &tracker) {
    const Influence head = on(tracker.rig.head);
    Part &hood = tracker.add(Material::Cloth, wool, softProfile(10, 2.2f), {0, 0, 1});
    hood.team = 1.0f;
    hood.detail = 1.4f;
    const auto section = [&](float x, float z, const glm::vec2 &radius, const glm::vec3 &along) {
        hood.ring({x, 0, z}, radius, head, along);
    };
    hood.tip({-6.2f, 0, 52.8f}, head);
    section(-4.8f, 51.9f, {2.3f, 2.7f}, {1, 0, -0.3f});
    section(-2.6f, 51.3f, {4.2f, 4.9f}, {1, 0, -0.2f});
    section(1.0f, 51.6f, {4.5f, 6.0f}, {1, 0, 0.1f});
    section(4.2f, 51.0f, {3.2f, 4.9f}, {1, 0, 0.22f});
    section(4.0f, 50.9f, {2.6f, 4.1f}, {1, 0, 0.22f});
    section(1.0f, 50.8f, {2.5f, 3.9f}, {1, 0, 0});
    hood.tip({0.4f, 0, 50.8f}, head);
    // The crown comes to a point over the brow.
    hood.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &) {
        if (corner == 5 && ring > 2 && ring < 6)
            p += glm::vec3(0.5f, 0, 0.7f);
    };
    hood.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        coat.height += 0.3f * layeredNoise(glm::vec3(p.x * 0.3f, p.y * 0.6f, p.z * 0.3f), 2);
        const float hollow = glm::smoothstep(0.70f, 0.72f, at.along);
        const float rim = band(at.along - 0.655f, 0.035f, 0.01f);
        coat.tone *= 1.0f + 0.25f * rim;
        groove(coat, band(at.along - 0.60f, 0.006f, 0.01f), 0.15f);
        paint(coat, shade, hollow);
    };
}

void decorateFace(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    coat.colour *= 0.55f;
    const glm::vec2 eye((std::abs(p.y) - 1.0f) * 0.7f, p.z - 51.7f - 0.3f * (std::abs(p.y) - 1.0f));
    paint(coat, shade, 0.85f * glm::smoothstep(1.0f, 0.4f, glm::length(eye)));
    // Below the eyes a mask of cloth.
    const float mask = glm::smoothstep(50.95f, 50.75f, p.z + 0.10f * p.y * p.y);
    paint(coat, glm::vec3(0.30f, 0.28f, 0.27f), mask);
    for (const float z : {48.2f, 49.2f, 50.1f})
        groove(coat, mask * 0.6f * band(p.z - z - 0.12f * p.y * p.y, 0.06f, 0.1f));
    const float shine = glm::smoothstep(0.5f, 0.26f, glm::length(eye)) * (p.x > 1.0f ? 1.0f : 0.0f);
    paint(coat,
          glm::mix(glm::vec3(1.0f, 0.70f, 0.12f), glm::vec3(1.0f, 0.97f, 0.75f),
                   glm::smoothstep(0.3f, 0.0f, glm::length(eye))),
          shine);
    coat.glow = shine;
}

void addFace(Figure &tracker) {
    const Influence head = on(tracker.rig.head);
    Part &face = tracker.add(Material::Skin, {0.62f, 0.46f, 0.37f}, roundProfile(8));
    face.detail = 1.6f;
    face.lids = false; // Deep in the hood.
    columnRings(face, {{46.4f, 0.2f, {1.6f, 1.7f}, head},
                       {48.2f, 0.6f, {1.7f, 2.0f}, head},
                       {50.6f, 0.6f, {2.1f, 2.4f}, head},
                       {52.2f, 0.4f, {2.2f, 2.2f}, head},
                       {54.4f, 0.0f, {1.9f, 1.9f}, head}});
    face.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &) {
        if (corner == 4 && ring == 2) // The nose below the mask.
            p.x += 0.55f;
    };
    face.decorate = decorateFace;
}

} // namespace

CapeBones addCapeBones(Figure &tracker) {
    CapeBones cape{};
    cape[0] = tracker.rig.skeleton.add({-5, 0, 42}, tracker.rig.chest);
    cape[1] = tracker.rig.skeleton.add({-7.2f, 0, 30}, cape[0]);
    cape[2] = tracker.rig.skeleton.add({-8.6f, 0, 19}, cape[1]);
    return cape;
}

void addCloak(Figure &tracker, const CapeBones &cape) {
    addMantle(tracker);
    addCape(tracker, cape);
    addHood(tracker);
    addFace(tracker);
}
