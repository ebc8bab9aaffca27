#include "tools/assets/pictures/Grounds.h"

#include "tools/assets/pictures/GrassBlades.h"
#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Ripples.h"
#include "tools/assets/pictures/Stones.h"
#include "tools/assets/pictures/Stroke.h"

namespace {

glm::ivec2 texel(glm::vec2 uv, int side) {
    return glm::ivec2(uv * static_cast<float>(side));
}

/// Dried mud: plates with curled rims between cracks of two sizes.
struct Mud {
    Field height{groundSide};
    Field plate{groundSide}; ///< A number from 0 to 1 per plate.
};

Mud driedMud() {
    Mud mud;
    for (int y = 0; y < groundSide; ++y) {
        for (int x = 0; x < groundSide; ++x) {
            const glm::vec2 uv = (glm::vec2(x, y) + 0.5F) / static_cast<float>(groundSide);
            const glm::vec2 warp(0.018F * fractalNoise(uv, 9, 5, 501, 0.6F),
                                 0.018F * fractalNoise(uv, 9, 5, 502, 0.6F));
            const CellSample large = cellNoise(uv + warp, 9, 0.95F, 503);
            const CellSample small = cellNoise(uv + 0.8F * warp, 23, 1.0F, 504);
            const float width = 0.055F * (1.0F + 0.5F * fractalNoise(uv, 20, 3, 505));
            const float deep = glm::smoothstep(0.25F * width, width, large.edge);
            // Only some of the fine cracks have opened.
            const float open = glm::smoothstep(-0.25F, 0.35F, fractalNoise(uv, 7, 3, 506));
            const float fine = glm::mix(1.0F, glm::smoothstep(0.02F, 0.075F, small.edge), 0.75F * open);
            const float curl = std::exp(-9.0F * large.edge) * 0.30F;
            mud.height.at(x, y) =
                deep * (0.72F + curl) * (0.35F + 0.65F * fine) + 0.05F * fractalNoise(uv, 24, 5, 507);
            mud.plate.at(x, y) = static_cast<float>(large.id >> 8U) / 16777216.0F;
        }
    }
    return mud;
}

/// A speckle of grains: per texel and slightly larger.
float grain(glm::ivec2 at, std::uint32_t seed) {
    return hashedFraction(at.x, at.y, seed) - 0.5F +
           0.7F * (hashedFraction(at.x / 2, at.y / 2, seed + 1) - 0.5F);
}

/// Small stones up to `largest` texels, none with its middle where `taken` (twice the size) has an owner.
void scatterGrit(Picture &picture, int count, float largest, const std::vector<glm::vec3> &colors,
                 Random &random, const Torus<int> *taken = nullptr) {
    for (int i = 0; i < count; ++i) {
        const glm::vec2 middle =
            static_cast<float>(picture.side()) * glm::vec2(random.fraction(), random.fraction());
        const float size = 1.0F + (largest - 1.0F) * std::pow(random.fraction(), 3.0F);
        const glm::vec3 color = ramp(colors, random.fraction()) * random.between(0.8F, 1.15F);
        const float slim = random.between(0.6F, 1.0F);
        const float turn = circle * random.fraction();
        if (taken != nullptr &&
            taken->at(static_cast<int>(2.0F * middle.x), static_cast<int>(2.0F * middle.y)) >= 0) {
            continue;
        }
        drawStamp(middle, 1.9F * size, turn, [&](int x, int y, glm::vec2 q) {
            const float d = 1.9F * glm::length(glm::vec2(q.x, q.y / slim));
            const float shade = 1.0F - 0.35F * glm::smoothstep(1.9F, 1.0F, d);
            if (d > 1.0F) {
                picture.at(x, y) *= shade;
            }
            blend(picture, x, y, color * (1.12F - 0.4F * d * d),
                  glm::clamp((1.0F - d) * size + 0.5F, 0.0F, 1.0F));
        });
    }
}

/// The colour of stone `id` at a place: its own tone, layers, speckles.
glm::vec3 stoneColor(const Stone &stone, glm::vec2 uv, float mottling, const std::vector<glm::vec3> &kinds) {
    const float tone = hashedFraction(1, 9, stone.seed);
    // A large stone of an uncommon tone would be found again in every repeat.
    const float freedom = glm::mix(1.0F, 0.35F, glm::smoothstep(12.0F, 60.0F, stone.size));
    const glm::vec3 base = ramp(kinds, glm::mix(0.45F, tone, freedom)) *
                           (1.0F + 0.32F * freedom * (hashedFraction(2, 9, stone.seed) - 0.5F));
    const float turn = circle * hashedFraction(3, 9, stone.seed);
    // Some kinds are banded.
    float banded = 0;
    if (hashedFraction(4, 9, stone.seed) > 0.6F) {
        banded = 0.07F * std::sin(900.0F * (uv.x * std::cos(turn) + uv.y * std::sin(turn)) + 5.0F * mottling);
    }
    return base * (1.0F + banded + 0.16F * mottling);
}

} // namespace

Picture crackedEarth() {
    const Mud mud = driedMud();
    const Field cavity = relief(mud.height, 14);
    const Field level = levelness(mud.height, 9.0F);
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at = texel(uv, groundSide);
        const float dust = 0.5F + 0.5F * fractalNoise(uv, 8, 6, 510, 0.6F);
        glm::vec3 color = ramp({{0.50F, 0.30F, 0.22F}, {0.64F, 0.40F, 0.29F}, {0.75F, 0.53F, 0.41F}},
                               0.25F + 0.5F * dust + 0.25F * (mud.plate.at(at.x, at.y) - 0.5F));
        color *= 1.0F + 0.09F * fractalNoise(uv, 90, 4, 511, 0.7F) + 0.05F * grain(at, 512);
        const float height = mud.height.at(at.x, at.y);
        const glm::vec3 shade =
            glm::mix(glm::vec3(0.36F, 0.27F, 0.24F), glm::vec3(1), glm::smoothstep(0.02F, 0.62F, height));
        return color * shade * (0.55F + 0.45F * level.at(at.x, at.y)) *
               (1.0F + 0.55F * cavity.at(at.x, at.y));
    });
    Random random(513);
    scatterGrit(picture, 1500, 4.5F, {{0.50F, 0.27F, 0.18F}, {0.72F, 0.46F, 0.32F}, {0.60F, 0.44F, 0.36F}},
                random);
    return picture;
}

Picture stonyDesert() {
    // Twice the size and averaged down, for clean outlines.
    constexpr int fine = 2 * groundSide;
    Random random(521);
    const std::vector<Stone> stones = scatterStones(fine, 6400, 7, 72, 0.03F, random);
    StoneLayer layer(fine);
    layStones(layer, stones, 2.6F);
    const Field cavity = relief(layer.height, 30);
    const std::vector<glm::vec3> kinds{{0.52F, 0.44F, 0.38F},
                                       {0.66F, 0.57F, 0.46F},
                                       {0.60F, 0.46F, 0.36F},
                                       {0.55F, 0.53F, 0.51F},
                                       {0.68F, 0.60F, 0.49F}};
    // What needs no clean outline is made at the final size.
    Field mottling(groundSide);
    mottling.fill([](glm::vec2 uv) { return fractalNoise(uv, 64, 5, 520, 0.65F); });
    Field sandy(groundSide);
    sandy.fill([](glm::vec2 uv) { return fractalNoise(uv, 40, 5, 523, 0.7F); });
    Picture picture(fine);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at = texel(uv, fine);
        const glm::ivec2 half = at / 2;
        const int owner = layer.owner.at(at.x, at.y);
        const float shade = glm::clamp(1.0F + 0.022F * cavity.at(at.x, at.y), 0.35F, 1.22F);
        if (owner < 0) {
            const float sand = 1.0F + 0.10F * sandy.at(half.x, half.y) + 0.16F * grain(half, 524);
            return glm::vec3(0.76F, 0.63F, 0.47F) * sand * shade * shade;
        }
        const float rim = layer.rim.at(at.x, at.y);
        const float dome = 1.06F - 0.30F * rim * rim - 0.35F * glm::smoothstep(0.88F, 1.0F, rim);
        return stoneColor(stones[static_cast<std::size_t>(owner)], uv, mottling.at(half.x, half.y), kinds) *
               dome * glm::mix(1.0F, shade, 0.6F);
    });
    Picture out = halved(picture);
    scatterGrit(out, 9000, 3.2F, kinds, random, &layer.owner);
    return out;
}

Picture windRipples() {
    const Field ripples = sandRipples(groundSide, 19, 531);
    const Field fine = sandRipples(groundSide, 61, 532);
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at = texel(uv, groundSide);
        const float height = ripples.at(at.x, at.y) + 0.12F * fine.at(at.x, at.y);
        const float broad = fractalNoise(uv, 6, 4, 533);
        glm::vec3 color =
            ramp({{0.56F, 0.42F, 0.29F}, {0.74F, 0.58F, 0.40F}, {0.86F, 0.71F, 0.51F}, {0.93F, 0.81F, 0.62F}},
                 0.10F + 0.80F * height + 0.08F * broad);
        color *= 1.0F + 0.05F * fractalNoise(uv, 128, 3, 534, 0.8F) + 0.07F * grain(at, 535);
        return color;
    });
    Random random(536);
    scatterGrit(picture, 700, 2.6F, {{0.48F, 0.36F, 0.27F}, {0.66F, 0.54F, 0.42F}}, random);
    return picture;
}

Picture fineSand() {
    Field height(groundSide);
    height.fill([](glm::vec2 uv) {
        const glm::vec2 warp(0.03F * fractalNoise(uv, 5, 3, 541), 0.03F * fractalNoise(uv, 5, 3, 542));
        return 0.6F * fractalNoise(uv + warp, 9, 6, 543, 0.55F) + 0.5F * ridgedNoise(uv + warp, 14, 3, 544);
    });
    const Field cavity = relief(height, 30);
    const Field level = levelness(height, 16.0F);
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at = texel(uv, groundSide);
        const float damp = 0.5F + 0.5F * fractalNoise(uv, 6, 4, 545);
        glm::vec3 color = glm::mix(glm::vec3(0.88F, 0.78F, 0.60F), glm::vec3(0.80F, 0.69F, 0.52F), damp);
        // Every grain has its own mineral: pale quartz, amber, a few dark ones.
        const float mineral = hashedFraction(at.x, at.y, 546);
        const glm::vec3 tint = mineral > 0.965F  ? glm::vec3(0.62F, 0.56F, 0.52F)
                               : mineral > 0.80F ? glm::vec3(1.10F, 1.09F, 1.07F)
                               : mineral > 0.62F ? glm::vec3(0.98F, 0.90F, 0.80F)
                                                 : glm::vec3(1);
        color *= tint * (1.0F + 0.09F * grain(at, 547));
        return color * (0.72F + 0.28F * level.at(at.x, at.y)) * (1.0F + 0.22F * cavity.at(at.x, at.y));
    });
    Random random(548);
    scatterGrit(picture, 2600, 2.2F, {{0.52F, 0.44F, 0.38F}, {0.93F, 0.88F, 0.80F}, {0.84F, 0.68F, 0.54F}},
                random);
    scatterGrit(picture, 130, 6.0F, {{0.96F, 0.92F, 0.86F}, {0.90F, 0.76F, 0.68F}, {0.66F, 0.60F, 0.56F}},
                random);
    return picture;
}
