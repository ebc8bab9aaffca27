#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <algorithm>
#include <cmath>

namespace {

const glm::vec3 gunmetal(0.27f, 0.28f, 0.31f);
const glm::vec3 steel(0.50f, 0.51f, 0.54f);
const glm::vec3 polymer(0.15f, 0.15f, 0.16f);
const glm::vec3 brass(0.66f, 0.50f, 0.24f);

class WeaponSmith {
public:
    Part &add(Material material, const glm::vec3 &colour, const Profile &profile) {
        Part &part = parts.emplace_back();
        part.material = material;
        part.colour = colour;
        part.profile = profile;
        part.front = {0, 0, 1};
        part.sharp = true;
        return part;
    }

    /// An upright box along x, its middle at z.
    Part &box(const glm::vec3 &colour, float from, float to, float z, const glm::vec2 &radius,
              float bevel = 0.25f, float y = 0) {
        Part &part = add(Material::Metal, colour, boxProfile(0.35f));
        barRings(part, {from, y, z}, {to, y, z}, radius, bevel, on(0));
        return part;
    }

    /// A turned piece around the line at height z: {x, radius} from back to front.
    Part &lathe(const glm::vec3 &colour, float z, unsigned corners, const std::vector<glm::vec2> &outline,
                bool closedBack = true) {
        Part &part = add(Material::Metal, colour, roundProfile(corners));
        if (closedBack)
            part.tip({outline.front().x - 0.02f, 0, z}, on(0));
        for (const glm::vec2 &point : outline)
            part.ring({point.x, 0, z}, glm::vec2(point.y), on(0), {1, 0, 0});
        part.tip({outline.back().x, 0, z}, on(0));
        part.rings.front().along = part.rings.back().along = {1, 0, 0};
        return part;
    }

    /// A grip or magazine that hangs down from the frame.
    Part &drop(const glm::vec3 &colour, const glm::vec3 &top, const glm::vec3 &bottom,
               const glm::vec2 &radius) {
        Part &part = add(Material::Leather, colour, boxProfile(0.4f));
        part.front = {1, 0, 0};
        barRings(part, bottom, top, radius, 0.3f, on(0));
        return part;
    }

    Part &pistolGrip() {
        Part &grip = drop(polymer, {0.35f, 0, 2.4f}, {-0.55f, 0, -2.9f}, {0.72f, 1.05f});
        grip.decorate = [](const SurfacePoint &at, Coat &coat) {
            const float line = at.position.z * 1.6f;
            groove(coat, band(line - std::round(line), 0.10f, 0.15f), 0.1f);
        };
        return grip;
    }

    Part &triggerGuard() {
        Part &guard = add(Material::Metal, polymer, roundProfile(4));
        guard.front = {0, 1, 0};
        for (const glm::vec2 &point :
             {glm::vec2(0.7f, 1.6f), glm::vec2(1.1f, 0.5f), glm::vec2(2.5f, 0.5f), glm::vec2(3.0f, 1.7f)})
            guard.ring({point.x, 0, point.y}, {0.22f, 0.4f}, on(0));
        Part &trigger = add(Material::Metal, steel, boxProfile(0.4f));
        trigger.front = {1, 0, 0};
        barRings(trigger, {1.75f, 0, 0.75f}, {1.55f, 0, 1.9f}, {0.16f, 0.22f}, 0.1f, on(0));
        return parts[parts.size() - 2];
    }

    std::vector<Part> parts;
};

/// Lines across the barrel at every `pitch` between two places.
Decoration ribs(float from, float to, float pitch) {
    return [=](const SurfacePoint &at, Coat &coat) {
        const float x = at.position.x;
        const float line = x / pitch;
        groove(coat, (x > from && x < to ? 1.0f : 0.0f) * band(line - std::round(line), 0.16f, 0.1f), 0.15f);
    };
}

Decoration glowing(const glm::vec3 &colour, float from, float to) {
    return [=](const SurfacePoint &at, Coat &coat) {
        const float inside = band(at.position.x - 0.5f * (from + to), 0.5f * (to - from), 0.08f);
        paint(coat, colour, inside);
        coat.glow = inside;
        coat.metal *= 1.0f - inside;
    };
}

} // namespace

std::vector<Part> makeSmallGun() {
    WeaponSmith smith;
    smith.pistolGrip();
    smith.triggerGuard();
    smith.box(gunmetal, -2.4f, 9.6f, 3.6f, {1.0f, 1.05f}).decorate = [](const SurfacePoint &at, Coat &coat) {
        const float line = at.position.x * 1.7f;
        const bool serrated = at.position.x < 0.4f && at.position.z > 3.0f;
        groove(coat, serrated ? band(line - std::round(line), 0.14f, 0.12f) : 0.0f, 0.16f);
        const glm::vec2 port(at.position.x - 4.2f, at.position.z - 4.1f);
        groove(coat, band(port.x, 1.1f, 0.1f) * band(port.y, 0.35f, 0.1f), 0.2f);
    };
    smith.box(steel, 0.6f, 10.0f, 2.4f, {0.8f, 0.6f});
    smith
        .lathe(steel, 3.7f, 8,
               {{9.3f, 0.75f}, {12.2f, 0.75f}, {12.4f, 1.0f}, {14.6f, 1.0f}, {14.6f, 0.5f}, {13.2f, 0.36f}})
        .decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, at.along > 0.82f ? 0.9f : 0.0f);
        const float line = at.position.x / 0.7f;
        groove(coat, band(at.position.x - 13.4f, 0.9f, 0.1f) * band(line - std::round(line), 0.15f, 0.1f));
    };
    // A hand's breadth to hold below the barrel.
    smith.box(polymer, 6.8f, 11.4f, 1.85f, {1.1f, 0.75f}).decorate = ribs(7, 11.2f, 0.6f);
    smith.box(polymer, -1.9f, -1.1f, 4.8f, {0.5f, 0.4f}, 0.1f);
    smith.box(polymer, 8.4f, 9.0f, 4.8f, {0.2f, 0.4f}, 0.1f).decorate =
        glowing({0.3f, 0.95f, 0.4f}, 8.3f, 8.6f);
    smith.drop(steel, {-0.4f, 0, -2.4f}, {-0.65f, 0, -4.0f}, {0.62f, 0.85f});
    return std::move(smith.parts);
}

std::vector<Part> makeStandard() {
    WeaponSmith smith;
    smith.pistolGrip();
    smith.triggerGuard();
    smith.box(gunmetal, -3.6f, 7.6f, 3.2f, {1.05f, 1.45f}).decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        groove(coat, band(p.z - 2.7f, 0.05f, 0.08f));
        groove(coat, band(p.x - 3.4f, 1.4f, 0.1f) * band(p.z - 3.7f, 0.4f, 0.1f), 0.2f);
        groove(coat, band(p.x + 1.4f, 0.05f, 0.08f));
    };
    smith.box(polymer, 7.2f, 15.4f, 2.55f, {1.1f, 1.45f}, 0.4f).decorate = [](const SurfacePoint &at,
                                                                              Coat &coat) {
        const float slot = at.position.x / 1.5f;
        groove(coat, band(slot - std::round(slot), 0.28f, 0.06f) * band(at.position.z - 3.3f, 0.3f, 0.08f),
               0.25f);
    };
    smith
        .lathe(gunmetal, 3.1f, 8,
               {{15.0f, 0.6f}, {20.5f, 0.55f}, {20.5f, 0.95f}, {23.6f, 0.95f}, {23.6f, 0.5f}, {22.6f, 0.4f}})
        .decorate = ribs(20.9f, 23.3f, 0.8f);
    Part &stock = smith.add(Material::Leather, polymer, boxProfile(0.35f));
    barRings(stock, {-9.6f, 0, 1.7f}, {-3.2f, 0, 3.0f}, {0.9f, 1.5f}, 0.5f, on(0));
    stock.rings[2].radius.y = 2.0f;
    Part &magazine = smith.drop(gunmetal, {4.6f, 0, 2.2f}, {6.0f, 0, -3.4f}, {0.75f, 1.25f});
    magazine.material = Material::Metal;
    magazine.decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, band(at.position.z + 0.4f, 0.08f, 0.1f));
    };
    smith.box(polymer, -2.0f, 14.6f, 4.75f, {0.5f, 0.35f}, 0.15f).decorate = ribs(-2, 15, 0.8f);
    smith
        .lathe(gunmetal, 6.0f, 8,
               {{-1.6f, 0.75f},
                {-1.6f, 0.95f},
                {0.2f, 0.95f},
                {0.8f, 0.7f},
                {3.6f, 0.7f},
                {4.4f, 0.95f},
                {6.2f, 0.95f},
                {6.2f, 0.7f}})
        .decorate = [](const SurfacePoint &at, Coat &coat) {
        const float lens =
            glm::smoothstep(0.75f, 0.65f, glm::length(glm::vec2(at.position.y, at.position.z - 6.0f))) *
            (at.position.x > 6.1f ? 1.0f : 0.0f);
        paint(coat, {0.16f, 0.30f, 0.42f}, lens);
        coat.glow = 0.5f * lens;
    };
    return std::move(smith.parts);
}

std::vector<Part> makeAnnientatore() {
    WeaponSmith smith;
    const glm::vec3 shell(0.36f, 0.35f, 0.30f);
    smith.pistolGrip();
    smith.triggerGuard();
    Part &tube = smith.lathe(shell, 4.2f, 12,
                             {{-8.2f, 1.0f},
                              {-8.6f, 1.5f},
                              {-10.0f, 1.9f},
                              {-10.0f, 2.6f},
                              {-8.4f, 2.9f},
                              {-6.6f, 2.2f},
                              {-5.6f, 2.2f},
                              {-5.2f, 2.7f},
                              {5.6f, 2.7f},
                              {6.2f, 2.3f},
                              {14.6f, 2.3f},
                              {15.2f, 3.1f},
                              {19.0f, 3.4f},
                              {19.2f, 2.8f},
                              {17.8f, 2.4f},
                              {17.5f, 1.7f},
                              {15.2f, 1.5f},
                              {14.8f, 0.8f},
                              {16.4f, 0.45f}});
    tube.material = Material::Plate;
    tube.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        for (const float seam : {-4.2f, 0.4f, 4.8f})
            groove(coat, band(p.x - seam, 0.06f, 0.1f));
        const float stripe = (p.x + p.z * 0.9f) / 1.6f;
        const float hazard = band(p.x - 2.6f, 1.6f, 0.05f);
        const bool yellow = stripe - std::floor(stripe) < 0.5f;
        paint(coat, yellow ? glm::vec3(0.86f, 0.66f, 0.10f) : glm::vec3(0.10f),
              0.9f * hazard * (1.0f - coat.metal));
        const float vent = p.x / 1.4f;
        groove(coat, band(p.x - 10.4f, 3.6f, 0.1f) * band(vent - std::round(vent), 0.22f, 0.08f), 0.3f);
        const float around = glm::length(glm::vec2(p.y, p.z - 4.2f));
        // Soot in the muzzle and the exhaust; deep in, a core that glows and lights the walls around it.
        const bool inMuzzle = p.x > 14.5f && around < 2.75f && at.along > 0.5f;
        const bool inExhaust = p.x < -8.0f && around < 1.88f;
        paint(coat, glm::vec3(0.07f), inMuzzle || inExhaust ? 0.92f : 0.0f);
        const float depth = inMuzzle ? glm::smoothstep(17.6f, 14.8f, p.x) * 0.55f : 0.0f;
        const float core = inMuzzle ? band(around, 0.75f, 0.2f) : 0.0f;
        const float heat = std::max({band(p.x + 6.1f, 0.5f, 0.15f), depth, core});
        paint(coat, glm::mix(glm::vec3(0.75f, 0.16f, 0.03f), glm::vec3(1.0f, 0.72f, 0.30f), core), heat);
        coat.glow = heat;
    };
    smith.box(gunmetal, -3.0f, 6.4f, 1.9f, {1.2f, 0.9f});
    Part &drum = smith.lathe(gunmetal, 0.3f, 10, {{2.8f, 1.4f}, {3.0f, 2.1f}, {6.6f, 2.1f}, {6.8f, 1.4f}});
    drum.decorate = ribs(2.9f, 6.7f, 0.9f);
    smith.box(polymer, 7.0f, 12.4f, 1.85f, {1.1f, 0.75f}).decorate = ribs(7, 13, 0.7f);
    smith.box(gunmetal, -1.5f, 3.6f, 7.3f, {0.6f, 0.6f});
    Part &sight = smith.box(polymer, 0.0f, 3.0f, 8.5f, {0.75f, 0.8f});
    sight.decorate = glowing({1.0f, 0.25f, 0.15f}, 2.95f, 3.2f);
    Part &rod = smith.lathe(brass, 6.6f, 6, {{6.0f, 0.45f}, {15.0f, 0.45f}});
    rod.decorate = ribs(6, 15, 2.2f);
    return std::move(smith.parts);
}
