#include "tools/assets/pictures/Grounds.h"

#include "tools/assets/pictures/GrassBlades.h"
#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Stroke.h"

namespace {

constexpr int side = 1024;
constexpr float circle = 6.2831853F;

/// Soil with crumbs, the same recipe under every grass.
Picture soil(const std::vector<glm::vec3> &stops, std::uint32_t seed) {
    Picture picture(side);
    picture.fill([&](glm::vec2 uv) {
        const float broad = fractalNoise(uv, 10, 5, seed, 0.6F);
        const float crumbs = fractalNoise(uv, 90, 3, seed + 7, 0.8F);
        return ramp(stops, 0.5F + 0.3F * broad) * (1.0F + 0.16F * crumbs);
    });
    return picture;
}

/// Three round leaflets with their pale mark.
void drawClover(Picture &picture, glm::vec2 middle, float size, float turn, glm::vec3 color) {
    for (int leaf = 0; leaf < 3; ++leaf) {
        const float angle = turn + circle * static_cast<float>(leaf) / 3.0F;
        const glm::vec2 centre = middle + 0.62F * size * glm::vec2(std::cos(angle), std::sin(angle));
        drawStamp(centre, 0.72F * size, angle, [&](int x, int y, glm::vec2 q) {
            const float notch = 0.16F * std::max(0.0F, q.x) * (1.0F - std::min(1.0F, 4.0F * std::abs(q.y)));
            const float radius = glm::length(q) + notch;
            const float mark = std::exp(-40.0F * (radius - 0.5F) * (radius - 0.5F));
            const float vein = std::exp(-60.0F * q.y * q.y);
            const glm::vec3 shaded =
                color * (0.72F + 0.36F * radius + 0.06F * vein) + glm::vec3(0.09F, 0.10F, 0.06F) * mark;
            const float coverage = glm::clamp((0.92F - radius) * 0.72F * size, 0.0F, 1.0F);
            blend(picture, x, y, shaded, coverage);
        });
    }
}

Field patches(int period, float threshold, float softness, std::uint32_t seed) {
    Field field(side);
    field.fill([&](glm::vec2 uv) {
        return glm::smoothstep(threshold - softness, threshold + softness, fractalNoise(uv, period, 4, seed));
    });
    return field;
}

/// Slow changes of hue that keep the brightness: `toward` at 1, its opposite at -1.
void drift(Picture &picture, int period, glm::vec3 toward, std::uint32_t seed) {
    const float step = 1.0F / static_cast<float>(picture.side());
    for (int y = 0; y < picture.side(); ++y) {
        for (int x = 0; x < picture.side(); ++x) {
            const float amount = fractalNoise(glm::vec2(x, y) * step, period, 3, seed);
            picture.at(x, y) *= glm::vec3(1) + toward * amount;
        }
    }
}

/// A cushion of moss: domes of several sizes under a short pile.
Field mossHeight() {
    Field height(side);
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
        const glm::vec2 root(side * random.fraction(), side * random.fraction());
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
        const glm::vec2 root(side * random.fraction(), side * random.fraction());
        const glm::vec3 color = ramp(stops, random.fraction());
        drawBlade(picture, root, circle * random.fraction(), random.between(16.0F, 60.0F),
                  random.between(0.9F, 2.0F), 0.75F * color, color, random);
    }
}

} // namespace

Picture lushGrass() {
    Random random(101);
    Picture picture = soil({{0.13F, 0.17F, 0.06F}, {0.20F, 0.25F, 0.09F}, {0.27F, 0.30F, 0.13F}}, 102);
    GrassLook look;
    look.tufts = 7600;
    look.root = {0.15F, 0.22F, 0.07F};
    look.colors = {{0.40F, 0.57F, 0.22F},
                   {0.48F, 0.64F, 0.26F},
                   {0.36F, 0.52F, 0.23F},
                   {0.57F, 0.67F, 0.33F},
                   {0.42F, 0.60F, 0.30F}};
    drawGrass(picture, look, Field(side, 1.0F), random);
    const Field clover = patches(5, 0.42F, 0.12F, 105);
    for (int i = 0; i < 5200; ++i) {
        const glm::vec2 middle(side * random.fraction(), side * random.fraction());
        if (random.fraction() < clover.at(static_cast<int>(middle.x), static_cast<int>(middle.y))) {
            drawClover(picture, middle, random.between(5.0F, 10.0F), circle * random.fraction(),
                       glm::vec3(0.40F, 0.62F, 0.27F) * random.between(0.8F, 1.12F));
        }
    }
    look.tufts = 1100;
    look.bladesPerTuft = 5;
    look.longest = 74;
    drawGrass(picture, look, Field(side, 1.0F), random);
    drift(picture, 5, {0.13F, 0.05F, -0.08F}, 107);
    flattenLarge(picture, 170, 0.7F);
    setMeanLuminance(picture, 0.46F);
    return picture;
}

Picture dryGrass() {
    Random random(201);
    Picture picture = soil({{0.40F, 0.31F, 0.21F}, {0.55F, 0.44F, 0.30F}, {0.66F, 0.55F, 0.39F}}, 202);
    Field cover = patches(6, -0.12F, 0.3F, 203);
    GrassLook look;
    look.tufts = 5200;
    look.bladesPerTuft = 11;
    look.shortest = 16;
    look.longest = 52;
    look.thickest = 1.7F;
    look.root = {0.34F, 0.28F, 0.14F};
    look.colors = {{0.76F, 0.67F, 0.38F},
                   {0.68F, 0.60F, 0.34F},
                   {0.84F, 0.77F, 0.52F},
                   {0.60F, 0.58F, 0.28F},
                   {0.50F, 0.55F, 0.24F}};
    drawLitter(picture, 900, random);
    drawGrass(picture, look, cover, random);
    drift(picture, 5, {0.06F, 0.0F, -0.1F}, 207);
    flattenLarge(picture, 170, 0.7F);
    setMeanLuminance(picture, 0.54F);
    return picture;
}

Picture mossyGrass() {
    Random random(301);
    const Field height = mossHeight();
    const Field hollow = relief(height, 40);
    const Field grain = relief(height, 8);
    Picture picture(side);
    picture.fill([&](glm::vec2 uv) {
        const int x = static_cast<int>(uv.x * side);
        const int y = static_cast<int>(uv.y * side);
        const float tone = 0.5F + 0.9F * hollow.at(x, y) + 0.8F * grain.at(x, y);
        const float hue = 0.5F + 0.5F * fractalNoise(uv, 7, 4, 302);
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
    drawGrass(picture, look, patches(5, 0.15F, 0.25F, 305), random);
    flattenLarge(picture, 170, 0.7F);
    setMeanLuminance(picture, 0.40F);
    return picture;
}
