#include "tools/assets/pictures/Skies.h"

#include "tools/assets/pictures/Air.h"
#include "tools/assets/pictures/Noise.h"

#include <algorithm>
#include <cmath>

namespace {

const Air fairAir{
    {0.25F, 0.46F, 0.75F}, {0.47F, 0.67F, 0.88F}, {0.80F, 0.88F, 0.93F}, {0.72F, 0.79F, 0.84F}, 0.24F};
const Air deepAir{
    {0.20F, 0.37F, 0.64F}, {0.46F, 0.60F, 0.77F}, {0.90F, 0.83F, 0.72F}, {0.78F, 0.71F, 0.62F}, 0.26F};
const Air highAir{
    {0.24F, 0.45F, 0.74F}, {0.48F, 0.68F, 0.87F}, {0.84F, 0.89F, 0.92F}, {0.74F, 0.79F, 0.82F}, 0.25F};

/// How much of something thin one sees near the horizon: 0 at it, 1 well above.
float aboveHorizon(float height, float from, float to) {
    return glm::smoothstep(from, to, height);
}

/// Rounded heaps with creases between them, about -0.5 to 0.5.
float billows(glm::vec3 p, std::uint32_t seed) {
    float sum = -0.42F;
    float height = 0.75F;
    for (std::uint32_t octave = 0; octave < 4; ++octave) {
        sum += height * (0.75F - 1.6F * std::abs(spaceNoise(p, seed + octave)));
        p = 2.1F * glm::vec3(0.8F * p.x - 0.6F * p.z, p.y, 0.6F * p.x + 0.8F * p.z);
        height *= 0.45F;
    }
    return sum;
}

} // namespace

glm::vec3 Air::color(glm::vec3 direction) const {
    const float up = std::max(0.0F, direction.y);
    const float high = 1.0F - std::exp(-2.1F * up);
    const float thin = std::exp(-std::pow(up / depth, 1.15F));
    glm::vec3 sky = glm::mix(middle, zenith, high / 0.8775F);
    // The haze is not equally thick all around.
    const float uneven =
        1.0F + 0.25F * spaceFractal(glm::vec3(direction.x, 3.0F * direction.y, direction.z) * 1.7F, 3, 71);
    sky = glm::mix(sky, horizon,
                   std::min(1.0F, thin * glm::mix(1.0F, uneven, glm::smoothstep(0.0F, 0.1F, up))));
    // Little is to be seen there: as a wall on the horizon the haze must not show where faces meet.
    return glm::mix(sky, below, 0.3F * glm::smoothstep(0.0F, 0.55F, -direction.y));
}

glm::vec2 cloudPlane(glm::vec3 direction) {
    // Distance to a sphere around the world's centre, one layer height above a viewer at `radius`.
    constexpr float radius = 90;
    const float up = std::max(0.0F, direction.y);
    const float b = radius * up;
    const float distance = -b + std::sqrt(b * b + 2.0F * radius + 1.0F);
    return distance * glm::vec2(direction.x, direction.z);
}

glm::vec3 clearSky(glm::vec3 direction) {
    return fairAir.color(direction);
}

glm::vec3 dustySky(glm::vec3 direction) {
    const glm::vec3 air = deepAir.color(direction);
    // Thin sheets of dust lie along the horizon.
    const glm::vec3 p(2.2F * direction.x, 26.0F * direction.y, 2.2F * direction.z);
    const float sheets = glm::smoothstep(0.0F, 0.8F, spaceFractal(p, 4, 901));
    const float where = std::exp(-std::pow((direction.y - 0.09F) / 0.075F, 2.0F));
    return glm::mix(air, glm::vec3(0.93F, 0.80F, 0.68F), 0.34F * sheets * where);
}

glm::vec3 overcastSky(glm::vec3 direction) {
    const glm::vec3 haze = glm::mix(glm::vec3(0.76F, 0.79F, 0.81F), glm::vec3(0.73F, 0.76F, 0.78F),
                                    glm::smoothstep(0.0F, 0.5F, -direction.y));
    const glm::vec2 plane = cloudPlane(direction);
    const glm::vec3 p(0.62F * plane.x, 0.0F, 0.62F * plane.y);
    const glm::vec3 warp(spaceFractal(p * 1.3F, 3, 911), 0, spaceFractal(p * 1.3F, 3, 912));
    const float rolls = spaceFractal(p * 0.8F + 0.22F * warp, 4, 913, 0.5F);
    const float lumps = billows(p * 1.9F + 0.35F * warp, 914);
    const float light = 0.62F + 0.50F * rolls - 0.62F * lumps;
    glm::vec3 cloud = glm::mix(glm::vec3(0.43F, 0.48F, 0.54F), glm::vec3(0.83F, 0.86F, 0.88F),
                               glm::smoothstep(0.0F, 1.0F, light));
    cloud *= 1.0F + 0.05F * spaceFractal(p * 5.0F + warp, 3, 915);
    return glm::mix(haze, cloud, aboveHorizon(direction.y, -0.02F, 0.30F));
}

glm::vec3 cirrusSky(glm::vec3 direction) {
    const glm::vec3 air = highAir.color(direction);
    const glm::vec2 plane = cloudPlane(direction);
    // Combed along one direction, curling at the ends.
    const glm::vec2 along(0.83F * plane.x + 0.56F * plane.y, -0.56F * plane.x + 0.83F * plane.y);
    const glm::vec3 slow(0.34F * along.x, 0.0F, 0.34F * along.y);
    const float curl = spaceFractal(slow, 4, 921);
    const float drift = spaceFractal(slow * 1.9F + glm::vec3(7), 3, 922);
    const glm::vec3 hair(0.24F * along.x + 0.15F * drift, 0.3F * curl,
                         2.2F * (along.y + 0.42F * curl + 0.10F * drift));
    const float strands = spaceFractal(hair, 5, 923, 0.60F);
    const float fine = spaceFractal(hair * glm::vec3(1.4F, 1.0F, 4.0F), 3, 924, 0.6F);
    const float patch = glm::smoothstep(-0.30F, 0.45F, spaceFractal(slow * 1.2F + glm::vec3(31), 3, 925));
    const float veil = 0.20F * glm::smoothstep(-0.1F, 0.7F, curl + drift);
    const float dense = glm::smoothstep(-0.15F, 0.85F, strands + 0.30F * fine) * patch;
    const float cover = std::min(0.92F, dense * 0.9F + veil * patch) * aboveHorizon(direction.y, 0.0F, 0.22F);
    return glm::mix(air, glm::vec3(0.97F, 0.98F, 0.99F), cover);
}
