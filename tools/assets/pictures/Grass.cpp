#include "tools/assets/pictures/Grounds.h"

#include "tools/assets/pictures/GrassBlades.h"
#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Stroke.h"

namespace {

/// Soil with crumbs, the same recipe under every grass.
Picture soil(const std::vector<glm::vec3> &stops, std::uint32_t seed) {
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const float broad = fractalNoise(uv, 10, 5, seed, 0.6F);
        const float crumbs = fractalNoise(uv, 90, 3, seed + 7, 0.8F);
        return ramp(stops, 0.5F + 0.3F * broad) * (1.0F + 0.16F * crumbs);
    });
    return picture;
}

/// Where there is more than elsewhere, the same share in every part of the picture.
Field patches(int period, float threshold, float softness, std::uint32_t seed) {
    Field field(groundSide);
    field.fill([&](glm::vec2 uv) { return fractalNoise(uv, period, 4, seed); });
    field = standardised(field, 2 * groundSide / period);
    for (float &value : field.values()) {
        value = glm::smoothstep(threshold - softness, threshold + softness, value);
    }
    return field;
}

/// Slow changes of hue that keep the brightness: `toward` at 1, its opposite at -1.
void drift(Picture &picture, glm::vec3 toward, std::uint32_t seed) {
    const float step = 1.0F / static_cast<float>(picture.side());
    for (int y = 0; y < picture.side(); ++y) {
        for (int x = 0; x < picture.side(); ++x) {
            const float amount = fractalNoise(glm::vec2(x, y) * step, 11, 3, seed);
            picture.at(x, y) *= glm::vec3(1) + toward * amount;
        }
    }
}

/// A cushion of moss: domes of several sizes under a short pile.
Field mossHeight() {
    Field height(groundSide);
    height.fill([](glm::vec2 uv) {
        const glm::vec2 warp(0.02F * fractalNoise(uv, 12, 3, 41), 0.02F * fractalNoise(uv, 12, 3, 43));
        const float large = 1.0F - cellNoise(uv + warp, 13, 0.95F, 44).nearest;
        const float middle = 1.0F - cellNoise(uv + 0.7F * warp, 31, 0.95F, 45).nearest;
        return 0.62F * large + 0.3F * middle + 0.12F * fractalNoise(uv, 48, 3, 46);
    });
    return height;
}

/// The pile itself: short bright sprigs that stand out from the middle of each cushion.
void drawMossPile(Picture &picture, const Field &height, Random &random) {
    for (int sprig = 0; sprig < 90000; ++sprig) {
        const glm::vec2 root(groundSide * random.fraction(), groundSide * random.fraction());
        const int x = static_cast<int>(root.x);
        const int y = static_cast<int>(root.y);
        const glm::vec2 down(height.at(x - 3, y) - height.at(x + 3, y),
                             height.at(x, y - 3) - height.at(x, y + 3));
        const float angle = std::atan2(down.y, down.x) + 0.9F * random.bell();
        const glm::vec3 tip = glm::mix(picture.at(x, y) * 1.3F, glm::vec3(0.56F, 0.62F, 0.25F), 0.28F);
        drawBlade(picture, root, angle, random.between(4.0F, 11.0F), random.between(0.7F, 1.2F),
                  picture.at(x, y) * 0.8F, tip * random.between(0.75F, 1.15F), random);
    }
}

/// Fallen needles, twigs and leaves.
void drawLitter(Picture &picture, int count, Random &random) {
    const std::vector<glm::vec3> stops{{0.36F, 0.29F, 0.19F}, {0.50F, 0.41F, 0.26F}, {0.60F, 0.53F, 0.37F}};
    for (int i = 0; i < count; ++i) {
        const glm::vec2 root(groundSide * random.fraction(), groundSide * random.fraction());
        const glm::vec3 color = ramp(stops, random.fraction());
        drawBlade(picture, root, circle * random.fraction(), random.between(16.0F, 60.0F),
                  random.between(0.9F, 2.0F), 0.75F * color, color, random);
    }
}

/// Blades over soil: what one grass has and another has not is a matter of numbers.
struct GrassRecipe {
    std::uint32_t seed = 0;
    std::vector<glm::vec3> soil;
    int litter = 0;
    float bareness = -9; ///< In deviations from the usual cover; what lies below stays soil.
    std::vector<GrassLook> layers;
    glm::vec3 drift{};
};

Picture grown(const GrassRecipe &recipe) {
    Random random(recipe.seed);
    Picture picture = soil(recipe.soil, recipe.seed + 1);
    const Field cover = patches(15, recipe.bareness, 0.9F, recipe.seed + 2);
    drawLitter(picture, recipe.litter, random);
    for (const GrassLook &layer : recipe.layers) {
        drawGrass(picture, layer, cover, random);
    }
    drift(picture, recipe.drift, recipe.seed + 6);
    return picture;
}

const std::vector<glm::vec3> lushColors{{0.40F, 0.57F, 0.22F},
                                        {0.48F, 0.64F, 0.26F},
                                        {0.36F, 0.52F, 0.23F},
                                        {0.57F, 0.67F, 0.33F},
                                        {0.43F, 0.59F, 0.25F}};

const GrassRecipe lush{101,
                       {{0.13F, 0.17F, 0.06F}, {0.20F, 0.25F, 0.09F}, {0.27F, 0.30F, 0.13F}},
                       0,
                       -9,
                       {{7600, 9, 22, 60, 2.4F, 9, lushColors, {0.15F, 0.22F, 0.07F}},
                        {1100, 5, 22, 74, 2.4F, 9, lushColors, {0.15F, 0.22F, 0.07F}}},
                       {0.10F, 0.03F, -0.08F}};

const GrassRecipe dry{201,
                      {{0.37F, 0.31F, 0.19F}, {0.50F, 0.43F, 0.27F}, {0.60F, 0.53F, 0.35F}},
                      900,
                      -0.9F,
                      {{5200,
                        11,
                        16,
                        52,
                        1.7F,
                        9,
                        {{0.76F, 0.67F, 0.38F},
                         {0.68F, 0.60F, 0.34F},
                         {0.84F, 0.77F, 0.52F},
                         {0.60F, 0.58F, 0.28F},
                         {0.50F, 0.55F, 0.24F}},
                        {0.34F, 0.28F, 0.14F}}},
                      {0.05F, 0.0F, -0.08F}};

} // namespace

Picture lushGrass() {
    return grown(lush);
}

Picture dryGrass() {
    return grown(dry);
}

Picture mossyGrass() {
    Random random(301);
    const Field height = mossHeight();
    const Field hollow = relief(height, 40);
    const Field grain = relief(height, 8);
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const int x = static_cast<int>(uv.x * groundSide);
        const int y = static_cast<int>(uv.y * groundSide);
        const float tone = 0.5F + 0.9F * hollow.at(x, y) + 0.8F * grain.at(x, y);
        const float hue = 0.5F + 0.5F * fractalNoise(uv, 13, 4, 302);
        const glm::vec3 deep = glm::mix(glm::vec3(0.10F, 0.16F, 0.07F), glm::vec3(0.16F, 0.15F, 0.06F), hue);
        const glm::vec3 high = glm::mix(glm::vec3(0.32F, 0.47F, 0.19F), glm::vec3(0.46F, 0.50F, 0.18F), hue);
        return glm::mix(deep, high, glm::clamp(tone, 0.0F, 1.0F));
    });
    drawMossPile(picture, height, random);
    drawLitter(picture, 420, random);
    GrassLook look;
    look.tufts = 900;
    look.bladesPerTuft = 7;
    look.thickest = 2.0F;
    look.root = {0.12F, 0.18F, 0.07F};
    look.colors = {{0.28F, 0.44F, 0.18F}, {0.34F, 0.48F, 0.24F}, {0.40F, 0.52F, 0.22F}};
    drawGrass(picture, look, patches(13, 0.3F, 0.6F, 305), random);
    return picture;
}
