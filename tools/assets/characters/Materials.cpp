#include "tools/assets/characters/Materials.h"

#include <cmath>
#include <glm/gtc/noise.hpp>

namespace {

const glm::vec3 bareSteel(0.66f, 0.67f, 0.70f);

float strands(const glm::vec3 &p, float size, float length) {
    return glm::simplex(glm::vec3(p.x / size, p.y / size, p.z / length));
}

/// Ridged noise: thin lines where the noise passes zero.
float creases(const glm::vec3 &place) {
    return 1.0f - std::abs(glm::simplex(place));
}

void coatPlate(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float dirt = layeredNoise(p * 0.35f);
    coat.tone *= 1.0f + 0.14f * dirt;
    coat.colour *= 1.0f + 0.10f * dirt;
    coat.gloss = 0.35f;
    const float wear = at.edge - 0.03f - 0.24f * layeredNoise(p * 1.3f, 3);
    const float scratch =
        glm::smoothstep(0.93f, 0.98f, creases(glm::vec3(p.x * 0.5f, p.y * 0.5f, p.z * 2.2f))) *
        glm::smoothstep(0.25f, 0.6f, layeredNoise(p * 0.4f + 7.0f, 2));
    const float bare = std::max(1.0f - glm::smoothstep(0.0f, 0.12f, wear), 0.7f * scratch);
    paint(coat, bareSteel, 0.75f * bare);
    coat.metal = 0.7f * bare;
    coat.gloss += 0.3f * bare;
    coat.height = -0.03f * bare + 0.01f * layeredNoise(p * 2.0f, 2);
}

void coatMetal(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float stain = layeredNoise(p * 0.5f);
    coat.colour *= 1.0f + 0.16f * stain;
    coat.metal = 0.75f;
    coat.gloss = 0.55f + 0.2f * stain;
    const float bright = 1.0f - glm::smoothstep(0.02f, 0.28f, at.edge + 0.12f * stain);
    paint(coat, glm::mix(coat.colour, bareSteel, 0.75f), bright);
    coat.height = 0.012f * strands(p, 0.25f, 2.0f);
}

void coatCloth(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float folds = layeredNoise(glm::vec3(p.x * 0.28f, p.y * 0.28f, p.z * 0.16f), 3);
    const float weave = glm::simplex(p * 2.6f);
    const float shade = 1.0f + 0.16f * folds + 0.06f * weave;
    coat.colour *= shade;
    coat.tone *= shade;
    coat.height = 0.45f * folds + 0.02f * weave;
}

void coatLeather(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float grain = creases(p * 1.7f);
    const float age = layeredNoise(p * 0.4f);
    const float shade = 1.0f + 0.18f * age - 0.10f * grain;
    coat.colour *= shade;
    coat.tone *= shade;
    coat.height = -0.04f * grain + 0.06f * age;
    coat.gloss = 0.22f;
}

void coatHide(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float patches = layeredNoise(p * 0.22f);
    const float wrinkle = creases(glm::vec3(p.x * 0.8f, p.y * 0.8f, p.z * 1.1f));
    const float pores = layeredNoise(p * 1.9f, 2);
    coat.colour *= glm::vec3(1.0f) + patches * glm::vec3(0.16f, 0.12f, 0.10f) + 0.06f * pores;
    const float fold = glm::smoothstep(0.75f, 1.0f, wrinkle);
    coat.colour *= 1.0f - 0.14f * fold;
    coat.height = -0.07f * fold + 0.03f * pores + 0.10f * patches;
    coat.gloss = 0.14f;
}

void coatSkin(const SurfacePoint &at, Coat &coat) {
    const float flush = layeredNoise(at.position * 0.5f, 2);
    coat.colour *= glm::vec3(1.0f) + flush * glm::vec3(0.03f, -0.04f, -0.05f);
    coat.height = 0.01f * layeredNoise(at.position * 2.0f, 2);
    coat.gloss = 0.2f;
}

void coatFur(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 bent = at.position + 0.5f * layeredNoise(at.position * 0.3f, 2);
    const float hairs = 0.6f * strands(bent, 0.33f, 1.7f) + 0.4f * strands(bent + 3.0f, 0.2f, 1.0f);
    const float patches = layeredNoise(at.position * 0.25f, 3);
    coat.colour *= 1.0f + 0.22f * hairs + 0.14f * patches;
    coat.height = 0.07f * hairs + 0.06f * patches;
    coat.gloss = 0.05f;
}

void coatHorn(const SurfacePoint &at, Coat &coat) {
    const float rings = std::sin(at.along * 42.0f + 1.4f * layeredNoise(at.position * 0.8f, 2));
    coat.colour *= (1.0f + 0.09f * rings) * glm::mix(0.62f, 1.12f, at.along);
    coat.height = 0.04f * rings;
    coat.gloss = 0.3f;
}

} // namespace

float layeredNoise(const glm::vec3 &place, unsigned layers) {
    float sum = 0.0f;
    float size = 1.0f;
    float strength = 0.55f;
    for (unsigned i = 0; i < layers; ++i) {
        sum += strength * glm::simplex(place * size + static_cast<float>(i) * 17.3f);
        size *= 2.1f;
        strength *= 0.52f;
    }
    return sum;
}

float band(float distance, float half, float soft) {
    return 1.0f - glm::smoothstep(half, half + soft, std::abs(distance));
}

void groove(Coat &coat, float amount, float depth) {
    coat.height -= depth * amount;
    const float dark = 1.0f - 0.62f * amount;
    coat.colour *= dark;
    coat.tone *= dark;
}

void crease(Coat &coat, float amount, float depth) {
    coat.height -= depth * amount;
    coat.colour *= 1.0f - amount * glm::vec3(0.26f, 0.34f, 0.36f);
}

void paint(Coat &coat, const glm::vec3 &colour, float amount) {
    coat.colour = glm::mix(coat.colour, colour, amount);
    coat.team *= 1.0f - amount;
}

void paintTeam(Coat &coat, float amount, float tone) {
    coat.team = glm::mix(coat.team, 1.0f, amount);
    coat.tone = glm::mix(coat.tone, coat.tone * tone, amount);
}

Coat coatOf(const Part &part, const SurfacePoint &point) {
    Coat coat;
    coat.colour = part.colour;
    coat.team = part.team;
    switch (part.material) {
    case Material::Plate:
        coatPlate(point, coat);
        break;
    case Material::Metal:
        coatMetal(point, coat);
        break;
    case Material::Cloth:
        coatCloth(point, coat);
        break;
    case Material::Leather:
        coatLeather(point, coat);
        break;
    case Material::Hide:
        coatHide(point, coat);
        break;
    case Material::Skin:
        coatSkin(point, coat);
        break;
    case Material::Fur:
        coatFur(point, coat);
        break;
    case Material::Horn:
        coatHorn(point, coat);
        break;
    case Material::Glass:
        coat.gloss = 1.0f;
        break;
    }
    return coat;
}
