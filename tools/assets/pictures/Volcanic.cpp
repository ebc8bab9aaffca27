#include "tools/assets/pictures/Grounds.h"

#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Stones.h"

#include <cmath>

namespace {

constexpr int side = 1024;

/// What the basalt is made from, texel by texel.
struct Basalt {
    Field height{side};
    Field crack{side}; ///< How much of a glowing crack: 1 in its middle.
};

Basalt basalt() {
    Basalt rock;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const glm::vec2 uv = (glm::vec2(x, y) + 0.5F) / static_cast<float>(side);
            const glm::vec2 warp(0.022F * fractalNoise(uv, 8, 6, 601, 0.6F),
                                 0.022F * fractalNoise(uv, 8, 6, 602, 0.6F));
            const CellSample slab = cellNoise(uv + warp, 8, 0.9F, 603);
            const CellSample chip = cellNoise(uv + 1.3F * warp, 27, 1.0F, 604);
            const float open = glm::smoothstep(-0.45F, 0.35F, fractalNoise(uv, 5, 3, 605));
            const float width = glm::mix(0.018F, 0.060F, open);
            rock.crack.at(x, y) = 1.0F - glm::smoothstep(0.25F * width, width, slab.edge);
            const float tilt = 0.22F * (static_cast<float>(chip.id & 0xFFU) / 255.0F - 0.5F);
            const float edges = glm::smoothstep(0.0F, 0.09F, chip.edge);
            const float rounded = 1.0F - std::exp(-7.0F * slab.edge);
            rock.height.at(x, y) = 0.55F * rounded + tilt * rounded + 0.16F * edges +
                                   0.20F * ridgedNoise(uv, 20, 5, 606) +
                                   0.10F * fractalNoise(uv, 70, 4, 607, 0.7F);
        }
    }
    return rock;
}

/// Pores: small round holes of hashed sizes.
float pores(glm::vec2 uv, int period, std::uint32_t seed) {
    const CellSample cell = cellNoise(uv, period, 0.9F, seed);
    const float radius = 0.38F * std::pow(static_cast<float>(cell.id >> 8U) / 16777216.0F, 2.0F);
    return 1.0F - glm::smoothstep(0.6F * radius, radius + 0.02F, cell.nearest);
}

glm::vec3 glow(float heat) {
    return ramp({{0.0F, 0.0F, 0.0F},
                 {0.42F, 0.05F, 0.01F},
                 {0.88F, 0.22F, 0.02F},
                 {1.0F, 0.55F, 0.08F},
                 {1.0F, 0.88F, 0.42F}},
                heat);
}

} // namespace

Picture glowingBasalt() {
    const Basalt rock = basalt();
    const Field cavity = relief(rock.height, 16);
    const Field level = levelness(rock.height, 22.0F);
    const Field halo = blurred(rock.crack, 16);
    Picture picture(side);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(side));
        const float tone = fractalNoise(uv, 9, 6, 610, 0.6F);
        glm::vec3 color =
            glm::mix(glm::vec3(0.40F, 0.40F, 0.42F), glm::vec3(0.50F, 0.47F, 0.44F), 0.5F + 0.5F * tone);
        color *= 1.0F + 0.12F * tone - 0.28F * pores(uv, 90, 611);
        color *= (0.42F + 0.58F * level.at(at.x, at.y)) * (1.0F + 0.95F * cavity.at(at.x, at.y));
        const float crack = rock.crack.at(at.x, at.y);
        const float flicker = 0.78F + 0.35F * fractalNoise(uv, 12, 4, 612);
        color = glm::mix(color, glm::vec3(0.05F, 0.03F, 0.03F), 0.85F * crack);
        const float embers = std::pow(crack, 1.5F) * flicker;
        color += glow(embers) + glm::vec3(0.50F, 0.13F, 0.02F) * 1.1F * halo.at(at.x, at.y) * flicker;
        return color;
    });
    flattenLarge(picture, 170, 0.4F);
    setMeanLuminance(picture, 0.39F);
    return picture;
}

Picture ashAndCinders() {
    constexpr int fine = 2 * side;
    Random random(621);
    std::vector<Stone> stones = scatterStones(fine, 3600, 5, 46, 0.05F, random);
    for (Stone &stone : stones) {
        stone.corners = 0.26F;
    }
    StoneLayer layer(fine);
    layStones(layer, stones, 2.2F);
    Field ground(fine);
    ground.fill([](glm::vec2 uv) {
        const glm::vec2 warp(0.03F * fractalNoise(uv, 6, 3, 622), 0.03F * fractalNoise(uv, 6, 3, 623));
        return 26.0F * fractalNoise(uv + warp, 9, 6, 624, 0.55F);
    });
    const Field drifts = relief(ground, 60);
    const Field cavity = relief(layer.height, 16);
    Picture picture(fine);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(fine));
        const float grain = hashedFraction(at.x / 2, at.y / 2, 625) - 0.5F;
        const float shade = glm::clamp(1.0F + 0.03F * cavity.at(at.x, at.y), 0.35F, 1.25F);
        const float drift = glm::clamp(1.0F + 0.012F * drifts.at(at.x, at.y), 0.7F, 1.25F);
        const glm::vec3 ash = glm::mix(glm::vec3(0.56F, 0.54F, 0.52F), glm::vec3(0.66F, 0.64F, 0.63F),
                                       0.5F + 0.5F * fractalNoise(uv, 10, 5, 626)) *
                              (1.0F + 0.10F * grain + 0.07F * fractalNoise(uv, 100, 4, 627, 0.7F)) * drift *
                              shade;
        const int owner = layer.owner.at(at.x, at.y);
        if (owner < 0) {
            return ash;
        }
        const Stone &stone = stones[static_cast<std::size_t>(owner)];
        const float rust = std::pow(hashedFraction(1, 3, stone.seed), 2.5F);
        glm::vec3 cinder = glm::mix(glm::vec3(0.34F, 0.33F, 0.33F), glm::vec3(0.52F, 0.30F, 0.22F), rust);
        cinder *= 0.75F + 0.5F * hashedFraction(2, 3, stone.seed);
        const float rough = ridgedNoise(uv, 60, 4, 628);
        cinder *= 0.70F + 0.60F * rough - 0.35F * pores(uv, 170, 629);
        const float rim = layer.rim.at(at.x, at.y);
        cinder *= 1.15F - 0.5F * rim * rim;
        // Ash has settled on the flat tops of some.
        const float dust = glm::smoothstep(0.1F, 0.6F, fractalNoise(uv, 50, 4, 630)) * (1.0F - rim) *
                           hashedFraction(4, 3, stone.seed);
        return glm::mix(cinder, ash, dust);
    });
    Picture out = halved(picture);
    flattenLarge(out, 150, 0.6F);
    setMeanLuminance(out, 0.47F);
    return out;
}
