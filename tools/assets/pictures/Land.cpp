#include "tools/assets/pictures/Land.h"

#include "tools/assets/pictures/Noise.h"

#include <cmath>

namespace {

/// A ridge's crest toward a compass direction, 0 to about 1: peaks, and stretches without any.
float crest(glm::vec2 compass, float peaks, std::uint32_t seed) {
    const glm::vec3 around(peaks * compass.x, 0.5F, peaks * compass.y);
    const float broad = 0.5F + 0.75F * spaceFractal(0.3F * around, 2, seed);
    const float rugged = 1.0F - 1.3F * std::abs(spaceFractal(around, 5, seed + 9, 0.48F));
    return glm::clamp(broad, 0.0F, 1.0F) * (0.45F + 0.55F * rugged);
}

/// How much of a ridge up to `height` is seen; a texel is about 0.003 wide there.
float covered(float elevation, float height) {
    return glm::smoothstep(0.0016F, -0.0016F, elevation - height);
}

} // namespace

glm::vec3 Land::over(glm::vec3 sky, glm::vec3 horizon, glm::vec3 direction) const {
    const float elevation = direction.y;
    const glm::vec2 compass = glm::normalize(glm::vec2(direction.x, direction.z) + glm::vec2(1e-6F, 0));
    glm::vec3 color = sky;
    if (elevation < 1.3F * farHeight) {
        const float far = 0.004F + farHeight * crest(compass, 3.4F, 961);
        const float near = 0.002F + nearHeight * crest(compass, 5.3F, 971);
        // Haze lies in the valleys: hills stand out most at their crests.
        const float farShare = 0.26F + 0.16F * glm::clamp(elevation / far, 0.0F, 1.0F);
        const float nearShare = 0.44F + 0.16F * glm::clamp(elevation / near, 0.0F, 1.0F);
        color = glm::mix(color, glm::mix(horizon, hills, farShare), covered(elevation, far));
        color = glm::mix(color, glm::mix(horizon, hills, nearShare), covered(elevation, near));
    }
    if (elevation > 0.003F) {
        return color;
    }
    const float down = std::max(0.0F, -elevation);
    const glm::vec2 place = glm::vec2(direction.x, direction.z) / (down + 0.02F);
    // Fields and woods, as long as they are wide enough to be seen.
    const float fields = spaceFractal(glm::vec3(0.7F * place.x, 0.0F, 0.7F * place.y), 3, 981, 0.55F);
    const glm::vec3 ground = plain * (1.0F + 0.06F * fields * glm::smoothstep(0.02F, 0.10F, down) *
                                                 glm::smoothstep(0.9F, 0.5F, down));
    const glm::vec3 distance = glm::mix(horizon, hills, 0.44F);
    const glm::vec3 seen = glm::mix(ground, distance, std::exp(-down / 0.09F));
    return glm::mix(color, seen, glm::smoothstep(0.003F, -0.001F, elevation));
}
