#include "environment/BackgroundRenderer.h"

BackgroundRenderer::BackgroundRenderer() {
    setDiagonal(skyRotation, 1);
    setDiagonal(groundModelview, 1);
}

BackgroundRenderer::~BackgroundRenderer() = default;

void BackgroundRenderer::setMapSize(int newDensity, int newDimension) {
    density = newDensity;
    dimension = newDimension;
    setDiagonal(skyRotation, 1);
    skyTint = {1, 1, 1};
}

void BackgroundRenderer::setSunColor(float r, float g, float b) {
    sunColor = {r, g, b, 1};
}

void BackgroundRenderer::updateSkyTint() {
    constexpr std::array<float, 3> night{0.1F, 0.1F, 0.3F};
    constexpr std::array<float, 3> dusk{0.3F, 0.3F, 0.4F};
    constexpr std::array<float, 3> low{0.65F, 0.45F, 0.3F};
    constexpr std::array<float, 3> slanting{0.8F, 0.7F, 0.6F};
    constexpr std::array<float, 3> high{1, 1, 1};
    struct Span {
        int until; ///< First day time after the span.
        std::array<float, 3> tint;
    };
    constexpr std::array<Span, 8> spans{{{10, night},
                                         {30, dusk},
                                         {50, low},
                                         {70, slanting},
                                         {111, high},
                                         {131, slanting},
                                         {151, low},
                                         {171, dusk}}};
    skyTint = night;
    for (const Span &span : spans) {
        if (dayTime < span.until) {
            skyTint = span.tint;
            return;
        }
    }
}

void BackgroundRenderer::drawSkyAndGround(float) {}

void BackgroundRenderer::drawWater(float) {}
