#include "tools/assets/pictures/Field.h"
#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Skies.h"

#include <algorithm>
#include <bit>
#include <cmath>

// Cumulus as a volume: the line of sight is followed through the layer of clouds, and what it gathers is
// lit from above, so tops are white and bases grey from every side.

namespace {

constexpr float worldRadius = 130;
constexpr float cloudBase = 1.0F; ///< Of the layer, above the viewer; all lengths are in this unit.
constexpr float thickness = 0.52F;
constexpr float fullDensity = 34;

float distanceToHeight(float up, float height) {
    const float b = worldRadius * up;
    return -b + std::sqrt(b * b + 2.0F * worldRadius * height + height * height);
}

/// Height above the viewer's ground of a place around the viewer.
float heightOf(glm::vec3 p) {
    return p.y + 0.5F * (p.x * p.x + p.z * p.z) / worldRadius;
}

/// Where clouds gather, as a map seen from above: asked for so often that it is made once.
class WeatherMap {
public:
    WeatherMap() : m_map(1024) {
        m_map.fill([](glm::vec2 uv) { return fractalNoise(uv, 46, 4, 931, 0.5F); });
    }

    float at(float x, float z) const {
        const float u = (x / span + 0.5F) * 1024.0F;
        const float v = (z / span + 0.5F) * 1024.0F;
        const float left = std::floor(u);
        const float top = std::floor(v);
        const int i = static_cast<int>(left);
        const int k = static_cast<int>(top);
        return glm::mix(glm::mix(m_map.at(i, k), m_map.at(i + 1, k), u - left),
                        glm::mix(m_map.at(i, k + 1), m_map.at(i + 1, k + 1), u - left), v - top);
    }

private:
    static constexpr float span = 48;
    Field m_map;
};

/// How far a place is inside a cloud, without its heaps: above 0 inside.
float broadShape(glm::vec3 p, float rise) {
    static const WeatherMap weather;
    return weather.at(p.x, p.z) - 0.18F - 0.85F * rise * rise - 0.35F * glm::smoothstep(0.10F, 0.0F, rise);
}

float riseOf(glm::vec3 p) {
    return (heightOf(p) - cloudBase) / thickness;
}

/// Share of light that a unit length takes away, 0 outside. Without `fine` the smallest curls are left out.
float density(glm::vec3 p, bool fine) {
    const float rise = riseOf(p);
    if (rise < 0.0F || rise > 1.0F) {
        return 0;
    }
    float shape = broadShape(p, rise);
    // Rounded heaps on the outside, finer ones on those; noise is not asked for where it cannot bring cloud.
    const float strength = 0.35F + 0.9F * rise;
    const float mostOfFine = fine ? 0.23F * strength : 0.0F;
    if (shape < -0.42F || shape + 0.55F * 0.42F * strength + mostOfFine <= 0.0F) {
        return 0;
    }
    shape += 0.55F * strength * (0.42F - std::abs(spaceNoise(p * 4.3F, 932)));
    if (shape + mostOfFine <= 0.0F) {
        return 0;
    }
    if (fine && shape > -0.25F && shape < 0.5F) {
        shape += strength * (0.55F * (0.21F - 0.5F * std::abs(spaceNoise(p * 9.3F, 933))) +
                             0.07F * spaceFractal(p * 19.0F, 2, 934));
    }
    return fullDensity * glm::clamp(shape * 4.0F, 0.0F, 1.0F);
}

/// Light that comes down to a place, 0 to 1.
float lightAt(glm::vec3 p, float here) {
    const float above = 0.045F * here + 0.065F * density(p + glm::vec3(0, 0.06F, 0), false) +
                        0.13F * density(p + glm::vec3(0, 0.16F, 0), false);
    return std::exp(-0.42F * above);
}

/// What is seen of a place inside a cloud at `distance`.
glm::vec3 cloudColor(glm::vec3 p, float here, float distance, glm::vec3 behind) {
    const float rise = glm::clamp(riseOf(p), 0.0F, 1.0F);
    const glm::vec3 ambient = glm::mix(glm::vec3(0.58F, 0.63F, 0.70F), glm::vec3(0.75F, 0.80F, 0.87F), rise);
    const glm::vec3 lit = glm::mix(ambient, glm::vec3(1.0F, 0.995F, 0.98F), lightAt(p, here));
    const float haze = 1.0F - std::exp(-distance / 9.0F);
    return glm::mix(lit, behind, haze * haze);
}

/// A number from 0 to 1 for a line of sight.
float scatter(glm::vec3 direction) {
    return hashedFraction(std::bit_cast<int>(direction.x), std::bit_cast<int>(direction.z), 935);
}

} // namespace

glm::vec3 cumulus(glm::vec3 direction, glm::vec3 air) {
    if (direction.y <= 0.01F) {
        return air;
    }
    const float near = distanceToHeight(direction.y, cloudBase);
    const float far = std::min(distanceToHeight(direction.y, cloudBase + thickness), near + 4.0F);
    // A line of sight along the layer is longer, but what it meets is farther away.
    const int steps = static_cast<int>(36.0F + 20.0F * std::min(1.0F, (far - near) / 3.0F));
    const float step = (far - near) / static_cast<float>(steps);
    // Each line begins elsewhere in its first step: else clouds are cut into slices, like a map's contours.
    const float start = near + step * scatter(direction);
    glm::vec3 gathered(0);
    float clear = 1;
    for (int i = 0; i < steps && clear > 0.02F; ++i) {
        const float distance = start + static_cast<float>(i) * step;
        const glm::vec3 p = distance * direction;
        const float here = density(p, true);
        if (here > 0.0F) {
            const float passed = std::exp(-here * step);
            gathered += clear * (1.0F - passed) * cloudColor(p, here, distance, air);
            clear *= passed;
        }
    }
    const glm::vec3 color = gathered + clear * air;
    return glm::mix(air, color, glm::smoothstep(0.01F, 0.10F, direction.y));
}
