#include "tools/assets/pictures/Skies.h"

#include "tools/assets/pictures/Air.h"
#include "tools/assets/pictures/Noise.h"

#include <algorithm>
#include <cmath>

namespace {

const Air fairAir{
    {0.20F, 0.42F, 0.76F}, {0.42F, 0.64F, 0.88F}, {0.80F, 0.88F, 0.93F}, {0.72F, 0.79F, 0.84F}, 0.13F};
const Air deepAir{
    {0.12F, 0.30F, 0.64F}, {0.36F, 0.56F, 0.80F}, {0.90F, 0.83F, 0.72F}, {0.78F, 0.71F, 0.62F}, 0.17F};
const Air highAir{
    {0.18F, 0.40F, 0.74F}, {0.44F, 0.66F, 0.88F}, {0.84F, 0.89F, 0.92F}, {0.74F, 0.79F, 0.82F}, 0.15F};

/// How much of something thin one sees near the horizon: 0 at it, 1 well above.
float aboveHorizon(float height, float from, float to) {
    return glm::smoothstep(from, to, height);
}

} // namespace

glm::vec3 Air::color(glm::vec3 direction) const {
    const float up = std::max(0.0F, direction.y);
    const float high = 1.0F - std::exp(-2.1F * up);
    const float thin = std::exp(-up / depth);
    glm::vec3 sky = glm::mix(middle, zenith, high / 0.8775F);
    // The haze is not equally thick all around.
    const float uneven =
        1.0F + 0.25F * spaceFractal(glm::vec3(direction.x, 3.0F * direction.y, direction.z) * 1.7F, 3, 71);
    sky = glm::mix(sky, horizon,
                   std::min(1.0F, thin * glm::mix(1.0F, uneven, glm::smoothstep(0.0F, 0.1F, up))));
    return glm::mix(sky, below, glm::smoothstep(0.0F, 0.55F, -direction.y));
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
    const glm::vec3 haze = glm::mix(glm::vec3(0.76F, 0.79F, 0.81F), glm::vec3(0.66F, 0.69F, 0.71F),
                                    glm::smoothstep(0.0F, 0.5F, -direction.y));
    const glm::vec2 plane = cloudPlane(direction);
    const glm::vec3 p(0.55F * plane.x, 0.0F, 0.55F * plane.y);
    const glm::vec3 warp(spaceFractal(p * 1.1F, 4, 911), 0, spaceFractal(p * 1.1F, 4, 912));
    const float rolls = spaceFractal(p * 0.9F + 0.75F * warp, 6, 913, 0.52F);
    const float lumps = spaceFractal(p * 2.6F + 0.9F * warp, 5, 914, 0.55F);
    const float light = 0.5F + 0.55F * rolls + 0.24F * lumps;
    glm::vec3 cloud = glm::mix(glm::vec3(0.43F, 0.48F, 0.54F), glm::vec3(0.83F, 0.86F, 0.88F),
                               glm::smoothstep(0.0F, 1.0F, light));
    // Dark bellies hang below the sheet.
    cloud *= 1.0F - 0.16F * glm::smoothstep(0.1F, 0.7F, lumps) * glm::smoothstep(0.7F, 0.2F, light);
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
    const glm::vec3 hair(0.33F * along.x + 0.25F * drift, 0.4F * curl,
                         2.6F * (along.y + 0.9F * curl + 0.22F * drift));
    const float strands = spaceFractal(hair, 6, 923, 0.62F);
    const float fine = spaceFractal(hair * glm::vec3(1.4F, 1.0F, 4.0F), 4, 924, 0.6F);
    const float patch = glm::smoothstep(-0.30F, 0.45F, spaceFractal(slow * 1.2F + glm::vec3(31), 3, 925));
    const float veil = 0.20F * glm::smoothstep(-0.1F, 0.7F, curl + drift);
    const float dense = glm::smoothstep(-0.15F, 0.85F, strands + 0.30F * fine) * patch;
    const float cover = std::min(0.92F, dense * 0.9F + veil * patch) * aboveHorizon(direction.y, 0.0F, 0.22F);
    return glm::mix(air, glm::vec3(0.97F, 0.98F, 0.99F), cover);
}
