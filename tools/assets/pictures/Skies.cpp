#include "tools/assets/pictures/Skies.h"

#include "tools/assets/pictures/Noise.h"

#include <algorithm>
#include <cmath>

namespace {

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

/// Thin sheets of dust along the horizon.
glm::vec3 dust(glm::vec3 direction, glm::vec3 air) {
    const glm::vec3 p(2.2F * direction.x, 26.0F * direction.y, 2.2F * direction.z);
    const float sheets = glm::smoothstep(0.0F, 0.8F, spaceFractal(p, 4, 901));
    const float where = std::exp(-std::pow((direction.y - 0.10F) / 0.075F, 2.0F));
    return glm::mix(air, glm::vec3(0.97F, 0.86F, 0.73F), 0.42F * sheets * where);
}

glm::vec3 overcast(glm::vec3 direction, glm::vec3 air) {
    const glm::vec2 plane = cloudPlane(direction);
    const glm::vec3 p(0.62F * plane.x, 0.0F, 0.62F * plane.y);
    const glm::vec3 warp(spaceFractal(p * 1.3F, 3, 911), 0, spaceFractal(p * 1.3F, 3, 912));
    const float rolls = spaceFractal(p * 0.8F + 0.22F * warp, 4, 913, 0.5F);
    const float lumps = billows(p * 1.9F + 0.35F * warp, 914);
    const float light = 0.62F + 0.50F * rolls - 0.62F * lumps;
    glm::vec3 cloud = glm::mix(glm::vec3(0.40F, 0.45F, 0.52F), glm::vec3(0.84F, 0.87F, 0.89F),
                               glm::smoothstep(0.0F, 1.0F, light));
    cloud *= 1.0F + 0.05F * spaceFractal(p * 5.0F + warp, 3, 915);
    return glm::mix(air, cloud, aboveHorizon(direction.y, 0.0F, 0.22F));
}

glm::vec3 cirri(glm::vec3 direction, glm::vec3 air) {
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
    const float cover =
        std::min(0.92F, dense * 0.9F + veil * patch) * aboveHorizon(direction.y, 0.02F, 0.20F);
    return glm::mix(air, glm::vec3(0.97F, 0.98F, 0.99F), cover);
}

} // namespace

const std::vector<Sky> &skies() {
    static const std::vector<Sky> list{
        {"cloud1",
         1024,
         {{{{0.85F, 0.89F, 0.90F},
            {0.70F, 0.83F, 0.92F},
            {0.42F, 0.65F, 0.89F},
            {0.23F, 0.47F, 0.79F},
            {0.13F, 0.34F, 0.68F}}}},
         {{0.43F, 0.50F, 0.41F}, {0.36F, 0.46F, 0.53F}, 0.062F, 0.034F},
         cumulus},
        {"cloud2",
         512,
         {{{{0.80F, 0.81F, 0.81F},
            {0.75F, 0.78F, 0.80F},
            {0.70F, 0.74F, 0.78F},
            {0.62F, 0.67F, 0.72F},
            {0.58F, 0.63F, 0.69F}}}},
         {{0.38F, 0.40F, 0.38F}, {0.34F, 0.39F, 0.43F}, 0.066F, 0.034F},
         overcast},
        {"cirri",
         512,
         {{{{0.88F, 0.91F, 0.92F},
            {0.71F, 0.84F, 0.93F},
            {0.42F, 0.65F, 0.88F},
            {0.23F, 0.46F, 0.77F},
            {0.14F, 0.33F, 0.65F}}}},
         {{0.45F, 0.52F, 0.48F}, {0.38F, 0.49F, 0.59F}, 0.075F, 0.034F},
         cirri},
        {"clean1",
         512,
         {{{{0.94F, 0.92F, 0.85F},
            {0.76F, 0.87F, 0.92F},
            {0.46F, 0.71F, 0.92F},
            {0.23F, 0.50F, 0.83F},
            {0.11F, 0.31F, 0.66F}}}},
         {{0.44F, 0.51F, 0.41F}, {0.37F, 0.49F, 0.56F}, 0.055F, 0.032F},
         nullptr},
        {"clean2",
         512,
         {{{{0.97F, 0.82F, 0.62F},
            {0.91F, 0.80F, 0.70F},
            {0.62F, 0.70F, 0.79F},
            {0.34F, 0.50F, 0.71F},
            {0.17F, 0.31F, 0.56F}}}},
         {{0.60F, 0.48F, 0.37F}, {0.56F, 0.43F, 0.40F}, 0.080F, 0.042F},
         dust},
    };
    return list;
}

glm::vec3 Sky::color(glm::vec3 direction) const {
    glm::vec3 above = air.color(direction);
    if (clouds != nullptr && direction.y > 0.0F) {
        above = clouds(direction, above);
    }
    return land.over(above, air.horizon(), direction);
}

glm::vec3 Air::color(glm::vec3 direction) const {
    const float uneven = spaceFractal(glm::vec3(1.7F, 5.0F, 1.7F) * direction, 3, 71);
    const float up = std::max(0.0F, direction.y);
    const float height = std::max(0.0F, up + haze * uneven * glm::smoothstep(0.0F, 0.1F, up));
    // Stops lie closer together toward the horizon, where most of what one sees of a sky is.
    constexpr float start = 0.1F;
    const float scaled =
        std::min(0.9999F, (std::sqrt(height + start * start) - start) / (1.005F - start)) * 4.0F;
    const int below = static_cast<int>(scaled);
    const auto stop = [this](int i) { return stops[static_cast<std::size_t>(std::clamp(i, 0, 4))]; };
    const float t = scaled - static_cast<float>(below);
    const glm::vec3 a = stop(below);
    const glm::vec3 b = stop(below + 1);
    // A curve through the stops: straight pieces would show as bands where they meet.
    const glm::vec3 leaving = 0.5F * (b - stop(below - 1));
    const glm::vec3 arriving = 0.5F * (stop(below + 2) - a);
    const glm::vec3 bend = 3.0F * (b - a) - 2.0F * leaving - arriving;
    const glm::vec3 twist = 2.0F * (a - b) + leaving + arriving;
    return a + t * (leaving + t * (bend + t * twist));
}

glm::vec2 cloudPlane(glm::vec3 direction) {
    // Distance to a sphere around the world's centre, one layer height above a viewer at `radius`.
    constexpr float radius = 90;
    const float up = std::max(0.0F, direction.y);
    const float b = radius * up;
    const float distance = -b + std::sqrt(b * b + 2.0F * radius + 1.0F);
    return distance * glm::vec2(direction.x, direction.z);
}
