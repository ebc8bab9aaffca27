#include "tools/assets/pictures/Stones.h"

#include "tools/assets/pictures/Stroke.h"

namespace {

constexpr float circle = 6.2831853F;

/// The outline's distance from the centre toward `angle`, 1 for a plain ellipse.
float outline(const Stone &stone, float angle) {
    float radius = 1;
    for (int wave = 2; wave <= 6; ++wave) {
        const float phase = circle * hashedFraction(wave, 1, stone.seed);
        const float size = hashedFraction(wave, 2, stone.seed) - 0.3F;
        radius += stone.corners * size * (3.0F / (1.0F + static_cast<float>(wave))) *
                  std::cos(static_cast<float>(wave) * angle + phase);
    }
    return radius;
}

float aroundDistance(glm::vec2 a, glm::vec2 b, float side) {
    const glm::vec2 d = glm::abs(a - b);
    return glm::length(glm::min(d, side - d));
}

} // namespace

std::vector<Stone> scatterStones(int side, int count, float smallest, float largest, float overlap,
                                 Random &random) {
    // Buckets as wide as the largest stone's reach, so that only neighbours are compared.
    const int buckets = std::max(1, static_cast<int>(static_cast<float>(side) / (2.0F * largest)));
    const float bucketSide = static_cast<float>(side) / static_cast<float>(buckets);
    std::vector<std::vector<std::size_t>> grid(static_cast<std::size_t>(buckets) *
                                               static_cast<std::size_t>(buckets));
    const auto bucket = [&](int x, int y) -> std::vector<std::size_t> & {
        const int number = (y + buckets) % buckets * buckets + (x + buckets) % buckets;
        return grid[static_cast<std::size_t>(number)];
    };
    std::vector<Stone> stones;
    const int tries = 12 * count;
    for (int attempt = 0; attempt < tries && static_cast<int>(stones.size()) < count; ++attempt) {
        // The large ones first: what is left over is filled with small ones.
        const float progress = static_cast<float>(attempt) / static_cast<float>(tries);
        const float top = glm::mix(largest, smallest, std::sqrt(progress));
        Stone stone;
        stone.size = random.between(std::max(smallest, 0.6F * top), top);
        stone.centre = static_cast<float>(side) * glm::vec2(random.fraction(), random.fraction());
        stone.turn = circle * random.fraction();
        stone.slim = random.between(0.62F, 1.0F);
        stone.corners = random.between(0.06F, 0.16F);
        stone.seed = hashed(attempt, 5, 77);
        const int bx = std::min(buckets - 1, static_cast<int>(stone.centre.x / bucketSide));
        const int by = std::min(buckets - 1, static_cast<int>(stone.centre.y / bucketSide));
        bool free = true;
        for (int dy = -1; dy <= 1 && free; ++dy) {
            for (int dx = -1; dx <= 1 && free; ++dx) {
                for (const std::size_t other : bucket(bx + dx, by + dy)) {
                    const float apart =
                        aroundDistance(stone.centre, stones[other].centre, static_cast<float>(side));
                    free = free && apart > (1.0F - overlap) * (stone.size + stones[other].size);
                }
            }
        }
        if (free) {
            bucket(bx, by).push_back(stones.size());
            stones.push_back(stone);
        }
    }
    return stones;
}

void layStones(StoneLayer &layer, const std::vector<Stone> &stones, float squareness) {
    for (std::size_t i = 0; i < stones.size(); ++i) {
        const Stone &stone = stones[i];
        const float reach = 1.35F * stone.size;
        drawStamp(stone.centre, reach, stone.turn, [&](int x, int y, glm::vec2 q) {
            const glm::vec2 p(1.35F * q.x, 1.35F * q.y / stone.slim);
            const float d = glm::length(p) / outline(stone, std::atan2(p.y, p.x));
            if (d >= 1.0F) {
                return;
            }
            const float dome = std::pow(1.0F - std::pow(d, squareness), 1.0F / squareness);
            const float height = 0.55F * stone.size * stone.slim * dome;
            if (height > layer.height.at(x, y)) {
                layer.height.at(x, y) = height;
                layer.owner.at(x, y) = static_cast<int>(i);
                layer.rim.at(x, y) = d;
            }
        });
    }
}
