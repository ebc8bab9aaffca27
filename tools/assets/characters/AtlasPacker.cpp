#include "tools/assets/characters/AtlasPacker.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int margin = 3;

/// Places rectangles from the top of the square down, each where it lies highest.
class Skyline {
public:
    explicit Skyline(int sideLength) : side(sideLength), depth(static_cast<std::size_t>(sideLength), 0) {}

    /// False where the rectangle does not fit below what is there.
    bool place(const glm::ivec2 &size, glm::ivec2 &corner) {
        int best = side + 1;
        for (int x = 0; x + size.x <= side; ++x) {
            const auto from = depth.begin() + x;
            const int y = *std::max_element(from, from + size.x);
            if (y < best) {
                best = y;
                corner = {x, y};
            }
        }
        if (best + size.y > side)
            return false;
        std::fill_n(depth.begin() + corner.x, size.x, best + size.y);
        return true;
    }

private:
    int side;
    std::vector<int> depth;
};

bool packAt(const std::vector<glm::vec2> &sizes, const std::vector<std::size_t> &order, int side,
            AtlasLayout &layout) {
    Skyline skyline(side);
    for (const std::size_t i : order) {
        const glm::ivec2 size = glm::ivec2(glm::ceil(sizes[i] * layout.density)) + 2 * margin;
        glm::ivec2 corner(0);
        if (size.x > side || !skyline.place(size, corner))
            return false;
        layout.corners[i] = corner + margin;
    }
    return true;
}

} // namespace

AtlasLayout packAtlas(const std::vector<glm::vec2> &sizes, unsigned side) {
    std::vector<std::size_t> order(sizes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return sizes[a].y > sizes[b].y; });
    AtlasLayout layout{40.0f, std::vector<glm::ivec2>(sizes.size())};
    while (!packAt(sizes, order, static_cast<int>(side), layout))
        layout.density *= 0.985f;
    return layout;
}
