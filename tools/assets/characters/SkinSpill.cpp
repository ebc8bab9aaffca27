#include "tools/assets/characters/SkinSpill.h"

#include <cmath>

SkinSpill::SkinSpill(unsigned side)
    : full{side, std::vector<glm::vec4>(std::size_t{side} * side, glm::vec4(0.0f))} {}

void SkinSpill::set(unsigned x, unsigned y, const glm::vec3 &colour) {
    full.sums[y * full.side + x] = glm::vec4(colour, 1.0f);
}

SkinSpill::Level SkinSpill::halved(const Level &level) const {
    Level half{level.side / 2, {}};
    for (unsigned y = 0; y < half.side; ++y) {
        for (unsigned x = 0; x < half.side; ++x) {
            const std::size_t at = std::size_t{2} * y * level.side + std::size_t{2} * x;
            const glm::vec4 sum = level.sums[at] + level.sums[at + 1] + level.sums[at + level.side] +
                                  level.sums[at + level.side + 1];
            half.sums.push_back(sum.w > 0.0f ? sum / sum.w : sum);
        }
    }
    return half;
}

QImage SkinSpill::image() const {
    std::vector<Level> levels{full};
    while (levels.back().side > 1)
        levels.push_back(halved(levels.back()));
    for (std::size_t i = levels.size() - 1; i > 0; --i) {
        Level &fine = levels[i - 1];
        for (std::size_t t = 0; t < fine.sums.size(); ++t) {
            const std::size_t x = t % fine.side;
            const std::size_t y = t / fine.side;
            if (fine.sums[t].w <= 0.0f)
                fine.sums[t] = levels[i].sums[(y / 2) * levels[i].side + x / 2];
        }
    }
    const auto side = static_cast<int>(full.side);
    QImage picture(side, side, QImage::Format_RGB888);
    const auto byte = [](float value) { return static_cast<int>(std::lround(value * 255.0f)); };
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int texel = y * side + x;
            const glm::vec4 colour = levels.front().sums[static_cast<std::size_t>(texel)];
            picture.setPixel(x, y, qRgb(byte(colour.r), byte(colour.g), byte(colour.b)));
        }
    }
    return picture;
}
