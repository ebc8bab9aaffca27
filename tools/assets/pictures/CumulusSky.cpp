#include "tools/assets/pictures/Skies.h"

#include "tools/assets/pictures/Air.h"
#include "tools/assets/pictures/Noise.h"

#include <algorithm>
#include <cmath>

// Cumulus as a volume: the line of sight is followed through the layer of clouds, and what it gathers is
// lit from above, so tops are white and bases grey from every side.

namespace {

constexpr float worldRadius = 130;
constexpr float base = 1.0F; ///< Of the layer, above the viewer; all lengths are in this unit.
constexpr float thickness = 0.85F;
constexpr int steps = 56;

const Air air{
    {0.17F, 0.39F, 0.74F}, {0.38F, 0.61F, 0.87F}, {0.79F, 0.87F, 0.93F}, {0.71F, 0.78F, 0.83F}, 0.13F};

float distanceToHeight(float up, float height) {
    const float b = worldRadius * up;
    return -b + std::sqrt(b * b + 2.0F * worldRadius * height + height * height);
}

/// Height above the viewer's ground of a place around the viewer.
float heightOf(glm::vec3 p) {
    return p.y + 0.5F * (p.x * p.x + p.z * p.z) / worldRadius;
}

/// How far a place is inside a cloud: above 0 inside, without the fine detail.
float broadShape(glm::vec3 p, float rise) {
    const float weather = spaceFractal(glm::vec3(0.62F * p.x + 3.1F, 0.0F, 0.62F * p.z - 1.7F), 3, 931, 0.5F);
    return weather - 0.10F - 0.85F * rise * rise - 0.35F * glm::smoothstep(0.10F, 0.0F, rise);
}

/// Share of light that a unit length takes away, 0 outside.
float density(glm::vec3 p) {
    const float rise = (heightOf(p) - base) / thickness;
    if (rise < 0.0F || rise > 1.0F) {
        return 0;
    }
    float shape = broadShape(p, rise);
    if (shape < -0.5F) {
        return 0;
    }
    // Rounded heaps on the outside, finer ones on those.
    const float heaps = 0.42F - std::abs(spaceNoise(p * 2.9F, 932)) * 1.0F;
    const float tufts = 0.21F - std::abs(spaceNoise(p * 6.3F, 933)) * 0.5F;
    const float curls = spaceFractal(p * 13.0F, 2, 934);
    shape += (0.55F * heaps + 0.55F * tufts + 0.07F * curls) * (0.35F + 0.9F * rise);
    return 22.0F * glm::clamp(shape * 4.0F, 0.0F, 1.0F);
}

/// Light that comes down to a place, 0 to 1.
float lightAt(glm::vec3 p, float here) {
    const float above = 0.07F * here + 0.10F * density(p + glm::vec3(0, 0.10F, 0)) +
                        0.20F * density(p + glm::vec3(0, 0.26F, 0));
    return std::exp(-0.42F * above);
}

} // namespace

glm::vec3 cumulusSky(glm::vec3 direction) {
    const glm::vec3 behind = air.color(direction);
    if (direction.y <= 0.0F) {
        return behind;
    }
    const float near = distanceToHeight(direction.y, base);
    const float far = std::min(distanceToHeight(direction.y, base + thickness), near + 4.5F);
    const float step = (far - near) / static_cast<float>(steps);
    glm::vec3 gathered(0);
    float clear = 1;
    for (int i = 0; i < steps && clear > 0.02F; ++i) {
        const float distance = near + (static_cast<float>(i) + 0.5F) * step;
        const glm::vec3 p = distance * direction;
        const float here = density(p);
        if (here <= 0.0F) {
            continue;
        }
        const float passed = std::exp(-here * step);
        const float light = lightAt(p, here);
        const float rise = glm::clamp((heightOf(p) - base) / thickness, 0.0F, 1.0F);
        const glm::vec3 ambient =
            glm::mix(glm::vec3(0.56F, 0.62F, 0.70F), glm::vec3(0.74F, 0.80F, 0.88F), rise);
        const glm::vec3 lit = glm::mix(ambient, glm::vec3(1.0F, 0.995F, 0.98F), light);
        const float haze = 1.0F - std::exp(-distance / 9.0F);
        gathered += clear * (1.0F - passed) * glm::mix(lit, behind, haze * haze);
        clear *= passed;
    }
    const glm::vec3 color = gathered + clear * behind;
    return glm::mix(behind, color, glm::smoothstep(0.01F, 0.10F, direction.y));
}
