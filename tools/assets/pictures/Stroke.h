#pragma once

#include "tools/assets/pictures/Field.h"

#include <algorithm>
#include <cmath>
#include <vector>

/// What a stroke covers at one texel.
struct StrokeTexel {
    int x = 0;
    int y = 0;
    float coverage = 0; ///< Share of the texel that is covered, 0 to 1.
    float along = 0;    ///< 0 at the start of the stroke, 1 at its end.
    float across = 0;   ///< -1 at the left rim, 1 at the right one.
};

/// A bent stroke: from `start` over `control` to `end` (a quadratic curve), in texels; it may leave the
/// picture, the paint wraps.
struct Stroke {
    glm::vec2 start{};
    glm::vec2 control{};
    glm::vec2 end{};
    float startRadius = 1;
    float middleRadius = 1;
    float endRadius = 0;
};

/// Calls paint(const StrokeTexel &) for every texel that the stroke touches.
template <class Paint>
void drawStroke(const Stroke &stroke, Paint paint) {
    const float length =
        glm::distance(stroke.start, stroke.control) + glm::distance(stroke.control, stroke.end);
    const int pieces = std::clamp(static_cast<int>(length / 7.0F), 2, 24);
    const auto place = [&](float t) {
        return glm::mix(glm::mix(stroke.start, stroke.control, t), glm::mix(stroke.control, stroke.end, t),
                        t);
    };
    const auto radius = [&](float t) {
        return t < 0.5F ? glm::mix(stroke.startRadius, stroke.middleRadius, 2.0F * t)
                        : glm::mix(stroke.middleRadius, stroke.endRadius, 2.0F * t - 1.0F);
    };
    for (int piece = 0; piece < pieces; ++piece) {
        const float t0 = static_cast<float>(piece) / static_cast<float>(pieces);
        const float t1 = static_cast<float>(piece + 1) / static_cast<float>(pieces);
        const glm::vec2 a = place(t0);
        const glm::vec2 ab = place(t1) - a;
        const float lengthSquared = std::max(1e-4F, glm::dot(ab, ab));
        const float reach = std::max(radius(t0), radius(t1)) + 1.0F;
        const glm::ivec2 low(glm::floor(glm::min(a, a + ab) - reach));
        const glm::ivec2 high(glm::ceil(glm::max(a, a + ab) + reach));
        for (int y = low.y; y <= high.y; ++y) {
            for (int x = low.x; x <= high.x; ++x) {
                const glm::vec2 p = glm::vec2(x, y) + 0.5F - a;
                const float raw = glm::dot(p, ab) / lengthSquared;
                // Pieces meet without overlapping; only the ends of the stroke are round.
                if ((raw < 0.0F && piece > 0) || (raw >= 1.0F && piece + 1 < pieces)) {
                    continue;
                }
                const float share = glm::clamp(raw, 0.0F, 1.0F);
                const float t = glm::mix(t0, t1, share);
                const float r = radius(t);
                const glm::vec2 off = p - share * ab;
                const float coverage =
                    glm::clamp(r - glm::length(off) + 0.5F, 0.0F, 1.0F) * std::min(1.0F, r + 0.5F);
                if (coverage > 0.0F) {
                    const float side = (ab.x * off.y - ab.y * off.x) / std::sqrt(lengthSquared);
                    paint(StrokeTexel{x, y, coverage, t, glm::clamp(side / std::max(r, 0.5F), -1.0F, 1.0F)});
                }
            }
        }
    }
}

/// Calls paint(x, y, q) for every texel of a square of half side `reach` turned by `angle` around
/// `centre`, with q its place in the turned square, -1 to 1 on each axis.
template <class Paint>
void drawStamp(glm::vec2 centre, float reach, float angle, Paint paint) {
    const float c = std::cos(angle) / reach;
    const float s = std::sin(angle) / reach;
    const int box = static_cast<int>(std::ceil(reach * 1.42F)) + 1;
    const glm::ivec2 middle(glm::floor(centre));
    for (int y = middle.y - box; y <= middle.y + box; ++y) {
        for (int x = middle.x - box; x <= middle.x + box; ++x) {
            const glm::vec2 d = glm::vec2(x, y) + 0.5F - centre;
            const glm::vec2 q(c * d.x + s * d.y, c * d.y - s * d.x);
            if (std::abs(q.x) <= 1.0F && std::abs(q.y) <= 1.0F) {
                paint(x, y, q);
            }
        }
    }
}
