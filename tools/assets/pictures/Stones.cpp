#include "tools/assets/pictures/Stones.h"

#include "tools/assets/pictures/Stroke.h"

#include <array>

namespace {

/// A stone's outline: waves of two to six to a turn around an ellipse.
class Outline {
public:
    explicit Outline(const Stone &stone) {
        for (int i = 0; i < static_cast<int>(m_waves.size()); ++i) {
            const int wave = i + 2;
            const float phase = circle * hashedFraction(wave, 1, stone.seed);
            const float size = hashedFraction(wave, 2, stone.seed) - 0.3F;
            const float height = stone.corners * size * (3.0F / (1.0F + static_cast<float>(wave)));
            m_waves[static_cast<std::size_t>(i)] = height * glm::vec2(std::cos(phase), std::sin(phase));
            m_farthest += std::abs(height);
        }
    }

    /// No part of the outline is farther from the centre.
    float farthest() const { return m_farthest; }

    /// Its distance from the centre toward `direction`, of unit length; 1 for a plain ellipse.
    float toward(glm::vec2 direction) const {
        float radius = 1;
        glm::vec2 turned = direction;
        for (const glm::vec2 wave : m_waves) {
            turned = {turned.x * direction.x - turned.y * direction.y,
                      turned.x * direction.y + turned.y * direction.x};
            radius += glm::dot(wave, glm::vec2(turned.x, -turned.y));
        }
        return radius;
    }

private:
    std::array<glm::vec2, 5> m_waves{}; ///< Cosine and sine of each one's phase, times its height.
    float m_farthest = 1;
};

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
        const Outline outline(stone);
        const float top = 0.55F * stone.size * stone.slim;
        const float reach = 1.35F * stone.size;
        drawStamp(stone.centre, reach, stone.turn, [&](int x, int y, glm::vec2 q) {
            const glm::vec2 p(1.35F * q.x, 1.35F * q.y / stone.slim);
            const float distance = glm::length(p);
            if (distance >= outline.farthest() || top <= layer.height.at(x, y)) {
                return;
            }
            const float d = distance / outline.toward(distance > 0.0F ? p / distance : glm::vec2(1, 0));
            if (d >= 1.0F) {
                return;
            }
            const float height = top * std::pow(1.0F - std::pow(d, squareness), 1.0F / squareness);
            if (height > layer.height.at(x, y)) {
                layer.height.at(x, y) = height;
                layer.owner.at(x, y) = static_cast<int>(i);
                layer.rim.at(x, y) = d;
            }
        });
    }
}
