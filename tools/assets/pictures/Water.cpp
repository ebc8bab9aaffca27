#include "tools/assets/pictures/Water.h"

#include "tools/assets/pictures/Noise.h"

#include <array>
#include <cmath>

namespace {

constexpr int waterSide = 512;

struct Swell {
    int waves = 60;
    float longest = 4; ///< Waves per picture of the longest swell.
    float shortest = 40;
    float decay = 1.6F; ///< How fast height falls with the number of waves per picture.
    float wind = 0.3F;  ///< 0: from all sides, toward 1: all along x.
};

/// The surface: its height, and where its points have been pushed together into crests.
struct Surface {
    Field height{waterSide};
    Field crest{waterSide};
};

/// A sum of waves, each of which fits the picture a whole number of times.
Surface makeSurface(const Swell &swell, std::uint32_t seed) {
    Random random(seed);
    Surface surface;
    for (int i = 0; i < swell.waves; ++i) {
        const float share = static_cast<float>(i) / static_cast<float>(swell.waves - 1);
        const float number =
            swell.longest * std::pow(swell.shortest / swell.longest, share) * random.between(0.85F, 1.15F);
        const float angle = circle * random.fraction();
        const float along = std::abs(std::cos(angle));
        const int across = static_cast<int>(std::lround(number * std::cos(angle)));
        const int down = static_cast<int>(std::lround(number * std::sin(angle)));
        if (across == 0 && down == 0) {
            continue;
        }
        const float real = std::sqrt(static_cast<float>(across * across + down * down));
        const float height = std::pow(real, -swell.decay) * glm::mix(1.0F, along * along, swell.wind);
        const float phase = circle * random.fraction();
        // A wave that fits the picture takes no other values than these along a row.
        std::array<float, waterSide> profile{};
        for (std::size_t place = 0; place < profile.size(); ++place) {
            profile[place] =
                height * std::cos(circle * static_cast<float>(place) / static_cast<float>(waterSide) + phase);
        }
        for (int y = 0; y < waterSide; ++y) {
            for (int x = 0; x < waterSide; ++x) {
                const auto place = static_cast<std::size_t>((across * x + down * y) & (waterSide - 1));
                surface.height.at(x, y) += profile[place];
                // The waves push sideways too; where that gathers points, a crest sharpens.
                surface.crest.at(x, y) += real * profile[place];
            }
        }
    }
    // Crests are as frequent in one place as in another, else they would stand in rows on a repeat.
    surface.height = standardised(surface.height, 110);
    surface.crest = standardised(surface.crest, 36);
    return surface;
}

/// The bright net of light that gentle waves gather: the borders between cells, bent by the surface.
float net(glm::vec2 uv, glm::vec2 bend, int period, std::uint32_t seed) {
    const float edge = cellNoise(uv + bend, period, 1.0F, seed).edge;
    return 0.65F * std::exp(-14.0F * edge) + 0.35F * std::exp(-4.0F * edge);
}

/// From a trough through the body to a crest that catches the sky. The level's water colour gives the hue,
/// but what lies under water is seldom blue: a body that is bluer than it is bright hides more of it.
using Tones = std::vector<glm::vec3>;

const Tones clearTones{{0.01F, 0.05F, 0.08F},
                       {0.06F, 0.17F, 0.24F},
                       {0.24F, 0.38F, 0.44F},
                       {0.62F, 0.73F, 0.76F},
                       {0.95F, 0.97F, 0.98F}};
const Tones deepTones{{0.01F, 0.10F, 0.21F},
                      {0.05F, 0.23F, 0.42F},
                      {0.18F, 0.42F, 0.59F},
                      {0.60F, 0.75F, 0.84F},
                      {0.95F, 0.97F, 0.98F}};
const Tones stormTones{{0.06F, 0.07F, 0.08F},
                       {0.17F, 0.19F, 0.21F},
                       {0.36F, 0.39F, 0.41F},
                       {0.68F, 0.71F, 0.72F},
                       {0.95F, 0.96F, 0.97F}};

} // namespace

Picture calmWater() {
    const Surface surface = makeSurface({40, 9, 30, 1.3F, 0.1F}, 801);
    Picture picture(waterSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(waterSide));
        const float h = surface.height.at(at.x, at.y);
        const glm::vec2 bend = 0.016F * glm::vec2(h, surface.height.at(at.x + 90, at.y + 40));
        const float light = 0.15F + 0.02F * h +
                            0.32F * net(uv, bend, 13, 802) * net(uv, -0.7F * bend, 11, 805) +
                            0.16F * net(uv, bend, 13, 802) + 0.06F * net(uv, 0.5F * bend, 27, 806);
        return ramp(clearTones, light);
    });
    return picture;
}

Picture rippledWater() {
    const Surface surface = makeSurface({80, 11, 44, 1.0F, 0.5F}, 811);
    Picture picture(waterSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(waterSide));
        const float h = surface.height.at(at.x, at.y);
        const float crest = surface.crest.at(at.x, at.y);
        const float glint = std::pow(glm::smoothstep(1.2F, 3.4F, crest), 1.4F);
        return ramp(deepTones, 0.20F + 0.035F * h + 0.045F * crest + 0.50F * glint);
    });
    return picture;
}

Picture roughWater() {
    const Surface surface = makeSurface({110, 9, 60, 1.2F, 0.45F}, 821);
    Picture picture(waterSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(waterSide));
        const float h = surface.height.at(at.x, at.y);
        const float crest = surface.crest.at(at.x, at.y);
        const glm::vec2 bend = 0.02F * glm::vec2(crest, h);
        const float lace = ridgedNoise(uv + 0.6F * bend, 17, 5, 822);
        const float foam =
            glm::smoothstep(0.9F, 2.3F, crest + 0.35F * h) * glm::smoothstep(0.40F, 0.90F, lace);
        return ramp(stormTones, 0.18F + 0.05F * h + 0.06F * crest + 0.55F * foam);
    });
    return picture;
}
