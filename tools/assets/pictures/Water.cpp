#include "tools/assets/pictures/Water.h"

#include "tools/assets/pictures/Noise.h"

#include <cmath>

namespace {

constexpr int side = 512;
constexpr float circle = 6.2831853F;

struct Swell {
    int waves = 60;
    float longest = 4; ///< Waves per picture of the longest swell.
    float shortest = 40;
    float decay = 1.6F; ///< How fast height falls with the number of waves per picture.
    float wind = 0.3F;  ///< 0: from all sides, toward 1: all along x.
};

/// The surface: its height, and where its points have been pushed together into crests.
struct Surface {
    Field height{side};
    Field crest{side};
};

/// A sum of waves, each of which fits the picture a whole number of times.
Surface makeSurface(const Swell &swell, std::uint32_t seed) {
    Random random(seed);
    Surface surface;
    double power = 0;
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
        power += 0.5 * static_cast<double>(height * height);
        const float phase = circle * random.fraction();
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const int place = ((across * x + down * y) % side + side) % side;
                const float c =
                    std::cos(circle * static_cast<float>(place) / static_cast<float>(side) + phase);
                surface.height.at(x, y) += height * c;
                // The waves push sideways too; where that gathers points, a crest sharpens.
                surface.crest.at(x, y) += height * real * c;
            }
        }
    }
    const auto scale = static_cast<float>(1.0 / std::sqrt(power));
    for (float &value : surface.height.values()) {
        value *= scale;
    }
    double crestPower = 0;
    for (const float value : surface.crest.values()) {
        crestPower += static_cast<double>(value * value);
    }
    const auto crestScale =
        static_cast<float>(std::sqrt(static_cast<double>(side) * static_cast<double>(side) / crestPower));
    for (float &value : surface.crest.values()) {
        value *= crestScale;
    }
    return surface;
}

/// The bright net of light that gentle waves gather: the borders between cells, bent by the surface.
float net(glm::vec2 uv, glm::vec2 bend, int period, std::uint32_t seed) {
    const float edge = cellNoise(uv + bend, period, 1.0F, seed).edge;
    return 0.65F * std::exp(-14.0F * edge) + 0.35F * std::exp(-4.0F * edge);
}

glm::vec3 tinted(float light) {
    // Nearly neutral: the level's water colour gives the hue.
    return ramp({{0.03F, 0.05F, 0.06F},
                 {0.16F, 0.21F, 0.24F},
                 {0.36F, 0.43F, 0.47F},
                 {0.66F, 0.72F, 0.75F},
                 {0.95F, 0.97F, 0.98F}},
                light);
}

} // namespace

Picture calmWater() {
    const Surface surface = makeSurface({40, 6, 26, 1.3F, 0.1F}, 801);
    Picture picture(side);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(side));
        const float h = surface.height.at(at.x, at.y);
        const glm::vec2 bend = 0.022F * glm::vec2(h, surface.height.at(at.x + 90, at.y + 40));
        const float light = 0.11F + 0.025F * h +
                            0.26F * net(uv, bend, 10, 802) * net(uv, -0.7F * bend, 7, 805) +
                            0.14F * net(uv, bend, 10, 802) + 0.06F * net(uv, 0.5F * bend, 21, 806);
        return tinted(light);
    });
    flattenLarge(picture, 80, 0.6F);
    return picture;
}

Picture rippledWater() {
    const Surface surface = makeSurface({80, 8, 36, 1.0F, 0.5F}, 811);
    Picture picture(side);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(side));
        const float h = surface.height.at(at.x, at.y);
        const float crest = surface.crest.at(at.x, at.y);
        const float glint = std::pow(glm::smoothstep(0.4F, 3.2F, crest), 1.6F);
        return tinted(0.19F + 0.055F * h + 0.05F * crest + 0.55F * glint);
    });
    flattenLarge(picture, 80, 0.6F);
    return picture;
}

Picture roughWater() {
    const Surface surface = makeSurface({110, 7, 56, 1.2F, 0.45F}, 821);
    Picture picture(side);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(side));
        const float h = surface.height.at(at.x, at.y);
        const float crest = surface.crest.at(at.x, at.y);
        const glm::vec2 bend = 0.02F * glm::vec2(crest, h);
        const float lace = ridgedNoise(uv + 0.6F * bend, 14, 5, 822);
        const float foam =
            glm::smoothstep(0.75F, 1.9F, crest + 0.35F * h) * glm::smoothstep(0.45F, 0.95F, lace);
        const float streaks =
            glm::smoothstep(0.86F, 1.05F, ridgedNoise(glm::vec2(uv.x, uv.y) + bend, 8, 5, 823)) * 0.22F;
        return tinted(0.16F + 0.07F * h + 0.06F * crest + 0.62F * foam +
                      streaks * glm::smoothstep(-1.0F, 1.5F, h));
    });
    flattenLarge(picture, 80, 0.6F);
    return picture;
}
