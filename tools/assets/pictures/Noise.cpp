#include "tools/assets/pictures/Noise.h"

#include <array>
#include <cmath>

namespace {

int wrapped(int value, int period) {
    // Callers stay within a picture and its warp: a division would cost more than the odd second turn.
    while (value < 0) {
        value += period;
    }
    while (value >= period) {
        value -= period;
    }
    return value;
}

float fade(float t) {
    return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F);
}

std::array<glm::vec2, 64> makeDirections() {
    std::array<glm::vec2, 64> directions{};
    for (std::size_t i = 0; i < directions.size(); ++i) {
        const float angle = circle * static_cast<float>(i) / static_cast<float>(directions.size());
        directions[i] = {std::cos(angle), std::sin(angle)};
    }
    return directions;
}

const std::array<glm::vec2, 64> directions = makeDirections();

float latticeDot(int x, int y, std::uint32_t seed, glm::vec2 offset) {
    return glm::dot(directions[hashed(x, y, seed) >> 26U], offset);
}

/// The twelve directions from a cube's middle to its edges, four of them twice.
constexpr std::array<glm::vec3, 16> edgeDirections{{{1, 1, 0},
                                                    {-1, 1, 0},
                                                    {1, -1, 0},
                                                    {-1, -1, 0},
                                                    {1, 0, 1},
                                                    {-1, 0, 1},
                                                    {1, 0, -1},
                                                    {-1, 0, -1},
                                                    {0, 1, 1},
                                                    {0, -1, 1},
                                                    {0, 1, -1},
                                                    {0, -1, -1},
                                                    {1, 1, 0},
                                                    {0, -1, 1},
                                                    {-1, 1, 0},
                                                    {0, -1, -1}}};

/// One of the edge directions, against the offset.
float spaceDot(int x, int y, int z, std::uint32_t seed, glm::vec3 d) {
    const std::uint32_t h = hashed(x, y, seed + static_cast<std::uint32_t>(z & 1023) * 0x9E3779B9U) >> 28U;
    return glm::dot(edgeDirections[h], d);
}

} // namespace

float gradientNoise(glm::vec2 p, int period, std::uint32_t seed) {
    const glm::vec2 base = glm::floor(p);
    const glm::vec2 d = p - base;
    const int x0 = wrapped(static_cast<int>(base.x), period);
    const int y0 = wrapped(static_cast<int>(base.y), period);
    const int x1 = x0 + 1 == period ? 0 : x0 + 1;
    const int y1 = y0 + 1 == period ? 0 : y0 + 1;
    const float u = fade(d.x);
    const float v = fade(d.y);
    const float top = glm::mix(latticeDot(x0, y0, seed, d), latticeDot(x1, y0, seed, d - glm::vec2(1, 0)), u);
    const float bottom = glm::mix(latticeDot(x0, y1, seed, d - glm::vec2(0, 1)),
                                  latticeDot(x1, y1, seed, d - glm::vec2(1, 1)), u);
    return 1.5F * glm::mix(top, bottom, v);
}

float fractalNoise(glm::vec2 uv, int period, int octaves, std::uint32_t seed, float gain) {
    float sum = 0;
    float height = 1;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += height * gradientNoise(uv * static_cast<float>(period), period,
                                      seed + static_cast<std::uint32_t>(octave) * 101U);
        period *= 2;
        height *= gain;
    }
    return sum;
}

float ridgedNoise(glm::vec2 uv, int period, int octaves, std::uint32_t seed) {
    float sum = 0;
    float height = 0.55F;
    for (int octave = 0; octave < octaves; ++octave) {
        const float crest = 1.0F - std::abs(gradientNoise(uv * static_cast<float>(period), period,
                                                          seed + static_cast<std::uint32_t>(octave) * 101U));
        sum += height * crest * crest;
        period *= 2;
        height *= 0.5F;
    }
    return sum;
}

CellSample cellNoise(glm::vec2 uv, int period, float jitter, std::uint32_t seed) {
    const glm::vec2 p = uv * static_cast<float>(period);
    const glm::ivec2 base(glm::floor(p));
    CellSample sample;
    float first = 1e9F;
    float second = 1e9F;
    glm::vec2 toSecond(0);
    const glm::vec2 inCell = p - glm::vec2(base);
    // Inner cells first: most outer ones are then too far away to matter.
    for (const int dy : {0, -1, 1, -2, 2}) {
        for (const int dx : {0, -1, 1, -2, 2}) {
            const glm::vec2 corner = glm::vec2(dx, dy) - inCell;
            const glm::vec2 gap = glm::max(glm::max(corner, -corner - 1.0F), 0.0F);
            if (glm::dot(gap, gap) >= second) {
                continue;
            }
            const int x = wrapped(base.x + dx, period);
            const int y = wrapped(base.y + dy, period);
            const std::uint32_t h = hashed(x, y, seed);
            const glm::vec2 offset(static_cast<float>(h & 0xFFFFU) / 65536.0F - 0.5F,
                                   static_cast<float>(h >> 16U) / 65536.0F - 0.5F);
            const glm::vec2 d = glm::vec2(base + glm::ivec2(dx, dy)) + 0.5F + jitter * offset - p;
            const float distance = glm::dot(d, d);
            if (distance < first) {
                second = first;
                toSecond = sample.toCentre;
                first = distance;
                sample.toCentre = d;
                sample.id = h;
            } else if (distance < second) {
                second = distance;
                toSecond = d;
            }
        }
    }
    sample.nearest = std::sqrt(first);
    sample.second = std::sqrt(second);
    const glm::vec2 between = toSecond - sample.toCentre;
    sample.edge =
        glm::dot(0.5F * (toSecond + sample.toCentre), between) / std::max(1e-6F, glm::length(between));
    return sample;
}

float spaceNoise(glm::vec3 p, std::uint32_t seed) {
    const glm::vec3 base = glm::floor(p);
    const glm::vec3 d = p - base;
    const int x = static_cast<int>(base.x);
    const int y = static_cast<int>(base.y);
    const int z = static_cast<int>(base.z);
    const float u = fade(d.x);
    const float v = fade(d.y);
    const auto layer = [&](int k) {
        const glm::vec3 o(0, 0, k);
        const float near = glm::mix(spaceDot(x, y, z + k, seed, d - o),
                                    spaceDot(x + 1, y, z + k, seed, d - o - glm::vec3(1, 0, 0)), u);
        const float far = glm::mix(spaceDot(x, y + 1, z + k, seed, d - o - glm::vec3(0, 1, 0)),
                                   spaceDot(x + 1, y + 1, z + k, seed, d - o - glm::vec3(1, 1, 0)), u);
        return glm::mix(near, far, v);
    };
    return glm::mix(layer(0), layer(1), fade(d.z));
}

float spaceFractal(glm::vec3 p, int octaves, std::uint32_t seed, float gain) {
    float sum = 0;
    float height = 1;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += height * spaceNoise(p, seed + static_cast<std::uint32_t>(octave) * 101U);
        // A turn between octaves keeps their lattices from lining up.
        p = glm::vec3(1.6F * p.x - 1.2F * p.z, 2.0F * p.y + 0.37F, 1.2F * p.x + 1.6F * p.z);
        height *= gain;
    }
    return sum;
}

float Random::fraction() {
    m_state += 0x9E3779B9U;
    return static_cast<float>(mixed(m_state) >> 8U) / 16777216.0F;
}

float Random::bell() {
    float sum = 0;
    for (int i = 0; i < 4; ++i) {
        sum += fraction();
    }
    return (sum - 2.0F) * 1.7320508F;
}
