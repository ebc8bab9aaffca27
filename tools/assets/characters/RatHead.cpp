#include "tools/assets/characters/RatHead.h"

#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace rat {

namespace {

void decorateSnout(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float under = p.z - 43.9f + 0.15f * (p.x - 14.0f);
    paint(coat, belly * (coat.colour.g / fur.g), 0.85f * glm::smoothstep(0.3f, -0.6f, under));
    const float nose = glm::smoothstep(20.0f, 20.2f, p.x);
    paint(coat, bare, nose);
    coat.gloss = glm::mix(coat.gloss, 0.6f, nose);
    groove(coat, band(p.y, 0.06f, 0.14f) * glm::smoothstep(20.9f, 21.2f, p.x), 0.2f);
    groove(coat,
           nose * glm::smoothstep(0.34f, 0.2f, glm::length(glm::vec2(std::abs(p.y) - 0.65f, p.z - 43.5f))),
           0.3f);
    const glm::vec2 eye(p.x - 13.3f, p.z - 47.2f);
    const float out = glm::smoothstep(1.4f, 1.8f, std::abs(p.y));
    const float ball = out * glm::smoothstep(1.0f, 0.87f, glm::length(eye));
    const float lid = out * band(glm::length(eye) - 1.12f, 0.18f, 0.12f);
    paint(coat, fur * 0.4f, lid);
    paint(coat, glm::vec3(0.80f, 0.10f, 0.05f), ball);
    paint(coat, glm::vec3(0.05f),
          out * glm::smoothstep(0.52f, 0.42f, glm::length(eye - glm::vec2(0.15f, 0))));
    paint(coat, glm::vec3(1.0f),
          out * glm::smoothstep(0.30f, 0.20f, glm::length(eye - glm::vec2(0.3f, 0.38f))));
    coat.glow = std::max(coat.glow, 0.8f * ball);
    // A darker stripe from the nose over the crown.
    coat.colour *= 1.0f - 0.28f * glm::smoothstep(0.35f, 0.8f, at.normal.z) * (1.0f - nose) * (1.0f - ball);
    const glm::vec2 row(p.x * 1.1f - std::round(p.x * 1.1f),
                        (p.z - 43.9f) * 1.1f - std::round((p.z - 43.9f) * 1.1f));
    paint(coat, fur * 0.4f,
          0.8f * glm::smoothstep(0.2f, 0.12f, glm::length(row)) * band(p.z - 43.9f, 0.8f, 0.2f) *
              band(p.x - 17.8f, 1.2f, 0.3f));
}

void addSkull(Figure &figure) {
    const Influence head = on(figure.rig.head);
    Part &skull = figure.add(Material::Fur, fur, roundProfile(10), {0, 0, 1});
    skull.detail = 1.6f;
    const auto section = [&](float x, float z, const glm::vec2 &radius) {
        skull.ring({x, 0, z}, radius, head, {1, 0, -0.15f});
    };
    skull.tip({4.6f, 0, 45.4f}, head);
    section(6.2f, 45.6f, {3.2f, 3.3f});
    section(9.4f, 46.3f, {4.4f, 4.1f});
    section(12.6f, 45.9f, {3.5f, 3.4f});
    section(15.8f, 44.8f, {2.1f, 2.3f});
    section(19.6f, 43.8f, {1.25f, 1.35f});
    section(20.4f, 43.8f, {1.35f, 1.3f});
    skull.tip({21.8f, 0, 43.8f}, head);
    // From the bottom: corner 5 is the top, 2 and 3 the left side.
    skull.sculpt = [](std::size_t ring, unsigned corner, glm::vec3 &p, Influence &) {
        const float out = p.y > 0 ? 1.0f : -1.0f;
        const bool brow = corner == 4 || corner == 6;
        const bool cheek = corner == 2 || corner == 8;
        if (ring == 3 && brow)
            p += glm::vec3(-0.2f, 0.25f * out, 0.45f);
        if (ring == 2 && cheek) // Cheeks full of fur,
            p += glm::vec3(-0.6f, 0.9f * out, -0.5f);
        if (ring == 4 && cheek) // and pads where the whiskers grow.
            p += glm::vec3(0.6f, 0.35f * out, -0.2f);
    };
    skull.decorate = decorateSnout;
}

void addJaw(Figure &figure, Bone bone) {
    const Influence hung = on(bone);
    Part &jaw = figure.add(Material::Fur, belly, roundProfile(6), {0, 0, 1});
    jaw.ring({8.8f, 0, 43.4f}, {2.9f, 1.8f}, between(figure.rig.head, bone, 0.4f), {1, 0, -0.1f})
        .ring({14.6f, 0, 42.4f}, {1.6f, 1.0f}, hung, {1, 0, -0.1f})
        .ring({17.8f, 0, 42.0f}, {0.95f, 0.6f}, hung, {1, 0, 0})
        .tip({18.8f, 0, 42.1f}, hung);
    jaw.decorate = [](const SurfacePoint &at, Coat &coat) {
        const float mouth =
            glm::smoothstep(0.3f, 0.5f, at.normal.z) * glm::smoothstep(12.0f, 13.0f, at.position.x);
        paint(coat, glm::vec3(0.45f, 0.13f, 0.14f), mouth);
    };
    for (const float y : {-0.42f, 0.42f}) {
        Part &tooth = figure.add(Material::Horn, glm::vec3(0.95f, 0.88f, 0.64f), roundProfile(4));
        tooth.lids = false; // It hangs from the gums.
        tooth.ring({18.7f, y, 43.4f}, {0.45f, 0.34f}, on(figure.rig.head))
            .ring({19.1f, y, 41.5f}, {0.42f, 0.2f}, on(figure.rig.head))
            .tip({19.15f, y, 41.2f}, on(figure.rig.head));
    }
}

void addEar(Figure &figure, float y) {
    const Influence head = on(figure.rig.head);
    Part &ear = figure.add(Material::Hide, bare, roundProfile(7), {0, 0, 1});
    ear.detail = 1.3f;
    const glm::vec3 at(8.2f, 4.0f * y, 50.4f);
    const glm::vec3 way = glm::normalize(glm::vec3(1.0f, 0.55f * y, 0.1f));
    ear.tip(at - way * 0.5f, head);
    ear.ring(at - way * 0.1f, {2.9f, 3.2f}, head, way)
        .ring(at + way * 0.4f, {2.4f, 2.7f}, head, way)
        .tip(at - way * 0.2f, head);
    ear.decorate = [](const SurfacePoint &p, Coat &coat) {
        paint(coat, fur * 0.8f, glm::smoothstep(0.60f, 0.56f, p.along));
        coat.colour *= 1.0f - 0.4f * glm::smoothstep(0.75f, 1.0f, p.along);
    };
}

void addWhiskers(Figure &figure, float y) {
    const Influence head = on(figure.rig.head);
    for (const float up : {-1.2f, 0.2f, 1.6f}) {
        Part &hair = figure.add(Material::Horn, glm::vec3(0.92f), roundProfile(3));
        hair.lids = false; // It grows out of the snout.
        hair.detail = 0.4f;
        hair.ring({17.2f, 1.2f * y, 43.8f + 0.2f * up}, {0.13f, 0.13f}, head)
            .tip({15.8f, 6.6f * y, 43.6f + 1.3f * up}, head);
    }
}

} // namespace

void addHead(Figure &figure, Bone jaw) {
    addSkull(figure);
    addJaw(figure, jaw);
    for (const float y : {-1.0f, 1.0f}) {
        addEar(figure, y);
        addWhiskers(figure, y);
    }
}

} // namespace rat
