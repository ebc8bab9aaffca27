#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

/// Half the thickness of what hands hold, in the weapon's space: the grip and the fore-end.
constexpr glm::vec2 gripHalf(1.05f, 0.72f);
constexpr float foreEndHalf = 1.1f;
constexpr float foreEndBottom = 1.1f;

/// Puts parts of a hand where they are seen from the weapon.
class HandBuilder {
public:
    HandBuilder(Figure &body, Side which, Material material, const glm::vec3 &colour, float size)
        : figure(body), rig(body.rig), hand(on(rig.arm[which].end)),
          forearm(between(rig.arm[which].lower, hand.first, 0.5f)), s(size),
          scale(size * glm::length(glm::vec3(rig.weapon[0]))), flesh(material), tint(colour) {}

    Part &tube(const Profile &profile, const glm::vec3 &across) {
        Part &part = figure.add(flesh, tint, profile, rig.weaponWay(across));
        part.detail = 1.15f;
        return part;
    }

    void ring(Part &part, const glm::vec3 &place, const glm::vec2 &radius) const {
        part.ring(rig.atWeapon(place), radius * scale, hand);
    }
    void tip(Part &part, const glm::vec3 &place) const { part.tip(rig.atWeapon(place), hand); }

    /// A palm begins within the forearm.
    void wrist(Part &part, const glm::vec3 &place, const glm::vec3 &next) const {
        const glm::vec3 start = rig.atWeapon(place);
        const glm::vec3 way = glm::normalize(rig.atWeapon(next) - start);
        part.ring(start - way * (1.1f * scale), glm::vec2(0.95f, 1.05f) * scale, forearm);
        part.ring(start, glm::vec2(1.0f, 1.15f) * scale, hand);
    }

    /// Seams between fingers that lie side by side along `across`.
    void paintFingers(Part &part, const glm::vec3 &middle, const glm::vec3 &across, float pitch) const {
        const glm::vec3 centre = rig.atWeapon(middle);
        const glm::vec3 way = rig.weaponWay(across);
        const float width = pitch * scale;
        part.decorate = [=](const SurfacePoint &at, Coat &coat) {
            const float finger = glm::dot(at.position - centre, way) / width + 0.5f;
            groove(coat, band(finger - std::round(finger), 0.05f, 0.16f), 0.25f);
            groove(coat, 0.4f * band(at.along - 0.5f, 0.02f, 0.03f));
        };
    }

    void right(const glm::vec3 &wristPlace) {
        const float side = gripHalf.y + 0.42f * s;
        const float front = gripHalf.x + 0.38f * s;
        const glm::vec3 up = glm::normalize(glm::vec3(0.17f, 0, 1));
        const float low = -0.75f * s; // Middle of the three lower fingers.
        Part &palm = tube(softProfile(8, 2.6f), up);
        const glm::vec3 heel = handHeel[Right] + glm::vec3(0, 0.15f - 0.2f * (s - 0.25f), 0);
        wrist(palm, wristPlace, heel);
        ring(palm, heel, {1.05f, 1.65f});
        ring(palm, {-1.35f, -0.2f - 0.3f * s, -0.25f}, {1.1f, 1.75f});
        ring(palm, {-0.5f, -0.45f - 0.35f * s, -0.1f}, {0.7f, 1.55f});
        Part &fingers = tube(softProfile(8, 2.6f), up);
        ring(fingers, {-1.0f, -0.8f * side, low}, {0.42f, 1.2f});
        ring(fingers, {0.35f, -1.08f * side, low}, {0.52f, 1.35f});
        ring(fingers, {0.05f + front, -0.35f * side, low}, {0.5f, 1.32f});
        ring(fingers, {front - 0.35f, 0.75f * side, low}, {0.48f, 1.25f});
        ring(fingers, {-0.5f, 1.02f * side, low - 0.1f}, {0.42f, 1.12f});
        paintFingers(fingers, {0, 0, low}, up, 0.9f);
        Part &index = tube(roundProfile(6), up);
        ring(index, {-0.9f, -0.8f * side, 0.75f}, {0.5f, 0.55f});
        ring(index, {0.6f, -1.05f * side, 0.95f}, {0.5f, 0.52f});
        ring(index, {1.7f, -0.8f * side, 1.0f}, {0.45f, 0.46f});
        ring(index, {2.05f, 0.1f, 1.0f}, {0.4f, 0.42f});
        Part &thumb = tube(roundProfile(6), up);
        ring(thumb, {-1.7f, 0.1f, 0.6f}, {0.75f, 0.75f});
        ring(thumb, {-0.75f, side, 1.05f}, {0.58f, 0.62f});
        ring(thumb, {0.45f, side + 0.05f, 1.1f}, {0.5f, 0.52f});
        ring(thumb, {1.35f, side, 0.95f}, {0.38f, 0.4f});
    }

    void left(const glm::vec3 &wristPlace) {
        const float side = foreEndHalf + 0.42f * s;
        const float below = foreEndBottom - 0.42f * s;
        const float x = 9.0f;
        const glm::vec3 along(1, 0, 0.0f);
        Part &palm = tube(softProfile(8, 2.6f), along);
        const glm::vec3 heel = handHeel[Left] + glm::vec3(0, 0, -0.42f * (s - 1.0f));
        wrist(palm, wristPlace, heel);
        ring(palm, heel, {1.0f, 1.55f});
        ring(palm, {8.5f, 0.6f, below - 0.25f}, {0.8f, 1.8f});
        ring(palm, {x, -0.5f, below - 0.1f}, {0.65f, 1.85f});
        Part &fingers = tube(softProfile(8, 2.6f), along);
        ring(fingers, {8.7f, 0.4f, below - 0.05f}, {0.45f, 1.6f});
        ring(fingers, {x, -0.75f * side, below}, {0.56f, 1.8f});
        ring(fingers, {x + 0.1f, -side, foreEndBottom + 0.15f}, {0.52f, 1.8f});
        ring(fingers, {x + 0.1f, -0.97f * side, foreEndBottom + 1.0f}, {0.42f, 1.65f});
        paintFingers(fingers, {x, 0, 0}, along, 0.9f);
        fingers.rings.back().along = rig.weaponWay({0, 0.3f, 1});
        Part &thumb = tube(roundProfile(6), along);
        ring(thumb, {7.5f, 1.2f, below - 0.3f}, {0.75f, 0.8f});
        ring(thumb, {8.3f, side + 0.05f, foreEndBottom + 0.15f}, {0.6f, 0.62f});
        ring(thumb, {9.3f, side, foreEndBottom + 0.7f}, {0.5f, 0.52f});
        ring(thumb, {10.3f, 0.97f * side, foreEndBottom + 0.85f}, {0.38f, 0.4f});
    }

private:
    Figure &figure;
    const Rig &rig;
    Influence hand;
    Influence forearm;
    float s;     ///< Beside a human hand.
    float scale; ///< Units for one of the weapon's, for radii.
    Material flesh;
    glm::vec3 tint;
};

} // namespace

void addFist(Figure &figure, Side side, Material material, const glm::vec3 &colour, float size) {
    HandBuilder hand(figure, side, material, colour, size);
    const glm::mat4 toWeapon = glm::inverse(figure.rig.weapon);
    const glm::vec3 wrist(toWeapon * glm::vec4(figure.rig.at(figure.rig.arm[side].end), 1.0f));
    if (side == Right)
        hand.right(wrist);
    else
        hand.left(wrist);
}
