#include "tools/assets/pictures/Grounds.h"

#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Stones.h"

#include <cmath>

namespace {

/// What the basalt is made from, texel by texel.
struct Basalt {
    Field height{groundSide};
    Field crack{groundSide}; ///< How much of a glowing crack: 1 in its middle.
};

Basalt basalt() {
    Basalt rock;
    for (int y = 0; y < groundSide; ++y) {
        for (int x = 0; x < groundSide; ++x) {
            const glm::vec2 uv = (glm::vec2(x, y) + 0.5F) / static_cast<float>(groundSide);
            const glm::vec2 warp(0.022F * fractalNoise(uv, 8, 6, 601, 0.6F),
                                 0.022F * fractalNoise(uv, 8, 6, 602, 0.6F));
            const CellSample slab = cellNoise(uv + warp, 11, 0.95F, 603);
            const CellSample chip = cellNoise(uv + 1.3F * warp, 27, 1.0F, 604);
            const float open = glm::smoothstep(-0.45F, 0.35F, fractalNoise(uv, 13, 3, 605));
            const float width = glm::mix(0.026F, 0.062F, open);
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
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(groundSide));
        const float tone = fractalNoise(uv, 9, 6, 610, 0.6F);
        glm::vec3 color =
            glm::mix(glm::vec3(0.33F, 0.33F, 0.35F), glm::vec3(0.42F, 0.39F, 0.36F), 0.5F + 0.5F * tone);
        color *= 1.0F + 0.12F * tone - 0.28F * pores(uv, 90, 611);
        color *= (0.42F + 0.58F * level.at(at.x, at.y)) * (1.0F + 0.95F * cavity.at(at.x, at.y));
        const float crack = rock.crack.at(at.x, at.y);
        const float flicker = 0.78F + 0.35F * fractalNoise(uv, 12, 4, 612);
        color = glm::mix(color, glm::vec3(0.05F, 0.03F, 0.03F), 0.85F * crack);
        // Where cracks meet there is more of them, but it is no hotter: nodes would show as a grid of lights.
        const float embers = std::min(0.85F, 1.1F * std::pow(crack, 1.2F) * flicker);
        color += glow(embers) +
                 glm::vec3(0.50F, 0.13F, 0.02F) * 0.9F * std::min(0.55F, halo.at(at.x, at.y)) * flicker;
        return color;
    });
    return picture;
}

Picture ashAndCinders() {
    constexpr int fine = 2 * groundSide;
    Random random(621);
    std::vector<Stone> stones = scatterStones(fine, 1900, 4, 50, 0.05F, random);
    for (Stone &stone : stones) {
        stone.corners = 0.22F;
    }
    StoneLayer layer(fine);
    layStones(layer, stones, 2.2F);
    // What needs no clean outline is made at the final size.
    Field ground(groundSide);
    ground.fill([](glm::vec2 uv) {
        const glm::vec2 warp(0.03F * fractalNoise(uv, 6, 3, 622), 0.03F * fractalNoise(uv, 6, 3, 623));
        return fractalNoise(uv + warp, 9, 6, 624, 0.55F);
    });
    const Field drifts = relief(ground, 30);
    Field tone(groundSide);
    tone.fill([](glm::vec2 uv) { return fractalNoise(uv, 10, 5, 626); });
    Field rough(groundSide);
    rough.fill([](glm::vec2 uv) { return ridgedNoise(uv, 60, 4, 628) - 0.55F * pores(uv, 170, 629); });
    Field dusty(groundSide);
    dusty.fill([](glm::vec2 uv) { return fractalNoise(uv, 50, 4, 630); });
    Field grit(groundSide);
    grit.fill([](glm::vec2 uv) { return fractalNoise(uv, 100, 3, 627, 0.7F); });
    const Field cavity = relief(layer.height, 16);
    Picture picture(fine);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(fine));
        const glm::ivec2 half = at / 2;
        const float grain = hashedFraction(half.x, half.y, 625) - 0.5F;
        const float shade = glm::clamp(1.0F + 0.03F * cavity.at(at.x, at.y), 0.35F, 1.25F);
        const float drift = glm::clamp(1.0F + 0.30F * drifts.at(half.x, half.y), 0.7F, 1.25F);
        const glm::vec3 ash = glm::mix(glm::vec3(0.22F, 0.21F, 0.21F), glm::vec3(0.31F, 0.30F, 0.29F),
                                       0.5F + 0.5F * tone.at(half.x, half.y)) *
                              (1.0F + 0.10F * grain + 0.07F * grit.at(half.x, half.y)) * drift * shade;
        const int owner = layer.owner.at(at.x, at.y);
        if (owner < 0) {
            return ash;
        }
        const Stone &stone = stones[static_cast<std::size_t>(owner)];
        const float rust = std::pow(hashedFraction(1, 3, stone.seed), 7.0F);
        glm::vec3 cinder = glm::mix(glm::vec3(0.50F, 0.49F, 0.48F), glm::vec3(0.55F, 0.40F, 0.33F), rust);
        cinder *= 0.75F + 0.5F * hashedFraction(2, 3, stone.seed);
        cinder *= 0.72F + 0.60F * rough.at(half.x, half.y);
        const float rim = layer.rim.at(at.x, at.y);
        cinder *= 1.15F - 0.5F * rim * rim;
        // Ash has settled on the flat tops of some.
        const float dust = 0.6F * glm::smoothstep(0.1F, 0.6F, dusty.at(half.x, half.y)) * (1.0F - rim) *
                           hashedFraction(4, 3, stone.seed);
        return glm::mix(cinder, ash, dust);
    });
    Picture out = halved(picture);
    return out;
}
