#include "tools/assets/pictures/Grounds.h"

#include "tools/assets/pictures/GrassBlades.h"
#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Stroke.h"

namespace {

/// Cracks in ice: long bent lines, each with finer branches.
void drawCracks(Field &cracks, int count, Random &random) {
    for (int i = 0; i < count; ++i) {
        const float angle = circle * random.fraction();
        const float length = random.between(90.0F, 420.0F);
        const float bend = 0.35F * random.bell();
        Stroke stroke;
        stroke.start = static_cast<float>(groundSide) * glm::vec2(random.fraction(), random.fraction());
        stroke.control = stroke.start + 0.5F * length * glm::vec2(std::cos(angle), std::sin(angle));
        stroke.end =
            stroke.control + 0.5F * length * glm::vec2(std::cos(angle + bend), std::sin(angle + bend));
        stroke.startRadius = 0.2F;
        stroke.middleRadius = random.between(0.5F, 1.5F);
        stroke.endRadius = 0.1F;
        const float strength = random.between(0.35F, 1.0F);
        drawStroke(stroke, [&](const StrokeTexel &texel) {
            float &value = cracks.at(texel.x, texel.y);
            value = std::max(value, strength * texel.coverage);
        });
    }
}

/// Crystals that catch the light: single bright texels with faint arms.
void drawSparkles(Picture &picture, int count, Random &random) {
    for (int i = 0; i < count; ++i) {
        const glm::ivec2 at(random.below(groundSide), random.below(groundSide));
        const float strength = random.fraction() * random.fraction();
        picture.at(at.x, at.y) += 0.30F * strength;
        for (const glm::ivec2 arm :
             {glm::ivec2(1, 0), glm::ivec2(-1, 0), glm::ivec2(0, 1), glm::ivec2(0, -1)}) {
            picture.at(at.x + arm.x, at.y + arm.y) += 0.10F * strength;
        }
    }
}

} // namespace

Picture freshSnow() {
    Field height(groundSide);
    height.fill([](glm::vec2 uv) {
        const glm::vec2 warp(0.02F * fractalNoise(uv, 5, 2, 701), 0.02F * fractalNoise(uv, 5, 2, 702));
        const float mounds = cellNoise(uv + 2.0F * warp, 9, 0.9F, 709).nearest;
        const float small = cellNoise(uv + warp, 21, 1.0F, 710).nearest;
        const float drifts = -0.42F * mounds * mounds - 0.14F * small * small +
                             0.40F * fractalNoise(uv + warp, 9, 3, 703, 0.40F);
        const float lumps =
            0.20F * std::max(0.0F, fractalNoise(uv, 30, 2, 704)) + 0.05F * fractalNoise(uv, 55, 2, 708);
        return drifts + lumps + 0.035F * fractalNoise(uv, 128, 3, 705, 0.7F);
    });
    const Field broad = relief(height, 70);
    const Field close = relief(height, 9);
    const Field level = levelness(height, 30.0F);
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(groundSide));
        const float lit = 0.60F + 0.95F * broad.at(at.x, at.y) + 1.3F * close.at(at.x, at.y) +
                          0.26F * (level.at(at.x, at.y) - 0.9F) +
                          0.10F * (hashedFraction(at.x, at.y, 706) - 0.5F);
        return ramp({{0.55F, 0.63F, 0.75F},
                     {0.72F, 0.79F, 0.87F},
                     {0.86F, 0.90F, 0.94F},
                     {0.94F, 0.96F, 0.98F},
                     {1.0F, 1.0F, 1.0F}},
                    lit);
    });
    Random random(707);
    drawSparkles(picture, 9000, random);
    return picture;
}

Picture packedSnow() {
    Random random(711);
    Field cracks(groundSide);
    drawCracks(cracks, 150, random);
    const Field halo = blurred(cracks, 5);
    Field height(groundSide);
    height.fill([](glm::vec2 uv) {
        // Wind has carved the crust along x.
        const glm::vec2 warp(0.018F * fractalNoise(uv, 6, 3, 712), 0.018F * fractalNoise(uv, 6, 3, 713));
        return 0.55F * fractalNoise(uv + warp, 17, 5, 714, 0.55F) +
               0.45F * ridgedNoise(uv + warp, 19, 4, 715);
    });
    const Field cavity = relief(height, 18);
    const Field level = levelness(height, 14.0F);
    const Field cover = standardised(height, 60);
    Picture picture(groundSide);
    picture.fill([&](glm::vec2 uv) {
        const glm::ivec2 at(uv * static_cast<float>(groundSide));
        const float bare = glm::smoothstep(-0.2F, -1.3F, cover.at(at.x, at.y));
        const float inside =
            fractalNoise(uv + glm::vec2(0.03F * fractalNoise(uv, 7, 3, 716)), 12, 6, 717, 0.6F);
        const CellSample bubble = cellNoise(uv, 80, 1.0F, 718);
        const float bubbles =
            static_cast<float>(bubble.id & 0xFFU) > 190.0F ? std::exp(-30.0F * bubble.nearest) : 0.0F;
        glm::vec3 ice =
            ramp({{0.47F, 0.60F, 0.71F}, {0.58F, 0.72F, 0.81F}, {0.72F, 0.83F, 0.89F}}, 0.5F + 0.5F * inside);
        ice += glm::vec3(0.30F, 0.26F, 0.22F) *
               (0.9F * cracks.at(at.x, at.y) + 1.1F * halo.at(at.x, at.y) + 0.5F * bubbles);
        const float grain = hashedFraction(at.x, at.y, 719) - 0.5F;
        glm::vec3 crust = ramp({{0.62F, 0.70F, 0.80F}, {0.80F, 0.86F, 0.91F}, {0.95F, 0.97F, 0.98F}},
                               0.55F + 1.1F * cavity.at(at.x, at.y) + 0.12F * grain +
                                   0.06F * fractalNoise(uv, 90, 4, 720, 0.7F));
        crust *= 0.66F + 0.34F * level.at(at.x, at.y);
        return glm::mix(crust, ice, 0.78F * bare);
    });
    return picture;
}
