#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>
#include <glm/gtc/noise.hpp>

namespace {

const glm::vec3 suit(0.20f, 0.20f, 0.23f);
const glm::vec3 shirt(0.80f, 0.79f, 0.76f);
const glm::vec3 skin(0.90f, 0.70f, 0.57f);
const glm::vec3 hair(0.22f, 0.14f, 0.09f);

/// An open ring, thick as cloth: a coat seen from above, its gap in front.
Profile coatProfile() {
    Profile profile;
    const auto add = [&](float degrees, float radius) {
        profile.emplace_back(radius * std::cos(glm::radians(degrees)),
                             radius * std::sin(glm::radians(degrees)));
    };
    for (const float angle : {-90.0f, -45.0f, 0.0f, 35.0f, 62.0f})
        add(angle, 1.0f);
    for (const float angle : {61.0f, 15.0f, -90.0f, -195.0f, -241.0f})
        add(angle, 0.86f);
    for (const float angle : {118.0f, 145.0f, 180.0f, 225.0f})
        add(angle, 1.0f);
    return profile;
}

struct CoatBones {
    Bone upper;
    Bone lower;
};

void addSkirt(Figure &agent, const CoatBones &bones) {
    const Rig &rig = agent.rig;
    Part &skirt = agent.add(Material::Cloth, glm::vec3(0.3f), coatProfile());
    skirt.team = 1.0f;
    skirt.sharp = true;
    columnRings(skirt, {{34.5f, -0.2f, {5.2f, 4.1f}, on(rig.waist)},
                        {30.0f, 0, {6.6f, 5.6f}, on(rig.pelvis)},
                        {24.0f, -0.1f, {7.9f, 7.4f}, between(rig.pelvis, bones.upper, 0.8f)},
                        {16.0f, -0.6f, {9.2f, 9.0f}, between(bones.upper, bones.lower, 0.5f)},
                        {8.0f, -2.0f, {10.4f, 9.8f}, on(bones.lower)}});
    for (Ring &ring : skirt.rings)
        ring.along = {0, 0, -1};
    skirt.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        const bool inner = at.around > 0.325f && at.around < 0.68f;
        paint(coat, suit * 0.9f, inner ? 1.0f : 0.0f);
        const float folds = std::sin(std::atan2(p.y, p.x) * 9.0f + 0.8f * layeredNoise(p * 0.2f, 2));
        coat.height += 0.35f * folds * glm::smoothstep(30.0f, 18.0f, p.z);
        groove(coat, band(p.z - 9.2f, 0.06f, 0.12f));
        groove(coat, (p.x < 0 ? 1.0f : 0.0f) * band(p.y, 0.12f, 0.15f) * glm::smoothstep(24.0f, 23.0f, p.z),
               0.25f);
        const glm::vec2 pocket(std::abs(p.y) - 6.4f, p.z - 25.5f);
        groove(coat, (p.x > 0 ? 1.0f : 0.0f) * band(std::abs(pocket.y) - 0.6f, 0.08f, 0.12f) *
                         band(pocket.x, 1.6f, 0.1f));
    };
}

void decorateCoat(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float front = p.x > 1.0f ? 1.0f : 0.0f;
    // The opening widens up to the collar: lapels, shirt, tie.
    const float half = 0.25f + 0.21f * std::max(p.z - 35.0f, 0.0f);
    const float opening = front * band(p.y, half, 0.06f) * glm::smoothstep(34.0f, 34.3f, p.z);
    const float lapel = front * band(p.y, half * 2.1f, 0.06f) * glm::smoothstep(37.0f, 37.4f, p.z);
    coat.tone *= 1.0f - 0.28f * lapel;
    coat.colour *= 1.0f - 0.2f * lapel;
    groove(coat,
           front * band(std::abs(p.y) - half * 2.1f, 0.03f, 0.12f) * glm::smoothstep(37.0f, 37.4f, p.z));
    paint(coat, suit, opening);
    paint(coat, shirt, opening * band(p.y, 0.30f * std::max(p.z - 37.0f, 0.0f), 0.06f));
    paint(coat, glm::vec3(0.10f), opening * band(p.y, 0.42f, 0.06f) * glm::smoothstep(37.0f, 37.2f, p.z));
    const float button = glm::length(glm::vec2(p.y - 1.3f, (p.z - 32.8f)));
    paint(coat, glm::vec3(0.7f, 0.6f, 0.35f), front * band(button, 0.3f, 0.08f));
    const float belt = band(p.z - 33.4f, 0.75f, 0.06f);
    paint(coat, suit * 0.8f, belt);
    coat.gloss += 0.2f * belt;
    paint(coat, glm::vec3(0.72f, 0.70f, 0.66f),
          front * belt * band(p.y, 0.9f, 0.06f) *
              (1.0f - band(p.y, 0.5f, 0.06f) * band(p.z - 33.4f, 0.4f, 0.06f)));
}

void addBody(Figure &agent) {
    const Rig &rig = agent.rig;
    Part &body = agent.add(Material::Cloth, glm::vec3(0.3f), softProfile(12, 2.3f));
    body.team = 1.0f;
    body.detail = 1.15f;
    columnRings(body, {{31.5f, 0, {5.2f, 4.0f}, on(rig.pelvis)},
                       {33.5f, 0, {4.9f, 3.8f}, on(rig.waist)},
                       {37.0f, 0.1f, {5.5f, 4.1f}, between(rig.waist, rig.chest, 0.6f)},
                       {41.5f, 0.2f, {6.7f, 4.6f}, on(rig.chest)},
                       {44.8f, -0.1f, {7.0f, 4.0f}, on(rig.chest)},
                       {46.6f, -0.3f, {5.0f, 3.0f}, on(rig.chest)},
                       {47.4f, -0.2f, {2.4f, 2.2f}, on(rig.chest)}});
    body.decorate = decorateCoat;
    Part &collar = agent.add(Material::Cloth, glm::vec3(0.3f), coatProfile());
    collar.team = 1.0f;
    collar.sharp = true;
    collar.ring({-0.2f, 0, 49.6f}, {4.2f, 4.0f}, on(rig.chest), {0.1f, 0, -1})
        .ring({-0.1f, 0, 46.2f}, {3.5f, 3.4f}, on(rig.chest), {0.1f, 0, -1});
    for (const Side side : {Right, Left}) {
        Part &sleeve = agent.add(Material::Cloth, glm::vec3(0.3f), roundProfile(8));
        sleeve.team = 1.0f;
        limbRings(sleeve, agent, rig.arm[side], rig.chest, armShape(1.05f));
        sleeve.rings.back().radius *= 1.2f;
        sleeve.ring(rig.at(rig.arm[side].end), {1.1f, 1.1f}, on(rig.arm[side].lower));
        sleeve.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.along - 0.86f, 0.008f, 0.012f));
            coat.height += 0.12f * std::sin(at.along * 60.0f + 3.0f * layeredNoise(at.position * 0.4f, 2)) *
                           band(at.along - 0.5f, 0.06f, 0.1f);
        };
        addFist(agent, side, Material::Leather, glm::vec3(0.10f), 0.92f);
        Part &trousers = agent.add(Material::Cloth, suit, roundProfile(8));
        limbRings(trousers, agent, rig.leg[side], rig.pelvis, legShape(0.92f));
        trousers.rings.back().radius *= 1.35f;
        addFoot(agent, side, Material::Leather, glm::vec3(0.11f), {9.6f, 1.9f, 2.9f, 2.6f, 12}).decorate =
            [](const SurfacePoint &at, Coat &coat) {
                coat.gloss = 0.55f;
                groove(coat, band(at.position.z - 0.7f, 0.06f, 0.12f));
            };
    }
}

void decorateFace(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float front = glm::smoothstep(1.6f, 2.6f, p.x);
    const float crown = p.z - (53.9f + 0.10f * p.x + 0.5f * glm::smoothstep(1.6f, 0.0f, std::abs(p.y)));
    const float temple = std::max(crown, 0.9f - p.x + 0.35f * (p.z - 51.5f) - (p.z < 50.2f ? 2.4f : 0.0f));
    const float hairy = glm::smoothstep(0.0f, 0.35f, temple + 0.25f * layeredNoise(p * 1.2f, 2));
    coat.colour *= 1.0f - 0.10f * glm::smoothstep(50.6f, 49.2f, p.z) * front; // Shaven.
    paint(coat, glm::vec3(0.58f, 0.34f, 0.30f),
          0.8f * front * band(p.y, 1.15f, 0.2f) * band(p.z - 49.75f, 0.22f, 0.15f));
    groove(coat, front * band(p.y, 1.2f, 0.15f) * band(p.z - 49.8f, 0.03f, 0.1f), 0.1f);
    paint(coat, hair,
          front * band(std::abs(p.y) - 1.4f, 0.9f, 0.2f) *
              band(p.z - 53.1f - 0.1f * std::abs(p.y), 0.2f, 0.12f));
    paint(coat, hair * (1.0f + 0.5f * glm::simplex(glm::vec3(p.x * 0.5f, p.y * 3.0f, p.z))), hairy);
    coat.gloss = glm::mix(coat.gloss, 0.3f, hairy);
    coat.height += 0.15f * hairy + 0.05f * hairy * glm::simplex(glm::vec3(p.x * 0.5f, p.y * 3.0f, p.z));
}

void addHead(Figure &agent) {
    const Rig &rig = agent.rig;
    const Influence head = on(rig.head);
    Part &face = agent.add(Material::Skin, skin, roundProfile(12));
    face.detail = 1.7f;
    columnRings(face, {{45.5f, 0, {2.1f, 2.2f}, on(rig.chest)},
                       {48.2f, 0.3f, {1.95f, 2.1f}, on(rig.neck)},
                       {48.5f, 1.3f, {1.7f, 2.5f}, head},
                       {50.0f, 0.9f, {2.4f, 3.1f}, head},
                       {52.3f, 0.5f, {2.8f, 3.4f}, head},
                       {54.4f, 0.2f, {2.8f, 3.6f}, head},
                       {56.0f, -0.2f, {2.0f, 2.7f}, head},
                       {56.6f, -0.2f, {0, 0}, head}});
    face.decorate = decorateFace;
    Part &nose = agent.add(Material::Skin, skin, roundProfile(4));
    nose.ring({3.6f, 0, 52.6f}, {0.35f, 0.35f}, head)
        .ring({4.2f, 0, 50.9f}, {0.6f, 0.6f}, head)
        .tip({3.8f, 0, 50.5f}, head);
    Part &shades = agent.add(Material::Glass, glm::vec3(0.05f, 0.05f, 0.06f), boxProfile(0.4f), {0, 0, 1});
    shades.sharp = true;
    shades.ring({1.0f, 3.0f, 52.4f}, {0.35f, 0.3f}, head)
        .ring({3.3f, 2.4f, 52.3f}, {0.35f, 0.75f}, head)
        .ring({4.1f, 0.9f, 52.3f}, {0.35f, 0.75f}, head);
    shades.ring({4.2f, 0, 52.5f}, {0.3f, 0.3f}, head)
        .ring({4.1f, -0.9f, 52.3f}, {0.35f, 0.75f}, head)
        .ring({3.3f, -2.4f, 52.3f}, {0.35f, 0.75f}, head)
        .ring({1.0f, -3.0f, 52.4f}, {0.35f, 0.3f}, head);
}

} // namespace

Figure makeHayden() {
    RigPlan plan;
    plan.shoulder = {0, 7.0f, 44.4f};
    plan.grip = {9.5f, -4.8f, 34.0f};
    plan.aim = {-4, 10, 42};
    plan.hip = {0, 3.2f, 28};
    plan.ankle = {glm::vec3(-2.2f, -4.2f, 3), glm::vec3(1.4f, 3.8f, 3)};
    plan.kneePole = {glm::vec3(1, -0.1f, 0), glm::vec3(1, -0.05f, 0)};
    Figure agent(plan);
    const Bone upper = agent.rig.skeleton.add({-0.5f, 0, 30}, agent.rig.pelvis);
    const CoatBones bones{upper, agent.rig.skeleton.add({-1, 0, 18}, upper)};
    agent.idle.look = 36.0f;
    agent.extra = [bones](Pose &pose, float phase) {
        pose.turn(bones.upper, {1.4f * wave(phase, 2, 0.1f), 0.6f + 1.2f * wave(phase, 3), 0});
        pose.turn(bones.lower,
                  {2.5f * wave(phase, 2, 0.95f), 2.2f * wave(phase, 3, 0.85f), 3.0f * wave(phase, 2, 0.4f)});
    };
    addSkirt(agent, bones);
    addBody(agent);
    addHead(agent);
    return agent;
}
